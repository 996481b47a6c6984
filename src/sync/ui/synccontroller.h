#pragma once
// Syncs of the open phonebook while the main window runs: one at open, one every few minutes as
// the account says, and one on demand. Whenever the phonebook closes, a running sync is cancelled
// first. The network part runs on a thread of its own, so the
// window never waits; what the sync brings is written on the window's thread once it is back.
// Progress and the last result stand in a label of the status bar.

#include "sync/syncsession.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <atomic>
#include <functional>
#include <memory>

class QLabel;
class QStatusBar;
class QThread;
class QWidget;

namespace carddav {

class SyncController : public QObject {
    Q_OBJECT
  public:
    SyncController(QWidget* window, QStatusBar* bar);
    ~SyncController() override;

    // A phonebook was opened: a sync at once when it is linked, then at its interval.
    void phonebookOpened();
    // The account changed in the settings: the interval and the password for this session.
    void accountChanged(const QString& sessionPassword = QString());
    // Starts a sync. `interactive`: a failure, notes or a missing password are told in a window.
    // One of its own accord (at open, at the interval) is skipped while a modal window is open.
    void syncNow(bool interactive);
    // A sync is on its way: on the network, or waiting to write what it brought.
    bool running() const { return m_thread != nullptr || m_session != nullptr; }

  signals:
    // A sync ended and wrote its result; `changedHere` when contacts of the phonebook changed.
    void finished(const carddav::SyncSummary& summary, bool changedHere);

  private:
    // Before the phonebook closes: a running sync is cancelled and nothing more is written.
    void cancelRunning();
    void exchanged();
    void commitWhenFree();
    void show(const QString& text, const QString& tip = QString());
    bool mayRun() const;

    QWidget* m_window;
    QLabel* m_label;
    QTimer m_timer;
    QThread* m_thread = nullptr;
    std::unique_ptr<SyncSession> m_session;
    std::atomic_bool m_cancel{false};
    QString m_path;     // the phonebook the running sync belongs to
    QString m_password; // given in the settings when no secret store keeps it
    bool m_interactive = false;
    std::function<void()> m_oldBeforeClosing;
};

} // namespace carddav
