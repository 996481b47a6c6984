// The letter a contact files under, from its name or, without a name, its company.
#include "card/cardtext.h"

#include <gtest/gtest.h>
#include <utility>

using mCard::LabelOfCaption;
using mCard::LetterCaption;

TEST(CardLetter, NameFirstThenCompany) {
    EXPECT_EQ(LetterCaption("  anna ", "Zeta"), "A");
    EXPECT_EQ(LetterCaption("   ", "  zeta ltd"), "Z");
    EXPECT_EQ(LetterCaption("", ""), "");
    EXPECT_EQ(LetterCaption("  ", "  "), "");
}

TEST(CardLetter, LatinLettersWithMarksFileUnderTheirBaseLetter) {
    const std::pair<const char*, const char*> names[] = {
        {"Ærø", "A"},  {"ärzte", "A"},   {"Åsa", "A"},   {"Émile", "E"}, {"Łukasz", "L"},
        {"łoś", "L"},  {"Øystein", "O"}, {"Œuvre", "O"}, {"ßen", "S"},   {"Đorđe", "D"},
        {"Þóra", "T"}, {"Çelik", "C"},   {"ñandú", "N"}, {"Škoda", "S"}, {"émile", "E"}};
    for (const auto& [name, letter] : names)
        EXPECT_EQ(LetterCaption(QString::fromUtf8(name), ""), letter) << name;
    // The company when there is no name, as for plain letters.
    EXPECT_EQ(LetterCaption("", QString::fromUtf8("Ørsted")), "O");
}

TEST(CardLetter, DigitsAndEverythingOutsideTheLatinLetters) {
    EXPECT_EQ(LetterCaption("7 Seas", ""), "0-9");
    EXPECT_EQ(LetterCaption("", "3M"), "0-9");
    for (const char* name : {"(Ann)", "_x", "Ωmega", "Юрий", "東京", "😀 smile", "¿Qué?"})
        EXPECT_EQ(LetterCaption(QString::fromUtf8(name), ""), "?") << name;
    EXPECT_EQ(LabelOfCaption("0-9"), "NUM");
    EXPECT_EQ(LabelOfCaption("?"), "UNK");
    EXPECT_EQ(LabelOfCaption("K"), "K");
}
