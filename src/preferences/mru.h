#pragma once
// The list of recently opened phonebooks: newest first, at most ten, kept in section "Recent"
// under the keys "1", "2", ... and shown in the File menu.

#include <QString>
#include <QStringList>
#include <functional>

namespace mMru {

constexpr int kMaxEntries = 10;

// The list in memory, newest first.
extern QStringList MRUFiles;

// Reads the list from the store; the first missing or empty key ends it.
void LoadMRUList();
// Puts `file_name` first, drops its other occurrences (compared exactly, case included) and the
// entries beyond ten, stores the list and shows it.
void AddToMRUList(const QString& file_name);
// Hands the menu captions ("&1 /path/a.kvdb", ...) to the bound menu and answers them.
QStringList ShowMRUList();
// Empties the list and the store, and hides the menu entries.
void ClearMRUList();
// The "Clear list" command: empties the list, then puts the open phonebook back first unless it
// is the default phonebook in the personal folder.
void ClearMRUListKeepCurrent();

// Caption of entry `n` (from 1).
QString MRUCaption(int n, const QString& path);

// The menu that shows the list is told the captions each time the list changes; an empty list of
// captions hides every entry. Answers the previous handler.
using MenuHandler = std::function<void(const QStringList& captions)>;
MenuHandler SetMenuHandler(MenuHandler handler);

} // namespace mMru
