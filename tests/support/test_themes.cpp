// The colour mixer, the window and toolbar themes, the desktop's light or dark preference, and
// the row and cell colours of lists.
#include "support/controls/listview.h"
#include "support/themes/desktopscheme.h"
#include "support/themes/listcolor.h"
#include "support/themes/themes.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStyle>
#include <QStyleFactory>
#include <QToolBar>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// The WCAG contrast ratio of two colours, 1 to 21.
double Contrast(const QColor& a, const QColor& b) {
    auto luminance = [](const QColor& c) {
        auto channel = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) + 0.0722 * channel(c.blueF());
    };
    const double x = luminance(a), y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

// Puts the program's look back as it was after each test.
class Themes : public ::testing::Test {
  protected:
    void SetUp() override {
        mThemes::KeepDesktopPalette();
        style = QApplication::style()->name();
        palette = QApplication::palette();
    }
    void TearDown() override {
        mThemes::SetDesktopSchemeReader({});
        QApplication::setStyle(QStyleFactory::create(style));
        QApplication::setPalette(palette);
    }
    static void prefer(mThemes::ColorScheme scheme) {
        mThemes::SetDesktopSchemeReader([scheme] { return scheme; });
    }
    QString style;
    QPalette palette;
};

} // namespace

TEST(LightColor, MixesByHundredthsBelowOneHundredAndByThousandthsFromThere) {
    const QColor light(200, 100, 0), dark(0, 200, 100);
    EXPECT_EQ(mThemes::LightColor(light, dark, 0), light);
    EXPECT_EQ(mThemes::LightColor(light, dark, 30), QColor(140, 130, 30));
    EXPECT_EQ(mThemes::LightColor(light, dark, 99), QColor(2, 199, 99));
    // 100 is no full mix: from there the scale is a thousand.
    EXPECT_EQ(mThemes::LightColor(light, dark, 100), QColor(180, 110, 10));
    EXPECT_EQ(mThemes::LightColor(light, dark, 500), QColor(100, 150, 50));
    EXPECT_EQ(mThemes::LightColor(light, dark, 1000), dark);
    // Halves go to the even neighbour; a delta past the scale stays within a channel's range.
    EXPECT_EQ(mThemes::LightColor(QColor(1, 3, 5), QColor(0, 0, 0), 50), QColor(0, 2, 2));
    EXPECT_EQ(mThemes::LightColor(light, dark, 1500), QColor(0, 250, 150));
}

TEST_F(Themes, EveryWindowThemeIsReadableAndTheyDiffer) {
    QList<QRgb> accents;
    // Theme 0 on a light desktop has the desktop's own colours; past the last theme stands our
    // dark palette, the one theme 0 takes on a dark desktop.
    for (int theme = 1; theme <= mThemes::kAppThemes; ++theme) {
        const QPalette p =
            theme < mThemes::kAppThemes ? mThemes::AppThemePalette(theme, false) : mThemes::DarkPalette();
        SCOPED_TRACE(theme);
        EXPECT_GE(Contrast(p.color(QPalette::Text), p.color(QPalette::Base)), 7);
        EXPECT_GE(Contrast(p.color(QPalette::WindowText), p.color(QPalette::Window)), 7);
        EXPECT_GE(Contrast(p.color(QPalette::ButtonText), p.color(QPalette::Button)), 7);
        EXPECT_GE(Contrast(p.color(QPalette::HighlightedText), p.color(QPalette::Highlight)), 4.5);
        EXPECT_GE(Contrast(p.color(QPalette::Link), p.color(QPalette::Base)), 4.5);
        EXPECT_GE(Contrast(p.color(QPalette::Disabled, QPalette::Text), p.color(QPalette::Base)), 2.5);
        EXPECT_FALSE(accents.contains(p.color(QPalette::Highlight).rgb()));
        accents << p.color(QPalette::Highlight).rgb();
    }
    EXPECT_TRUE(mThemes::IsDark(mThemes::DarkPalette()));
    EXPECT_EQ(mThemes::AppThemePalette(0, false), mThemes::DesktopPalette());
    EXPECT_EQ(mThemes::AppThemePalette(0, true), mThemes::DarkPalette());
    EXPECT_EQ(mThemes::AppThemePalette(42, false), mThemes::DesktopPalette());
    // The dark bars: their text reads, and so does black on their warm hot colours.
    const QPalette bars = mThemes::BlackThemePalette();
    EXPECT_GE(Contrast(bars.color(QPalette::WindowText), bars.color(QPalette::Window)), 7);
    EXPECT_GE(Contrast(bars.color(QPalette::HighlightedText), bars.color(QPalette::Highlight)), 7);
}

