// The four panes: their titles and places, closing and reopening, the defaults, and the layout
// of panes and toolbars kept from one run to the next.
#include "formtest.h"

#include "core/commandids.h"
#include "core/language.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/statusbar.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QAbstractButton>
#include <QLabel>
#include <QScreen>
#include <QToolBar>

namespace {

class Panes : public FormTest {
  protected:
    void clickClose(DockingPane* pane) {
        auto* button = pane->findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QToolBar* toolbar(const char* name) const { return form->findChild<QToolBar*>(QLatin1String(name)); }
};

} // namespace

TEST_F(Panes, TheFourPanesHoldTheirControlsInTheDefaultPlaces) {
    Form1& f = open();
    using namespace mLanguageGobals;
    EXPECT_EQ(f.PCatTree->windowTitle(), msgCategories);
    EXPECT_EQ(f.PListView2->windowTitle(), msgContacts);
    EXPECT_EQ(f.PListView1->windowTitle(), msgContactCardPane);
    EXPECT_EQ(f.PPhoto->windowTitle(), msgPhoto);
    EXPECT_EQ(f.PCatTree->widget(), f.CatTree);
    EXPECT_EQ(f.PListView2->widget(), f.ListView2);
    EXPECT_EQ(f.PListView1->widget(), f.ListView1);
    // The tree runs down the left side; the list stands above the card, the photo right of the card.
    const QRect tree = f.PCatTree->geometry(), list = f.PListView2->geometry();
    const QRect card = f.PListView1->geometry(), photo = f.PPhoto->geometry();
    EXPECT_LT(tree.right(), list.left());
    EXPECT_GT(tree.height(), list.height() + card.height());
    EXPECT_LT(list.bottom(), card.top());
    EXPECT_LT(card.right(), photo.left());
    EXPECT_EQ(card.top(), photo.top());
    // The window takes its default size as far as its screen allows, and the tree a fifth of it.
    EXPECT_EQ(f.size(), QSize(1024, 720).boundedTo(f.screen()->size()));
    EXPECT_NEAR(tree.width(), 220 * f.width() / 1024, 50);
    EXPECT_EQ(f.minimumSize(), QSize(780, 540));
    EXPECT_EQ(f.maximumSize(), f.screen()->size());
    // A contact without a photo shows the picture for none, inside the pane, and smaller when
    // the pane is narrower than the picture.
    f.SetNoImage();
    ASSERT_FALSE(f.picBox->pixmap().isNull());
    EXPECT_TRUE(f.PPhoto->widget()->rect().contains(f.picBox->geometry()));
    EXPECT_EQ(f.picBox->size(), f.imNoImage.size());
    f.resizeDocks({f.PPhoto}, {60}, Qt::Horizontal);
    QCoreApplication::processEvents();
    EXPECT_LE(f.picBox->width(), f.PPhoto->widget()->width());
    EXPECT_NEAR(double(f.picBox->height()) / f.picBox->width(),
                double(f.imNoImage.height()) / f.imNoImage.width(), 0.05);
    f.resize(500, 300); // never smaller than the rule
    EXPECT_EQ(f.size(), QSize(780, 540));
}

TEST_F(Panes, ClosingAPaneByItsButtonUnticksItsEntryAndStoresThat) {
    Form1& f = open();
    clickClose(f.PListView2);
    EXPECT_FALSE(f.PListView2->isVisible());
    EXPECT_FALSE(checked(cmd::ViewPaneContacts));
    EXPECT_FALSE(PaneDisks);
    EXPECT_EQ(pref("PaneDisks"), "0");

    f.CommandBars1->ExecuteId(cmd::ViewPaneContacts);
    EXPECT_TRUE(f.PListView2->isVisible());
    EXPECT_TRUE(checked(cmd::ViewPaneContacts));
    EXPECT_EQ(pref("PaneDisks"), "1");

    // Through the menu the pane hides once, not twice.
    f.CommandBars1->ExecuteId(cmd::ViewPanePhoto);
    EXPECT_FALSE(f.PPhoto->isVisible());
    EXPECT_FALSE(checked(cmd::ViewPanePhoto));
    EXPECT_EQ(pref("PaneDiskImage"), "0");
}

TEST_F(Panes, RestoreDefaultsBringsBackAllFourPanes) {
    Form1& f = open();
    clickClose(f.PPhoto);
    f.CommandBars1->ExecuteId(cmd::ViewPaneCard);
    f.addDockWidget(Qt::RightDockWidgetArea, f.PCatTree);
    ASSERT_FALSE(f.PListView1->isVisible());

    f.CommandBars1->ExecuteId(cmd::ViewPanesDefault);
    for (DockingPane* pane : {f.PCatTree, f.PListView2, f.PListView1, f.PPhoto})
        EXPECT_TRUE(pane->isVisible()) << pane->objectName().toStdString();
    EXPECT_EQ(f.dockWidgetArea(f.PCatTree), Qt::LeftDockWidgetArea);
    for (int id : {cmd::ViewPaneCategories, cmd::ViewPaneContacts, cmd::ViewPaneCard, cmd::ViewPanePhoto})
        EXPECT_TRUE(checked(id)) << id;
    EXPECT_EQ(pref("PaneCategories") + pref("PaneDisks") + pref("PaneDiskContents") + pref("PaneDiskImage"),
              "1111");
}

TEST_F(Panes, PanesAndToolbarsKeepTheirLayoutAcrossARestart) {
    Form1& f = open();
    f.resizeDocks({f.PCatTree}, {260}, Qt::Horizontal);
    clickClose(f.PPhoto);
    toolbar("AlphabeticalIndex")->toggleViewAction()->trigger();
    f.addToolBar(Qt::BottomToolBarArea, toolbar("Main"));
    f.CommandBars1->ExecuteId(cmd::ViewStatusBar);
    closeAndForget();

    restartPreferences();
    Form1& again = open();
    EXPECT_NEAR(again.PCatTree->width(), 260, 8);
    EXPECT_FALSE(again.PPhoto->isVisible());
    EXPECT_FALSE(checked(cmd::ViewPanePhoto));
    EXPECT_TRUE(again.PListView1->isVisible());
    EXPECT_FALSE(toolbar("AlphabeticalIndex")->isVisible());
    EXPECT_EQ(again.toolBarArea(toolbar("Main")), Qt::BottomToolBarArea);
    EXPECT_TRUE(toolbar("CategoriesFavorites")->isVisible());
    EXPECT_FALSE(again.StatusBar1->isVisible());

    // The letters come back on their own row, below the tree tabs.
    toolbar("AlphabeticalIndex")->toggleViewAction()->trigger();
    QCoreApplication::processEvents();
    EXPECT_GT(toolbar("AlphabeticalIndex")->y(), toolbar("CategoriesFavorites")->y());
}

TEST_F(Panes, AnOutdatedLayoutIsReplacedByTheDefault) {
    Form1& f = open();
    f.resizeDocks({f.PCatTree}, {300}, Qt::Horizontal);
    f.addDockWidget(Qt::RightDockWidgetArea, f.PCatTree);
    closeAndForget();

    restartPreferences();
    gResetPanes = true;
    Form1& again = open();
    gResetPanes = false;
    EXPECT_EQ(again.dockWidgetArea(again.PCatTree), Qt::LeftDockWidgetArea);
    EXPECT_NEAR(again.PCatTree->width(), 220, 12);
}
