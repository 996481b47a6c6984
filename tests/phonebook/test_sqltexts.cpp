// The SQL texts of the program against a real phonebook: every text in sql_texts.inc runs on a
// freshly created file with a few contacts in it, and the texts whose answer is plain to see
// give that answer.

#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "support/fixture.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <cctype>
#include <ostream>
#include <string>

namespace {

enum class SqlKind { Select, Execute };

struct SqlText {
    const char* where; // what builds the text
    const char* sql;   // the Jet text as it is built
    SqlKind kind;      // opened as a recordset, or executed
};

const SqlText kSqlTexts[] =
#include "sql_texts.inc"
    ;

void PrintTo(const SqlText& t, std::ostream* os) {
    *os << t.where;
}

const QByteArray kPhotoBytes = QByteArray::fromHex("474946383961");

// Four contacts over the default trees, and one row in each table that hangs on a contact.
// 1 Anna Smith: category 4 (Business/Customers), group 1, favorite 1, two typed numbers, a photo.
// 2 Bob Brown: category 3 (Business), group 1, no favorite.
// 3 Olivia O'Brien: category 11 (Personal/Neighbors), group 1, favorite directly under the root.
// 4 7 Eleven Store: category 1 (Others), no group (as in a file before the repair at open).
void SeedPhonebook() {
    gDB.ExecuteNative(QStringLiteral(
        "INSERT INTO CDs (IDCD, ContactNumber, Label, FullName, Title, Company, Address, City, State, Zip, "
        "Comment, IDC, IDX, IDB, IsLend, LoanStart, LoanComment, DateScan, Type1, Number1, Type2, Number2, "
        "Photo, PhotoExt, PhotoSize) VALUES "
        "(1, 1, 'A', 'Anna Smith', 'Sales Manager', 'Smith & Sons', '12 Elm Street' || char(13, 10) || "
        "'Suite 4', "
        " 'Boston', 'MA', '02134', 'Met at the fair' || char(13, 10) || 'Call in May', 4, 1, 1, 1, "
        " '2024-03-01 00:00:00', 'sent the catalogue', '2024-03-15 10:20:30', 1, '555-0101', 5, "
        " 'anna.smith@example.com', x'474946383961', 'gif', 6), "
        "(2, 2, 'B', 'Bob Brown', 'Engineer', 'Brown Ltd', NULL, 'Denver', 'CO', '80202', NULL, 3, 1, -1, 0, "
        " NULL, NULL, '2024-01-10 09:30:00', 3, '555-0202', NULL, NULL, NULL, NULL, NULL), "
        "(3, 3, 'O', 'Olivia O''Brien', 'Baker', 'O''Brien Bakery', NULL, 'New York', 'NY', '10001', NULL, "
        " 11, 1, 0, 1, '2024-02-01 00:00:00', NULL, '2023-12-31 23:00:00', 9, 'www.obrien.example', NULL, "
        " NULL, NULL, NULL, NULL), "
        "(4, 4, 'NUM', '7 Eleven Store', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 1, NULL, -1, 0, NULL, "
        "NULL, "
        " '2024-02-29 08:00:00', NULL, NULL, NULL, NULL, NULL, NULL, NULL)"));
    gDB.ExecuteNative(QStringLiteral("INSERT INTO Paths (IDPATH, IDCD, Path, IsArchive) VALUES (1, 1, "
                                     "'/home/anna', 0), (2, 3, '/home/olivia', 0)"));
    gDB.ExecuteNative(QStringLiteral("INSERT INTO Elements (ID, IDPATH, ElementName, IDPATHSELF) VALUES (1, "
                                     "1, 'card.vcf', 1), (2, 2, 'menu.txt', 2)"));
    gDB.ExecuteNative(
        QStringLiteral("INSERT INTO SearchWhere (IDCD, Path, \"Update\") VALUES "
                       "(1, 'smith', '2024-03-15 11:00:00'), (3, 'bakery', '2024-03-16 12:00:00')"));
    gDB.ExecuteNative(QStringLiteral(
        "INSERT INTO LoanHistory (IDHistory, IDCD, IDB, IsLend, LoanStart, LoanEnd, LoanComment) VALUES "
        "(1, 1, 1, 1, '2024-02-01 00:00:00', '2024-02-20 00:00:00', 'first time')"));
}

// A fresh phonebook made by the program's own create path, seeded; closed again afterwards.
class PhonebookTest : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        fixture::TempDirTest::SetUp();
        mLanguageEng::lngEng(); // the default rows take their names from the catalogue
        ASSERT_EQ(mAccess::CreateDB(path(QStringLiteral("phonebook.kvdb")), false), 1);
        SeedPhonebook();
    }
    void TearDown() override {
        if (gDB.isOpen()) gDB.Close();
        if (gWS.isOpen()) gWS.Close();
        gDBOpen = gWSOpen = false;
        fixture::TempDirTest::TearDown();
    }
};

