// Preferences at start: migration of the old section, load into the variables, version bookkeeping.
#include "core/globals.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/fixture.h"

#include <QCoreApplication>
#include <QSettings>

using namespace mRegSettings;

namespace {

// Every variable away from its default, so that a test sees which ones the load has set.
void Scramble() {
    TipOfTheDayAtStart = false, BDSizeOnTitle = true, DuplicateWarning = false, DeleteDiskWarning = false;
    SaveWindowLocation = false, SaveWindowSize = false, ContactCardWithTabs = false, FontName = "x";
    LvTvLargeIcons = true, ToolbarTheme = 7, AppTheme = 7, ShowToolTip = false, ShowLargeIcons = false;
    LockToolbar = true, PaneCategories = false, PaneDisks = false, PaneDiskContents = false;
    PaneDiskImage = false, ShowStatusbar = false, FlatToolbar = true, MinimizeToTray = true;
    WindowAnimation1 = false, AnimationSpeed = 1, CategoryNormalMode = true, FileDoubleClick = 2;
    gResetPanes = false;
}

void Start() {
    CorrectingPreferencesFormat();
    IniPreferences();
    ForceShowTipOfDay();
    ResetPanesLayout();
    SaveVersion();
}

QString New(const char* key) { return GetSetting(AppTitle(), kPreferencesNew, key, "missing"); }

class StartPreferences : public fixture::TempDirTest {
protected:
    void SetUp() override {
        TempDirTest::SetUp();
        Scramble();
    }
    void TearDown() override {
        QCoreApplication::setApplicationVersion(QString());
        QSettings().clear();
        IniPreferences(); // leaves the defaults for the other tests
        TempDirTest::TearDown();
    }
    void StoreVersion(int major, int minor, int revision) {
        SaveSetting(AppTitle(), "Version", "Major", major);
        SaveSetting(AppTitle(), "Version", "Minor", minor);
        SaveSetting(AppTitle(), "Version", "Revision", revision);
    }
};

} // namespace

TEST_F(StartPreferences, FirstStartGivesEveryDefaultAndRecordsTheVersion) {
    Start();
    EXPECT_TRUE(TipOfTheDayAtStart && DuplicateWarning && DeleteDiskWarning && SaveWindowLocation &&
                SaveWindowSize && ContactCardWithTabs && ShowToolTip && ShowLargeIcons && PaneCategories &&
                PaneDisks && PaneDiskContents && PaneDiskImage && ShowStatusbar && WindowAnimation1);
    EXPECT_FALSE(BDSizeOnTitle || LvTvLargeIcons || LockToolbar || FlatToolbar || MinimizeToTray ||
                 CategoryNormalMode || gResetPanes);
    EXPECT_EQ(FontName, "");
    EXPECT_EQ(ToolbarTheme, 1);
    EXPECT_EQ(AppTheme, 0);
    EXPECT_EQ(AnimationSpeed, 300);
    EXPECT_EQ(FileDoubleClick, 0);

    // Nothing migrated: the only preference written is the tip counter of the version check.
    EXPECT_EQ(GetAllSettings(AppTitle(), kPreferencesNew), (QList<QPair<QString, QString>>{{"TipOfTheDayCurrent", "0"}}));
    EXPECT_EQ(GetSetting(AppTitle(), "Version", "Major"), "3");
    EXPECT_EQ(GetSetting(AppTitle(), "Version", "Minor"), "5");
    EXPECT_EQ(GetSetting(AppTitle(), "Version", "Revision"), "0");
    EXPECT_EQ(GetSetting(AppTitle(), "Path", "AppPath"), QCoreApplication::applicationDirPath());
}

TEST_F(StartPreferences, OldSectionIsCopiedOnceInTheNewFormat) {
    SaveSetting(AppTitle(), kPreferences, "TipOfTheDayAtStart", "True");
    SaveSetting(AppTitle(), kPreferences, "FlatToolbar", "false");
    SaveSetting(AppTitle(), kPreferences, "AnimationSpeed", "450");
    SaveSetting(AppTitle(), kPreferences, "MainLeft", "120.5");
    SaveSetting(AppTitle(), kPreferences, "ShowToolTip", "no");
    SaveSetting(AppTitle(), kPreferences, "LockToolbar", "maybe");
    SaveSetting(AppTitle(), kPreferences, "FontName", "Serif"); // never part of the old format

    CorrectingPreferencesFormat();
    EXPECT_EQ(New("TipOfTheDayAtStart"), "1");
    EXPECT_EQ(New("FlatToolbar"), "0");
    EXPECT_EQ(New("AnimationSpeed"), "450");
    EXPECT_EQ(New("MainLeft"), "120.5");
    EXPECT_EQ(New("ShowToolTip"), "missing");
    EXPECT_EQ(New("LockToolbar"), "missing");
    EXPECT_EQ(New("FontName"), "missing");
    EXPECT_EQ(GetSetting(AppTitle(), kPreferences, "TipOfTheDayAtStart"), "True"); // old section stays

    // Once the new section has the key, the old one is not read again.
    SaveSetting(AppTitle(), kPreferences, "AnimationSpeed", "999");
    CorrectingPreferencesFormat();
    EXPECT_EQ(New("AnimationSpeed"), "450");

    IniPreferences();
    EXPECT_TRUE(TipOfTheDayAtStart);
    EXPECT_FALSE(FlatToolbar);
    EXPECT_EQ(AnimationSpeed, 450);
}

