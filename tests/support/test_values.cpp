// Null handling, one-line cells and sizes, as the lists, cards and reports show them.
#include "support/helpers/values.h"

#include <gtest/gtest.h>

using namespace mCommon;

namespace {
QString text(const QVariant& v) {
    return v.toString();
}
} // namespace

TEST(NullHelpers, NullGivesTheReplacementOtherValuesPassThrough) {
    const QVariant null;
    EXPECT_EQ(text(Nz(null, QStringLiteral("-"))), QStringLiteral("-"));
    EXPECT_EQ(Nz(QString(""), QStringLiteral("-")), QVariant(QString(""))); // empty text is not Null

    EXPECT_EQ(text(NzColon(QStringLiteral("Mobile"), QString())), QStringLiteral("Mobile:"));
    EXPECT_EQ(text(NzColon(null, QStringLiteral("none"))), QStringLiteral("none"));
    EXPECT_EQ(text(strNzColon(QStringLiteral("Fax"), QString())), QStringLiteral("Fax:"));
    EXPECT_EQ(text(strNzColon(QString(""), QStringLiteral("x"))), QStringLiteral("x"));
    EXPECT_EQ(text(strNzColon(null, QStringLiteral("x"))), QStringLiteral("x"));
}

TEST(NullHelpers, MultilineTextsFitOneCell) {
    const QVariant null;
    EXPECT_EQ(text(NzMultiline(QStringLiteral("a\r\nb"), QString())), QStringLiteral("a ..."));
    EXPECT_EQ(text(NzMultiline(QStringLiteral("first\nsecond"), QString())), QStringLiteral("first ..."));
    EXPECT_EQ(text(NzMultiline(null, QStringLiteral("?"))), QStringLiteral("?"));

    EXPECT_EQ(text(NzMultiline2(QStringLiteral("12 Main St\r\nSpringfield\r\nUSA"), QString())),
              QStringLiteral("12 Main St, Springfield, USA"));
    EXPECT_EQ(text(NzMultiline2(QStringLiteral("a\nb"), QString())), QStringLiteral("a, b"));
    EXPECT_EQ(text(NzMultiline2(QStringLiteral("a\r\n\r\nb"), QString())), QStringLiteral("a, , b"));
    EXPECT_EQ(text(NzMultiline2(null, QString())), QString());
}

TEST(SizeCorrectView, GroupsDigitsAndRoundsKilobytesUp) {
    EXPECT_EQ(SizeCorrectView(1024, 2), QStringLiteral("1 KB"));
    EXPECT_EQ(SizeCorrectView(1025, 2), QStringLiteral("2 KB"));
    EXPECT_EQ(SizeCorrectView(5000000, 2), QStringLiteral("4,883 KB"));
    EXPECT_EQ(SizeCorrectView(1536, 0), QStringLiteral("1,536"));
    EXPECT_EQ(SizeCorrectView(1536, 1), QStringLiteral("1,536 bytes"));
    EXPECT_EQ(SizeCorrectView(1234567890123.0, 1), QStringLiteral("1,234,567,890,123 bytes"));
    EXPECT_EQ(SizeCorrectView(2.5, 0), QStringLiteral("3"));
}

TEST(RoundEx, CutsTheFigureInTheLargestUnitUpToGigabytes) {
    EXPECT_EQ(RoundEx(999), QStringLiteral("999 bytes"));
    EXPECT_EQ(RoundEx(1536), QStringLiteral("1.5 KB"));
    EXPECT_EQ(RoundEx(123456), QStringLiteral("120 KB"));
    EXPECT_EQ(RoundEx(1023), QStringLiteral("0.99 KB"));     // 0.999..., cut, not rounded
    EXPECT_EQ(RoundEx(13369344), QStringLiteral("12.7 MB")); // 12.75
    EXPECT_EQ(RoundEx(1610612736.0), QStringLiteral("1.5 GB"));
    EXPECT_EQ(RoundEx(999.0 * 1073741824.0), QStringLiteral("999 GB"));
    EXPECT_EQ(RoundEx(2.0 * 1099511627776.0), QStringLiteral("2")); // past GB there is no unit
}

TEST(RoundEx, UnitWordsCanBeReplaced) {
    SetSizeUnitTexts(QStringLiteral("B"), QStringLiteral("kB"), QStringLiteral("MiB"), QStringLiteral("GiB"));
    const QString bytes = SizeCorrectView(10, 1), kilo = RoundEx(2048), mega = SizeCorrectView(2048, 2);
    SetSizeUnitTexts(QStringLiteral("bytes"), QStringLiteral("KB"), QStringLiteral("MB"),
                     QStringLiteral("GB"));
    EXPECT_EQ(bytes, QStringLiteral("10 B"));
    EXPECT_EQ(kilo, QStringLiteral("2 kB"));
    EXPECT_EQ(mega, QStringLiteral("2 kB"));
}
