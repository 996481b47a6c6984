#include "contactlist/treeevents.h"

#include "contactlist/checktab.h"
#include "core/error.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

namespace mTV {

namespace {

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

// Makes `node` the selected node of the tree and the node in force.
void OpenNode(const MainView& view, TreeNode* node) {
    if (!node) return;
    view.CatTree.SetSelectedItem(node);
    node->EnsureVisible();
    mToolBar::CheckTab(view, CurrentLetter, node->Key());
}

} // namespace

void CatTreeNodeClick(const MainView& view, TreeNode* Node) {
    HUNT_PLACE("Form1.CatTree_NodeClick(Node)", Node);
    if (Node) mToolBar::CheckTab(view, CurrentLetter, Node->Key());
}

void CatTreeCollapse(const MainView& view, TreeNode* Node) {
    HUNT_PLACE("Form1.CatTree_Collapse(Node)", Node);
    if (Node && view.CatTree.SelectedItem() == Node) mToolBar::CheckTab(view, CurrentLetter, Node->Key());
}

void DiskListItemClick(const MainView& view, ListItem* Item) {
    HUNT_PLACE("Form1.ListView2_ItemClick(Item)", Item);
    ListView& list = view.ListView2;
    if (Item && list.LastButton() != Qt::RightButton && list.SelectedItems().size() < 2)
        PreFillTree(view, Item->Key());
    Call(Hooks().MenuNoBorrow);
}

void DiskListDblClick(const MainView& view) {
    HUNT_PLACE("Form1.ListView2_DblClick");
    const ListItem* row = view.ListView2.SelectedItem();
    if (!row || !row->Key().contains(QLatin1Char('E'))) return;
    QString key = row->Key();
    key.remove(QLatin1Char('E'));
    OpenNode(view, view.CatTree.Nodes(key));
}

void DiskListKeyPress(const MainView& view, int KeyAscii) {
    HUNT_PLACE("Form1.ListView2_KeyPress(KeyAscii)", KeyAscii);
    if (KeyAscii == 8) {
        const TreeNode* node = view.CatTree.SelectedItem();
        if (node && node->Key() != QLatin1String("ID0")) OpenNode(view, node->Parent());
    } else if (KeyAscii == 13) {
        DiskListDblClick(view);
    }
}

} // namespace mTV
