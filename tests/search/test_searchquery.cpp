// The search's SQL built from the window's boxes: the texts themselves where their form matters,
// and what each finds in a phonebook.
#include "search/searchquery.h"
#include "searchtest.h"
#include "support/helpers/like.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

mSearch::SearchInput textIn(const QString& text, std::initializer_list<bool mSearch::SearchInput::*> boxes) {
    mSearch::SearchInput in;
    in.Text = text;
    for (auto box : boxes)
        in.*box = true;
    return in;
}

mSearch::SearchInput everywhere(const QString& text) {
    using I = mSearch::SearchInput;
    return textIn(text, {&I::Numbers, &I::FullName, &I::Title, &I::Company, &I::Comment, &I::Address,
                         &I::City, &I::State, &I::Zip});
}

QString where(const mSearch::SearchInput& in) {
    QString count;
    const QString rows = mSearch::BuildWhere(in, count);
    const QString base = mSearch::RowSelect() + mSearch::FromClause();
    EXPECT_TRUE(rows.startsWith(base));
    EXPECT_EQ(count, mSearch::CountSelect() + mSearch::FromClause() + rows.mid(base.size()));
    return rows.mid(base.size());
}

const QString kName = u"iif(isnull(FullName),'',FullName)"_s;

} // namespace

TEST(GetLike, SplitsQuotesAndWildcardsAsTheUserMeansThem) {
    auto like = [](const QString& text) {
        QString copy = text;
        return mCommon::GetLike(copy, u"F"_s, false);
    };
    EXPECT_EQ(like(u"john \"new york\""_s), u"(F Like '*john*' OR F Like '*new york*')"_s);
    // Several blanks are one split; blanks at the ends go.
    EXPECT_EQ(like(u"  ann    bob "_s), u"(F Like '*ann*' OR F Like '*bob*')"_s);
    // An apostrophe is doubled, so that it stays inside the SQL text.
    EXPECT_EQ(like(u"o'brien"_s), u"(F Like '*o''brien*')"_s);
    // A word with a star of its own goes in as typed; the other wildcards are kept.
    EXPECT_EQ(like(u"ab* sm?th"_s), u"(F Like 'ab*' OR F Like '*sm?th*')"_s);
    // A colon counts as a quote; an empty pair of quotes is one.
    EXPECT_EQ(like(u"a:b c:"_s), u"(F Like '*ab c*')"_s);
    QString exact = u"ann bob"_s;
    EXPECT_EQ(mCommon::GetLike(exact, u"F"_s, true), u"(F Like 'ann' OR F Like 'bob')"_s);
    EXPECT_EQ(exact, u"ann|bob"_s);
    // Quote marks alone hold no word.
    QString none = u"\"\""_s;
    EXPECT_THROW(mCommon::GetLike(none, u"F"_s, false), HuntERR::Error);
}

TEST(SearchQuery, TheFormOfTheConditionFollowsTheBoxes) {
    using I = mSearch::SearchInput;
    const QString numbers = mSearch::NumbersFragment();
    // Numbers alone: one pair of parentheses around their condition.
    EXPECT_EQ(where(textIn(u"555"_s, {&I::Numbers})), u"Where (("_s + numbers + u" Like '*555*'))"_s);
    // Numbers with another box: the two conditions side by side, "OR" without blanks.
    EXPECT_EQ(where(textIn(u"555"_s, {&I::Numbers, &I::FullName})),
              u"Where (("_s + numbers + u" Like '*555*')OR("_s + kName + u" Like '*555*'))"_s);
    // The text fields in their fixed order, joined by an underscore, whatever the order ticked.
    EXPECT_EQ(where(textIn(u"x"_s, {&I::Zip, &I::FullName, &I::Comment})),
              u"Where (("_s + kName +
                  u" & '_' & iif(isnull(CDs.Comment),'',CDs.Comment) & '_' & "_s
                  u"iif(isnull(Zip),'',Zip) Like '*x*'))");
    // A quoted phrase is one Like.
    EXPECT_EQ(where(textIn(u"\"new york\""_s, {&I::FullName})).count(u" Like "_s), 1);
}

TEST(SearchQuery, DateLimitsNarrowTheTextOrStandAlone) {
    using I = mSearch::SearchInput;
    I in = textIn(QString(), {&I::FullName});
    in.DateMinOn = true;
    in.DateMin = QDate(2024, 3, 1);
    // Blank text with a lower limit: no parenthesis, month first and a two-digit year.
    EXPECT_EQ(where(in), u"Where DateScan >= #03/01/24#"_s);
    in.DateMaxOn = true;
    in.DateMax = QDate(2024, 3, 31);
    EXPECT_EQ(where(in), u"Where DateScan >= #03/01/24# AND DateScan <= #03/31/24 23:59:59#"_s);
    in.Text = u"smith"_s;
    EXPECT_EQ(where(in),
              u"Where (("_s + kName +
                  u" Like '*smith*')) AND DateScan >= #03/01/24# AND DateScan <= #03/31/24 23:59:59#"_s);
    // A ticked box without a date adds nothing.
    in.DateMin = QDate();
    EXPECT_FALSE(where(in).contains(u">="_s));
}

