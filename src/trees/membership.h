#pragma once
// Whether a contact or a node stays in view under the node selected in the tree: in the advanced
// mode the list shows the whole subtree of that node, so the answer is a search of the node's key
// in a Pedigree.

#include <QString>

class TreeView;

namespace mLV {

// True in the advanced mode when both the node pCategoryID and the present node of contact
// pIDCD (in the tree on display) lie under the selected node.
bool IsWithinCategory(const TreeView& CatTree, qint32 pCategoryID, qint32 pIDCD);
// Whether node pCategoryKey is in view: in the advanced mode when it lies under the selected
// node, otherwise only when it is the selected node. False for an empty key.
bool IsWithinCategory2(const TreeView& CatTree, const QString& pCategoryKey, qint16 mode);
// True in the advanced mode when both nodes lie under the selected node.
bool IsWithinCategory3(const TreeView& CatTree, const QString& pOldCategoryKey,
                       const QString& pNewCategoryKey, qint16 mode);

} // namespace mLV
