#pragma once
// The file work of compacting a phonebook, with no window: the names beside the phonebook, the
// backup copy, and the compacted copy that replaces the phonebook by one atomic rename. At any
// moment of a compact, even a crash, the phonebook's name holds either the old file or the
// compacted one.

#include <QString>
#include <functional>

namespace mAccess {

// Names beside the phonebook, built by cutting the last five characters (".kvdb") of `path`.
QString TempName(const QString& path);   // stem + "_Temp" + extension
QString BackupName(const QString& path); // stem + "_Backup" + extension
// The backup to write: the plain name when EraseOld or when it is free, else "_Backup(n)" with
// the first free n from 1.
QString FreeBackupName(const QString& path, bool EraseOld);

// Copies `from` to `to` through a file beside `to` that is renamed over it when complete.
// Errors: 3026 for a full disk, 75 or 70 for other failures to write.
void CopyFileSafely(const QString& from, const QString& to);

// Writes the compacted copy of the phonebook at `path` to `temp` (VACUUM INTO), then, if it
// exists, renames it over `path`. The phonebook must be closed. Answers false when no compacted
// copy was found (the phonebook is then untouched). A failure removes the partial copy and
// leaves the phonebook as it was; the error goes on.
bool CompactFile(const QString& path, const QString& temp);

// Hooks for tests: a copy broken off half-way, and the moments around the rename.
struct CompactHooks {
    // When > 0, the copy stops after this many steps of the engine with error `failNumber`.
    int failAfterSteps = 0;
    qint32 failNumber = 3026;
    std::function<void()> beforeRename; // the copy is complete and synced
    std::function<void()> afterRename;  // the name holds the copy; the folder is not synced yet
};
CompactHooks& CompactTestHooks();

} // namespace mAccess
