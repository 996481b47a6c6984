#include "support/themes/themes.h"

#include "support/themes/desktopscheme.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStyle>
#include <QStyleFactory>
#include <QToolBar>
#include <algorithm>
#include <cmath>

namespace mThemes {

namespace {

// What is on the program now; -1 before the first theme.
int g_appTheme = -1;
int g_toolbarTheme = 0;
bool g_appliedDark = false;

int MixChannel(int light, int dark, int nDelta, int m) {
    const double v = double(light * (m - nDelta) + dark * nDelta) / m;
    return std::clamp(int(std::nearbyint(v)), 0, 255);
}

struct LightSeed {
    QRgb window;
    QRgb button;
    QRgb highlight;
    QRgb highlightedText;
};

// Themes 1 to 7, in the order of the preferences page.
const LightSeed kSeeds[kAppThemes - 1] = {
    {0xECE9D8, 0xF4F3EE, 0x316AC5, 0xFFFFFF}, // 1 blue
    {0xECE9D8, 0xEEF0DC, 0x5E7A30, 0xFFFFFF}, // 2 olive green
    {0xE0DFE3, 0xF1F1F4, 0x5F6482, 0xFFFFFF}, // 3 silver
    {0xEBE9ED, 0xF5F4F6, 0x335EA8, 0xFFFFFF}, // 4 royale
    {0xDDEBF4, 0xEEF5FA, 0x1F6F9F, 0xFFFFFF}, // 5 aqua
    {0xD5E4F7, 0xE8F0FB, 0xFFC46A, 0x000000}, // 6 blue with a warm selection
    {0xF0F0F0, 0xF7F7F7, 0xCCE8FF, 0x000000}, // 7 plain, with a pale selection
};

QPalette LightPalette(const LightSeed& s) {
    const QColor window(s.window), button(s.button), text(0x1A, 0x1A, 0x1A);
    QPalette p(button, window);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::AlternateBase, LightColor(Qt::white, window, 50));
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE1));
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80));
    p.setColor(QPalette::Highlight, QColor(s.highlight));
    p.setColor(QPalette::HighlightedText, QColor(s.highlightedText));
    const QColor accent(s.highlight);
    // A dark accent (it carries white text) reads well on white too; a pale one gives a plain blue.
    p.setColor(QPalette::Link, QColor(s.highlightedText) == Qt::white ? accent : QColor(0x0A, 0x58, 0xCA));
    p.setColor(QPalette::LinkVisited, LightColor(p.color(QPalette::Link), QColor(0x80, 0, 0x80), 40));
    const QColor disabled(0x90, 0x90, 0x90);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, disabled);
    p.setColor(QPalette::Disabled, QPalette::Highlight, LightColor(accent, window, 60));
    return p;
}

void SetBarsPalette(QMainWindow* window, const QPalette* palette) {
    auto apply = [palette](QWidget* bar) {
        if (palette) {
            bar->setPalette(*palette);
            bar->setAutoFillBackground(true);
        } else {
            bar->setPalette(QPalette());
            bar->setAutoFillBackground(false);
        }
    };
    if (QMenuBar* menu = window->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)) apply(menu);
    for (QToolBar* bar : window->findChildren<QToolBar*>())
        apply(bar);
}

} // namespace

QColor LightColor(const QColor& clrLight, const QColor& clrDark, int nDelta) {
    const int m = nDelta < 100 ? 100 : 1000;
    return QColor(MixChannel(clrLight.red(), clrDark.red(), nDelta, m),
                  MixChannel(clrLight.green(), clrDark.green(), nDelta, m),
                  MixChannel(clrLight.blue(), clrDark.blue(), nDelta, m));
}

