#pragma once
// The quick filter of the main window's contact list: the contacts whose full name, company or
// numbers hold a word of a text, over the whole phonebook. The query runs on the window's own
// thread in short steps, each over a range of the contacts, so that the window answers between
// them: starting again, or cancelling, drops the rest of a run at once. The rows of the matches
// go into the list step by step and are sorted in the order in force at the end.

#include <QObject>
#include <QString>

class ListView;
class QTimer;

namespace mSearch {

class QuickFilter : public QObject {
    Q_OBJECT
  public:
    explicit QuickFilter(ListView& list, QObject* parent = nullptr);

    // Empties the list and starts the filter for `text`, dropping a run in progress. False, with
    // nothing started, when the text holds no word.
    bool Start(const QString& text);
    // Drops a run in progress; the rows found so far stay until the list is filled again.
    void Cancel();
    bool Running() const { return m_running; }
    int Matches() const { return m_matches; }
    // Runs what is left of the filter now, without returning to the event loop.
    void RunToEnd();

    // How long one step aims to take, in milliseconds.
    static constexpr int kStepMs = 30;

  signals:
    // The run has ended with all the contacts looked at.
    void Finished(int matches);

  private:
    void step();

    ListView& m_list;
    QTimer* m_timer;
    QString m_condition;
    qint64 m_done = 0; // the contacts up to this row number have been looked at
    qint64 m_last = 0; // the highest row number of the contacts
    qint64 m_chunk = 4096;
    int m_matches = 0;
    bool m_running = false;
};

} // namespace mSearch
