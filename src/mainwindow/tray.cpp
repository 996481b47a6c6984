#include "mainwindow/tray.h"

#include "core/commandids.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "support/controls/commandbars.h"
#include "support/controls/icons.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QPointer>

namespace {

QSystemTrayIcon* trayIcon() {
    static QPointer<QSystemTrayIcon> icon;
    if (!icon && gForm1) {
        icon = new QSystemTrayIcon(mIcons::Image(QStringLiteral("Tray256")), gForm1);
        icon->setToolTip(AppTitle());
        QObject::connect(icon, &QSystemTrayIcon::activated, icon,
                         [](QSystemTrayIcon::ActivationReason reason) {
                             RunEvent("Form1.TrayCallback", [reason] { mTray::TrayActivated(reason); });
                         });
    }
    return icon;
}

} // namespace

namespace mMain {

void MainFormHide() {
    HUNT_PLACE("mMain.MainFormHide");
    if (gForm1) gForm1->hide();
    MainFormVisible = false;
}

void MainFormShow() {
    HUNT_PLACE("mMain.MainFormShow");
    mTray::RemoveIcon();
    if (gForm1) {
        gForm1->setWindowState(LastWindowState == 2 ? Qt::WindowMaximized : Qt::WindowNoState);
        gForm1->show();
        gForm1->raise();
        gForm1->activateWindow();
    }
    MainFormVisible = true;
}

} // namespace mMain

namespace mTray {

bool AddIcon() {
    HUNT_PLACE("mTray.AddIcon");
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return false;
    QSystemTrayIcon* icon = trayIcon();
    if (!icon) return false;
    icon->show();
    return true;
}

void RemoveIcon() {
    if (QSystemTrayIcon* icon = trayIcon()) icon->hide();
}

bool IconShown() {
    QSystemTrayIcon* icon = trayIcon();
    return icon && icon->isVisible();
}

bool isLoad(const QString& sFormName) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == sFormName && w->isVisible()) return true;
    return false;
}

void TrayActivated(QSystemTrayIcon::ActivationReason reason) {
    HUNT_PLACE("mTray.TrayActivated(reason)", int(reason));
    if (isLoad(QStringLiteral("Form19"))) return;
    if (reason == QSystemTrayIcon::Trigger) {
        if (MainFormVisible)
            mMain::MainFormHide();
        else
            mMain::MainFormShow();
    } else if (reason == QSystemTrayIcon::Context) {
        if (gForm1) gForm1->activateWindow();
        PopupTray();
    }
}

QMenu* PopupMenu() {
    return gForm1 ? gForm1->CommandBars1->ContextMenu(QStringLiteral("PopupTray")) : nullptr;
}

void PopupTray() {
    HUNT_PLACE("mTray.PopupTray");
    if (QMenu* menu = PopupMenu()) menu->popup(QCursor::pos());
}

} // namespace mTray
