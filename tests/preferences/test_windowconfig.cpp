// Remembered window places, and the list and tree preferences applied to views.
#include "core/globals.h"
#include "preferences/formdialog.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/fixture.h"

#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

using namespace mRegSettings;

namespace {

class WindowPlaces : public fixture::TempDirTest {
  protected:
    void TearDown() override {
        SaveWindowLocation = SaveWindowSize = true;
        TempDirTest::TearDown();
    }
    static QString Stored(const char* section, const char* key) {
        return GetSetting(AppTitle(), section, key);
    }
};

} // namespace

TEST_F(WindowPlaces, BothOffStoresNothingAndCentres) {
    SaveWindowLocation = SaveWindowSize = false;
    QMainWindow main;
    main.setGeometry(10, 20, 400, 300);
    SaveWindowConfig(&main, "Form1");
    EXPECT_TRUE(GetAllSettings(AppTitle(), "Main").isEmpty());

    SaveSetting(AppTitle(), "Main", "MainLeft", 5); // from a time when places were kept
    GetWindowConfig(&main, "Form1");
    EXPECT_EQ(main.geometry().center(), QGuiApplication::primaryScreen()->availableGeometry().center());
    EXPECT_EQ(main.size(), QSize(400, 300));

    main.show();
    QDialog dialog(&main);
    dialog.resize(100, 60);
    GetWindowConfig(&dialog, "Form20");
    EXPECT_EQ(dialog.frameGeometry().center(), main.frameGeometry().center());
}

TEST_F(WindowPlaces, BothOnRestoresMainPlaceAndSizeButOnlyADialogsPlace) {
    QMainWindow main, mainAgain;
    QDialog card, cardAgain;
    main.setGeometry(30, 40, 500, 350);
    card.setGeometry(70, 80, 300, 200);
    SaveWindowConfig(&main, "Form1");
    SaveWindowConfig(&card, "Form3");
    EXPECT_EQ(Stored("Main", "WindowState"), "0");
    EXPECT_EQ(Stored("Prop", "MainWidth"), "");

    mainAgain.resize(200, 100);
    cardAgain.resize(120, 90);
    GetWindowConfig(&mainAgain, "Form1");
    GetWindowConfig(&cardAgain, "Form3");
    EXPECT_EQ(mainAgain.geometry(), QRect(30, 40, 500, 350));
    EXPECT_FALSE(mainAgain.isMaximized());
    EXPECT_EQ(cardAgain.geometry(), QRect(70, 80, 120, 90));
}

TEST_F(WindowPlaces, MinimisedKeepsThePreviousPlaceAndMaximisedKeepsTheNormalSize) {
    QMainWindow search;
    search.setGeometry(30, 40, 500, 350);
    SaveWindowConfig(&search, "Form8");

    search.setGeometry(0, 0, 640, 480);
    search.setWindowState(Qt::WindowMinimized);
    SaveWindowConfig(&search, "Form8");
    EXPECT_EQ(Stored("Search", "MainLeft"), "30");
    EXPECT_EQ(Stored("Search", "MainWidth"), "500");

    search.setWindowState(Qt::WindowMaximized);
    SaveWindowConfig(&search, "Form8");
    EXPECT_EQ(Stored("Search", "MainWidth"), "500");
    EXPECT_EQ(Stored("Search", "WindowState"), "2");

    QMainWindow again;
    GetWindowConfig(&again, "Form8");
    EXPECT_TRUE(again.isMaximized());
    EXPECT_EQ(again.size(), QSize(500, 350));
}

namespace {
// A small window of the program: it takes its place at load and keeps it when it closes.
class PlacedDialog : public FormDialog {
  public:
    explicit PlacedDialog(QWidget* owner) : FormDialog(QStringLiteral("Form20"), owner) {
        (new QVBoxLayout(this))->addWidget(new QLabel(QStringLiteral("A node and its comment"), this));
        RestorePlace();
    }
};
} // namespace

TEST_F(WindowPlaces, AWindowWithoutAStoredPlaceOpensOverItsOwnerAndThenKeepsItsPlace) {
    QMainWindow main;
    main.setGeometry(200, 150, 500, 400);
    main.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
    QPoint place;
    {
        PlacedDialog first(&main);
        first.show();
        EXPECT_EQ(first.geometry().center(), main.geometry().center()); // not the corner of the screen
        first.move(first.pos() + QPoint(37, 23));
        place = first.geometry().topLeft();
        first.accept();
    }
    // Opened and closed again and again, it stays where the user left it.
    for (int round = 0; round < 3; ++round) {
        PlacedDialog again(&main);
        again.show();
        EXPECT_EQ(again.geometry().topLeft(), place) << round;
        again.reject();
    }
}

TEST_F(WindowPlaces, APlaceOffEveryScreenComesBackOnScreen) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    SaveSetting(AppTitle(), "CategoryProperties", "MainLeft", area.right() + 900);
    SaveSetting(AppTitle(), "CategoryProperties", "MainTop", area.top() - 300);
    PlacedDialog dialog(nullptr);
    EXPECT_TRUE(area.contains(dialog.geometry())) << dialog.geometry().x() << "," << dialog.geometry().y();
    EXPECT_GT(dialog.geometry().top(), area.top()); // room for the title bar
}

TEST(ApplyPreferences, FontAndIconSizeGoToTheGivenViews) {
    QTreeView tree;
    QListView list;
    bool large = false;
    FontName = "DejaVu Serif", FontBold = true, FontSize = 13.5, LvTvLargeIcons = true;
    ApplyPreferences(false, 1, 0, {&tree, &list, nullptr}, [&](bool l) { large = l; });
    EXPECT_EQ(tree.font().family(), "DejaVu Serif");
    EXPECT_TRUE(list.font().bold());
    EXPECT_DOUBLE_EQ(list.font().pointSizeF(), 13.5);
    EXPECT_EQ(tree.iconSize(), QSize(32, 32));
    EXPECT_TRUE(large);
    FontName.clear(), FontBold = false, FontSize = 0, LvTvLargeIcons = false;
}