QColor ReadableForeColor(const QColor& fore, const QPalette& palette) {
    if (!fore.isValid() || palette.color(QPalette::Base).lightness() >= 128) return fore;
    const QColor hsl = fore.toHsl();
    if (hsl.lightness() >= 190) return fore;
    return QColor::fromHsl(hsl.hslHue(), hsl.hslSaturation(), 190);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

QPalette DarkPalette() {
    const QColor window(0x2B, 0x2D, 0x30), base(0x1E, 0x1F, 0x22), text(0xE6, 0xE6, 0xE6);
    const QColor button(0x3A, 0x3D, 0x41), highlight(0x2F, 0x65, 0xCA);
    QPalette p(button, window);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, LightColor(base, window, 50));
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, button);
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Light, LightColor(button, Qt::white, 16));
    p.setColor(QPalette::Midlight, LightColor(button, Qt::white, 8));
    p.setColor(QPalette::Mid, LightColor(button, Qt::black, 30));
    p.setColor(QPalette::Dark, LightColor(button, Qt::black, 55));
    p.setColor(QPalette::Shadow, Qt::black);
    p.setColor(QPalette::ToolTipBase, button);
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, QColor(0x8A, 0x8F, 0x95));
    p.setColor(QPalette::Highlight, highlight);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x6C, 0xB6, 0xFF));
    p.setColor(QPalette::LinkVisited, QColor(0xC3, 0x9A, 0xF5));
    const QColor disabled(0x7F, 0x83, 0x88);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, disabled);
    p.setColor(QPalette::Disabled, QPalette::Highlight, LightColor(highlight, window, 60));
    return p;
}

QPalette AppThemePalette(int appTheme, bool dark) {
    if (appTheme >= 1 && appTheme < kAppThemes) return LightPalette(kSeeds[appTheme - 1]);
    if (!dark) return DesktopPalette();
    return IsDark(DesktopPalette()) ? DesktopPalette() : DarkPalette();
}

QPalette BlackThemePalette() {
    const QColor base(0x2D, 0x2D, 0x30);
    QPalette p = DarkPalette();
    p.setColor(QPalette::Window, LightColor(base, Qt::black, 30));
    p.setColor(QPalette::Button, LightColor(base, Qt::white, 15));
    p.setColor(QPalette::Dark, LightColor(base, Qt::black, 55));
    p.setColor(QPalette::Mid, LightColor(base, Qt::black, 16));
    p.setColor(QPalette::Light, LightColor(base, Qt::white, 38));
    p.setColor(QPalette::Midlight, LightColor(base, Qt::white, 20));
    const QColor text = LightColor(Qt::white, base, 39);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::ButtonText, text);
    // The hot states: hover and selection warm, the pressed state stronger, tips pale.
    p.setColor(QPalette::Highlight, QColor(255, 192, 111));
    p.setColor(QPalette::HighlightedText, Qt::black);
    p.setColor(QPalette::Link, QColor(254, 128, 62));
    p.setColor(QPalette::ToolTipBase, QColor(255, 238, 194));
    p.setColor(QPalette::ToolTipText, Qt::black);
    return p;
}

void BlackTheme(QMainWindow* window) {
    if (!window) return;
    const QPalette bars = BlackThemePalette();
    SetBarsPalette(window, &bars);
}

void ApplyToolbarTheme(QMainWindow* window, int toolbarTheme) {
    if (!window) return;
    if (IsDark(QApplication::palette())) {
        BlackTheme(window);
    } else if (toolbarTheme == 1) {
        QPalette bars = QApplication::palette();
        const QColor tint(0x9E, 0xBE, 0xF5);
        bars.setColor(QPalette::Window, LightColor(bars.color(QPalette::Window), tint, 45));
        bars.setColor(QPalette::Button, LightColor(bars.color(QPalette::Button), tint, 30));
        bars.setColor(QPalette::Highlight, QColor(255, 192, 111));
        bars.setColor(QPalette::HighlightedText, Qt::black);
        SetBarsPalette(window, &bars);
    } else {
        SetBarsPalette(window, nullptr);
    }
}

void ApplyToolbarTheme(int toolbarTheme) {
    g_toolbarTheme = toolbarTheme;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<QMainWindow*>(w)) ApplyToolbarTheme(window, toolbarTheme);
}

void ApplyAppTheme(int appTheme) {
    if (appTheme < 0 || appTheme >= kAppThemes) appTheme = 0;
    KeepDesktopPalette();
    if (!QApplication::style() ||
        QApplication::style()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) != 0)
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    g_appliedDark = appTheme == 0 && DesktopColorScheme() == ColorScheme::Dark;
    QApplication::setPalette(AppThemePalette(appTheme, g_appliedDark));
    g_appTheme = appTheme;
    ApplyToolbarTheme(g_toolbarTheme);
}

bool FollowDesktopScheme() {
    if (g_appTheme != 0) return false;
    if ((DesktopColorScheme() == ColorScheme::Dark) == g_appliedDark) return false;
    ApplyAppTheme(0);
    return true;
}

} // namespace mThemes
