// Remembered window places, and the list and tree preferences applied to views.
#include "core/globals.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/fixture.h"

#include <QDialog>
#include <QGuiApplication>
#include <QListView>
#include <QMainWindow>
#include <QScreen>
#include <QTreeView>

using namespace mRegSettings;

namespace {

class WindowPlaces : public fixture::TempDirTest {
protected:
    void TearDown() override {
        SaveWindowLocation = true, SaveWindowSize = true;
        TempDirTest::TearDown();
    }
    static void Prefs(bool location, bool size) { SaveWindowLocation = location, SaveWindowSize = size; }
    static QString Stored(const char* section, const char* key) { return GetSetting(AppTitle(), section, key); }
    static QRect Screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

} // namespace

TEST_F(WindowPlaces, BothOffStoresNothingAndCentres) {
    Prefs(false, false);
    QMainWindow main;
    main.setGeometry(10, 20, 400, 300);
    SaveWindowConfig(&main, "Form1");
    EXPECT_TRUE(GetAllSettings(AppTitle(), "Main").isEmpty());

    SaveSetting(AppTitle(), "Main", "MainLeft", 5); // from a time when places were kept
    GetWindowConfig(&main, "Form1");
    EXPECT_EQ(main.geometry().center(), Screen().center());
    EXPECT_EQ(main.size(), QSize(400, 300));

    main.show();
    QDialog dialog(&main);
    dialog.resize(100, 60);
    GetWindowConfig(&dialog, "Form20");
    EXPECT_EQ(dialog.frameGeometry().center(), main.frameGeometry().center());
}

TEST_F(WindowPlaces, BothOnRestoresMainPlaceAndSizeButOnlyADialogsPlace) {
    Prefs(true, true);
    {
        QMainWindow main;
        main.setGeometry(30, 40, 500, 350);
        SaveWindowConfig(&main, "Form1");
        QDialog card;
        card.setGeometry(70, 80, 300, 200);
        SaveWindowConfig(&card, "Form3");
    }
    EXPECT_EQ(Stored("Main", "MainWidth"), "500");
    EXPECT_EQ(Stored("Main", "WindowState"), "0");
    EXPECT_EQ(Stored("Prop", "MainLeft"), "70");
    EXPECT_EQ(Stored("Prop", "MainWidth"), "");

    QMainWindow main;
    main.resize(200, 100);
    GetWindowConfig(&main, "Form1");
    EXPECT_EQ(main.pos(), QPoint(30, 40));
    EXPECT_EQ(main.size(), QSize(500, 350));
    EXPECT_FALSE(main.isMaximized());

    QDialog card;
    card.resize(120, 90);
    GetWindowConfig(&card, "Form3");
    EXPECT_EQ(card.pos(), QPoint(70, 80));
    EXPECT_EQ(card.size(), QSize(120, 90));
}

TEST_F(WindowPlaces, MinimisedKeepsThePreviousPlaceAndMaximisedKeepsTheNormalSize) {
    Prefs(true, true);
    QMainWindow main;
    main.setGeometry(30, 40, 500, 350);
    SaveWindowConfig(&main, "Form8");

    main.setGeometry(0, 0, 640, 480);
    main.setWindowState(Qt::WindowMinimized);
    SaveWindowConfig(&main, "Form8");
    EXPECT_EQ(Stored("Search", "MainLeft"), "30");
    EXPECT_EQ(Stored("Search", "MainWidth"), "500");

    main.setWindowState(Qt::WindowMaximized);
    SaveWindowConfig(&main, "Form8");
    EXPECT_EQ(Stored("Search", "MainWidth"), "500");
    EXPECT_EQ(Stored("Search", "WindowState"), "2");

    QMainWindow again;
    GetWindowConfig(&again, "Form8");
    EXPECT_TRUE(again.isMaximized());
    EXPECT_EQ(again.size(), QSize(500, 350));
}

TEST(ApplyPreferences, FontAndIconSizeGoToTheGivenViews) {
    QTreeView tree;
    QListView list;
    const QFont design = tree.font();
    bool large = false;
    FontName.clear();
    LvTvLargeIcons = true;
    ApplyPreferences(true, 1, 0, {&tree, &list}, [&](bool l) { large = l; });
    EXPECT_EQ(tree.font(), design);
    EXPECT_EQ(list.iconSize(), QSize(32, 32));
    EXPECT_TRUE(large);

    FontName = "DejaVu Serif", FontBold = true, FontItalic = true, FontSize = 13.5;
    LvTvLargeIcons = false;
    ApplyPreferences(false, 1, 0, {&tree, &list, nullptr});
    EXPECT_EQ(tree.font().family(), "DejaVu Serif");
    EXPECT_TRUE(list.font().bold() && list.font().italic());
    EXPECT_DOUBLE_EQ(list.font().pointSizeF(), 13.5);
    EXPECT_EQ(tree.iconSize(), QSize(16, 16));
    FontName.clear(), FontBold = false, FontItalic = false, FontSize = 0;
}
