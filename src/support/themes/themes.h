#pragma once
// The looks of the program: a colour mixer, the window themes and the toolbar themes. Every
// theme is the Fusion style with a palette of ours. Window theme 0 follows the desktop: its own
// colours on a light desktop, our dark palette on a dark one. Themes 1 to 7 are light palettes
// with their own accents. The toolbar theme colours the menu bar and toolbars of the main
// windows: 0 takes the window's colours, 1 a blue tint; under a dark window both give the dark
// bars of BlackTheme.

#include <QColor>
#include <QPalette>

class QMainWindow;

namespace mThemes {

// Mixes two colours channel by channel: with M = 100 for nDelta below 100 and 1000 from 100 on,
// each channel is (light * (M - nDelta) + dark * nDelta) / M, rounded to the nearest (halves to
// even) and kept within 0 to 255. So 30 takes 30 % of dark, and 300 takes 30 % as well.
QColor LightColor(const QColor& clrLight, const QColor& clrDark, int nDelta);

// A text colour chosen for a light background (the blue of links, for one), made light enough to
// read on the base of a dark palette; unchanged on a light one.
QColor ReadableForeColor(const QColor& fore, const QPalette& palette);

// The number of window themes and of toolbar themes.
constexpr int kAppThemes = 8;
constexpr int kToolbarThemes = 2;

// The palette of window theme `appTheme` (out of range counts as 0). For theme 0 `dark` chooses
// between the desktop's palette and our dark one; the others ignore it.
QPalette AppThemePalette(int appTheme, bool dark);
// Our dark palette.
QPalette DarkPalette();
// True for a palette whose windows are dark.
bool IsDark(const QPalette& palette);

// Puts window theme `appTheme` on the whole program: the Fusion style and the theme's palette,
// and the toolbar theme in force again on every main window.
void ApplyAppTheme(int appTheme);
// Toolbar theme `toolbarTheme` on the menu bar and toolbars of every main window.
void ApplyToolbarTheme(int toolbarTheme);
// The same on one window.
void ApplyToolbarTheme(QMainWindow* window, int toolbarTheme);
// Dark menu bar and toolbars on `window`.
void BlackTheme(QMainWindow* window);
// The palette BlackTheme gives the bars.
QPalette BlackThemePalette();

// With window theme 0: when the desktop's preference has changed since the theme was put on,
// puts it on again and answers true. Cheap enough to be asked every second.
bool FollowDesktopScheme();

} // namespace mThemes
