#pragma once
// Adding and renaming nodes in place. A new node gets a default name and its label opens for
// editing at once; while a label is edited it shows the name alone, and the key of the node
// waits in the tree's Tag until the edit ends.

#include "trees/mainview.h"
#include "trees/treeform.h"

#include <QString>

namespace mTV {

// Adds "New category" ("New group", "New favorites") under the selected node (for favorites
// under the root) and opens its label for editing.
void CatTreeAdd(const TreeForm& frm, qint16 mode);
// Adds a node named AddName the same way, without editing; on the main window the new node
// becomes the node in force.
void CatTreeAdd2(const TreeForm& frm, const QString& AddName, qint16 mode);
// Opens the label of the selected node for editing. On the main window the node first becomes
// the node in force, and its label loses the count for the edit. The root cannot be renamed.
void CatTreeRename(const TreeForm& frm);
// A label edit ended without a new name: the label gets its count back and the Tag is cleared.
void AfterNoLabelEdit(TreeView& CatTree);
// The same for the node chooser, whose labels carry no counts: clears the Tag, sorts by name.
void AfterNoLabelEdit2(const TreeForm& frm);

// The end of a label edit on the main window's tree. A new name is stored for the node and its
// subtree's paths, the paths in the contact list follow, and the node takes its place in the
// name order with its count back on its label; an abandoned edit only gets the count back.
// Cancel tells the tree whether to keep NewString as the label.
void CatTreeAfterLabelEdit(const MainView& view, bool& Cancel, QString& NewString);

} // namespace mTV
