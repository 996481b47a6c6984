#include "core/error.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "support/themes/themes.h"

#include <QAbstractItemView>
#include <QFont>
#include <QSize>
#include <QWidget>

namespace mRegSettings {

QFont PreferenceFont(const QFont& base) {
    if (FontName.isEmpty()) return base;
    QFont f = base;
    f.setFamily(FontName);
    f.setItalic(FontItalic);
    f.setBold(FontBold);
    f.setStrikeOut(FontStrikethru);
    f.setUnderline(FontUnderline);
    if (FontSize > 0) f.setPointSizeF(FontSize);
    return f;
}

void ApplyPreferenceFont(QWidget* frm) {
    if (frm && !FontName.isEmpty()) frm->setFont(PreferenceFont(frm->font()));
}

int LvTvIconSize() {
    return LvTvLargeIcons ? 32 : 16;
}

void ApplyPreferences(bool pFromStart, int oldToolbarTheme, int oldAppTheme, const QList<QWidget*>& pViews,
                      const std::function<void(bool large)>& pIconSettings) {
    HUNT_PLACE("mRegSettings.ApplyPreferences(pFromStart, oldToolbarTheme, oldAppTheme)", pFromStart,
               oldToolbarTheme, oldAppTheme);
    const QSize icons(LvTvIconSize(), LvTvIconSize());
    for (QWidget* view : pViews) {
        if (!view) continue;
        ApplyPreferenceFont(view);
        if (auto* items = qobject_cast<QAbstractItemView*>(view)) items->setIconSize(icons);
    }
    if (pIconSettings) pIconSettings(LvTvLargeIcons);
    // A theme is put on at start, and afterwards only when its choice has changed.
    if (pFromStart || ToolbarTheme != oldToolbarTheme) mThemes::ApplyToolbarTheme(ToolbarTheme);
    if (pFromStart || AppTheme != oldAppTheme) mThemes::ApplyAppTheme(AppTheme);
}

} // namespace mRegSettings
