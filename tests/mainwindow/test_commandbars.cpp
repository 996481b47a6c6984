// The command bars on their own: one action per id, clicks and check states, and the saved
// places of toolbars.
#include "support/controls/commandbars.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

namespace {

struct Window {
    QMainWindow main;
    CommandBars bars{&main};
    QToolBar* a;
    QToolBar* b;
    QToolBar* c;
    Window() {
        a = bars.AddToolBar(QStringLiteral("A"), QStringLiteral("BarA"));
        b = bars.AddToolBar(QStringLiteral("B"), QStringLiteral("BarB"));
        c = bars.AddToolBar(QStringLiteral("C"), QStringLiteral("BarC"));
        bars.AddButton(a, ControlType::Button, 1, QStringLiteral("one"));
        bars.AddButton(b, ControlType::Button, 2, QStringLiteral("two"));
        bars.AddButton(c, ControlType::Button, 3, QStringLiteral("three"));
        main.resize(600, 400);
    }
    void show() {
        main.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&main));
    }
};

} // namespace

TEST(CommandBars, OneActionPerIdWhereverItShows) {
    Window w;
    QMenu* menu = w.bars.AddPopup(w.main.menuBar(), QStringLiteral("Menu"));
    CommandBarAction* inMenu = w.bars.AddButton(menu, ControlType::RadioButton, 7, QStringLiteral("seven"));
    CommandBarAction* onBar =
        w.bars.AddButton(w.a, ControlType::RadioButton, 7, QStringLiteral("again"), true);
    EXPECT_EQ(inMenu, onBar);
    EXPECT_EQ(onBar->Caption(), "seven");
    EXPECT_FALSE(onBar->BeginGroup()); // the first place counts

    QSignalSpy executed(&w.bars, &CommandBars::Execute);
    EXPECT_TRUE(w.bars.ExecuteId(7));
    ASSERT_EQ(executed.count(), 1);
    EXPECT_EQ(executed.at(0).at(0).value<CommandBarAction*>(), onBar);
    EXPECT_FALSE(onBar->Checked()); // only the command sets the check

    onBar->SetEnabled(false);
    EXPECT_FALSE(w.bars.ExecuteId(7));
    EXPECT_FALSE(w.bars.ExecuteId(8));
    EXPECT_EQ(executed.count(), 1);

    // A hidden control keeps the state it was given.
    onBar->SetVisible(false);
    onBar->SetEnabled(true);
    EXPECT_TRUE(onBar->Enabled());
    onBar->SetVisible(true);
    EXPECT_TRUE(onBar->isEnabled());
}

TEST(CommandBars, ToolbarPlacesSurviveARoundTrip) {
    Window first;
    first.bars.DockRightOf(first.c, first.a); // row 0: A C, row 1: B
    first.bars.DockOnNewRow(first.b);
    const QString unshown = first.bars.SaveLayout();
    first.show();
    EXPECT_EQ(first.bars.SaveLayout(), unshown);
    EXPECT_EQ(first.c->y(), first.a->y());
    EXPECT_GT(first.c->x(), first.a->x());
    EXPECT_GT(first.b->y(), first.a->y());

    first.c->hide();
    const QString saved = first.bars.SaveLayout();

    Window second;
    second.show();
    ASSERT_TRUE(second.bars.LoadLayout(saved));
    QCoreApplication::processEvents();
    EXPECT_FALSE(second.c->isVisible());
    EXPECT_GT(second.b->y(), second.a->y());
    second.c->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(second.c->y(), second.a->y());
    EXPECT_GT(second.c->x(), second.a->x());

    const QString before = second.bars.SaveLayout();
    EXPECT_FALSE(second.bars.LoadLayout(QString()));
    EXPECT_FALSE(second.bars.LoadLayout(QStringLiteral("BarA,4,zero,1")));
    EXPECT_EQ(second.bars.SaveLayout(), before);
}
