// A new phonebook: what it holds, and what happens when it cannot be made.
#include "app/mmain.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "support/fixture.h"

#include <QDir>
#include <QFile>

using fixture::PhonebookTest;
using fixture::TempDirTest;
using namespace mLanguageGobals;

namespace {
QStringList fieldNames(const dao::TableDef& t) {
    QStringList l;
    for (const dao::Field& f : t.Fields)
        l << f.Name;
    return l;
}
QStringList rows(const QString& sql) {
    QStringList out;
    dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        QStringList cells;
        for (int i = 0; i < rs.FieldCount(); ++i)
            cells << (rs.Value(i).isNull() ? QStringLiteral("<null>") : rs.Text(i));
        out << cells.join(QLatin1Char('|'));
    }
    return out;
}
} // namespace

using NewPhonebook = PhonebookTest;

TEST_F(NewPhonebook, HoldsTheElevenTablesWithTheirFieldsAndIndexes) {
    dao::TableDefs defs = gDB.TableDefs();
    EXPECT_EQ(defs.Names(), (QStringList{"CDs", "Types", "Paths", "Elements", "SearchWhat", "SearchWhere",
                                         "Categories", "Boxes", "Borrows", "LoanHistory", "AccessMode"}));
    const dao::TableDef cds = defs.Item(QStringLiteral("CDs"));
    const QStringList f = fieldNames(cds);
    ASSERT_EQ(f.size(), 66);
    EXPECT_EQ(f.mid(0, 8), (QStringList{"IDCD", "FileSystem", "DriveType", "ComputerName", "Label",
                                        "Drive_Folder", "TotalSize", "Comment"}));
    EXPECT_EQ(f.mid(21, 12),
              (QStringList{"DateScan", "SN", "IDC", "IDX", "IDB", "IsLend", "LoanStart", "LoanComment",
                           "IsFolder", "ScannedArchives", "ContactNumber", "FullName"}));
    EXPECT_EQ(f[39], QStringLiteral("Type1"));
    EXPECT_EQ(f[50], QStringLiteral("Type12"));
    EXPECT_EQ(f[51], QStringLiteral("Number1"));
    EXPECT_EQ(f.mid(63), (QStringList{"Photo", "PhotoExt", "PhotoSize"}));
    EXPECT_TRUE(cds.Indexes.empty()); // no key and no index, on purpose
    EXPECT_EQ(cds.FieldByName(QStringLiteral("Label")).Size, 50);
    EXPECT_TRUE(cds.FieldByName(QStringLiteral("Label")).AllowZeroLength);
    EXPECT_FALSE(cds.FieldByName(QStringLiteral("FullName")).AllowZeroLength);
    EXPECT_EQ(cds.FieldByName(QStringLiteral("PhotoExt")).Size, 15);
    EXPECT_EQ(cds.FieldByName(QStringLiteral("Photo")).Type, dao::dbLongBinary);
    EXPECT_EQ(cds.FieldByName(QStringLiteral("IDB")).DefaultValue.toInt(), -1);
    EXPECT_EQ(cds.FieldByName(QStringLiteral("DateScan")).DefaultValue.toString(), QStringLiteral("now"));

    EXPECT_EQ(fieldNames(defs.Item(QStringLiteral("Borrows"))),
              (QStringList{"ID", "Name", "IDPARENT", "Pedigree", "Comment", "Address", "PhoneHome",
                           "PhoneWork", "PhoneMobile", "Email", "Woman", "Catpath"}));
    EXPECT_EQ(fieldNames(defs.Item(QStringLiteral("AccessMode"))),
              (QStringList{"FullPW", "ReadOnlyPW", "DefaultIsFull"}));
    const dao::TableDef elements = defs.Item(QStringLiteral("Elements"));
    ASSERT_EQ(elements.Indexes.size(), 3u);
    EXPECT_TRUE(elements.Indexes[0].Primary);
    EXPECT_EQ(elements.Indexes[0].Name, QStringLiteral("Index1"));
    EXPECT_EQ(elements.Indexes[1].Name, QStringLiteral("Index2"));
    EXPECT_FALSE(elements.Indexes[1].Unique);
    EXPECT_TRUE(elements.Indexes[2].Unique);
    EXPECT_FALSE(elements.Indexes[2].Primary);
    const dao::TableDef types = defs.Item(QStringLiteral("Types"));
    ASSERT_EQ(types.Indexes.size(), 1u);
    EXPECT_EQ(types.Indexes[0].Name, QStringLiteral("Index2"));
    EXPECT_FALSE(types.Indexes[0].Primary);
    EXPECT_TRUE(defs.Item(QStringLiteral("LoanHistory")).Indexes.empty());
}

