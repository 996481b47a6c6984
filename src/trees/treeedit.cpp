#include "trees/treeedit.h"

#include "core/error.h"
#include "core/language.h"
#include "core/seams.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/pedigree.h"
#include "trees/treelabels.h"
#include "trees/treesort.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <exception>

using namespace mLanguageGobals;

namespace mTV {

namespace {

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

QString NewNodeName(qint16 mode) {
    return mode == 0 ? msgNewCategory : mode == 1 ? msgNewGroup : msgNewFavorites;
}

// Stores a node named `name` under the selected node (favorites: under the root) and adds it to
// the tree, selected. On the main window it starts with no contacts.
TreeNode* AddNode(const TreeForm& frm, qint16 mode, const QString& name) {
    TreeNode* selected = frm.CatTree.SelectedItem();
    if (!selected) return nullptr;
    // Favorites stay one level deep.
    TreeNode* parent = mode == 2 ? selected->Root() : selected;
    const qint32 id = CreateCategory(frm, mode, mCommon::GetID1(parent->Key()), name);
    TreeNode* node = frm.CatTree.Nodes.Add(parent, tvwChild, QStringLiteral("ID%1").arg(id),
                                           frm.IsMain ? NodeLabel(name, 0) : name, NodeImage(mode),
                                           NodeSelectedImage(mode));
    if (frm.IsMain) node->SetTag(CountTag(0));
    frm.CatTree.SetSelectedItem(node);
    node->EnsureVisible();
    return node;
}

// Puts the count back on the label of the node being renamed, unless the rename went through.
class RenameGuard {
  public:
    explicit RenameGuard(TreeView& tree) : m_tree(tree), m_count(std::uncaught_exceptions()) {}
    ~RenameGuard() {
        if (std::uncaught_exceptions() <= m_count) return;
        try {
            AfterNoLabelEdit(m_tree);
        } catch (...) {
            // The error that ended the rename is the one to report.
        }
    }
    RenameGuard(const RenameGuard&) = delete;
    RenameGuard& operator=(const RenameGuard&) = delete;

  private:
    TreeView& m_tree;
    int m_count;
};

} // namespace

void CatTreeAdd(const TreeForm& frm, qint16 mode) {
    HUNT_PLACE("mTV.CatTreeAdd(frm,mode)", frm, mode);
    if (AddNode(frm, mode, NewNodeName(mode))) CatTreeRename(frm);
}

void CatTreeAdd2(const TreeForm& frm, const QString& AddName, qint16 mode) {
    HUNT_PLACE("mTV.CatTreeAdd2(frm,AddName,mode)", frm, AddName, mode);
    TreeNode* node = AddNode(frm, mode, AddName);
    if (node && frm.IsMain) Call(Hooks().CheckTab, CurrentLetter, node->Key(), false);
}

void CatTreeRename(const TreeForm& frm) {
    HUNT_PLACE("mTV.CatTreeRename(frm)", frm);
    TreeView& tree = frm.CatTree;
    TreeNode* node = tree.SelectedItem();
    if (!node) return;
    if (node->Key() == QLatin1String("ID0")) {
        MsgBox(msgCannotRenameTheRootItem, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    // An edit that never ended gives its label back first.
    if (frm.IsMain && !tree.Tag().isEmpty() && tree.Tag() != node->Key()) AfterNoLabelEdit(tree);
    if (frm.IsMain && tree.Tag() != node->Key()) {
        Call(Hooks().CheckTab, CurrentLetter, node->Key(), false);
        // The user edits the name alone.
        node->SetText(NodeName(node->Text()));
    }
    tree.SetTag(node->Key());
    tree.StartLabelEdit();
    // A tree that cannot edit now (hidden, or the edit was refused) gets its label back.
    if (frm.IsMain && !tree.IsEditingLabel()) AfterNoLabelEdit(tree);
}

void AfterNoLabelEdit(TreeView& CatTree) {
    HUNT_PLACE("mTV.AfterNoLabelEdit");
    if (CatTree.Tag().isEmpty()) return;
    if (TreeNode* node = CatTree.Nodes(CatTree.Tag()))
        node->SetText(NodeLabel(node->Text(), TagCount(node->Tag())));
    CatTree.SetTag(QString());
}

void AfterNoLabelEdit2(const TreeForm& frm) {
    HUNT_PLACE("mTV.AfterNoLabelEdit2(frm)", frm);
    frm.CatTree.SetTag(QString());
    SortTreeByName(frm.CatTree);
}

void CatTreeAfterLabelEdit(const MainView& view, bool& Cancel, QString& NewString) {
    HUNT_PLACE("mTV.CatTreeAfterLabelEdit(Cancel,NewString)", Cancel, NewString);
    TreeView& tree = view.CatTree;
    const QString key = tree.Tag();
    if (key.isEmpty()) return;
    // Until the new name is stored the label stays as it was.
    Cancel = true;
    if (NewString.isEmpty()) {
        AfterNoLabelEdit(tree);
        return;
    }
    RenameGuard guard(tree);
    const QString name = NewString;
    CategoryUpdate({tree, true}, mToolBar::WhatCATIsChecked(), NewString);
    if (const auto& update = Hooks().UpdateCatInList) update(key, name);
    Cancel = false;
    // The label takes the new name with its count now, so that the node can go to its place.
    if (TreeNode* node = tree.Nodes(key)) node->SetText(NewString);
    SortTreeByName(tree);
}

} // namespace mTV
