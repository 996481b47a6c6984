// The Jet dialect as the procedures write it, and Jet's Like, turned into SQLite's terms.
#include "phonebook/store/dao.h"
#include "phonebook/store/jetfunctions.h"
#include "phonebook/store/jetsql.h"

#include <QElapsedTimer>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sqlite3.h>

using dao::JetSql;

namespace {
std::string tr(const char* jet) {
    return JetSql::Translate(QString::fromUtf8(jet)).toStdString();
}
} // namespace

TEST(JetSql, NamesLiteralsAndOperators) {
    EXPECT_EQ(tr("SELECT [Full Name], CDs.[IDX] FROM [CDs]"), R"(SELECT "Full Name", CDs."IDX" FROM "CDs")");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE FullName = \"O'Neil\""),
              "SELECT * FROM CDs WHERE FullName = 'O''Neil'");
    // Jet's & reads Null as an empty text; a chain of them is one call.
    EXPECT_EQ(tr("SELECT a & '_' & b FROM t"), "SELECT jet_cat(a , '_' , b) FROM t");
    EXPECT_EQ(tr("SELECT x FROM t WHERE a.b & Left(c, 2) = 'z' AND d & e"),
              "SELECT x FROM t WHERE jet_cat(a.b , Left(c, 2)) = 'z' AND jet_cat(d , e)");
    EXPECT_EQ(tr("SELECT (a & b) & Left(c & d, 1) FROM t"),
              "SELECT jet_cat((jet_cat(a , b)) , Left(jet_cat(c , d), 1)) FROM t");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE ReadOnly = True AND Hidden = False"),
              "SELECT * FROM CDs WHERE ReadOnly = 1 AND Hidden = 0");
    EXPECT_EQ(tr("SELECT Count(CDs.IDCD) AS CNT From CDs WHERE IsNull([IDX])=True"),
              R"(SELECT Count(CDs.IDCD) AS CNT From CDs WHERE (("IDX") IS NULL)=1)");
    EXPECT_EQ(tr("SELECT iif(isnull(FullName),'',FullName) FROM CDs"),
              "SELECT iif(((FullName) IS NULL),'',FullName) FROM CDs");
    EXPECT_EQ(tr("Select * From SearchWhere Order By Update"),
              R"(Select * From SearchWhere Order By "Update")");
    EXPECT_EQ(tr("SELECT TOP 5 FullName FROM CDs ORDER BY FullName"),
              "SELECT FullName FROM CDs ORDER BY FullName LIMIT 5");
    EXPECT_EQ(tr("SELECT Date(), Now() FROM CDs"), "SELECT jet_date(), jet_now() FROM CDs");
}

TEST(JetSql, DateLiteralsFollowTheTwoDigitYearRule) {
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE DateScan >= #01/31/29#"),
              "SELECT * FROM CDs WHERE DateScan >= '2029-01-31 00:00:00'");
    EXPECT_EQ(tr("SELECT * FROM CDs WHERE DateScan >= #12/01/30 13:05:09#"),
              "SELECT * FROM CDs WHERE DateScan >= '1930-12-01 13:05:09'");
    EXPECT_EQ(JetSql::DateLiteral(QStringLiteral("2/3/2024 1:02 PM")), QStringLiteral("2024-02-03 13:02:00"));
    EXPECT_TRUE(JetSql::DateLiteral(QStringLiteral("13/01/24")).isEmpty());
}

TEST(JetSql, DeleteAndUpdateForms) {
    EXPECT_EQ(tr("DELETE * FROM LoanHistory WHERE IDB = 3"), "DELETE FROM LoanHistory WHERE IDB = 3");
    EXPECT_EQ(tr("DELETE CDs.* FROM CDs WHERE IDCD = 4"), "DELETE FROM CDs WHERE IDCD = 4");
    EXPECT_EQ(tr("Delete SearchWhere.IDCD From SearchWhere WHERE IDCD = 4"),
              "DELETE FROM SearchWhere WHERE IDCD = 4");
    EXPECT_EQ(
        tr("DELETE CDs.* FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID WHERE Categories.ID = 3"),
        R"(DELETE FROM "CDs" WHERE rowid IN (SELECT "CDs".rowid FROM CDs INNER JOIN Categories ON CDs.IDC = Categories.ID WHERE Categories.ID = 3))");
    EXPECT_EQ(tr("UPDATE CDs SET CDs.IDX = 1, CDs.IsLend = Null WHERE IsNull([IDX])=True"),
              R"(UPDATE CDs SET IDX = 1, IsLend = Null WHERE (("IDX") IS NULL)=1)");
    EXPECT_EQ(tr("UPDATE SearchWhere SET Update = #01/02/03# WHERE IDCD = 1"),
              R"(UPDATE SearchWhere SET "Update" = '2003-01-02 00:00:00' WHERE IDCD = 1)");
}