// ---- Every text runs ----

class SqlTextRuns : public PhonebookTest, public ::testing::WithParamInterface<SqlText> {};

TEST_P(SqlTextRuns, RunsOnAFreshPhonebook) {
    const SqlText& t = GetParam();
    const QString sql = QString::fromUtf8(t.sql);
    try {
        if (t.kind == SqlKind::Execute) {
            gDB.Execute(sql);
        } else {
            dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
            while (!rs.AtEOF()) {
                for (int i = 0; i < rs.FieldCount(); ++i)
                    (void)rs.Value(i);
                rs.MoveNext();
            }
            rs.Close();
        }
    } catch (const HuntERR::Error& e) {
        ADD_FAILURE() << t.where << "\n  error " << e.Number() << ": " << e.Description().toStdString()
                      << "\n  " << t.sql;
    }
}

std::string CaseName(const ::testing::TestParamInfo<SqlText>& info) {
    std::string name = QString::asprintf("%03d_", int(info.index)).toStdString();
    bool upper = true;
    for (const char* p = info.param.where; *p && name.size() < 90; ++p) {
        const unsigned char c = static_cast<unsigned char>(*p);
        if (std::isalnum(c)) {
            name += upper ? char(std::toupper(c)) : char(c);
            upper = false;
        } else {
            upper = true;
        }
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Phonebook, SqlTextRuns, ::testing::ValuesIn(kSqlTexts), CaseName);

// ---- Texts with a plain answer ----

// The text of the table entry with this description; the checks run the very texts of the table.
QString Sql(const char* where) {
    for (const SqlText& t : kSqlTexts)
        if (std::string(t.where) == where) return QString::fromUtf8(t.sql);
    ADD_FAILURE() << "no SQL text described as: " << where;
    return QString();
}

QVariantList Column(const QString& sql, const QString& field) {
    QVariantList values;
    dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext())
        values << rs[field];
    rs.Close();
    return values;
}

QList<int> Ints(const QString& sql, const QString& field, bool sorted = true) {
    QList<int> ints;
    for (const QVariant& v : Column(sql, field))
        ints << (v.isNull() ? -999 : v.toInt());
    if (sorted) std::sort(ints.begin(), ints.end());
    return ints;
}

QVariant First(const QString& sql, const QString& field) {
    const QVariantList values = Column(sql, field);
    return values.isEmpty() ? QVariant() : values.first();
}

QVariant ContactField(int idcd, const char* field) {
    return First(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(idcd), QString::fromUtf8(field));
}

QDate DateOf(const QVariant& v) {
    return v.typeId() == QMetaType::QDateTime ? v.toDateTime().date()
                                              : QDate::fromString(v.toString().left(10), Qt::ISODate);
}

using SqlTextResults = PhonebookTest;

TEST_F(SqlTextResults, RepairAtOpenCountsAndMovesContactsWithoutAGroup) {
    const QString count = Sql("repair at open: count contacts without a group");
    EXPECT_EQ(First(count, "CNT").toInt(), 1);
    gDB.Execute(Sql("repair at open: contacts without a group to Others"));
    EXPECT_EQ(First(count, "CNT").toInt(), 0);
    EXPECT_EQ(ContactField(4, "IDX").toInt(), 1);
    EXPECT_EQ(ContactField(1, "IDX").toInt(), 1);
}

