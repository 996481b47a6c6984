#pragma once
// Deletion of a node of the tree on display with its whole subtree.

class TreeView;

namespace mTV {
// Deletes, after the user's confirmation, the node selected in the main window's tree
// (pFromDiskList false) or the node row selected in the contact list (true), with its subtree.
// Categories and groups take their contacts with them; favorites only release theirs. fromTab
// tells that the command came from the Delete key, which also empties the detail pane.
void CatTreeDelete(TreeView& CatTree, bool pFromDiskList, bool fromTab);
} // namespace mTV
