#include "preferences/settingdefaults.h"

#include "core/globals.h"
#include "preferences/settings.h"

namespace mRegSettings {

namespace {

struct Default {
    const char* section; // a trailing "\*" stands for any sub-group of that name
    const char* key;
    const char* value;
};

// Keys with an empty default (Recent, FontName, SearchName, ...) need no line.
const Default kDefaults[] = {
    {"PreferencesNew", "TipOfTheDayAtStart", "1"},
    {"PreferencesNew", "TipOfTheDayCurrent", "0"},
    {"PreferencesNew", "TipOfTheDayShowAll", "1"},
    {"PreferencesNew", "BDSizeOnTitle", "0"},
    {"PreferencesNew", "DuplicateWarning", "1"},
    {"PreferencesNew", "DeleteDiskWarning", "1"},
    {"PreferencesNew", "SaveWindowLocation", "1"},
    {"PreferencesNew", "SaveWindowSize", "1"},
    {"PreferencesNew", "ContactCardWithTabs", "1"},
    {"PreferencesNew", "CommentWordWrap", "1"},
    {"PreferencesNew", "IncreasedComment", "0"},
    {"PreferencesNew", "LvTvLargeIcons", "0"},
    {"PreferencesNew", "ToolbarTheme", "1"},
    {"PreferencesNew", "AppTheme", "0"},
    {"PreferencesNew", "ShowToolTip", "1"},
    {"PreferencesNew", "ShowLargeIcons", "1"},
    {"PreferencesNew", "LockToolbar", "0"},
    {"PreferencesNew", "PaneCategories", "1"},
    {"PreferencesNew", "PaneDisks", "1"},
    {"PreferencesNew", "PaneDiskContents", "1"},
    {"PreferencesNew", "PaneDiskImage", "1"},
    {"PreferencesNew", "ShowStatusbar", "1"},
    {"PreferencesNew", "FlatToolbar", "0"},
    {"PreferencesNew", "MinimizeToTray", "0"},
    {"PreferencesNew", "WindowAnimation1", "1"},
    {"PreferencesNew", "AnimationSpeed", "300"},
    {"PreferencesNew", "CategoryNormalMode", "0"},
    {"PreferencesNew", "FileDoubleClick", "0"},
    {"Version", "Major", "0"},
    {"Version", "Minor", "0"},
    {"Version", "Revision", "0"},
    {"Main", "SXpc1", "35"},
    {"Main", "SXpc2", "70"},
    {"Main", "SYpc", "50"},
    {"ColumnHeaders11\\*", "Visible", "1"},
    {"ColumnHeaders12\\*", "Visible", "1"},
    {"ColumnHeaders81\\*", "Visible", "1"},
    {"ColumnHeaders12\\Other", "SortKey", "0"},
    {"ColumnHeaders12\\Other", "SortOrder", "0"},
    {"ColumnHeaders81\\Other", "SortKey", "1"},
    {"ColumnHeaders81\\Other", "SortOrder", "0"},
    {"ContactCard", "PreviousCategory", "ID1"},
    {"ContactCard", "PreviousBox", "ID1"},
    {"SearchOptions", "FullName", "1"},
    {"SearchOptions", "Title", "1"},
    {"SearchOptions", "Company", "1"},
    {"SearchOptions", "Address", "1"},
    {"SearchOptions", "City", "1"},
    {"SearchOptions", "State", "1"},
    {"SearchOptions", "Zip", "1"},
    {"SearchOptions", "Numbers", "1"},
    {"SearchOptions", "Comment", "1"},
    {"ReportOptions", "Format", "0"},
    {"ReportOptions", "Layout", "0"},
    {"ReportOptions", "Open", "1"},
    {"ReportOptions", "Summary", "0"},
    {"ReportOptions", "ShortCategory", "0"},
    {"ReportOptions", "ShortBox", "0"},
    {"ReportOptions", "DiskColumns",
     "+FullName|+Title|+Company|+Numbers|+Address|+City|+State|+Zip|+Comment|+Category|+Favorite|+#|+Added|+"
     "Box"},
};

// A section pattern ending in "\*" stands for every sub-group below that name.
bool sectionMatches(const char* pattern, const QString& Section) {
    const QString p = QString::fromLatin1(pattern);
    if (!p.endsWith(QLatin1String("\\*"))) return Section.compare(p, Qt::CaseInsensitive) == 0;
    const QString prefix = p.left(p.size() - 1); // keeps the "\"
    return Section.size() > prefix.size() && Section.startsWith(prefix, Qt::CaseInsensitive);
}

bool isPattern(const char* section) {
    return QString::fromLatin1(section).endsWith(QLatin1String("\\*"));
}

} // namespace

QString DefaultSetting(const QString& Section, const QString& Key) {
    // A section named in full goes before a pattern, so "ColumnHeaders12\Other" is not a column.
    bool named = false;
    for (const Default& d : kDefaults) {
        if (isPattern(d.section) || !sectionMatches(d.section, Section)) continue;
        named = true;
        if (Key.compare(QLatin1String(d.key), Qt::CaseInsensitive) == 0) return QString::fromLatin1(d.value);
    }
    if (named) return QString();
    for (const Default& d : kDefaults) {
        if (isPattern(d.section) && sectionMatches(d.section, Section) &&
            Key.compare(QLatin1String(d.key), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(d.value);
    }
    return QString();
}

QString ReadSetting(const QString& Section, const QString& Key) {
    return GetSetting(AppTitle(), Section, Key, DefaultSetting(Section, Key));
}

} // namespace mRegSettings
