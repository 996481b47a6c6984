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

QString New(const char* key) {
    return GetSetting(AppTitle(), kPreferencesNew, key, "missing");
}

void StoreVersion(int major, int minor, int revision) {
    SaveSetting(AppTitle(), "Version", "Major", major);
    SaveSetting(AppTitle(), "Version", "Minor", minor);
    SaveSetting(AppTitle(), "Version", "Revision", revision);
}

class StartPreferences : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        QSettings().clear(); // the program never ran
        // Every variable away from its default, so that a test sees which ones the load has set.
        TipOfTheDayAtStart = DuplicateWarning = DeleteDiskWarning = SaveWindowLocation = SaveWindowSize =
            ContactCardWithTabs = ShowToolTip = ShowLargeIcons = PaneCategories = PaneDisks =
                PaneDiskContents = PaneDiskImage = ShowStatusbar = WindowAnimation1 = false;
        BDSizeOnTitle = LvTvLargeIcons = LockToolbar = FlatToolbar = MinimizeToTray = CategoryNormalMode =
            true;
        FontName = "x", ToolbarTheme = 7, AppTheme = 7, AnimationSpeed = 1, FileDoubleClick = 2;
        gResetPanes = false;
    }
    void TearDown() override {
        QCoreApplication::setApplicationVersion(QString());
        QSettings().clear();
        IniPreferences(); // the defaults again, for the other tests
        TempDirTest::TearDown();
    }
};

} // namespace

TEST_F(StartPreferences, FirstStartGivesEveryDefaultAndRecordsTheVersion) {
    CorrectingPreferencesFormat();
    IniPreferences();
    ForceShowTipOfDay();
    ResetPanesLayout();
    SaveVersion();
    EXPECT_TRUE(TipOfTheDayAtStart && DuplicateWarning && DeleteDiskWarning && SaveWindowLocation &&
                SaveWindowSize && ContactCardWithTabs && ShowToolTip && ShowLargeIcons && PaneCategories &&
                PaneDisks && PaneDiskContents && PaneDiskImage && ShowStatusbar && WindowAnimation1);
    EXPECT_FALSE(BDSizeOnTitle || LvTvLargeIcons || LockToolbar || FlatToolbar || MinimizeToTray ||
                 CategoryNormalMode || gResetPanes);
    EXPECT_EQ(FontName, "");
    EXPECT_EQ(QList<int>({ToolbarTheme, AppTheme, AnimationSpeed, FileDoubleClick}),
              QList<int>({1, 0, 300, 0}));

    // Nothing migrated: the only preference written is the tip counter, reset by the version check.
    EXPECT_EQ(GetAllSettings(AppTitle(), kPreferencesNew),
              (QList<QPair<QString, QString>>{{"TipOfTheDayCurrent", "0"}}));
    EXPECT_EQ(GetAllSettings(AppTitle(), "Version"),
              (QList<QPair<QString, QString>>{{"Major", "3"}, {"Minor", "5"}, {"Revision", "0"}}));
    EXPECT_EQ(GetSetting(AppTitle(), "Path", "AppPath"), QCoreApplication::applicationDirPath());
}

TEST_F(StartPreferences, OldSectionIsCopiedOnceInTheNewFormat) {
    SaveSetting(AppTitle(), kPreferences, "FlatToolbar", "false");
    CorrectingPreferencesFormat(); // without the old tip key the store is not an old one
    EXPECT_EQ(New("FlatToolbar"), "missing");

    SaveSetting(AppTitle(), kPreferences, "TipOfTheDayAtStart", "True");
    SaveSetting(AppTitle(), kPreferences, "AnimationSpeed", "450");
    SaveSetting(AppTitle(), kPreferences, "ShowToolTip", "no");
    SaveSetting(AppTitle(), kPreferences, "LockToolbar", "maybe");
    CorrectingPreferencesFormat();
    EXPECT_EQ(New("TipOfTheDayAtStart"), "1");
    EXPECT_EQ(New("FlatToolbar"), "0");
    EXPECT_EQ(New("AnimationSpeed"), "450");
    EXPECT_EQ(New("ShowToolTip"), "missing");
    EXPECT_EQ(New("LockToolbar"), "missing");
    EXPECT_EQ(GetSetting(AppTitle(), kPreferences, "TipOfTheDayAtStart"), "True"); // the old section stays

    SaveSetting(AppTitle(), kPreferences, "AnimationSpeed", "999");
    CorrectingPreferencesFormat();
    EXPECT_EQ(New("AnimationSpeed"), "450");
}

TEST_F(StartPreferences, UnreadableValueStopsTheLoadAndLeavesTheRest) {
    SaveSetting(AppTitle(), kPreferencesNew, "BDSizeOnTitle", false);
    SaveSetting(AppTitle(), kPreferencesNew, "LvTvLargeIcons", "big");
    try {
        IniPreferences();
        FAIL() << "no conversion error";
    } catch (const HuntERR::Error& e) {
        EXPECT_EQ(e.Number(), 13);
        EXPECT_TRUE(HuntERR::PendingStack().join("").contains("mRegSettings.IniPreferences"));
    }
    EXPECT_FALSE(BDSizeOnTitle);      // read before the bad value
    EXPECT_TRUE(ContactCardWithTabs); // a default read before it
    EXPECT_EQ(ToolbarTheme, 7);       // after it: not read
}

TEST_F(StartPreferences, TipsShowAgainWhenAnyPartOfTheVersionIsBelowTheProgramsAndOldPanesReset) {
    const struct {
        int stored[3];
        const char* running;
        bool forced;
    } cases[] = {
        {{2, 9, 0}, "3.0.0", true},  {{3, 0, 9}, "3.1.0", true},    {{3, 5, 0}, "3.1.1", true},
        {{3, 5, 0}, "3.5.0", false}, {{2, 15, 0}, "2.15.0", false}, {{3, 6, 0}, "3.5.0", false},
    };
    for (const auto& c : cases) {
        StoreVersion(c.stored[0], c.stored[1], c.stored[2]);
        SaveSetting(AppTitle(), kPreferencesNew, "TipOfTheDayCurrent", 17);
        QCoreApplication::setApplicationVersion(c.running);
        TipOfTheDayAtStart = false;
        ForceShowTipOfDay();
        EXPECT_EQ(TipOfTheDayAtStart, c.forced) << c.running;
        EXPECT_EQ(New("TipOfTheDayCurrent"), c.forced ? "0" : "17") << c.running;
    }

    const struct {
        int major, minor;
        bool reset;
    } panes[] = {{1, 89, true}, {1, 90, false}, {2, 10, false}};
    for (const auto& p : panes) {
        gResetPanes = false;
        StoreVersion(p.major, p.minor, 0);
        ResetPanesLayout();
        EXPECT_EQ(gResetPanes, p.reset) << p.major << "." << p.minor;
    }
}
