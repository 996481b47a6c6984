// Node keys, letter-tab command ids and the search words made into a Like condition.
#include "core/error.h"
#include "support/helpers/keys.h"
#include "support/helpers/like.h"

#include <gtest/gtest.h>

namespace {
// The error a call raises, with the call stack it gathered.
template <class F> HuntERR::Error raised(F call) {
    try {
        call();
    } catch (const HuntERR::Error& e) {
        return e;
    }
    ADD_FAILURE() << "no error raised";
    return HuntERR::Error(0, QString());
}
} // namespace

TEST(NodeKeys, GetID1ReadsTheNumberAfterTheTwoLetters) {
    EXPECT_EQ(mCommon::GetID1(QStringLiteral("ID0")), 0);
    EXPECT_EQ(mCommon::GetID1(QStringLiteral("ID17")), 17);
    EXPECT_EQ(mCommon::GetID1(QStringLiteral("ID2147483647")), 2147483647);

    // A category row key still carries its "E": that is a caller's fault and is reported.
    EXPECT_EQ(raised([] { mCommon::GetID1(QStringLiteral("ID17E")); }).Number(), 13);
    EXPECT_TRUE(
        HuntERR::PendingStack().join(QString()).contains(QStringLiteral("mCommon.GetID1(Key) {ID17E}")));
    EXPECT_EQ(raised([] { mCommon::GetID1(QStringLiteral("ID2147483648")); }).Number(), 6);
}

TEST(NodeKeys, GetID2ReadsTheFirstNumberAndLeavesTheRest) {
    QString key = QStringLiteral("ID12P34");
    EXPECT_EQ(mCommon::GetID2(key), 12);
    EXPECT_EQ(key, QStringLiteral("34"));
    EXPECT_EQ(raised([&key] { mCommon::GetID2(key); }).Number(), 5); // no "P" left
}

TEST(LetterTabs, EveryTabHasItsCommand) {
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("A")), 10425);
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("Z")), 10450);
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("NUM")), 10451);
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("UNK")), 10452);
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("ALL")), 10402);
    EXPECT_EQ(mDrive::GetLetterTabID(QStringLiteral("AB")), 0);
}

TEST(SearchWords, QuotedWordsStayTogetherAndEachWordMatchesAnywhere) {
    QString str = QStringLiteral("  john \"new york\" ");
    EXPECT_EQ(mCommon::GetLike(str, QStringLiteral("F"), false),
              QStringLiteral("(F Like '*john*' OR F Like '*new york*')"));
    EXPECT_EQ(str, QStringLiteral("john|new york")); // the caller's copy is used up
}

TEST(SearchWords, ApostrophesBlanksAndWildcards) {
    QString str = QStringLiteral("o'brien    smith");
    EXPECT_EQ(mCommon::GetLike(str, QStringLiteral("F"), false),
              QStringLiteral("(F Like '*o''brien*' OR F Like '*smith*')"));
    str = QStringLiteral("jo*n \"\" ann");
    EXPECT_EQ(mCommon::GetLike(str, QStringLiteral("F"), false),
              QStringLiteral("(F Like 'jo*n' OR F Like '* ann*')"));
    str = QStringLiteral("ann");
    EXPECT_EQ(mCommon::GetLike(str, QStringLiteral("F"), true), QStringLiteral("(F Like 'ann')"));
}

TEST(SearchWords, TextWithoutAnyWordIsAnError) {
    QString str = QStringLiteral("\"\"");
    EXPECT_EQ(raised([&str] { mCommon::GetLike(str, QStringLiteral("F"), false); }).Number(), 5);
    EXPECT_TRUE(HuntERR::PendingStack().join(QString()).contains(QStringLiteral("mCommon.GetLike")));
}
