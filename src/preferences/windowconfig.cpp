#include "core/error.h"
#include "core/globals.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"

#include <QGuiApplication>
#include <QHash>
#include <QRect>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace mRegSettings {

namespace {

// Stored values of WindowState.
constexpr int kNormal = 0;
constexpr int kMaximized = 2;

const QString kLeft = QStringLiteral("MainLeft");
const QString kTop = QStringLiteral("MainTop");
const QString kWidth = QStringLiteral("MainWidth");
const QString kHeight = QStringLiteral("MainHeight");
const QString kState = QStringLiteral("WindowState");

// Only the main window and the search window remember a size.
bool keepsSize(const QString& name) {
    return name == QLatin1String("Form1") || name == QLatin1String("Form8");
}

int readPixels(const QString& section, const QString& key, int present) {
    const QString v = GetSetting(AppTitle(), section, key, QString::number(present));
    return int(std::lround(SettingNumber(v)));
}

QRect screenArea(const QWidget* frm) {
    const QScreen* screen = frm->screen() ? frm->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

// A window that is not shown yet takes the size it will show with.
QSize sizeToShow(QWidget* frm) {
    if (!frm->isVisible() && !frm->testAttribute(Qt::WA_Resized)) frm->adjustSize();
    return frm->size();
}

// Places and sizes are those of the window without its frame: the frame is not known before the
// window shows, and a window manager may draw it any size, so only this measure comes back as it
// was stored.
void placeAt(QWidget* frm, const QPoint& topLeft) {
    frm->setGeometry(QRect(topLeft, sizeToShow(frm)));
}

void centreIn(QWidget* frm, const QRect& area) {
    const QSize size = sizeToShow(frm);
    placeAt(frm, QPoint(area.x() + (area.width() - size.width()) / 2,
                        area.y() + (area.height() - size.height()) / 2));
}

// A stored place on no screen any more (a screen removed, a smaller one) is moved onto the
// nearest screen, so that the title bar can be reached.
QPoint onScreen(QWidget* frm, const QPoint& topLeft) {
    const QScreen* screen = QGuiApplication::screenAt(topLeft);
    if (!screen) screen = frm->screen() ? frm->screen() : QGuiApplication::primaryScreen();
    if (!screen) return topLeft;
    const QRect area = screen->availableGeometry();
    const QSize size = sizeToShow(frm);
    // Room above for a title bar, which the stored place does not include.
    constexpr int kTitle = 32;
    const int x = qBound(area.left(), topLeft.x(), qMax(area.left(), area.right() - size.width()));
    const int y =
        qBound(area.top() + kTitle, topLeft.y(), qMax(area.top() + kTitle, area.bottom() - size.height()));
    return QPoint(x, y);
}

} // namespace

QString WindowSection(const QString& name) {
    static const QHash<QString, QString> sections = {
        {QStringLiteral("Form1"), QStringLiteral("Main")},
        {QStringLiteral("Form2"), QStringLiteral("PropWide")},
        {QStringLiteral("Form3"), QStringLiteral("Prop")},
        {QStringLiteral("Form4"), QStringLiteral("Stat")},
        {QStringLiteral("Form5"), QStringLiteral("Compact")},
        {QStringLiteral("Form6"), QStringLiteral("Info")},
        {QStringLiteral("Form7"), QStringLiteral("PreferencesNew")},
        {QStringLiteral("Form8"), QStringLiteral("Search")},
        {QStringLiteral("Form9"), QStringLiteral("Tip")},
        {QStringLiteral("Form10"), QStringLiteral("About")},
        {QStringLiteral("Form11"), QStringLiteral("Error")},
        {QStringLiteral("Form14"), QStringLiteral("Borrower")},
        {QStringLiteral("Form15"), QStringLiteral("Report")},
        {QStringLiteral("Form16"), QStringLiteral("PreReport")},
        {QStringLiteral("Form17"), QStringLiteral("PreScan")},
        {QStringLiteral("Form19"), QStringLiteral("NewType")},
        {QStringLiteral("Form20"), QStringLiteral("CategoryProperties")},
        {QStringLiteral("Form21"), QStringLiteral("CustomizeColumns")},
        {QStringLiteral("Form22"), QStringLiteral("Login")},
        {QStringLiteral("Form23"), QStringLiteral("LoginOptions")},
    };
    // A window that is not in the table keeps its place under its own name.
    return sections.value(name, name);
}

void SaveWindowConfig(QWidget* frm, const QString& name) {
    HUNT_PLACE("mRegSettings.SaveWindowConfig(frm)", frm);
    if (!frm || frm->isMinimized()) return;
    const QString section = WindowSection(name);
    const bool maximized = frm->isMaximized();
    if (!maximized) {
        if (SaveWindowLocation) {
            SaveSetting(AppTitle(), section, kLeft, frm->geometry().x());
            SaveSetting(AppTitle(), section, kTop, frm->geometry().y());
        }
        if (keepsSize(name) && SaveWindowSize) {
            SaveSetting(AppTitle(), section, kWidth, frm->width());
            SaveSetting(AppTitle(), section, kHeight, frm->height());
        }
    }
    if (SaveWindowSize) SaveSetting(AppTitle(), section, kState, maximized ? kMaximized : kNormal);
}

void GetWindowConfig(QWidget* frm, const QString& name) {
    HUNT_PLACE("mRegSettings.GetWindowConfig(frm)", frm);
    if (!frm) return;
    const QString section = WindowSection(name);
    if (keepsSize(name) && SaveWindowSize)
        frm->resize(readPixels(section, kWidth, frm->width()), readPixels(section, kHeight, frm->height()));
    const bool stored = !GetSetting(AppTitle(), section, kLeft, QString()).isEmpty() &&
                        !GetSetting(AppTitle(), section, kTop, QString()).isEmpty();
    if (SaveWindowLocation && stored)
        placeAt(frm, onScreen(frm, QPoint(readPixels(section, kLeft, 0), readPixels(section, kTop, 0))));
    else if (name == QLatin1String("Form1"))
        CenterScreen(frm);
    else
        CenterOwner(frm);
    // A minimised state is never stored; anything but maximised opens as a normal window.
    const int state = SettingInt(GetSetting(AppTitle(), section, kState, QString::number(kNormal)));
    Qt::WindowStates ws = frm->windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized);
    if (state == kMaximized) ws |= Qt::WindowMaximized;
    frm->setWindowState(ws);
}

void CenterScreen(QWidget* frm) {
    if (frm) centreIn(frm, screenArea(frm));
}

void CenterOwner(QWidget* frm) {
    if (!frm) return;
    const QWidget* owner = frm->parentWidget() ? frm->parentWidget()->window() : nullptr;
    if (owner && owner->isVisible())
        centreIn(frm, owner->geometry());
    else
        centreIn(frm, screenArea(frm));
}

} // namespace mRegSettings
