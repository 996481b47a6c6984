#pragma once
// Nodes of the three trees: the Pedigree a new node gets, creation, rename and the Catpath of a
// node by its number.

#include "trees/treeform.h"

#include <QString>

namespace mTV {

// Pedigree of the parent a new node gets, read off the tree control: the selected node with its
// ancestors, for favorites (mode 2) the root, since favorites stay one level deep.
QString GetPedigree(const TreeForm& frm, qint16 mode);

// Adds a node named Category under ParentID and answers its ID (the highest ID + 1).
qint32 CreateCategory(const TreeForm& frm, qint16 mode, qint32 ParentID, const QString& Category);

// Renames the node whose key stands in CatTree.Tag to NewString, with the Catpath of its whole
// subtree, in one transaction. Nothing happens when the Tag is empty. On the main window
// NewString comes back as the label with the node's count, and the Tag is cleared.
void CategoryUpdate(const TreeForm& frm, qint16 mode, QString& NewString);

// Catpath of node Key (a number despite its name), "" when there is no such node.
QString GetCBName(qint32 Key, qint16 mode);

} // namespace mTV
