// The looks the preferences choose: the window and toolbar themes, and the fade of a closing
// dialog.
#include "preferences/formdialog.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "support/fixture.h"
#include "support/themes/closefade.h"
#include "support/themes/desktopscheme.h"
#include "support/themes/themes.h"

#include <QApplication>
#include <QMainWindow>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <QToolBar>

namespace {

class FadingDialog : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        main.resize(500, 400);
        main.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
    }
    void TearDown() override {
        mFade::SetPlatformCanFade(std::nullopt);
        WindowAnimation1 = true;
        AnimationSpeed = 300;
        TempDirTest::TearDown();
    }
    // Opens a dialog over the main window, closes it, and answers how many pictures fade.
    int closeOne(bool accept) {
        FormDialog dialog(QStringLiteral("Form4"), &main);
        dialog.resize(240, 160);
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        accept ? dialog.accept() : dialog.reject();
        // The dialog is gone at once, with its answer; the fade does not hold it.
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), accept ? QDialog::Accepted : QDialog::Rejected);
        return int(main.findChildren<QWidget*>(QStringLiteral("CloseFade")).size());
    }
    QMainWindow main;
};

} // namespace

TEST_F(FadingDialog, EveryDialogFadesAsItClosesWhenChosenAndThePlatformCan) {
    // Offscreen windows have no opacity: nothing fades.
    EXPECT_EQ(closeOne(true), 0);
    mFade::SetPlatformCanFade(true);
    EXPECT_EQ(closeOne(true), 1);
    EXPECT_EQ(closeOne(false), 2);
    auto pictures = main.findChildren<QWidget*>(QStringLiteral("CloseFade"));
    qDeleteAll(pictures);
    WindowAnimation1 = false;
    EXPECT_EQ(closeOne(true), 0);
    WindowAnimation1 = true;
    AnimationSpeed = 0;
    EXPECT_EQ(closeOne(true), 0);
}

TEST(ThemePreferences, ThemesGoOnAtStartAndThenOnlyWhenTheirChoiceChanges) {
    const QString style = QApplication::style()->name();
    const QPalette palette = QApplication::palette();
    mThemes::KeepDesktopPalette();
    mThemes::SetDesktopSchemeReader([] { return mThemes::ColorScheme::Light; });
    QMainWindow main;
    QToolBar* bar = main.addToolBar(QStringLiteral("Main"));
    auto highlight = [] { return QApplication::palette().color(QPalette::Highlight); };

    AppTheme = 4, ToolbarTheme = 1;
    mRegSettings::ApplyPreferences(true, ToolbarTheme, AppTheme);
    EXPECT_EQ(highlight(), mThemes::AppThemePalette(4, false).color(QPalette::Highlight));
    const QColor tinted = bar->palette().color(QPalette::Window);
    EXPECT_NE(tinted, QApplication::palette().color(QPalette::Window));

    // Unchanged choices are left alone, even when something else has changed the look since.
    QApplication::setPalette(mThemes::AppThemePalette(6, false));
    mRegSettings::ApplyPreferences(false, 1, 4);
    EXPECT_EQ(highlight(), mThemes::AppThemePalette(6, false).color(QPalette::Highlight));
    // A new window theme goes on; the toolbar theme stays.
    AppTheme = 7;
    mRegSettings::ApplyPreferences(false, 1, 4);
    EXPECT_EQ(highlight(), mThemes::AppThemePalette(7, false).color(QPalette::Highlight));
    EXPECT_NE(bar->palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
    ToolbarTheme = 0;
    mRegSettings::ApplyPreferences(false, 1, 7);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar->palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));

    AppTheme = 0, ToolbarTheme = 1;
    mThemes::SetDesktopSchemeReader({});
    QApplication::setStyle(QStyleFactory::create(style));
    QApplication::setPalette(palette);
}
