// The order of texts in the tree and the lists where the system has no order of its own (the C
// locale of minimal systems and of the tests): the Unicode root order without regard to case,
// not the order of code points.
#include "support/controls/textorder.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

static void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class RootOrder : public ::testing::Test {
  protected:
    void SetUp() override {
        if (QLocale::system().language() != QLocale::C)
            GTEST_SKIP() << "the system locale orders texts itself";
    }
    // The texts in the order of the keys, equal texts in the order given.
    static QStringList sorted(const QStringList& texts) {
        TextOrder::Keys keys;
        for (const QString& t : texts)
            keys.Add(t);
        std::vector<size_t> order(size_t(texts.size()));
        std::iota(order.begin(), order.end(), size_t(0));
        std::stable_sort(order.begin(), order.end(),
                         [&](size_t a, size_t b) { return keys.Compare(a, b) < 0; });
        QStringList out;
        for (size_t i : order)
            out << texts[qsizetype(i)];
        return out;
    }
};

} // namespace

TEST_F(RootOrder, NamesWithMarksSortBesideTheirBaseLetters) {
    const QStringList names{"Zoë Quinn",  "Łukasz Nowak", "Øystein Berg", "Émile Zola", "anna Smith",
                            "Ærø Hansen", "Bob Brown",    "Lars Ek",      "Otto Lund",  "Eve Evans"};
    EXPECT_EQ(sorted(names),
              QStringList({"Ærø Hansen", "anna Smith", "Bob Brown", "Émile Zola", "Eve Evans", "Lars Ek",
                           "Łukasz Nowak", "Otto Lund", "Øystein Berg", "Zoë Quinn"}));
}

TEST_F(RootOrder, CaseNeverCountsMarksOnlyBetweenOtherwiseEqualTexts) {
    EXPECT_EQ(TextOrder::Compare("oslo", "OSLO"), 0);
    EXPECT_EQ(TextOrder::Compare("Émile", "éMILE"), 0);
    // A letter and its mark typed apart are the same text as the letter with the mark.
    EXPECT_EQ(TextOrder::Compare(QString::fromUtf8("e\u0301mile"), "émile"), 0);
    EXPECT_EQ(sorted({"Emilia", "Émile", "emile", "Straße", "Strasst", "Strasse", "Strassburg"}),
              QStringList({"emile", "Émile", "Emilia", "Strassburg", "Strasse", "Straße", "Strasst"}));
    // Equal texts keep the order they came in.
    EXPECT_EQ(sorted({"b", "Oslo", "a", "oslo"}), QStringList({"a", "b", "Oslo", "oslo"}));
}

TEST_F(RootOrder, BlanksAndSignsThenDigitsThenLettersThenOtherScripts) {
    const QStringList texts{"b", "Юрий", "Ωmega", "9", "10", "_x", "\u2013x", " lead", "(x)", "a", "~"};
    EXPECT_EQ(sorted(texts),
              QStringList({" lead", "(x)", "_x", "~", "\u2013x", "10", "9", "a", "b", "Ωmega", "Юрий"}));
}