TEST_F(StartPreferences, NoMigrationWithoutTheOldTipKey) {
    SaveSetting(AppTitle(), kPreferences, "FlatToolbar", "True");
    CorrectingPreferencesFormat();
    EXPECT_EQ(New("FlatToolbar"), "missing");
}

TEST_F(StartPreferences, FontKeysAreReadOnlyWithAFontName) {
    SaveSetting(AppTitle(), kPreferencesNew, "FontBold", true);
    SaveSetting(AppTitle(), kPreferencesNew, "FontSize", "12.123456");
    FontBold = false, FontSize = 0;
    IniPreferences();
    EXPECT_FALSE(FontBold);
    EXPECT_EQ(FontSize, 0);

    SaveSetting(AppTitle(), kPreferencesNew, "FontName", "DejaVu Sans");
    IniPreferences();
    EXPECT_EQ(FontName, "DejaVu Sans");
    EXPECT_TRUE(FontBold);
    EXPECT_DOUBLE_EQ(FontSize, 12.1235);
}

TEST_F(StartPreferences, UnreadableValueStopsTheLoadAndLeavesTheRest) {
    SaveSetting(AppTitle(), kPreferencesNew, "BDSizeOnTitle", true);
    SaveSetting(AppTitle(), kPreferencesNew, "LvTvLargeIcons", "big");
    try {
        IniPreferences();
        FAIL() << "no conversion error";
    } catch (const HuntERR::Error& e) {
        EXPECT_EQ(e.Number(), 13);
        ASSERT_FALSE(HuntERR::PendingStack().isEmpty());
        EXPECT_TRUE(HuntERR::PendingStack().last().contains("mRegSettings.IniPreferences"));
    }
    EXPECT_TRUE(BDSizeOnTitle);       // read before the bad value
    EXPECT_TRUE(ContactCardWithTabs); // default, read before it
    EXPECT_EQ(ToolbarTheme, 7);       // after it: not read
    EXPECT_EQ(AnimationSpeed, 1);
}

struct VersionCase {
    int stored[3];
    int running[3];
    bool forced;
};

class TipAfterUpdate : public StartPreferences, public ::testing::WithParamInterface<VersionCase> {};

TEST_P(TipAfterUpdate, ComparesEachPartOfTheVersion) {
    const VersionCase& c = GetParam();
    StoreVersion(c.stored[0], c.stored[1], c.stored[2]);
    SaveSetting(AppTitle(), kPreferencesNew, "TipOfTheDayCurrent", 17);
    QCoreApplication::setApplicationVersion(QString("%1.%2.%3").arg(c.running[0]).arg(c.running[1]).arg(c.running[2]));
    TipOfTheDayAtStart = false;

    ForceShowTipOfDay();
    EXPECT_EQ(TipOfTheDayAtStart, c.forced);
    EXPECT_EQ(New("TipOfTheDayCurrent"), c.forced ? "0" : "17");

    SaveVersion();
    EXPECT_EQ(GetSetting(AppTitle(), "Version", "Minor"), QString::number(c.running[1]));
}

INSTANTIATE_TEST_SUITE_P(Versions, TipAfterUpdate,
                         ::testing::Values(VersionCase{{2, 9, 0}, {3, 0, 0}, true},
                                           VersionCase{{3, 0, 9}, {3, 1, 0}, true},
                                           VersionCase{{3, 5, 0}, {3, 1, 1}, true},
                                           VersionCase{{3, 5, 0}, {3, 5, 0}, false},
                                           VersionCase{{2, 15, 0}, {2, 15, 0}, false},
                                           VersionCase{{3, 6, 0}, {3, 5, 0}, false}));

TEST_F(StartPreferences, PaneLayoutOlderThanOneNinetyIsReset) {
    StoreVersion(1, 89, 5);
    ResetPanesLayout();
    EXPECT_TRUE(gResetPanes);
    gResetPanes = false;
    StoreVersion(1, 90, 0);
    ResetPanesLayout();
    EXPECT_FALSE(gResetPanes);
    StoreVersion(2, 10, 0);
    ResetPanesLayout();
    EXPECT_FALSE(gResetPanes);
}
