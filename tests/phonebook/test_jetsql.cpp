// The Jet dialect as the procedures write it, and Jet's Like, turned into SQLite's terms.
#include "phonebook/store/dao.h"
#include "phonebook/store/jetfunctions.h"
#include "phonebook/store/jetsql.h"

#include <gtest/gtest.h>

using dao::JetSql;

namespace {
std::string tr(const char* jet) { return JetSql::Translate(QString::fromUtf8(jet)).toStdString(); }
} // namespace

TEST(JetSql, NamesLiteralsAndOperators) {
    EXPECT_EQ(tr("SELECT [Full Name], CDs.[IDX] FROM [CDs]"), R"(SELECT "Full Name", CDs."IDX" FROM "CDs")");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE FullName = \"O'Neil\""), "SELECT * FROM CDs WHERE FullName = 'O''Neil'");
    // Jet's & reads Null as an empty text.
    EXPECT_EQ(tr("SELECT a & '_' & b FROM t"), "SELECT ifnull(a,'') || ifnull('_','') || ifnull(b,'') FROM t");
    EXPECT_EQ(tr("SELECT x FROM t WHERE a.b & Left(c, 2) = 'z' AND d & e"),
              "SELECT x FROM t WHERE ifnull(a.b,'') || ifnull(Left(c, 2),'') = 'z' AND ifnull(d,'') || ifnull(e,'')");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE ReadOnly = True AND Hidden = False"),
              "SELECT * FROM CDs WHERE ReadOnly = 1 AND Hidden = 0");
    EXPECT_EQ(tr("SELECT Count(CDs.IDCD) AS CNT From CDs WHERE IsNull([IDX])=True"),
              R"(SELECT Count(CDs.IDCD) AS CNT From CDs WHERE (("IDX") IS NULL)=1)");
    EXPECT_EQ(tr("SELECT iif(isnull(FullName),'',FullName) FROM CDs"),
              "SELECT iif(((FullName) IS NULL),'',FullName) FROM CDs");
    EXPECT_EQ(tr("Select * From SearchWhere Order By Update"), R"(Select * From SearchWhere Order By "Update")");
    EXPECT_EQ(tr("SELECT TOP 5 FullName FROM CDs ORDER BY FullName"), "SELECT FullName FROM CDs ORDER BY FullName LIMIT 5");
    EXPECT_EQ(tr("SELECT Date(), Now() FROM CDs"), "SELECT jet_date(), jet_now() FROM CDs");
}

TEST(JetSql, DateLiteralsFollowTheTwoDigitYearRule) {
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE DateScan >= #01/31/29#"), "SELECT * FROM CDs WHERE DateScan >= '2029-01-31 00:00:00'");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE DateScan >= #12/01/30 13:05:09#"),
              "SELECT * FROM CDs WHERE DateScan >= '1930-12-01 13:05:09'");
    EXPECT_EQ(JetSql::DateLiteral(QStringLiteral("2/3/2024 1:02 PM")), QStringLiteral("2024-02-03 13:02:00"));
    EXPECT_TRUE(JetSql::DateLiteral(QStringLiteral("13/01/24")).isEmpty());
}

TEST(JetSql, DeleteAndUpdateForms) {
    EXPECT_EQ(tr("DELETE * FROM LoanHistory WHERE IDB = 3"), "DELETE FROM LoanHistory WHERE IDB = 3");
    EXPECT_EQ(tr("DELETE CDs.* FROM CDs WHERE IDCD = 4"), "DELETE FROM CDs WHERE IDCD = 4");
    EXPECT_EQ(tr("Delete SearchWhere.IDCD From SearchWhere WHERE IDCD = 4"), "DELETE FROM SearchWhere WHERE IDCD = 4");
    EXPECT_EQ(tr("DELETE CDs.* FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID WHERE Categories.ID = 3"),
              R"(DELETE FROM "CDs" WHERE rowid IN (SELECT "CDs".rowid FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID WHERE Categories.ID = 3))");
    EXPECT_EQ(tr("UPDATE CDs SET CDs.IDX = 1, CDs.IsLend = Null WHERE IsNull([IDX])=True"),
              R"(UPDATE CDs SET IDX = 1, IsLend = Null WHERE (("IDX") IS NULL)=1)");
    EXPECT_EQ(tr("UPDATE SearchWhere SET Update = #01/02/03# WHERE IDCD = 1"),
              R"(UPDATE SearchWhere SET "Update" = '2003-01-02 00:00:00' WHERE IDCD = 1)");
}

TEST(JetSql, WhatItCannotTranslateFailsNamingTheStatement) {
    for (const char* bad : {"TRANSFORM Count(IDCD) SELECT Label FROM CDs PIVOT IDC", "SELECT * INTO Copy FROM CDs",
                            "SELECT (FullName FROM CDs", "SELECT * FROM [CDs", "SELECT * FROM CDs WHERE d = #13/45/99#",
                            "SELECT 'open FROM CDs", "UPDATE CDs INNER JOIN Categories ON CDs.IDC = Categories.ID SET IDX = 1"}) {
        try {
            JetSql::Translate(QString::fromUtf8(bad));
            ADD_FAILURE() << "translated: " << bad;
        } catch (const dao::DbError& e) {
            EXPECT_EQ(e.Number(), dao::errSyntax);
            EXPECT_TRUE(e.Description().contains(QString::fromUtf8(bad))) << e.Description().toStdString();
        }
    }
}

TEST(JetLike, WildcardsClassesAndCase) {
    auto like = [](const char* pattern, const char* value) {
        return dao::JetLikePattern(QString::fromUtf8(pattern)).Matches(QString::fromUtf8(value));
    };
    // A node's subtree by its terminated key: node 1 and not 11 or 21.
    EXPECT_TRUE(like("*ID1E*", "ID0EID1E"));
    EXPECT_TRUE(like("*ID1E*", "ID0EID1EID5E"));
    EXPECT_FALSE(like("*ID1E*", "ID0EID11E"));
    EXPECT_FALSE(like("*ID1E*", "ID0EID21E"));
    EXPECT_TRUE(like("sm?th", "SMITH"));
    EXPECT_FALSE(like("sm?th", "smth"));
    EXPECT_TRUE(like("#-##", "1-23"));
    EXPECT_FALSE(like("#-##", "1-2a"));
    EXPECT_TRUE(like("[a-c]*", "Bob"));
    EXPECT_FALSE(like("[!a-c]*", "bob"));
    EXPECT_TRUE(like("[!a-c]*", "Dan"));
    EXPECT_TRUE(like("[xyz]", "Y"));
    EXPECT_TRUE(like("100[*]", "100*"));
    EXPECT_FALSE(like("100[*]", "1000"));
    EXPECT_TRUE(like("*a*b*c", "xxAyyBzzC"));
    EXPECT_FALSE(like("*a*b*c", "xxAyyBzzCd"));
    EXPECT_TRUE(like("ünïcödé*", "ÜNÏCÖDÉ street"));
    EXPECT_TRUE(like("K", "k"));
    EXPECT_FALSE(like("K", "KA"));
}
