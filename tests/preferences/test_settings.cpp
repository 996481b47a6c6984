// The settings store and the reading of its values.
#include "core/globals.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "support/fixture.h"

#include <QDir>
#include <QSettings>

using namespace mRegSettings;

namespace {

class SettingsStore : public fixture::TempDirTest {};

qint32 errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const HuntERR::Error& e) {
        return e.Number();
    }
    return 0;
}

} // namespace

TEST_F(SettingsStore, KeepsTextBooleansAndNumbersUnderApplicationSectionAndKey) {
    const QString app = AppTitle();
    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "35");
    SaveSetting(app, "Main", "SXpc1", 42);
    SaveSetting(app, "PreferencesNew", "FlatToolbar", true);
    SaveSetting(app, "PreferencesNew", "LockToolbar", false);
    SaveSetting(app, "PreferencesNew", "FontSize", 9.75);
    SaveSetting(app, "ReportLocation", "Path", "/home/a, b/report.html");
    SaveSetting(app, "ColumnHeaders12\\Other", "SortKey", 3);

    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "42");
    EXPECT_EQ(GetSetting(app, "PreferencesNew", "FlatToolbar"), "1");
    EXPECT_EQ(GetSetting(app, "PreferencesNew", "LockToolbar"), "0");
    EXPECT_EQ(GetSetting(app, "PreferencesNew", "FontSize"), "9.75");
    EXPECT_EQ(GetSetting(app, "ReportLocation", "Path"), "/home/a, b/report.html");
    // A "\" in a section is a sub-group of the file.
    EXPECT_EQ(QSettings().value("ColumnHeaders12/Other/SortKey").toString(), "3");
    // Another application name is another store.
    EXPECT_EQ(GetSetting("Other", "Main", "SXpc1", "none"), "none");

    DeleteSetting(app, "Main", "SXpc1");
    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "35");
    DeleteSetting(app, "ColumnHeaders12");
    EXPECT_TRUE(GetAllSettings(app, "ColumnHeaders12\\Other").isEmpty());
    EXPECT_EQ(GetAllSettings(app, "PreferencesNew").size(), 3);
}

TEST_F(SettingsStore, LivesInTheTestsPrivateFolder) {
    SaveSetting(AppTitle(), "Main", "SYpc", 50);
    const QString file = SettingsFileName(AppTitle());
    EXPECT_TRUE(file.startsWith(QDir::tempPath() + "/kelvarin-test-home-")) << file.toStdString();
    EXPECT_EQ(file, QSettings().fileName());
}

TEST(SettingValue, ReadsBooleansAndNumbersOrRaisesTheConversionError) {
    EXPECT_TRUE(SettingBool("1"));
    EXPECT_TRUE(SettingBool("-1"));
    EXPECT_TRUE(SettingBool("true"));
    EXPECT_FALSE(SettingBool(" 0 "));
    EXPECT_FALSE(SettingBool("False"));
    EXPECT_EQ(SettingInt("300"), 300);
    EXPECT_EQ(SettingInt("2.5"), 2);
    EXPECT_EQ(SettingInt("3.5"), 4);
    EXPECT_DOUBLE_EQ(SettingNumber("10.25"), 10.25);

    EXPECT_EQ(errorOf([] { SettingBool("yes"); }), 13);
    EXPECT_EQ(errorOf([] { SettingBool(""); }), 13);
    EXPECT_EQ(errorOf([] { SettingInt("abc"); }), 13);
    EXPECT_EQ(errorOf([] { SettingInt("40000"); }), 6);
    EXPECT_FALSE(IsNumericSetting("nan"));
    EXPECT_TRUE(IsNumericSetting(" -12 "));
}

TEST(SettingDefaults, NamedSectionsGoBeforeColumnSections) {
    EXPECT_EQ(DefaultSetting("PreferencesNew", "AnimationSpeed"), "300");
    EXPECT_EQ(DefaultSetting("ColumnHeaders81\\Other", "SortKey"), "1");
    EXPECT_EQ(DefaultSetting("ColumnHeaders12\\Company", "Visible"), "1");
    EXPECT_EQ(DefaultSetting("ColumnHeaders12\\Other", "Visible"), "");
    EXPECT_EQ(DefaultSetting("ContactCard", "PreviousCategory"), "ID1");
    EXPECT_EQ(DefaultSetting("Recent", "1"), "");
}