TEST_F(SqlTextResults, PedigreePatternTakesTheSubtreeButNoNodeWithALongerNumber) {
    gDB.ExecuteNative(QStringLiteral("INSERT INTO Categories (ID, Name, IDPARENT, Pedigree, Catpath) "
                                     "VALUES (13, 'Abroad', 1, 'ID0EID1EID13E', 'Others/Abroad')"));
    EXPECT_EQ(Ints("SELECT * From Categories WHERE Pedigree Like '*ID1E*'", "ID"), (QList<int>{1, 13}));
    EXPECT_EQ(Ints("SELECT * From Categories WHERE Pedigree Like '*ID2E*'", "ID"),
              (QList<int>{2, 9, 10, 11, 12}));
    EXPECT_EQ(Ints(Sql("move of category 7: the node and its subtree"), "ID"), QList<int>{7});
    EXPECT_EQ(Ints("SELECT CDs.IDCD FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID "
                   "WHERE Categories.Pedigree Like '*ID3E*'",
                   "IDCD"),
              (QList<int>{1, 2}));
    EXPECT_EQ(Ints("SELECT CDs.IDCD FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID "
                   "WHERE Categories.Pedigree Like '*ID1E*'",
                   "IDCD"),
              QList<int>{4}); // contact 3 sits in node 11
}

TEST_F(SqlTextResults, DeleteOfACategoryRemovesExactlyItsSubtreeContactsAndTheirRows) {
    for (const char* step :
         {"delete of category 3: elements of its contacts", "delete of category 3: paths of its contacts",
          "delete of category 3: search history of its contacts",
          "delete of category 3: assignment history of its contacts", "delete of category 3: its contacts",
          "delete of category 3: the subtree rows"})
        gDB.Execute(Sql(step));
    EXPECT_EQ(Ints("SELECT * FROM Categories", "ID"), (QList<int>{0, 1, 2, 9, 10, 11, 12}));
    EXPECT_EQ(Ints("SELECT * FROM CDs", "IDCD"), (QList<int>{3, 4}));
    EXPECT_EQ(Ints("SELECT * FROM Elements", "ID"), QList<int>{2});
    EXPECT_EQ(Ints("SELECT * FROM Paths", "IDCD"), QList<int>{3});
    EXPECT_EQ(Ints("SELECT * FROM SearchWhere", "IDCD"), QList<int>{3});
    EXPECT_TRUE(Ints("SELECT * FROM LoanHistory", "IDCD").isEmpty());
}

TEST_F(SqlTextResults, DeleteOfAFavoritesNodeKeepsItsContactsWithoutFavorite) {
    gDB.Execute(Sql("delete of favorites node 1: its contacts lose their favorite"));
    gDB.Execute(Sql("delete of favorites node 1: its assignment history"));
    gDB.Execute(Sql("delete of favorites node 1: the subtree rows"));
    EXPECT_EQ(Ints("SELECT * FROM CDs", "IDCD"), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(ContactField(1, "IDB").toInt(), -1);
    EXPECT_TRUE(ContactField(1, "IsLend").isNull());
    EXPECT_TRUE(ContactField(1, "LoanStart").isNull());
    EXPECT_TRUE(ContactField(1, "LoanComment").isNull());
    EXPECT_EQ(ContactField(3, "IDB").toInt(), 0); // a favorite directly under the root is no part of node 1
    EXPECT_TRUE(ContactField(3, "IsLend").toBool());
    EXPECT_TRUE(Ints("SELECT * FROM LoanHistory", "IDCD").isEmpty());
    EXPECT_EQ(Ints("SELECT * FROM Borrows", "ID"), QList<int>{0});
}

TEST_F(SqlTextResults, ListQueryGivesOneRowPerContactWithItsPathsAndTypes) {
    const QString all = Sql("contact list: all contacts at the category root");
    EXPECT_EQ(Ints(all, "IDCD"), (QList<int>{1, 2, 3})); // contact 4 has no group and stays hidden

    dao::Recordset rs =
        gDB.OpenRecordset(Sql("new or reassigned contact: its list row"), dao::dbOpenSnapshot);
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs["FullName"].toString(), QStringLiteral("Anna Smith"));
    EXPECT_EQ(rs["Cat"].toString(), QStringLiteral("Business/Customers"));
    EXPECT_EQ(rs["Bor"].toString(), QStringLiteral("My favorites"));
    EXPECT_EQ(rs["Box"].toString(), QStringLiteral("Others"));
    EXPECT_EQ(rs["T1"].toString(), QStringLiteral("Home phone"));
    EXPECT_EQ(rs["T2"].toString(), QStringLiteral("Email"));
    EXPECT_TRUE(rs["T3"].isNull());
    rs.MoveNext();
    EXPECT_TRUE(rs.AtEOF());
    rs.Close();
    EXPECT_TRUE(First(all + QStringLiteral("WHERE CDs.IDCD = 2"), "Bor").isNull());

    EXPECT_EQ(Ints(Sql("contact list: all favorites at the favorites root"), "IDCD"), (QList<int>{1, 3}));
    EXPECT_EQ(Ints(Sql("contact list: subtree of category 3"), "IDCD"), (QList<int>{1, 2}));
    EXPECT_EQ(Ints(Sql("contact list: category 3 alone on the tab B"), "IDCD"), QList<int>{2});
    EXPECT_EQ(Ints(Sql("contact list: the tab A at the category root"), "IDCD"), QList<int>{1});
    EXPECT_EQ(Ints(Sql("contact list: subtree of favorites node 1 on the tab A"), "IDCD"), QList<int>{1});
}

