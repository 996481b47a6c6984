#include "synctest.h"

#include "core/globals.h"
#include "exchange/book/bookexchange.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "sync/account.h"
#include "trees/deletecd.h"

#include <QFile>

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

ContactRecord FullContact(int n) {
    static const QStringList types = {"Mobile phone", "Home phone", "Work phone", "Fax",
                                      "Email",        "MSN",        "ICQ",        "AOL",
                                      "Kid's phone",  "Web page",   "Email",      "Phone"};
    ContactRecord c;
    c.FullName = QStringLiteral("Zoë Ångström-Łukasz %1").arg(n);
    c.Title = QStringLiteral("Head of R&D; “north” office");
    c.Company = QStringLiteral("Société Générale d'Études");
    c.Address = QStringLiteral("Rua das Flores 12\n3º esq.");
    c.City = QStringLiteral("Lisboa");
    c.State = QStringLiteral("Lx");
    c.Zip = QStringLiteral("1200-195");
    c.Comment = QStringLiteral("Line one; with a semicolon, a comma\nline two \\ backslash\nДмитрий 王伟");
    for (int i = 0; i < exchange::kNumberRows; ++i)
        c.Numbers << NumberRow{types[i], types[i] == QLatin1String("Email")
                                             ? QStringLiteral("z%1.%2@example.org").arg(n).arg(i)
                                         : types[i] == QLatin1String("Web page")
                                             ? QStringLiteral("https://example.org/%1").arg(n)
                                             : QStringLiteral("+351 21 %1 %2").arg(n).arg(100 + i)};
    QFile photo(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/exchange/data/photo.jpg"));
    if (photo.open(QIODevice::ReadOnly)) c.Photo = photo.readAll();
    c.PhotoExt = QStringLiteral("jpg");
    c.CategoryPath = {QStringLiteral("Work"), QStringLiteral("Lisboa")};
    c.GroupPath = {QStringLiteral("Partners")};
    c.Favorite = true;
    c.FavoritePath = {QStringLiteral("Team")};
    return c;
}

ContactRecord Named(const QString& fullName, const QString& number) {
    ContactRecord c;
    c.FullName = fullName;
    c.Numbers << NumberRow{QStringLiteral("Mobile phone"), number};
    return c;
}

} // namespace synctest

namespace exchange {
void PrintTo(const ContactRecord& r, std::ostream* os) {
    *os << "\n  FullName=" << r.FullName.toStdString() << "\n  Title=" << r.Title.toStdString()
        << "\n  Company=" << r.Company.toStdString() << "\n  Address=" << r.Address.toStdString() << " | "
        << r.City.toStdString() << " | " << r.State.toStdString() << " | " << r.Zip.toStdString()
        << "\n  Comment=" << r.Comment.toStdString() << "\n  Photo=" << r.Photo.size() << " bytes ."
        << r.PhotoExt.toStdString() << "\n  Numbers=";
    for (const NumberRow& n : r.Numbers)
        *os << "[" << n.type.toStdString() << ": " << n.value.toStdString() << "] ";
    *os << "\n  Category=" << r.CategoryPath.join(QLatin1Char('|')).toStdString()
        << " Group=" << r.GroupPath.join(QLatin1Char('|')).toStdString() << " Favorite=" << r.Favorite << ":"
        << r.FavoritePath.join(QLatin1Char('|')).toStdString();
}
} // namespace exchange
