#include "trees/treedelete.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/deletecd.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

using namespace mLanguageGobals;

namespace mTV {

namespace {

QString DeleteQuestion(qint16 mode) {
    switch (mode) {
    case 0:
        return msgReallyDeleteSelectedCategory + QLatin1Char('\n') + msgCategoryDeleteWarning;
    case 1:
        return msgReallyDeleteSelectedGroup + QLatin1Char('\n') + msgGroupDeleteWarning;
    default:
        return msgReallyDeleteSelectedFavorites;
    }
}

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

} // namespace

void CatTreeDelete(TreeView& CatTree, bool pFromDiskList, bool fromTab) {
    HUNT_PLACE("mTV.CatTreeDelete(pFromDiskList,fromTab)", pFromDiskList, fromTab);
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const ViewHooks& hooks = Hooks();
    TreeNode* selected = CatTree.SelectedItem();

    if (!pFromDiskList) {
        if (!selected) return;
        if (selected->Key() == QLatin1String("ID0")) {
            MsgBox(msgCannotDeleteTheRootItem, vb::vbOKOnly, vb::vbCritical);
            return;
        }
        // The built-in "Others" of categories and groups holds every contact without a place.
        if (selected->Key() == QLatin1String("ID1") && mode != 2) {
            MsgBox(msgCannotDeleteThisCategory, vb::vbOKOnly, vb::vbCritical);
            return;
        }
    }
    if (MsgBox(DeleteQuestion(mode), vb::vbYesNo | vb::vbDefaultButton2, vb::vbExclamation) != vb::vbYes)
        return;

    QString key;
    if (pFromDiskList) {
        if (hooks.SelectedListKey) key = hooks.SelectedListKey();
        key.remove(QLatin1Char('E'));
    } else {
        key = selected->Key();
    }
    if (key.isEmpty()) return;
    const qint32 id = mCommon::GetID1(key);

    dao::Transaction trans(gWS);
    if (mode == 2) {
        // Favorites hold no contacts of their own: the contacts stay and lose their favorite.
        const QString inSubtree =
            QStringLiteral("In (SELECT Borrows.ID FROM Borrows WHERE Borrows.Pedigree Like '*%1E*')")
                .arg(key);
        gDB.Execute(QStringLiteral("UPDATE CDs SET CDs.IDB = -1, CDs.IsLend = Null, CDs.LoanStart = Null, "
                                   "CDs.LoanComment = Null WHERE IDB ") +
                    inSubtree);
        gDB.Execute(QStringLiteral("DELETE * From LoanHistory WHERE IDB ") + inSubtree);
    } else {
        mAccess::DeleteCD(id, mode);
    }
    gDB.Execute(QStringLiteral("DELETE * From %1 Where Pedigree Like '*%2E*'").arg(TreeTable(mode), key));
    trans.Commit();

    // The controls follow once the phonebook holds the change.
    Call(hooks.ClearListSelection);
    Call(hooks.MenuNoBorrow);
    if (pFromDiskList) {
        const QString rowKey = key + QLatin1Char('E');
        Call(hooks.RemoveListRow, rowKey);
        if (rowKey == CurrentDiskKey || fromTab) {
            CurrentDiskKey.clear();
            Call(hooks.ClearDetailPane);
        }
    } else {
        // The view moves on to the next sibling, or to the parent when there is none.
        TreeNode* next = selected->Next() ? selected->Next() : selected->Parent();
        CatTree.SetSelectedItem(next);
        Call(hooks.CheckTab, CurrentLetter, next ? next->Key() : QStringLiteral("ID0"), true);
    }
    CatTree.Nodes.Remove(key);
    Call(hooks.UpdateCounters);
}

} // namespace mTV
