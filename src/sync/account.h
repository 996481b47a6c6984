#pragma once
// The address book a phonebook is linked to, kept in the phonebook itself (table SyncAccount, one
// row) together with what the last sync left: the server's sync token and a summary. The password
// is never kept here: see secrets.h.

#include <QDateTime>
#include <QString>
#include <QUrl>

namespace carddav {

struct Account {
    QString server; // the address the user typed
    QString user;
    QUrl book;        // the address book chosen; empty: the phonebook is not linked
    QString bookName; // its display name
    int interval = 0; // minutes between syncs while the phonebook is open; 0: at open and on demand
    bool syncCollection = false; // the server offers sync-collection on the book
    QString syncToken;           // from the last complete listing
    QDateTime lastSync;
    QString lastSummary;

    bool linked() const { return !book.isEmpty(); }
};

// The account of the open phonebook; an empty one when it has none (or cannot have one: a
// phonebook opened read-only keeps no sync tables).
Account LoadAccount();

// Stores the account's settings. Linking to another address book (or unlinking, with an empty
// book) forgets what the phonebook knew of the old one: the token and every contact's state.
void SaveAccount(const Account& account);

// Stores what a sync leaves: token, time and summary.
void SaveSyncResult(const QString& token, const QDateTime& when, const QString& summary);

// True when the open phonebook can hold an account (it has the sync tables).
bool CanLink();

} // namespace carddav
