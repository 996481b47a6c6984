// Dates and times as the "Added" column shows them, in the patterns of several locales.
#include "support/helpers/dates.h"

#include <gtest/gtest.h>

using mCommon::TimeCorrectView;

namespace {
class DisplayDates : public ::testing::Test {
  protected:
    void TearDown() override { mDateTime::SetDisplayLocale(QLocale::system()); }
    const QDateTime added{QDate(2024, 3, 5), QTime(14, 7, 9)};
};
} // namespace

TEST_F(DisplayDates, ShortDateAndTimeWithSecondsWithoutZone) {
    mDateTime::SetDisplayLocale(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(TimeCorrectView(QStringLiteral("2024-03-05 14:07:09")), QStringLiteral("3/5/24 2:07:09 PM"));
    EXPECT_EQ(TimeCorrectView(added), QStringLiteral("3/5/24 2:07:09 PM"));
    EXPECT_EQ(TimeCorrectView(QDate(2024, 3, 5)), QStringLiteral("3/5/24 12:00:00 AM"));

    mDateTime::SetDisplayLocale(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(TimeCorrectView(added), QStringLiteral("05.03.24 14:07:09"));
    EXPECT_EQ(mDateTime::FormatTime(QTime(9, 5, 0)), QStringLiteral("09:05:00"));
    EXPECT_EQ(mDateTime::FormatDate(QStringLiteral("2024-12-31T23:59:59")), QStringLiteral("31.12.24"));

    // The zone stands first in this locale's pattern.
    mDateTime::SetDisplayLocale(QLocale(QStringLiteral("zh_CN")));
    EXPECT_EQ(mDateTime::FormatTime(added), QStringLiteral("14:07:09"));
}

TEST_F(DisplayDates, DigitsAreAsciiInEveryLocale) {
    mDateTime::SetDisplayLocale(QLocale(QStringLiteral("ar_EG")));
    const QString shown = TimeCorrectView(added);
    EXPECT_TRUE(shown.contains(QStringLiteral("2024"))) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("2:07:09"))) << shown.toStdString();
}

TEST_F(DisplayDates, NullAndUnreadableValues) {
    EXPECT_EQ(TimeCorrectView(QVariant()), QString());
    EXPECT_EQ(TimeCorrectView(QStringLiteral("soon")), QStringLiteral("soon"));
    EXPECT_FALSE(mDateTime::ToDateTime(QStringLiteral("2024-02-30 10:00:00")).isValid());
    EXPECT_EQ(mDateTime::ToDateTime(QStringLiteral("2024-03-05 14:07:09")), added);
}
