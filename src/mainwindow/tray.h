#pragma once
// The main window hidden to the notification area: minimising with the preference on hides the
// window behind an icon; a left click on the icon brings it back (or hides it again), a right
// click opens the tray menu. While the number types window is open, clicks on the icon do
// nothing. Where the desktop has no notification area the window minimises as usual.

#include <QSystemTrayIcon>

class QMenu;

namespace mMain {
// Hides the main window; it stays reachable through the tray icon and a second start.
void MainFormHide();
// Removes the tray icon and shows the main window in its last state, in front.
void MainFormShow();
} // namespace mMain

namespace mTray {
// Puts the program's icon in the notification area; false where the desktop has none.
bool AddIcon();
void RemoveIcon();
bool IconShown();
// A click on the icon.
void TrayActivated(QSystemTrayIcon::ActivationReason reason);
// The tray menu: Restore, Website, Technical support, Send Feedback, Exit.
QMenu* PopupMenu();
void PopupTray();
// True while a window of that object name is open (the types window: "Form19").
bool isLoad(const QString& sFormName);
} // namespace mTray