TEST(JetSql, WhatItCannotTranslateFailsNamingTheStatement) {
    for (const char* bad : {"TRANSFORM Count(IDCD) SELECT Label FROM CDs PIVOT IDC",
                            "SELECT * INTO Copy FROM CDs", "SELECT (FullName FROM CDs", "SELECT * FROM [CDs",
                            "SELECT * FROM CDs WHERE d = #13/45/99#", "SELECT 'open FROM CDs",
                            "UPDATE CDs INNER JOIN Categories ON CDs.IDC = Categories.ID SET IDX = 1"}) {
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

TEST(JetLike, LettersOfEveryScriptWithoutRegardToCase) {
    auto like = [](const char* pattern, const char* value) {
        const dao::JetLikePattern p(QString::fromUtf8(pattern));
        const QByteArray utf8(value);
        // The value as SQLite hands it over and as a QString give one answer.
        const bool asText = p.Matches(QString::fromUtf8(value));
        EXPECT_EQ(p.MatchesUtf8(utf8.constData(), int(utf8.size())), asText) << pattern << " " << value;
        return asText;
    };
    EXPECT_TRUE(like("*ærø*", "ÆRØ Jensen"));
    EXPECT_TRUE(like("*ÆRØ*", "Ærø Jensen"));
    EXPECT_TRUE(like("łukasz*", "ŁUKASZ Nowak"));
    EXPECT_TRUE(like("*ДМИТРИЙ*", "Дмитрий Иванов"));
    EXPECT_TRUE(like("[а-я]митрий", "Дмитрий"));
    EXPECT_TRUE(like("*王伟*", "王伟"));
    EXPECT_FALSE(like("*王伟*", "王"));
    EXPECT_TRUE(like("οδυσσευς", "ΟΔΥΣΣΕΥΣ"));
    EXPECT_TRUE(like("οδυσσευς", "οδυσσευσ")); // a final sigma is a sigma
    // A letter typed as a base and a combining mark is the letter itself.
    EXPECT_TRUE(like("*jos\xC3\xA9*", "JOSE\xCC\x81 Luis"));
    EXPECT_TRUE(like("*jose\xCC\x81", "José"));
    EXPECT_TRUE(like("jos?", "JOSE\xCC\x81"));
    // Plain ASCII keeps its rules.
    EXPECT_TRUE(like("*smith*", "John SMITH_555"));
    EXPECT_FALSE(like("*smith*", "John SMYTH"));
    EXPECT_TRUE(like("a[!b]c", "AXC"));
    EXPECT_TRUE(like("", ""));
}

TEST(JetSql, AMissingOperandIsASyntaxErrorThatNamesIt) {
    const std::pair<const char*, const char*> cases[] = {
        {"a& ", "right operand of &"},
        {"SELECT a & , b FROM t", "right operand of &"},
        {"SELECT a, & b FROM t", "left operand of &"},
        {"SELECT a & FROM t", "right operand of &"},
        {"SELECT 2 ^ FROM t", "right operand of ^"},
        {"SELECT ^ 2 FROM t", "left operand of ^"},
        {"SELECT x FROM t WHERE a \\ = 1", "right operand of \\"},
    };
    for (const auto& [jet, missing] : cases) {
        for (bool expression : {false, true}) {
            try {
                const QString text = QString::fromUtf8(jet);
                expression ? JetSql::TranslateExpression(text) : JetSql::Translate(text);
                ADD_FAILURE() << "translated: " << jet;
            } catch (const dao::DbError& e) {
                EXPECT_EQ(e.Number(), dao::errSyntax) << jet;
                EXPECT_TRUE(e.Description().contains(QLatin1String(missing)))
                    << e.Description().toStdString();
            }
        }
    }
}

TEST(JetSql, PowerAndIntegerDivisionBindAsInJet) {
    EXPECT_EQ(tr("SELECT a ^ 2 FROM t"), "SELECT jet_pow(a,2) FROM t");
    EXPECT_EQ(tr("SELECT CDs.[Total Size] \\ 1024 AS KB FROM CDs"),
              R"(SELECT jet_idiv(CDs."Total Size",1024) AS KB FROM CDs)");
    EXPECT_EQ(tr("SELECT x FROM t WHERE Len(a) ^ 2 > 4 & b"),
              "SELECT x FROM t WHERE jet_pow(Len(a),2) > jet_cat(4 , b)");

    // The values, computed by the store's own functions.
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
    dao::RegisterJetFunctions(db);
    auto value = [db](const char* jet) {
        const QByteArray sql = ("SELECT " + JetSql::TranslateExpression(QString::fromUtf8(jet))).toUtf8();
        sqlite3_stmt* s = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(db, sql.constData(), -1, &s, nullptr), SQLITE_OK) << sql.constData();
        std::string out = "?";
        if (s && sqlite3_step(s) == SQLITE_ROW)
            out = sqlite3_column_type(s, 0) == SQLITE_NULL
                      ? "Null"
                      : reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
        sqlite3_finalize(s);
        return out;
    };
    EXPECT_EQ(value("2 ^ 3 ^ 2"), "64.0"); // from the left
    // & joins numbers as their text and reads Null as "".
    EXPECT_EQ(value("'a' & Null & 1 & 2.5 & 'Ærø'"), "a12.5Ærø");
    EXPECT_EQ(value("Null & Null"), "");
    EXPECT_EQ(value("-2 ^ 2"), "-4.0"); // the power before the sign
    EXPECT_EQ(value("2 ^ -1"), "0.5");
    EXPECT_EQ(value("(1 + 2) ^ 2 * 2"), "18.0");
    EXPECT_EQ(value("7 \\ 2"), "3");
    EXPECT_EQ(value("-7 \\ 2"), "-3");            // cut toward zero
    EXPECT_EQ(value("7.5 \\ 2 + 6.5 \\ 2"), "7"); // operands rounded half to even: 8 \ 2 + 6 \ 2
    EXPECT_EQ(value("2 * 9 \\ 4"), "4");          // products first: 18 \ 4
    EXPECT_EQ(value("9 \\ 2 * 2"), "2");          // 9 \ 4
    EXPECT_EQ(value("100 \\ 7 \\ 2"), "7");       // from the left
    EXPECT_EQ(value("1 - 7 \\ 2"), "-2");
    EXPECT_EQ(value("2 ^ 2 \\ 3"), "1");
    EXPECT_EQ(value("17 Mod 10 \\ 3"), "2"); // Mod after the division
    EXPECT_EQ(value("5 \\ 0"), "Null");
    EXPECT_EQ(value("Null \\ 2"), "Null");
    EXPECT_EQ(value("Null ^ 2"), "Null");
    EXPECT_EQ(value("1e300 \\ 1"), "Null"); // no whole number of 64 bits
    sqlite3_close(db);
}

namespace {
// Jet's Like by its definition, for patterns of *, ?, # and [ab]: a plain recursion over the
// pattern and the value, remembered so that it ends.
bool likeByDefinition(const std::string& p, const std::string& v) {
    std::vector<std::vector<int>> memo(p.size() + 1, std::vector<int>(v.size() + 1, -1));
    std::function<bool(size_t, size_t)> at = [&](size_t i, size_t j) -> bool {
        int& m = memo[i][j];
        if (m >= 0) return m;
        bool r;
        if (i == p.size())
            r = j == v.size();
        else if (p[i] == '*')
            r = at(i + 1, j) || (j < v.size() && at(i, j + 1));
        else if (j == v.size())
            r = false;
        else if (p[i] == '[')
            r = (v[j] == 'a' || v[j] == 'b') && at(i + 4, j + 1);
        else
            r = (p[i] == '?' || (p[i] == '#' ? v[j] >= '0' && v[j] <= '9' : p[i] == v[j])) &&
                at(i + 1, j + 1);
        m = r;
        return r;
    };
    return at(0, 0);
}
} // namespace

TEST(JetLike, AgreesWithItsDefinitionOnManyPatterns) {
    std::mt19937 random(7);
    const std::vector<std::string> atoms{"a", "b", "1", "*", "**", "?", "#", "[ab]"};
    for (int round = 0; round < 20000; ++round) {
        std::string pattern, value;
        for (int k = int(random() % 7); k > 0; --k)
            pattern += atoms[random() % atoms.size()];
        for (int k = int(random() % 9); k > 0; --k)
            value += "ab1c"[random() % 4];
        ASSERT_EQ(dao::JetLikePattern(QString::fromStdString(pattern)).Matches(QString::fromStdString(value)),
                  likeByDefinition(pattern, value))
            << pattern << " against " << value;
    }
}

TEST(JetLike, ManyStarsCostTimeInProportionToTheValue) {
    QString stars;
    for (int k = 0; k < 29; ++k)
        stars += QStringLiteral("*a");
    const dao::JetLikePattern pattern(stars + QStringLiteral("*b")); // thirty stars; the value has no b
    const QString value(255, QLatin1Char('a'));
    qint64 best = std::numeric_limits<qint64>::max();
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(pattern.Matches(value));
        best = std::min(best, timer.nsecsElapsed());
    }
    EXPECT_LT(best, 1000000) << best << " ns";
    EXPECT_TRUE(pattern.Matches(value + QStringLiteral("B")));
}