TEST_F(SqlTextResults, TreeCountsFollowTheLetterTab) {
    const QString all = Sql("root count on the tab ALL");
    EXPECT_EQ(First(all, "CNTC").toInt(), 4);
    EXPECT_EQ(First(all, "CNTCC").toInt(), 4);
    EXPECT_EQ(First(all, "CNTBB").toInt(), 2);
    const QString b = Sql("root count on the tab B");
    EXPECT_EQ(First(b, "CNTCC").toInt(), 1);
    EXPECT_EQ(First(b, "CNTBB").toInt(), 0);

    // Parents come before their children, and each node counts its own contacts.
    const QString fill = Sql("fill of the category tree on the tab ALL");
    const QList<int> ids = Ints(fill, "ID", false);
    const QList<int> parents = Ints(fill, "IDPARENT", false);
    const QList<int> counts = Ints(fill, "cnt", false);
    ASSERT_EQ(ids.size(), 13);
    EXPECT_EQ(ids.first(), 0);
    for (int i = 1; i < ids.size(); ++i)
        EXPECT_TRUE(ids.mid(0, i).contains(parents[i])) << "node " << ids[i];
    EXPECT_EQ(counts[ids.indexOf(4)], 1);
    EXPECT_EQ(counts[ids.indexOf(3)], 1);
    EXPECT_EQ(counts[ids.indexOf(5)], 0);
    EXPECT_EQ(counts[ids.indexOf(11)], 1);
}

TEST_F(SqlTextResults, SearchFindsWordsQuotesWildcardsAndDateLimits) {
    EXPECT_EQ(Ints(Sql("search smith in all fields: rows"), "IDCD"), QList<int>{1});
    EXPECT_EQ(First(Sql("search smith in all fields: count"), "cnt").toInt(), 1);
    EXPECT_EQ(Ints(Sql("search 555 in the numbers only: rows"), "IDCD"), (QList<int>{1, 2}));
    EXPECT_EQ(Ints(Sql("search john and a quoted new york in name and city: rows"), "IDCD"), QList<int>{3});
    EXPECT_EQ(Ints(Sql("search o'brien with its apostrophe in the company: rows"), "IDCD"), QList<int>{3});
    EXPECT_EQ(Ints(Sql("search with the user's wildcards [a-c]* and sm?th in name and city: rows"), "IDCD"),
              (QList<int>{1, 2}));
    EXPECT_EQ(Ints(Sql("search 555-01## with digit wildcards and [!9] in the numbers only: rows"), "IDCD"),
              QList<int>{1});
    EXPECT_EQ(Ints(Sql("search manager and 02134 in numbers, title and zip: rows"), "IDCD"), QList<int>{1});
    EXPECT_EQ(Ints(Sql("search with no text, added from 03/01/24: rows"), "IDCD"), QList<int>{1});
    EXPECT_EQ(First(Sql("search with no text, added from 03/01/24: count"), "cnt").toInt(), 1);
    EXPECT_EQ(Ints(Sql("search with no text, added up to 12/31/23: rows"), "IDCD"), QList<int>{3});
    EXPECT_EQ(Ints(Sql("search smith added in the first quarter of 2024: rows"), "IDCD"), QList<int>{1});
    EXPECT_EQ(Ints(Sql("search with no text and boxes ticked: every contact"), "IDCD"),
              (QList<int>{1, 2, 3}));
}

