#include "preferences/preferences.h"

#include "core/error.h"
#include "preferences/regsettings.h"
#include "preferences/settingdefaults.h"
#include "preferences/settingvalue.h"

#include <cmath>

bool TipOfTheDayAtStart = true;
bool BDSizeOnTitle = false;
bool DuplicateWarning = true;
bool DeleteDiskWarning = true;
bool SaveWindowLocation = true;
bool SaveWindowSize = true;
bool ContactCardWithTabs = true;
QString FontName;
bool FontItalic = false;
bool FontBold = false;
bool FontStrikethru = false;
bool FontUnderline = false;
double FontSize = 0;
bool LvTvLargeIcons = false;
int ToolbarTheme = 1;
int AppTheme = 0;
bool ShowToolTip = true;
bool ShowLargeIcons = true;
bool LockToolbar = false;
bool PaneCategories = true;
bool PaneDisks = true;
bool PaneDiskContents = true;
bool PaneDiskImage = true;
bool ShowStatusbar = true;
bool FlatToolbar = false;
bool MinimizeToTray = false;
bool WindowAnimation1 = true;
int AnimationSpeed = 300;
bool CategoryNormalMode = false;
int FileDoubleClick = 0;

bool gResetPanes = false;

namespace mRegSettings {

namespace {

QString pref(const char* key) {
    return ReadSetting(kPreferencesNew, QLatin1String(key));
}
bool prefBool(const char* key) {
    return SettingBool(pref(key));
}
int prefInt(const char* key) {
    return SettingInt(pref(key));
}

// A font style key that is missing keeps the variable as it is: the store then holds a font
// name from a hand edit, and the name alone still applies.
void fontBool(const char* key, bool& var) {
    const QString v = pref(key);
    if (!v.isEmpty()) var = SettingBool(v);
}

} // namespace

void IniPreferences() {
    HUNT_PLACE("mRegSettings.IniPreferences");
    TipOfTheDayAtStart = prefBool("TipOfTheDayAtStart");
    BDSizeOnTitle = prefBool("BDSizeOnTitle");
    DuplicateWarning = prefBool("DuplicateWarning");
    DeleteDiskWarning = prefBool("DeleteDiskWarning");
    SaveWindowLocation = prefBool("SaveWindowLocation");
    SaveWindowSize = prefBool("SaveWindowSize");
    ContactCardWithTabs = prefBool("ContactCardWithTabs");
    FontName = pref("FontName");
    if (!FontName.isEmpty()) {
        fontBool("FontItalic", FontItalic);
        fontBool("FontBold", FontBold);
        fontBool("FontStrikethru", FontStrikethru);
        fontBool("FontUnderline", FontUnderline);
        const QString size = pref("FontSize");
        if (!size.isEmpty()) FontSize = std::round(SettingNumber(size) * 10000.0) / 10000.0;
    }
    LvTvLargeIcons = prefBool("LvTvLargeIcons");
    ToolbarTheme = prefInt("ToolbarTheme");
    AppTheme = prefInt("AppTheme");
    ShowToolTip = prefBool("ShowToolTip");
    ShowLargeIcons = prefBool("ShowLargeIcons");
    LockToolbar = prefBool("LockToolbar");
    PaneCategories = prefBool("PaneCategories");
    PaneDisks = prefBool("PaneDisks");
    PaneDiskContents = prefBool("PaneDiskContents");
    PaneDiskImage = prefBool("PaneDiskImage");
    ShowStatusbar = prefBool("ShowStatusbar");
    FlatToolbar = prefBool("FlatToolbar");
    MinimizeToTray = prefBool("MinimizeToTray");
    WindowAnimation1 = prefBool("WindowAnimation1");
    AnimationSpeed = prefInt("AnimationSpeed");
    CategoryNormalMode = prefBool("CategoryNormalMode");
    FileDoubleClick = prefInt("FileDoubleClick");
}

} // namespace mRegSettings
