// The letter a contact files under, from its name or, without a name, its company.
#include "card/cardtext.h"

#include <gtest/gtest.h>

using mCard::LabelOfCaption;
using mCard::LetterCaption;

TEST(CardLetter, NameFirstThenCompany) {
    EXPECT_EQ(LetterCaption("  anna ", "Zeta"), "A");
    EXPECT_EQ(LetterCaption("   ", "  zeta ltd"), "Z");
    EXPECT_EQ(LetterCaption("", ""), "");
    EXPECT_EQ(LetterCaption("  ", "  "), "");
}

TEST(CardLetter, DigitsAndEverythingOutsideAToZ) {
    EXPECT_EQ(LetterCaption("7 Seas", ""), "0-9");
    EXPECT_EQ(LetterCaption("", "3M"), "0-9");
    for (const char* name : {"Émile", "ßen", "Øystein", "(Ann)", "_x", "Ωmega"})
        EXPECT_EQ(LetterCaption(QString::fromUtf8(name), ""), "?") << name;
    EXPECT_EQ(LabelOfCaption("0-9"), "NUM");
    EXPECT_EQ(LabelOfCaption("?"), "UNK");
    EXPECT_EQ(LabelOfCaption("K"), "K");
}
