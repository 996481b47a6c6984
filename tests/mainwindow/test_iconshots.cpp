// Pictures of the main window's toolbars and trees for the documentation, in a light and a dark
// palette. Runs only when KELVARIN_ICON_SHOTS names the folder to write them to; run it once as it
// is and once with QT_SCALE_FACTOR=2 for the pictures at 200%.
#include "app/mmain.h"
#include "app/previnstance.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/form1.h"
#include "phonebook/catpath.h"
#include "phonebook/createdb.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/fixture.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette() {
    QPalette p;
    const QColor window(0x2b, 0x2d, 0x31), base(0x1e, 0x1f, 0x22), text(0xe6, 0xe6, 0xe6);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, window);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, window);
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::ToolTipBase, base);
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::Highlight, QColor(0x3d, 0x6e, 0xb0));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Light, window.lighter(150));
    p.setColor(QPalette::Midlight, window.lighter(125));
    p.setColor(QPalette::Mid, window.lighter(110));
    p.setColor(QPalette::Dark, window.darker(150));
    p.setColor(QPalette::Shadow, Qt::black);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return p;
}

class IconShots : public fixture::TempDirTest {
  protected:
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        gNotConnected = true;
        QApplication::setPalette(m_palette);
        TempDirTest::TearDown();
    }
    QPalette m_palette = QApplication::palette();
};

} // namespace

TEST_F(IconShots, ToolbarsAndTreesInALightAndADarkPalette) {
    const QString folder = qEnvironmentVariable("KELVARIN_ICON_SHOTS");
    if (folder.isEmpty()) GTEST_SKIP() << "KELVARIN_ICON_SHOTS names no folder";
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));

    const QString book = path(u"book.kvdb"_s);
    ASSERT_EQ(mAccess::CreateDB(book, false), 1);
    gDB.Execute(
        u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree) VALUES (13, 'Key accounts', 4, 'ID0EID3EID4EID13E')"_s);
    gDB.Execute(u"INSERT INTO Boxes (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Office', 0, 'ID0EID2E')"_s);
    gDB.Execute(
        u"INSERT INTO Borrows (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Emergency', 0, 'ID0EID2E')"_s);
    mLV::UpdateCatPathAll();
    const char* names[] = {"Ann Archer", "Bob Brown", "Bea Baker", "Carl Clark"};
    for (int i = 0; i < 4; ++i)
        gDB.Execute(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) "
                    "VALUES (%1, %1, '%2', 4, 1, 1, '%3')"_s.arg(i + 1)
                        .arg(QLatin1String(names[i]), QLatin1String(names[i]).left(1)));
    mMain::Closing();

    SaveSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s, false);
    mMain::SetCommandLine(book);
    mMain::Main();
    ASSERT_FALSE(gNotConnected);
    Form1& form = *gForm1;
    form.resize(900, 560);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    // The window with the categories, and beside it the tree of the groups and of the favorites.
    const int scale = qRound(form.devicePixelRatioF() * 100);
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? darkPalette() : m_palette);
        QList<QPixmap> parts;
        for (int tab : {cmd::TabGroups, cmd::TabFavorites, cmd::TabCategories}) {
            form.CommandBars1->ExecuteId(tab);
            for (TreeNode* node : form.CatTree->Nodes.All())
                form.CatTree->Expand(node);
            QTest::qWait(50);
            parts << form.PCatTree->grab();
        }
        // A contact selected, and every command shown enabled: the picture is of the icons
        // themselves.
        for (ListItem* item : form.ListView2->ListItems) {
            form.ListView2->SetSelectedItem(item);
            break;
        }
        for (CommandBarAction* action : form.CommandBars1->Actions())
            action->SetEnabled(true);
        QTest::qWait(50);
        parts.prepend(form.grab());
        parts.removeLast();
        const qreal ratio = parts[0].devicePixelRatio();
        QPixmap sheet(QSize(parts[0].width() + parts[1].width() + parts[2].width(), parts[0].height()));
        sheet.setDevicePixelRatio(ratio);
        sheet.fill(QApplication::palette().color(QPalette::Window));
        QPainter p(&sheet);
        qreal x = 0;
        for (const QPixmap& part : parts) {
            p.drawPixmap(QPointF(x, 0), part);
            x += part.width() / ratio;
        }
        p.end();
        const QString file =
            QDir(folder).filePath(u"icons-%1-%2.png"_s.arg(dark ? u"dark"_s : u"light"_s).arg(scale));
        EXPECT_TRUE(sheet.save(file)) << file.toStdString();
    }
}