TEST_F(Themes, TheDefaultThemeFollowsTheDesktopAndTheOthersStay) {
    QMainWindow window;
    auto* bar = window.addToolBar(QStringLiteral("Main"));
    window.menuBar()->addMenu(QStringLiteral("File"));
    prefer(mThemes::ColorScheme::Light);
    mThemes::ApplyToolbarTheme(0);
    mThemes::ApplyAppTheme(0);
    EXPECT_EQ(QApplication::style()->name().toLower(), "fusion");
    EXPECT_FALSE(mThemes::IsDark(QApplication::palette()));
    EXPECT_FALSE(mThemes::FollowDesktopScheme());

    // The desktop turns dark: the next look follows, bars included.
    prefer(mThemes::ColorScheme::Dark);
    EXPECT_TRUE(mThemes::FollowDesktopScheme());
    EXPECT_TRUE(mThemes::IsDark(QApplication::palette()));
    EXPECT_EQ(bar->palette().color(QPalette::Window), mThemes::BlackThemePalette().color(QPalette::Window));
    EXPECT_EQ(window.menuBar()->palette().color(QPalette::Window),
              mThemes::BlackThemePalette().color(QPalette::Window));
    EXPECT_FALSE(mThemes::FollowDesktopScheme());

    // A chosen theme keeps its colours whatever the desktop does.
    mThemes::ApplyAppTheme(3);
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight),
              mThemes::AppThemePalette(3, false).color(QPalette::Highlight));
    prefer(mThemes::ColorScheme::Light);
    EXPECT_FALSE(mThemes::FollowDesktopScheme());
    EXPECT_FALSE(mThemes::IsDark(bar->palette()));

    // The tinted toolbar theme colours the bars; the default gives them the window's colours back
    // (once the window has heard of the new palette).
    QCoreApplication::processEvents();
    mThemes::ApplyToolbarTheme(1);
    EXPECT_NE(bar->palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
    mThemes::ApplyToolbarTheme(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar->palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
}

TEST(DesktopScheme, GtkThemeNamesEndingInDarkAreDark) {
    EXPECT_TRUE(mThemes::GtkThemeNameIsDark("Adwaita-dark"));
    EXPECT_TRUE(mThemes::GtkThemeNameIsDark("Adwaita:dark"));
    EXPECT_TRUE(mThemes::GtkThemeNameIsDark(" Yaru-Blue-Dark\n"));
    EXPECT_FALSE(mThemes::GtkThemeNameIsDark("Adwaita"));
    EXPECT_FALSE(mThemes::GtkThemeNameIsDark("Darkroom"));
    EXPECT_FALSE(mThemes::GtkThemeNameIsDark(""));
}

TEST_F(Themes, ListsTintEveryOtherRowAndTheSortedColumn) {
    ListView lv;
    lv.ColumnHeaders.Add("Name", "Name", 120);
    lv.ColumnHeaders.Add("City", "City", 100);
    for (const char* name : {"Ann", "Bo", "Cy"})
        lv.ListItems.Add(QStringLiteral("ID%1").arg(name), QString::fromLatin1(name))
            ->ListSubItems.Add("Oslo");
    auto background = [&lv](int row, int column) {
        const QVariant brush = lv.model()->data(lv.model()->index(row, column), Qt::BackgroundRole);
        return brush.isValid() ? brush.value<QBrush>().color() : QColor();
    };
    EXPECT_FALSE(background(1, 1).isValid()); // no colouring until it is switched on

    mListViewColor::SetListColors(lv);
    lv.SetSortKey(1);
    lv.SetSorted(true);
    const QColor base = lv.palette().color(QPalette::Base);
    EXPECT_FALSE(background(0, 0).isValid()); // odd rows keep the base
    EXPECT_LT(background(1, 0).lightness(), base.lightness());
    EXPECT_TRUE(background(0, 1).isValid());
    EXPECT_NE(background(0, 1), background(1, 1));
    EXPECT_NE(background(1, 1), background(1, 0));
    // The tint follows the sort; a list that keeps no sort tints no column.
    lv.SetSortKey(0);
    EXPECT_TRUE(background(0, 0).isValid());
    EXPECT_FALSE(background(0, 1).isValid());
    lv.SetSorted(false);
    EXPECT_FALSE(background(0, 0).isValid());

    // On a dark list the rows turn lighter, and link blue turns light enough to read.
    lv.setPalette(mThemes::DarkPalette());
    EXPECT_GT(background(1, 0).lightness(), lv.palette().color(QPalette::Base).lightness());
    const QColor link = mThemes::ReadableForeColor(QColor(0, 0, 255), lv.palette());
    EXPECT_GE(Contrast(link, lv.palette().color(QPalette::Base)), 4.5);
    EXPECT_EQ(mThemes::ReadableForeColor(QColor(0, 0, 255), mThemes::AppThemePalette(1, false)),
              QColor(0, 0, 255));
    lv.ListItems(1)->SetCellForeColor(1, QColor(0, 0, 255));
    EXPECT_EQ(lv.model()->data(lv.model()->index(0, 1), Qt::ForegroundRole).value<QBrush>().color(), link);
    EXPECT_EQ(lv.ListItems(1)->CellForeColor(1), QColor(0, 0, 255)); // the row keeps what was set
}
