#pragma once
// Compact, clear and move of the whole phonebook. All three need the phonebook closed and bring
// it back through LoginCnn; the main window fills MainHooks so that they can keep it in step.

#include <QString>
#include <functional>

class QWidget;

namespace mAccess {

// What the maintenance asks of the main window. An empty hook does nothing.
struct MaintenanceHooks {
    // The contact list and the detail pane emptied with their Tag, and the no-photo picture.
    std::function<void()> ClearViews;
    std::function<void()> MenuUpdate;
    // The phonebook is open again after a compact or a clear: the favorites commands and the
    // counters brought up to date.
    std::function<void()> Reopened;
    // The phonebook could not be opened again after a compact or a clear: the main window unloads,
    // which ends the program.
    std::function<void()> ReopenFailed;
    // After a move: the phonebook is open at its new place (true), or the window shows the state
    // without a phonebook (false).
    std::function<void(bool connected)> Moved;
};
MaintenanceHooks& MainHooks();

// Compacts the closed phonebook `CompactingDBPathAndName`, after a backup copy when
// BackupBeforeCompactDB (over the old one when EraseOld, else under the first free numbered
// name). True unless an error came, which has been shown.
bool CompactDB(const QString& CompactingDBPathAndName, bool BackupBeforeCompactDB, bool EraseOld);

// Deletes every contact with what depends on it, in one transaction; trees and passwords stay.
bool ClearDB();

// File > Clear database: asks, clears, compacts, and opens the phonebook again.
void ClearAndCompactDB(QWidget* owner);

// File > Compact database: the phonebook closed, Form5 over `owner`, the phonebook opened again.
void CompactCommand(QWidget* owner);

// Moves the phonebook into a folder the user chooses; `fdDatabasePath`, when given, shows the
// new path. The folder chooser starts at the phonebook's folder.
void MoveDatabase(QWidget* owner, const std::function<void(const QString&)>& fdDatabasePath = {});

} // namespace mAccess
