#include "synctest.h"

#include "core/globals.h"
#include "exchange/book/bookexchange.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "sync/account.h"
#include "trees/deletecd.h"

using exchange::ContactRecord;
using exchange::NumberRow;

namespace synctest {

void SyncTest::SetUp() {
    TempDirTest::SetUp();
    QString reason;
    if (!fixture::RadicaleServer::available(&reason)) GTEST_SKIP() << reason.toStdString();
    ASSERT_TRUE(server.start(path(QStringLiteral("radicale")))) << server.log().toStdString();
    book = server.createAddressBook(QStringLiteral("contacts"));
    ASSERT_FALSE(book.isEmpty()) << server.log().toStdString();
}

void SyncTest::TearDown() {
    mMain::Closing();
    gNotConnected = true;
    TempDirTest::TearDown();
}

void SyncTest::use(const QString& name) {
    mMain::Closing();
    gDBPath = path(name);
    ASSERT_TRUE(mLogin::LoginCnn(false));
    gNotConnected = false;
}

void SyncTest::link(const QUrl& other) {
    carddav::Account a;
    a.server = server.url().toString();
    a.user = server.user();
    a.book = other.isEmpty() ? book : other;
    a.bookName = QStringLiteral("Contacts");
    carddav::SaveAccount(a);
}

carddav::SyncSummary SyncTest::sync(const carddav::SyncProgress& progress) {
    return carddav::SyncNow(server.password(), nullptr, progress);
}

qint32 SyncTest::add(const ContactRecord& r) {
    dao::Transaction trans(gWS);
    mExchange::RecordWriter writer;
    const qint32 id = writer.add(r, nullptr, nullptr);
    trans.Commit();
    return id;
}

void SyncTest::replace(qint32 idcd, const ContactRecord& r) {
    dao::Transaction trans(gWS);
    mExchange::RecordWriter writer;
    EXPECT_TRUE(writer.replace(idcd, r, nullptr));
    trans.Commit();
}

void SyncTest::remove(qint32 idcd) {
    mAccess::DeleteCD(idcd, -1);
}

QMap<QString, ContactRecord> SyncTest::contacts() {
    QMap<QString, ContactRecord> all;
    mExchange::ForEachStoredContact([&all](const mExchange::StoredContact& c) {
        EXPECT_FALSE(all.contains(c.record.FullName)) << "twice: " << c.record.FullName.toStdString();
        all.insert(c.record.FullName, c.record);
        return true;
    });
    return all;
}

qint32 SyncTest::idOf(const QString& fullName) {
    qint32 id = 0;
    mExchange::ForEachStoredContact([&](const mExchange::StoredContact& c) {
        if (c.record.FullName == fullName) id = c.idcd;
        return id == 0;
    });
    return id;
}

ContactRecord Named(const QString& fullName, const QString& number) {
    ContactRecord c;
    c.FullName = fullName;
    c.Numbers << NumberRow{QStringLiteral("Mobile phone"), number};
    return c;
}

} // namespace synctest
