#pragma once
// Preferences at start (migration, load, version bookkeeping), their application to the views,
// and the remembered places of windows.

#include <QList>
#include <QString>
#include <functional>

class QFont;
class QWidget;

namespace mRegSettings {

// The section names of the preferences, old and present.
inline const QString kPreferences = QStringLiteral("Preferences");
inline const QString kPreferencesNew = QStringLiteral("PreferencesNew");

// Copies the old section "Preferences" into "PreferencesNew" once, when only the old one exists.
void CorrectingPreferencesFormat();
// One key of that copy: numbers as they stand, "True"/"False" as "1"/"0", anything else dropped.
void CorrectingPreferencesFormatWork(const QString& pTemp, const QString& pKey);

// Reads "PreferencesNew" into the preference variables. A value that cannot be read raises the
// conversion error; the variables not read by then keep their values.
void IniPreferences();

// After an update (any part of the stored version below the running one), tips show again
// from the first.
void ForceShowTipOfDay();
// A pane layout stored by a version before 1.90 is not restored.
void ResetPanesLayout();
// Stores the running version and the program's folder.
void SaveVersion();

// The running version, "major.minor.revision".
QString ProgramVersion();

// Puts the list and tree preferences into `pViews`: the chosen font, when there is one, and the
// icon size. `pIconSettings`, when given, is told whether large icons are wanted, so that the
// main window can switch its image lists. Then the window theme (AppTheme) and the toolbar theme
// (ToolbarTheme): at start, and later each only when it differs from the old one given.
void ApplyPreferences(bool pFromStart, int oldToolbarTheme, int oldAppTheme,
                      const QList<QWidget*>& pViews = {},
                      const std::function<void(bool large)>& pIconSettings = {});
// `base` with the preferred font's name, style and size; `base` itself when none is chosen.
QFont PreferenceFont(const QFont& base);
// Gives a window (search, statistics, report, favorites) the preferred font, when one is chosen.
void ApplyPreferenceFont(QWidget* frm);
// Icon edge in pixels for lists and trees: 32 with large icons, else 16.
int LvTvIconSize();

// The settings section that keeps the place of the form called `name`.
QString WindowSection(const QString& name);
// Stores the place of a form as it closes. Nothing is stored for a minimised form.
void SaveWindowConfig(QWidget* frm, const QString& name);
// Places a form as it opens: the stored place, or centred when places are not remembered.
void GetWindowConfig(QWidget* frm, const QString& name);
// Centres `frm` over its owner, or on the screen when it has none.
void CenterOwner(QWidget* frm);
// Centres `frm` on its screen.
void CenterScreen(QWidget* frm);

} // namespace mRegSettings
