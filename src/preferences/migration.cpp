#include "core/error.h"
#include "core/globals.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"

namespace mRegSettings {

namespace {

// "no" stands for a missing key: the old format never stored that word.
const QString kMissing = QStringLiteral("no");

// The keys that the old section held, in the order they are copied.
const char* const kOldKeys[] = {"TipOfTheDayAtStart",
                                "BDSizeOnTitle",
                                "DuplicateWarning",
                                "DeleteDiskWarning",
                                "SaveWindowLocation",
                                "SaveWindowSize",
                                "ToolbarTheme",
                                "AppTheme",
                                "ShowToolTip",
                                "ShowLargeIcons",
                                "LockToolbar",
                                "PaneCategories",
                                "PaneDisks",
                                "PaneDiskContents",
                                "ShowStatusbar",
                                "FlatToolbar",
                                "MinimizeToTray",
                                "WindowAnimation1",
                                "AnimationSpeed",
                                "CategoryNormalMode",
                                "FileDoubleClick",
                                "TipOfTheDayCurrent",
                                "TipOfTheDayShowAll",
                                "MainLeft",
                                "MainTop",
                                "WindowState"};

} // namespace

void CorrectingPreferencesFormat() {
    HUNT_PLACE("mRegSettings.CorrectingPreferencesFormat");
    const QString key = QStringLiteral("TipOfTheDayAtStart");
    if (GetSetting(AppTitle(), kPreferences, key, kMissing) == kMissing) return;
    if (GetSetting(AppTitle(), kPreferencesNew, key, kMissing) != kMissing) return;
    for (const char* k : kOldKeys) {
        const QString pKey = QLatin1String(k);
        CorrectingPreferencesFormatWork(GetSetting(AppTitle(), kPreferences, pKey, kMissing), pKey);
    }
}

void CorrectingPreferencesFormatWork(const QString& pTemp, const QString& pKey) {
    HUNT_PLACE("mRegSettings.CorrectingPreferencesFormatWork(pTemp, pKey)", pTemp, pKey);
    if (pTemp == kMissing) return;
    if (IsNumericSetting(pTemp)) {
        SaveSetting(AppTitle(), kPreferencesNew, pKey, pTemp);
        return;
    }
    const QString word = pTemp.toUpper();
    if (word == QLatin1String("TRUE"))
        SaveSetting(AppTitle(), kPreferencesNew, pKey, true);
    else if (word == QLatin1String("FALSE"))
        SaveSetting(AppTitle(), kPreferencesNew, pKey, false);
}

} // namespace mRegSettings
