#pragma once
// Deleting the contact selected in the main window's list, and the choice between deleting a
// contact, a node row of the list or the node selected in the tree.

#include "trees/mainview.h"

namespace mAccess {
// Asks (when the preference DeleteDiskWarning is on) and deletes the contact of the selected row
// of the list with everything that depends on it, in one transaction; then the row goes, the
// counts follow, and the detail pane empties when it showed that contact, when the row was the
// one pressed last (CurrentDiskKey), or when fromTab tells that the command came from the
// toolbar or the Delete key. Nothing happens without a selected contact row.
void PreDeleteCD(const mTV::MainView& view, bool fromTab);
} // namespace mAccess

namespace mCommon {
// The Delete of the Contacts menu and of the list's pop-up: a node row is deleted as a node, a
// contact row as a contact.
void DeleteFromList(const mTV::MainView& view);
// The toolbar's Delete and the Delete key: the node selected in the tree when the tree has the
// focus or the list has no selected row; otherwise the selected row of the list.
void DeleteFromTab(const mTV::MainView& view, bool treeHasFocus, bool fromTab);
} // namespace mCommon
