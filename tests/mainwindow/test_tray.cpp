// The window in the notification area: the click rule, the tray menu and its Exit.
#include "formtest.h"

#include "core/commandids.h"
#include "core/language.h"
#include "mainwindow/tray.h"
#include "support/controls/subclass.h"

#include <QDialog>
#include <QMenu>

namespace {

class Tray : public FormTest {
  protected:
    void SetUp() override {
        FormTest::SetUp();
        MainFormVisible = true; // as the start leaves it
    }
};

TEST_F(Tray, ALeftClickTogglesTheWindowAndTheTypesWindowBlocksClicks) {
    Form1& f = open();
    LastWindowState = 2;
    mTray::TrayActivated(QSystemTrayIcon::Trigger);
    EXPECT_FALSE(MainFormVisible);
    EXPECT_FALSE(f.isVisible());
    mTray::TrayActivated(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(MainFormVisible);
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(f.windowState() & Qt::WindowMaximized); // back in its last state

    // While the number types window is open, clicks on the icon do nothing.
    QDialog types;
    types.setObjectName(QStringLiteral("Form19"));
    types.show();
    mTray::TrayActivated(QSystemTrayIcon::Trigger);
    mTray::TrayActivated(QSystemTrayIcon::Context);
    EXPECT_TRUE(MainFormVisible);
    EXPECT_FALSE(mTray::PopupMenu()->isVisible());
    types.hide();
    mTray::TrayActivated(QSystemTrayIcon::Context);
    EXPECT_TRUE(mTray::PopupMenu()->isVisible());
    mTray::PopupMenu()->hide();
}

TEST_F(Tray, TheMenuRestoresAndExitsThroughTheNormalClosing) {
    Form1& f = open();
    QStringList entries;
    for (QAction* a : mTray::PopupMenu()->actions())
        if (!a->isSeparator()) entries << a->text();
    EXPECT_EQ(entries.size(), 5);
    EXPECT_EQ(entries.first(), mLanguageGobals::msgRestore);
    EXPECT_EQ(entries.last(), mLanguageGobals::msgExit);

    mMain::MainFormHide();
    ASSERT_TRUE(f.CommandBars1->ExecuteId(cmd::TrayRestore));
    EXPECT_TRUE(f.isVisible());
    mMain::MainFormHide();
    SaveSetting(AppTitle(), QStringLiteral("Main"), QStringLiteral("SXpc1"), 0.0);
    ASSERT_TRUE(f.CommandBars1->ExecuteId(cmd::TrayExit));
    EXPECT_FALSE(f.isVisible());
    EXPECT_FALSE(mTray::IconShown());
    // The unload ran: it stored the window's layout.
    EXPECT_NE(GetSetting(AppTitle(), QStringLiteral("Main"), QStringLiteral("SXpc1")), QStringLiteral("0"));
}

TEST_F(Tray, WithoutANotificationAreaTheWindowMinimisesAsUsual) {
    Form1& f = open();
    MinimizeToTray = true;
    f.showMinimized();
    QCoreApplication::processEvents();
    // The test platform has no notification area.
    EXPECT_EQ(mTray::IconShown(), QSystemTrayIcon::isSystemTrayAvailable());
    EXPECT_EQ(MainFormVisible, !QSystemTrayIcon::isSystemTrayAvailable());
    MinimizeToTray = false;
}

TEST_F(Tray, TheSizeRuleNeedsAWindow) {
    try {
        SubClasser::StartSubClass(nullptr, SubClassMy::SearchWindow);
        FAIL() << "no error";
    } catch (const HuntERR::Error& e) {
        EXPECT_EQ(e.Number(), 5);
        EXPECT_EQ(e.Description(), QStringLiteral("Invalid hWnd"));
        EXPECT_EQ(e.Source(), QStringLiteral("Subclasser"));
    }
    QWidget w;
    SubClasser::StartSubClass(&w, SubClassMy::SearchWindow);
    w.resize(100, 100);
    EXPECT_EQ(w.size(), QSize(780, 540));
    SubClasser::StopSubClass(&w);
    w.resize(100, 100);
    EXPECT_EQ(w.size(), QSize(100, 100));
}

} // namespace
