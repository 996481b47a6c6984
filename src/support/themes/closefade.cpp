#include "support/themes/closefade.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPropertyAnimation>
#include <QWidget>

#ifdef KELVARIN_HAVE_XCB
#include <QByteArray>
#include <cstdlib>
#include <xcb/xcb.h>
#endif

namespace mFade {

namespace {

std::optional<bool>& Forced() {
    static std::optional<bool> forced;
    return forced;
}

#ifdef KELVARIN_HAVE_XCB
// A compositing manager owns the selection _NET_WM_CM_S<screen>.
bool X11Composited() {
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t* c = x11 ? x11->connection() : nullptr;
    if (!c) return false;
    const QByteArray name = "_NET_WM_CM_S0";
    xcb_intern_atom_reply_t* atom =
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 1, quint16(name.size()), name.constData()), nullptr);
    if (!atom) return false;
    bool owned = false;
    if (atom->atom != XCB_ATOM_NONE) {
        xcb_get_selection_owner_reply_t* owner =
            xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, atom->atom), nullptr);
        owned = owner && owner->owner != XCB_WINDOW_NONE;
        free(owner);
    }
    free(atom);
    return owned;
}
#else
bool X11Composited() {
    return true;
}
#endif

} // namespace

bool PlatformCanFade() {
    if (Forced()) return *Forced();
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb")) return X11Composited();
    return platform == QLatin1String("windows") || platform == QLatin1String("cocoa");
}

void SetPlatformCanFade(std::optional<bool> can) {
    Forced() = can;
}

bool WantsCloseFade(const QWidget* form, bool enabled, int speedMs) {
    if (!enabled || speedMs <= 0 || !form || !form->isVisible()) return false;
    if (form->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return false;
    return PlatformCanFade();
}

QWidget* CloseAnimation(QWidget* form, bool enabled, int speedMs) {
    if (!WantsCloseFade(form, enabled, speedMs)) return nullptr;
    // Above the window that owns the form, so the picture does not drop behind it.
    QWidget* owner = form->parentWidget() ? form->parentWidget()->window() : nullptr;
    auto* picture = new QLabel(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                                          Qt::WindowTransparentForInput);
    picture->setObjectName(QStringLiteral("CloseFade"));
    picture->setAttribute(Qt::WA_DeleteOnClose);
    picture->setAttribute(Qt::WA_ShowWithoutActivating);
    picture->setPixmap(form->grab());
    picture->setGeometry(QRect(form->mapToGlobal(QPoint(0, 0)), form->size()));
    picture->show();
    auto* fade = new QPropertyAnimation(picture, "windowOpacity", picture);
    fade->setDuration(speedMs);
    fade->setStartValue(1.0);
    fade->setEndValue(0.0);
    fade->setEasingCurve(QEasingCurve::InQuad);
    QObject::connect(fade, &QPropertyAnimation::finished, picture, &QWidget::close);
    fade->start();
    return picture;
}

} // namespace mFade
