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

class SettingsStore : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        QSettings().clear(); // an empty store
    }
};

qint32 ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const HuntERR::Error& e) {
        return e.Number();
    }
    return 0;
}

} // namespace

TEST_F(SettingsStore, KeepsTextUnderApplicationSectionAndKeyInTheTestsOwnFile) {
    const QString app = AppTitle();
    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "35");
    SaveSetting(app, "Main", "SXpc1", 42);
    SaveSetting(app, "PreferencesNew", "FlatToolbar", true);
    SaveSetting(app, "ReportLocation", "Path", "/home/a, b/report.html");
    SaveSetting(app, "ColumnHeaders12\\Other", "SortKey", 3);

    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "42");
    EXPECT_EQ(GetSetting(app, "PreferencesNew", "FlatToolbar"), "1");
    EXPECT_EQ(GetSetting(app, "ReportLocation", "Path"), "/home/a, b/report.html");
    EXPECT_EQ(QSettings().value("ColumnHeaders12/Other/SortKey").toString(), "3"); // "\" makes a sub-group
    EXPECT_EQ(GetSetting("Other", "Main", "SXpc1", "none"), "none");

    DeleteSetting(app, "Main", "SXpc1");
    EXPECT_EQ(GetSetting(app, "Main", "SXpc1", "35"), "35");
    DeleteSetting(app, "ColumnHeaders12");
    EXPECT_TRUE(GetAllSettings(app, "ColumnHeaders12\\Other").isEmpty());
    EXPECT_EQ(GetAllSettings(app, "PreferencesNew").size(), 1);

    const QString file = SettingsFileName(app);
    EXPECT_TRUE(file.startsWith(QDir::tempPath() + "/kelvarin-test-home-")) << file.toStdString();
    EXPECT_EQ(file, QSettings().fileName());
}

TEST(SettingValue, ReadsBooleansAndNumbersOrRaisesTheConversionError) {
    EXPECT_TRUE(SettingBool("-1") && SettingBool("true") && SettingBool("1"));
    EXPECT_FALSE(SettingBool(" 0 ") || SettingBool("False"));
    EXPECT_EQ(SettingInt("2.5"), 2);
    EXPECT_EQ(ErrorOf([] { SettingBool("yes"); }), 13);
    EXPECT_EQ(ErrorOf([] { SettingBool(""); }), 13);
    EXPECT_EQ(ErrorOf([] { SettingInt("40000"); }), 6);

    // A section named in full goes before the column sections' shared defaults.
    EXPECT_EQ(DefaultSetting("ColumnHeaders81\\Other", "SortKey"), "1");
    EXPECT_EQ(DefaultSetting("ColumnHeaders12\\Company", "Visible"), "1");
    EXPECT_EQ(DefaultSetting("ColumnHeaders12\\Other", "Visible"), "");
}