TEST_F(SqlTextResults, RemoveFromFavoritesWritesHistoryOnlyBelowTheRoot) {
    const QString insert = Sql("remove from favorites: history row of contact 1");
    gDB.Execute(insert);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM LoanHistory WHERE IDHistory = 2"),
                                          dao::dbOpenSnapshot);
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs["IDCD"].toInt(), 1);
    EXPECT_EQ(rs["IDB"].toInt(), 1);
    EXPECT_EQ(rs["LoanComment"].toString(), QStringLiteral("sent the catalogue"));
    EXPECT_EQ(DateOf(rs["LoanEnd"]), QDate::currentDate());
    rs.Close();

    // Contact 3 is a favorite directly under the root: no history.
    gDB.Execute(QString(insert).replace(QStringLiteral("CDs.IDCD = 1"), QStringLiteral("CDs.IDCD = 3")));
    EXPECT_EQ(Ints("SELECT * FROM LoanHistory", "IDCD"), (QList<int>{1, 1}));
}

TEST_F(SqlTextResults, CloneCopiesTheContactUnderTheNewKeyWithAFreshDate) {
    EXPECT_EQ(First(Sql("new contact and clone: highest contact id"), "maxID").toInt(), 4);
    EXPECT_EQ(First(Sql("new contact and clone: highest contact number"), "maxN").toInt(), 4);
    gDB.Execute(Sql("clone of contact 1 as contact 5 with number 5"));
    EXPECT_EQ(ContactField(5, "ContactNumber").toInt(), 5);
    EXPECT_EQ(ContactField(5, "FullName").toString(), QStringLiteral("Anna Smith"));
    EXPECT_EQ(ContactField(5, "IDC").toInt(), 4);
    EXPECT_EQ(ContactField(5, "IDB").toInt(), 1);
    EXPECT_EQ(ContactField(5, "Number2").toString(), QStringLiteral("anna.smith@example.com"));
    EXPECT_EQ(ContactField(5, "Photo").toByteArray(), kPhotoBytes);
    EXPECT_EQ(DateOf(ContactField(5, "DateScan")), QDate::currentDate());
}

TEST_F(SqlTextResults, DeletedNumberTypeLeavesTheNumberWithoutType) {
    EXPECT_EQ(Ints(Sql("number types editor: contacts using type 5"), "Type1"), QList<int>{1});
    gDB.Execute(Sql("number types editor: delete of type 5"));
    gDB.Execute(Sql("number types editor: slot 2 loses type 5"));
    EXPECT_TRUE(ContactField(1, "Type2").isNull());
    EXPECT_EQ(ContactField(1, "Number2").toString(), QStringLiteral("anna.smith@example.com"));
    EXPECT_EQ(ContactField(1, "Type1").toInt(), 1);
    EXPECT_FALSE(Ints("SELECT * FROM Types", "IDTYPE").contains(5));
    EXPECT_TRUE(Ints(Sql("number types editor: contacts using type 5"), "Type1").isEmpty());
}

TEST_F(SqlTextResults, ReportFollowsItsOrderAndShortPaths) {
    EXPECT_EQ(Ints(Sql("report of contacts 1, 2, 3 by company, descending"), "IDCD", false),
              (QList<int>{1, 3, 2}));
    EXPECT_EQ(Ints(Sql("report of contacts 1, 2, 3 by title, descending"), "IDCD", false),
              (QList<int>{1, 2, 3}));
    EXPECT_EQ(Ints(Sql("report of contacts 1, 2, 3 by category path"), "IDCD", false), (QList<int>{2, 1, 3}));
    EXPECT_EQ(First(Sql("report of contacts 1, 2, 3 by full name"), "Category").toString(),
              QStringLiteral("Business/Customers"));
    EXPECT_EQ(First(Sql("report with short category and group, by category name"), "Category").toString(),
              QStringLiteral("Business")); // Business, Customers, Neighbors
    EXPECT_EQ(First(Sql("report of contacts 1, 2, 3: count"), "cnt").toInt(), 3);
    EXPECT_EQ(Ints(Sql("report of the selected contact 2 with no order"), "IDCD"), QList<int>{2});
}

TEST_F(SqlTextResults, StatisticsCountContactsPerLetter) {
    const QString sql = Sql("statistics: contacts per letter");
    QStringList letters;
    for (const QVariant& v : Column(sql, QStringLiteral("Letter")))
        letters << v.toString();
    EXPECT_EQ(letters, (QStringList{"A", "B", "NUM", "O"}));
    EXPECT_EQ(Ints(sql, "cnt"), (QList<int>{1, 1, 1, 1}));
}

} // namespace
