#include "core/error.h"
#include "core/globals.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"

#include <QCoreApplication>
#include <QStringList>

namespace mRegSettings {

namespace {

// The version of this build; the application object's version, when set, goes first.
const QString kBuildVersion = QStringLiteral("3.5.0");
const QString kVersion = QStringLiteral("Version");

struct Version {
    int major = 0, minor = 0, revision = 0;
};

Version running() {
    const QStringList parts = ProgramVersion().split(QLatin1Char('.'));
    Version v;
    if (parts.size() > 0) v.major = parts[0].toInt();
    if (parts.size() > 1) v.minor = parts[1].toInt();
    if (parts.size() > 2) v.revision = parts[2].toInt();
    return v;
}

Version stored() {
    Version v;
    v.major = SettingInt(ReadSetting(kVersion, QStringLiteral("Major")));
    v.minor = SettingInt(ReadSetting(kVersion, QStringLiteral("Minor")));
    v.revision = SettingInt(ReadSetting(kVersion, QStringLiteral("Revision")));
    return v;
}

} // namespace

QString ProgramVersion() {
    const QString v = QCoreApplication::applicationVersion();
    return v.isEmpty() ? kBuildVersion : v;
}

void ForceShowTipOfDay() {
    HUNT_PLACE("mRegSettings.ForceShowTipOfDay");
    const Version s = stored();
    const Version r = running();
    // Component by component, not as one number: a lower revision alone also counts.
    if (s.major < r.major || s.minor < r.minor || s.revision < r.revision) {
        TipOfTheDayAtStart = true;
        SaveSetting(AppTitle(), kPreferencesNew, QStringLiteral("TipOfTheDayCurrent"), 0);
    }
}

void ResetPanesLayout() {
    HUNT_PLACE("mRegSettings.ResetPanesLayout");
    const Version s = stored();
    if (s.major == 1 && s.minor < 90) gResetPanes = true;
}

void SaveVersion() {
    HUNT_PLACE("mRegSettings.SaveVersion");
    const Version r = running();
    SaveSetting(AppTitle(), kVersion, QStringLiteral("Major"), r.major);
    SaveSetting(AppTitle(), kVersion, QStringLiteral("Minor"), r.minor);
    SaveSetting(AppTitle(), kVersion, QStringLiteral("Revision"), r.revision);
    SaveSetting(AppTitle(), QStringLiteral("Path"), QStringLiteral("AppPath"),
                QCoreApplication::applicationDirPath());
}

} // namespace mRegSettings
