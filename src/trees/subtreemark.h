#pragma once
// In the advanced category mode the list shows the whole subtree of the node in force, and the
// tree shows that by giving every node of the subtree the image of a selected node.

#include <QString>

class TreeNode;

namespace mTV {

// Gives ParentNode and every node below it the selected image of the tree on display (pSelect
// true) or the plain one (false). The root is never marked, nor is anything through it.
void CatTreeChangeNonSelectedIcon(TreeNode* ParentNode, bool pSelect);
// Gives every node below ParentNode the plain image, except the node pKey and its subtree.
void CatTreeRestoreNonSelectedIcon(TreeNode* ParentNode, const QString& pKey);

} // namespace mTV