TEST_F(NewPhonebook, HoldsTheDefaultRowsAndTheirPaths) {
    const QStringList cats =
        rows(QStringLiteral("SELECT ID, Name, IDPARENT, Pedigree, Catpath FROM Categories ORDER BY ID"));
    ASSERT_EQ(cats.size(), 13);
    EXPECT_EQ(cats[0], QStringLiteral("0|All categories|-1|ID0E|"));
    EXPECT_EQ(cats[1], QStringLiteral("1|Others|0|ID0EID1E|Others"));
    EXPECT_EQ(cats[4], QStringLiteral("4|Customers|3|ID0EID3EID4E|Business/Customers"));
    EXPECT_EQ(cats[12], QStringLiteral("12|Relatives|2|ID0EID2EID12E|Personal/Relatives"));
    EXPECT_EQ(rows(QStringLiteral("SELECT ID, Name, IDPARENT, Catpath FROM Borrows ORDER BY ID")),
              (QStringList{"0|All favorites|-1|", "1|My favorites|0|My favorites"}));
    EXPECT_EQ(rows(QStringLiteral("SELECT ID, Name, IDPARENT, Catpath FROM Boxes ORDER BY ID")),
              (QStringList{"0|All groups|-1|", "1|Others|0|Others"}));
    EXPECT_EQ(rows(QStringLiteral("SELECT IDTYPE & ':' & Type FROM Types ORDER BY IDTYPE")),
              (QStringList{"1:Home phone", "2:Work phone", "3:Mobile phone", "4:Fax", "5:Email", "6:MSN",
                           "7:ICQ", "8:AOL", "9:Skype"}));
    EXPECT_EQ(rows(QStringLiteral("SELECT * FROM AccessMode")), QStringList{"<null>|<null>|true"});
    for (const char* t : {"CDs", "Paths", "Elements", "SearchWhat", "SearchWhere", "LoanHistory"})
        EXPECT_EQ(rows(QStringLiteral("SELECT Count(*) FROM ") + QString::fromLatin1(t)), QStringList{"0"})
            << t;
    EXPECT_FALSE(gFileReadOnly);
}

TEST_F(NewPhonebook, SortsAndComparesWithoutRegardToCase) {
    for (const char* n : {"bob", "Alice", "carl", "Bea"})
        addContact(QString::fromLatin1(n));
    EXPECT_EQ(rows(QStringLiteral("SELECT FullName FROM CDs ORDER BY FullName")),
              (QStringList{"Alice", "Bea", "bob", "carl"}));
    EXPECT_EQ(rows(QStringLiteral("SELECT FullName FROM CDs WHERE FullName = 'BOB'")), QStringList{"bob"});
}

using CreateDB = TempDirTest;

TEST_F(CreateDB, AnswersWithoutMakingAnythingWhenItMayNot) {
    fixture::MsgBoxRecorder boxes;
    EXPECT_EQ(mAccess::CreateDB(path(QStringLiteral("no/such/folder/a.kvdb")), false), -1);
    EXPECT_FALSE(QDir(path(QStringLiteral("no"))).exists()); // the folder is not made here
    QFile existing(path(QStringLiteral("there.kvdb")));
    existing.open(QIODevice::WriteOnly);
    existing.write("x");
    existing.close();
    EXPECT_EQ(mAccess::CreateDB(existing.fileName(), false), 0);
    EXPECT_EQ(existing.size(), 1);
    // At start only the default phonebook is ever made by itself.
    EXPECT_EQ(mAccess::CreateDB(path(QStringLiteral("recent.kvdb")), true), -1);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("recent.kvdb"))));
    EXPECT_TRUE(boxes.boxes.isEmpty());
    EXPECT_FALSE(gDBOpen);
    EXPECT_FALSE(gWSOpen);
}

TEST_F(CreateDB, AFullDiskLeavesNoFileAndSaysSo) {
    dao::ScopedHooks full;
    full->growthPages = 4;
    fixture::MsgBoxRecorder boxes;
    const QString book = path(QStringLiteral("full.kvdb"));
    EXPECT_EQ(mAccess::CreateDB(book, false), -1);
    EXPECT_FALSE(QFile::exists(book));
    EXPECT_FALSE(gDBOpen);
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_TRUE(boxes.boxes[0].text.startsWith(msgCannotCreatePhonebookNoSpace + QStringLiteral("\n") +
                                               msgFreeSpace));
    EXPECT_EQ(boxes.boxes[0].icon, vb::vbCritical);
}

TEST_F(CreateDB, TheDefaultPhonebookFailsSilentlyAtStart) {
    QDir().mkpath(DefaultFolder());
    QFile::remove(DefaultPhonebook());
    dao::ScopedHooks refusal;
    refusal->refuseOpen = [](const QString&, bool) { return qint32(dao::errPermission); };
    fixture::MsgBoxRecorder boxes;
    EXPECT_EQ(mAccess::CreateDB(DefaultPhonebook(), true), -1);
    EXPECT_TRUE(boxes.boxes.isEmpty());
    EXPECT_EQ(mAccess::CreateDB(DefaultPhonebook(), false), -1); // not at start: the user is told
    EXPECT_EQ(boxes.texts(), QStringList{msgAccessDenied});
    EXPECT_FALSE(QFile::exists(DefaultPhonebook()));
}
