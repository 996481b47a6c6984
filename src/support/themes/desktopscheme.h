#pragma once
// The desktop's choice between light and dark windows. Read, in this order, from the desktop
// portal's appearance setting (over the session bus, followed while the program runs), from the
// name of the GTK theme (a name ending in "-dark" or ":dark", from the environment or from
// gsettings, read once), and last from the lightness of the desktop's own window colour.

#include <QPalette>
#include <functional>

namespace mThemes {

enum class ColorScheme { Light, Dark };

// The desktop's preference now. Cheap after the first call: the portal tells of changes itself.
ColorScheme DesktopColorScheme();

// Tests put their own answer here; an empty function returns to the desktop's.
void SetDesktopSchemeReader(std::function<ColorScheme()> reader);

// The palette the desktop gave the program before any theme of ours replaced it.
const QPalette& DesktopPalette();
// Remembers the application palette as the desktop's; done once, before the first theme.
void KeepDesktopPalette();

// What a GTK theme name says: Dark for "Adwaita-dark" or "Adwaita:dark", else nothing known.
bool GtkThemeNameIsDark(const QString& name);

} // namespace mThemes