TEST(SearchQuery, BlankTextListsEveryoneAndNoBoxListsNothing) {
    using I = mSearch::SearchInput;
    QString count;
    EXPECT_EQ(mSearch::BuildWhere(textIn(u"  "_s, {&I::FullName}), count),
              mSearch::RowSelect() + mSearch::FromClause());
    EXPECT_EQ(count, mSearch::CountSelect() + mSearch::FromClause());
    // All boxes clear: nothing to search, even with text typed.
    EXPECT_TRUE(mSearch::BuildWhere(textIn(u"smith"_s, {}), count).isEmpty());
    EXPECT_TRUE(mSearch::BuildWhere(textIn(QString(), {}), count).isEmpty());
    // The dates count among the boxes.
    I dated = textIn(QString(), {});
    dated.DateMaxOn = true;
    EXPECT_EQ(mSearch::BuildWhere(dated, count), mSearch::RowSelect() + mSearch::FromClause());
}

class SearchRuns : public SearchBook {
  protected:
    QStringList found(const mSearch::SearchInput& in) {
        QString count;
        const QString rows = mSearch::BuildWhere(in, count);
        const QStringList n = names(rows);
        EXPECT_EQ(scalar(count).toInt(), n.size()) << count.toStdString();
        return n;
    }
};

TEST_F(SearchRuns, WordsFindWhatAPersonExpects) {
    EXPECT_EQ(found(everywhere(u"smith"_s)), QStringList({u"John Smith"_s, u"Mary O'Brien"_s}));
    // Any one word is enough.
    EXPECT_EQ(found(everywhere(u"boston marstal"_s)), QStringList({u"Mary O'Brien"_s, u"Ærø Jensen"_s}));
    EXPECT_EQ(found(everywhere(u"o'brien"_s)), QStringList({u"Mary O'Brien"_s}));
    // A phrase only where its words stand together.
    EXPECT_EQ(found(everywhere(u"\"new york\""_s)), QStringList({u"John Smith"_s}));
    EXPECT_TRUE(found(everywhere(u"\"york new\""_s)).isEmpty());
    // A star of the user's own anchors the word at the start of the first field ticked.
    using I = mSearch::SearchInput;
    EXPECT_EQ(found(textIn(u"jo*"_s, {&I::FullName, &I::City})), QStringList({u"John Smith"_s}));
    EXPECT_TRUE(found(textIn(u"new*"_s, {&I::FullName, &I::City})).isEmpty());
    // A word never spans two fields: the underscore stands between them.
    EXPECT_TRUE(found(textIn(u"\"smith new\""_s, {&I::FullName, &I::City})).isEmpty());
    // Numbers, and the texts of the fields that show them.
    EXPECT_EQ(found(textIn(u"555"_s, {&I::Numbers})), QStringList({u"John Smith"_s, u"王伟"_s}));
    EXPECT_TRUE(found(textIn(u"555"_s, {&I::FullName, &I::City})).isEmpty());
    EXPECT_EQ(found(textIn(u"gdańsk"_s, {&I::Address})), QStringList({u"Łukasz Nowak"_s}));
    EXPECT_EQ(found(textIn(u"вторая"_s, {&I::Comment})), QStringList({u"Дмитрий Иванов"_s}));
}

TEST_F(SearchRuns, LettersOfEveryScriptMatchWithoutRegardToCase) {
    const std::pair<const char*, const char*> cases[] = {
        {"ærø", "Ærø Jensen"},
        {"ÆRØ", "Ærø Jensen"},
        {"łukasz", "Łukasz Nowak"},
        {"ŁUKASZ", "Łukasz Nowak"},
        {"дмитрий", "Дмитрий Иванов"},
        {"ДМИТРИЙ ИВАНОВ", "Дмитрий Иванов"},
        {"王", "王伟"},
        {"北京", "王伟"},
        {"MOSKVE", ""},
        {"москве", "Дмитрий Иванов"},
        {"DŁUGA", "Łukasz Nowak"},
    };
    for (const auto& [text, name] : cases) {
        const QStringList expected = *name ? QStringList({QString::fromUtf8(name)}) : QStringList();
        EXPECT_EQ(found(everywhere(QString::fromUtf8(text))), expected) << text;
    }
}

TEST_F(SearchRuns, DatesLimitTheContactsByTheDayTheyWereAdded) {
    using I = mSearch::SearchInput;
    I in = textIn(QString(), {});
    in.DateMinOn = true;
    in.DateMin = QDate(2024, 3, 1);
    in.DateMaxOn = true;
    in.DateMax = QDate(2024, 3, 31);
    // Both days count whole: the first from its start, the last up to its end.
    EXPECT_EQ(found(in), QStringList({u"Mary O'Brien"_s, u"Ærø Jensen"_s}));
    in.Text = u"smith"_s;
    in.FullName = in.Company = true;
    EXPECT_EQ(found(in), QStringList({u"Mary O'Brien"_s}));
    // Blank text with a box ticked lists everyone.
    EXPECT_EQ(found(textIn(QString(), {&I::Title})).size(), 6);
}
