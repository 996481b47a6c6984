#include "sync/account.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/store/dao.h"
#include "phonebook/upgrade.h"

namespace carddav {

namespace {

QVariant TextOrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

dao::Recordset AccountRow() {
    return gDB.OpenRecordset(QStringLiteral("SELECT * FROM SyncAccount"));
}

} // namespace

bool CanLink() {
    return gDBOpen && mAccess::CheckTable(QStringLiteral("SyncAccount"));
}

Account LoadAccount() {
    HUNT_PLACE("carddav.LoadAccount");
    Account a;
    if (!CanLink()) return a;
    dao::Recordset rs = AccountRow();
    if (!rs.AtEOF()) {
        a.server = rs[QStringLiteral("Server")].toString();
        a.user = rs[QStringLiteral("UserName")].toString();
        a.book = QUrl(rs[QStringLiteral("AddressBook")].toString());
        a.bookName = rs[QStringLiteral("BookName")].toString();
        a.interval = rs[QStringLiteral("Interval")].toInt();
        a.syncCollection = rs[QStringLiteral("SyncCollection")].toBool();
        a.syncToken = rs[QStringLiteral("SyncToken")].toString();
        a.lastSync = rs[QStringLiteral("LastSync")].toDateTime();
        a.lastSummary = rs[QStringLiteral("LastSummary")].toString();
    }
    rs.Close();
    return a;
}

void SaveAccount(const Account& account) {
    HUNT_PLACE("carddav.SaveAccount", account.server, account.book.toString());
    if (!mAccess::CheckTable(QStringLiteral("SyncState"))) mAccess::AddSyncTables();
    const Account old = LoadAccount();
    const bool otherBook = old.book != account.book;
    dao::Transaction trans(gWS);
    dao::Recordset rs = AccountRow();
    if (rs.AtEOF())
        rs.AddNew();
    else
        rs.Edit();
    rs.SetValue(QStringLiteral("Server"), TextOrNull(account.server));
    rs.SetValue(QStringLiteral("UserName"), TextOrNull(account.user));
    rs.SetValue(QStringLiteral("AddressBook"), TextOrNull(account.book.toString()));
    rs.SetValue(QStringLiteral("BookName"), TextOrNull(account.bookName.left(255)));
    rs.SetValue(QStringLiteral("Interval"), qMax(0, account.interval));
    rs.SetValue(QStringLiteral("SyncCollection"), account.syncCollection);
    if (otherBook) {
        rs.SetValue(QStringLiteral("SyncToken"), QVariant());
        rs.SetValue(QStringLiteral("LastSync"), QVariant());
        rs.SetValue(QStringLiteral("LastSummary"), QVariant());
    }
    rs.Update();
    rs.Close();
    if (otherBook) gDB.Execute(QStringLiteral("DELETE * FROM SyncState"));
    trans.Commit();
}

void SaveSyncResult(const QString& token, const QDateTime& when, const QString& summary) {
    HUNT_PLACE("carddav.SaveSyncResult", token);
    dao::Recordset rs = AccountRow();
    if (rs.AtEOF()) return;
    rs.Edit();
    rs.SetValue(QStringLiteral("SyncToken"), TextOrNull(token));
    rs.SetValue(QStringLiteral("LastSync"), when);
    rs.SetValue(QStringLiteral("LastSummary"), TextOrNull(summary));
    rs.Update();
    rs.Close();
}

} // namespace carddav
