#pragma once
// The counts of the main window's tree brought in step with one contact more or fewer, without
// reading the phonebook again: for a change of a single contact that is far cheaper than a new
// count of every node.

#include <QString>

class TreeView;

namespace mTV {
// Contact with letter `label` came into node `nodeKey` of the tree on display (delta 1) or left
// it (delta -1): the node, its ancestors and the root show it. Nothing changes for a contact
// outside the letter tab in force; a key the tree does not hold (a contact in no favorites
// folder) changes nothing either, not even the root.
void CountContact(TreeView& CatTree, const QString& nodeKey, const QString& label, qint64 delta);
} // namespace mTV
