#include "trees/subtreemark.h"

#include "core/error.h"
#include "support/controls/treenode.h"
#include "trees/treelabels.h"
#include "trees/viewstate.h"

namespace mTV {

namespace {

void mark(TreeNode* node, const QString& image) {
    node->SetImage(image);
    for (TreeNode* child = node->Child(); child; child = child->Next())
        mark(child, image);
}

void restore(TreeNode* parent, const QString& pKey, const QString& image) {
    for (TreeNode* child = parent->Child(); child; child = child->Next()) {
        if (child->Key() == pKey) continue;
        child->SetImage(image);
        restore(child, pKey, image);
    }
}

} // namespace

void CatTreeChangeNonSelectedIcon(TreeNode* ParentNode, bool pSelect) {
    HUNT_PLACE("mTV.CatTreeChangeNonSelectedIcon(ParentNode,pSelect)", ParentNode, pSelect);
    if (!ParentNode || ParentNode->Key() == QLatin1String("ID0")) return;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    mark(ParentNode, pSelect ? NodeSelectedImage(mode) : NodeImage(mode));
}

void CatTreeRestoreNonSelectedIcon(TreeNode* ParentNode, const QString& pKey) {
    HUNT_PLACE("mTV.CatTreeRestoreNonSelectedIcon(ParentNode,pKey)", ParentNode, pKey);
    if (!ParentNode) return;
    restore(ParentNode, pKey, NodeImage(mToolBar::WhatCATIsChecked()));
}

} // namespace mTV
