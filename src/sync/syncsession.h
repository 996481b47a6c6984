#pragma once
// One sync of the open phonebook with its address book, in three steps so that the window stays
// responsive while the network is busy:
//   prepare()  on the thread that owns the phonebook: reads the contacts and what the last sync
//              agreed on;
//   exchange() on any thread, without touching the phonebook: lists what changed on the server,
//              fetches it, merges, and sends what changed here (uploads with If-Match, new cards
//              with If-None-Match, so a concurrent change on the server is never overwritten);
//   commit()   on the phonebook's thread again: writes what came from the server and the new
//              state in one transaction. A contact edited here while the network was busy is
//              merged once more, so that edit is kept.
// A failure half-way keeps whatever is consistent: what the server confirmed is recorded, and the
// next sync picks up the rest.

#include "sync/account.h"

#include <QStringList>
#include <atomic>
#include <functional>
#include <memory>

namespace carddav {

struct SyncSummary {
    int sent = 0;         // cards stored on the server
    int received = 0;     // contacts added or changed here from the server
    int merged = 0;       // contacts changed on both sides, or matched on the first sync
    int conflicts = 0;    // fields changed on both sides (the server's value is in the comment)
    int deletedHere = 0;  // contacts removed here because the server removed them
    int deletedThere = 0; // cards removed from the server because they were removed here
    int requests = 0;     // requests sent to the server
    QStringList notes;    // one line a card that could not be read or stored, and why
    QString error;        // why the sync stopped early, in plain words; empty when it completed

    bool completed() const { return error.isEmpty(); }
    // "Sent 2, received 3, merged 1, 0 conflicts" (and the error, when there was one).
    QString text() const;
};

// Told how far the sync is, from the exchange step's thread.
using SyncProgress = std::function<void(const QString& what, int done, int total)>;

class SyncSession {
  public:
    SyncSession(const Account& account, const QString& password);
    ~SyncSession();
    SyncSession(const SyncSession&) = delete;
    SyncSession& operator=(const SyncSession&) = delete;

    void setProgress(SyncProgress progress);
    void prepare();
    // Never throws: a failure is kept for the summary.
    void exchange(const std::atomic_bool* cancel = nullptr);
    SyncSummary commit();

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// The three steps in a row, for the command line and for tests. The account is the open
// phonebook's.
SyncSummary SyncNow(const QString& password, const std::atomic_bool* cancel = nullptr,
                    const SyncProgress& progress = {});

} // namespace carddav

#include <QMetaType>
Q_DECLARE_METATYPE(carddav::SyncSummary)
