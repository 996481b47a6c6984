#include "support/controls/subclass.h"

#include "core/error.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

SubClassMy::SubClassMy(QWidget* frm, Mode mode) : QObject(frm), m_form(frm), m_mode(mode) {
    setObjectName(QStringLiteral("SubClassMy"));
    frm->installEventFilter(this);
    applyLimits();
}

bool SubClassMy::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_form && (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal))
        applyLimits();
    return QObject::eventFilter(watched, event);
}

void SubClassMy::applyLimits() {
    m_form->setMinimumSize(MinWidth, MinHeight);
    if (const QScreen* screen = m_form->screen())
        m_form->setMaximumSize(screen->size().expandedTo({MinWidth, MinHeight}));
}

namespace SubClasser {

void StartSubClass(QWidget* frm, SubClassMy::Mode mode) {
    if (!frm) throw HuntERR::Error(5, QStringLiteral("Invalid hWnd"), QStringLiteral("Subclasser"));
    StopSubClass(frm);
    new SubClassMy(frm, mode);
}

void StopSubClass(QWidget* frm) {
    if (!frm) return;
    if (auto* hook = frm->findChild<SubClassMy*>(QStringLiteral("SubClassMy"), Qt::FindDirectChildrenOnly)) {
        frm->removeEventFilter(hook);
        delete hook;
        frm->setMinimumSize(0, 0);
        frm->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
}

} // namespace SubClasser
