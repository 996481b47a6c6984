#include "trees/treesort.h"

#include "core/error.h"
#include "support/controls/treeview.h"

namespace mTV {

namespace {

void swapTextAndTag(TreeView& CatTree) {
    for (TreeNode* node : CatTree.Nodes.All()) {
        const QString text = node->Text();
        node->SetText(node->Tag());
        node->SetTag(text);
    }
}

} // namespace

void SortTreeByName(TreeView& CatTree) {
    HUNT_PLACE("mTV.SortTreeByName");
    CatTree.SetSorted(true);
    for (TreeNode* node : CatTree.Nodes.All())
        if (node->Children() > 0) node->SetSorted(true);
}

void SortTreeDesc(TreeView& CatTree) {
    HUNT_PLACE("mTV.SortTreeDesc");
    const auto descending = [](const TreeNode* a, const TreeNode* b) {
        return -a->Text().compare(b->Text());
    };
    for (TreeNode* node : CatTree.Nodes.All())
        if (node->Children() > 0) node->SortChildren(descending);
}

void SortTreeByQuantity(TreeView& CatTree) {
    HUNT_PLACE("mTV.SortTreeByQuantity");
    const bool painting = CatTree.updatesEnabled();
    CatTree.setUpdatesEnabled(false);
    // The order by quantity is no lasting order: nothing keeps new nodes in it.
    CatTree.SetSorted(false);
    for (TreeNode* node : CatTree.Nodes.All())
        node->SetSorted(false);
    // For the length of the sort each label is its twelve-digit count, whose text order is its
    // numeric order.
    swapTextAndTag(CatTree);
    SortTreeDesc(CatTree);
    swapTextAndTag(CatTree);
    CatTree.setUpdatesEnabled(painting);
}

} // namespace mTV
