#pragma once
// Moving a subtree to another parent, and the test that keeps a node out of its own subtree.

#include <QString>

class TreeView;

namespace mLV {
// Moves node pThis (a key with its "E", "ID7E") with its subtree from parent pFrom to parent pTo
// (keys without "E") in the tree on display: IDPARENT of the node, Pedigree and Catpath of every
// row of the subtree, in one transaction. The tree control is left to the caller, and so is the
// check that pTo does not lie inside the moved subtree.
void MoveCategory(const QString& pFrom, const QString& pTo, const QString& pThis);
} // namespace mLV

namespace mTV {
// True if node pSelf is node pDrop or one of its ancestors in the tree control. The root never
// counts, not even as itself.
bool SelfParent(const TreeView& CatTree, const QString& pSelf, const QString& pDrop);
} // namespace mTV
