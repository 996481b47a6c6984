// The main window's side of the view: what the tree and the contact list do when the user works
// them, and the hooks through which the tree, list and card procedures reach this window.
#include "card/cardentries.h"
#include "card/cardhooks.h"
#include "contactlist/assignment.h"
#include "contactlist/checktab.h"
#include "contactlist/favorites.h"
#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "contactlist/listsort.h"
#include "contactlist/treeevents.h"
#include "core/errorreport.h"
#include "core/language.h"
#include "core/sendmail.h"
#include "mainwindow/form1.h"
#include "mainwindow/statusbar.h"
#include "phonebook/store/dao.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/catproperties.h"
#include "trees/counters.h"
#include "trees/mainview.h"
#include "trees/treeedit.h"
#include "trees/treefill.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

using mLanguageGobals::msgContactsColon;

namespace {

bool isNodeRow(const ListItem* row) {
    return row && row->Key().contains(QLatin1Char('E'));
}

} // namespace

mTV::MainView Form1::View() {
    return mTV::MainView{*CatTree, *ListView2, *ListView1};
}

void Form1::connectViewEvents() {
    connect(CatTree, &TreeView::NodeClick, this, [this](TreeNode* node) {
        RunEvent("Form1.CatTree_NodeClick", [&] { CatTree_NodeClick(node); });
    });
    connect(CatTree, &TreeView::Collapse, this,
            [this](TreeNode* node) { RunEvent("Form1.CatTree_Collapse", [&] { CatTree_Collapse(node); }); });
    connect(CatTree, &TreeView::AfterLabelEdit, this, [this](bool& Cancel, QString& NewString) {
        RunEvent("Form1.CatTree_AfterLabelEdit", [&] { CatTree_AfterLabelEdit(Cancel, NewString); });
    });
    // The toolbar's Delete and Properties follow the tree's focus.
    connect(CatTree, &TreeView::GotFocus, this,
            [this] { RunEvent("Form1.CatTree_GotFocus", [&] { MenuUpdate(); }); });
    connect(CatTree, &TreeView::LostFocus, this,
            [this] { RunEvent("Form1.CatTree_LostFocus", [&] { MenuUpdate(); }); });
    connect(ListView2, &ListView::ItemClick, this, [this](ListItem* item) {
        RunEvent("Form1.ListView2_ItemClick", [&] { ListView2_ItemClick(item); });
    });
    connect(ListView2, &ListView::DblClick, this,
            [this] { RunEvent("Form1.ListView2_DblClick", [&] { ListView2_DblClick(); }); });
    connect(ListView2, &ListView::KeyPress, this, [this](int& KeyAscii) {
        RunEvent("Form1.ListView2_KeyPress", [&] { ListView2_KeyPress(KeyAscii); });
    });
    connect(ListView2, &ListView::MouseUp, this,
            [this] { RunEvent("Form1.ListView2_MouseUp", [&] { ListView2_MouseUp(); }); });
    connect(ListView2, &ListView::ColumnClick, this, [this](ColumnHeader* column) {
        RunEvent("Form1.ListView2_ColumnClick", [&] { ListView2_ColumnClick(column); });
    });
    connect(ListView1, &ListView::MouseMove, this,
            [this](Qt::MouseButtons, Qt::KeyboardModifiers, const QPoint& pos) {
                ListView1->viewport()->setCursor(linkAt(pos).isEmpty() ? Qt::ArrowCursor
                                                                       : Qt::PointingHandCursor);
            });
    connect(ListView1, &ListView::MouseUp, this,
            [this](Qt::MouseButton, Qt::KeyboardModifiers, const QPoint& pos) {
                RunEvent("Form1.ListView1_MouseUp", [&] { ListView1_MouseUp(pos); });
            });
    // A right click on a node has made it the node in force (NodeClick); its menu follows.
    connect(CatTree, &TreeView::ContextMenu, this, [this](const QPoint& pos) {
        QMenu* menu = CommandBars1 ? CommandBars1->ContextMenu(QStringLiteral("TreePopup")) : nullptr;
        if (menu && CatTree->HitTest(pos)) menu->popup(CatTree->viewport()->mapToGlobal(pos));
    });

    // The number of contacts in the list, in a panel of the status bar; the rows of child nodes
    // do not count.
    const int countPanel = StatusBar1->AddPanel();
    const auto showCount = [this, countPanel] {
        int contacts = 0;
        for (const ListItem* row : ListView2->ListItems)
            contacts += isNodeRow(row) ? 0 : 1;
        StatusBar1->SetPanelText(countPanel, msgContactsColon + QString::number(contacts));
    };
    // A fill adds its rows one by one: count once, after the fill, not once per row.
    auto* countLater = new QTimer(this);
    countLater->setSingleShot(true);
    countLater->setInterval(0);
    connect(countLater, &QTimer::timeout, this, showCount);
    const QAbstractItemModel* rows = ListView2->model();
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(rows, signal, countLater, qOverload<>(&QTimer::start));
    connect(rows, &QAbstractItemModel::modelReset, countLater, qOverload<>(&QTimer::start));
    showCount();
}

QString Form1::linkAt(const QPoint& pos) const {
    int subItem = 0;
    const ListItem* row = ListView1->HitTest(pos, &subItem);
    // Only the value column holds links; a link is blue and carries its value in the Tag.
    if (!row || subItem != 1 || row->CellForeColor(1) != QColor(0, 0, 255)) return QString();
    return row->ListSubItems(1).Tag();
}

void Form1::ListView1_MouseUp(const QPoint& pos) {
    const QString link = linkAt(pos);
    if (!link.isEmpty()) mCommon::OpenLink(link);
}

// The hooks hold this window; the destructor empties them again.
void Form1::fillHooks() {
    mTV::ViewHooks& tv = mTV::Hooks();
    tv.SelectedListKey = [this] {
        const ListItem* row = ListView2->SelectedItem();
        return row ? row->Key() : QString();
    };
    tv.ClearListSelection = [this] {
        if (ListView2->ListItems.Count() > 0 && ListView2->SelectedItem())
            ListView2->SetSelectedItem(nullptr);
    };
    tv.MenuNoBorrow = [this] { mCommon::MenuNoBorrow(*ListView2, *CommandBars1); };
    tv.RemoveListRow = [this](const QString& key) {
        if (ListView2->ListItems.Exists(key)) ListView2->ListItems.Remove(key);
    };
    tv.ClearDetailPane = [this] { mTV::ClearDetailPane(View()); };
    // A view switched by a procedure (a new contact outside the view) moves the letter button too.
    tv.CheckTab = [this](const QString& Key, const QString& CKey, bool ForceUpdate) {
        mToolBar::CheckTab(View(), Key, CKey, ForceUpdate);
        const int button = buttonOfTag(Key);
        if (button && !CommandBars1->FindAction(button)->Checked()) GroupChange(button);
    };
    tv.UpdateCounters = [this] { mTV::UpdateCounters(*CatTree); };
    tv.SetNoImage = [this] { SetNoImage(); };
    tv.LoadPhotoFromDB = [this](const dao::Recordset& rstWork) { LoadPhotoFromDB(rstWork); };
    tv.CategoryCaption = [](qint16 mode) { mCommon::CategoryCaption(mode); };

    tv.UpdateCatInList = [this](const QString& key, const QString& name) {
        mLV::UpdateCatInList(*ListView2, key, name);
    };
    tv.SetNodeRowComment = [](ListItem& row, const QString& comment) {
        row.SetCellText(mLV::cellComment, comment);
    };
    mLV::ListHooks& lv = mLV::Hooks();
    lv.Hourglass = [](bool busy) {
        if (busy)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
    lv.SetCommandChecked = [this](int id, bool checked) {
        if (CommandBarAction* action = CommandBars1->FindAction(id)) action->SetChecked(checked);
    };
    lv.ShowCurrentTree = [this] {
        const qint16 mode = mToolBar::WhatCATIsChecked();
        mTV::CategoryFill(mTV::TreeForm{*CatTree, true}, mode);
        GroupChange(buttonOfTag(CurrentTreeTab));
        mCommon::CategoryCaption(mode);
        MenuUpdate();
    };
    lv.PreFillTree = [this](const QString& Key) { mTV::PreFillTree(View(), Key); };

    mCard::CardHooks& card = mCard::Hooks();
    card.UpdateMainCatTree = [this](bool AddCat, bool AddBor, bool AddBox) {
        mCommon::UpdateMainCatTree(*CatTree, AddCat, AddBor, AddBox);
    };
    card.UpdateGlobalInfo = [this](const QString& DType, const QString& OldDType, const QString& OldDiskCat,
                                   const QString& NewDiskCat, const QString& OldDiskBor,
                                   const QString& NewDiskBor, const QString& OldDiskBox,
                                   const QString& NewDiskBox, qint32 pIDCD) {
        mCommon::UpdateGlobalInfo(View(), DType, OldDType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor,
                                  OldDiskBox, NewDiskBox, pIDCD);
    };
}

void Form1::clearHooks() {
    // The node dialog's comment hook belongs to that dialog and stays as it is.
    mTV::ViewHooks& tv = mTV::Hooks();
    auto comment = std::move(tv.NodeDialogComment);
    tv = mTV::ViewHooks();
    tv.NodeDialogComment = std::move(comment);
    mLV::Hooks() = mLV::ListHooks();
    mCard::Hooks().UpdateMainCatTree = nullptr;
    mCard::Hooks().UpdateGlobalInfo = nullptr;
}

void Form1::CatTree_NodeClick(TreeNode* Node) {
    mTV::CatTreeNodeClick(View(), Node);
    MenuUpdate();
}

void Form1::CatTree_Collapse(TreeNode* Node) {
    mTV::CatTreeCollapse(View(), Node);
    MenuUpdate();
}

void Form1::CatTree_AfterLabelEdit(bool& Cancel, QString& NewString) {
    mTV::CatTreeAfterLabelEdit(View(), Cancel, NewString);
}

void Form1::ListView2_ItemClick(ListItem* Item) {
    mTV::DiskListItemClick(View(), Item);
    MenuUpdate();
}

// A node row opens its node; a contact row opens the contact's card.
void Form1::ListView2_DblClick() {
    const ListItem* row = ListView2->SelectedItem();
    if (!row) return;
    if (isNodeRow(row)) {
        mTV::DiskListDblClick(View());
    } else {
        PropertiesMode = 1;
        mScanCD::DiskProperties();
    }
    MenuUpdate();
}

// Backspace goes up the tree; Enter opens the selected row as a double click does.
void Form1::ListView2_KeyPress(int& KeyAscii) {
    if (KeyAscii == 8) {
        mTV::DiskListKeyPress(View(), KeyAscii);
        MenuUpdate();
    } else if (KeyAscii == 13) {
        KeyAscii = 0;
        ListView2_DblClick();
    }
}

// The release of the click that ended a new contact's card belongs to the card, not to the list.
void Form1::ListView2_MouseUp() {
    if (ListNeedsClickReset) ListNeedsClickReset = false;
}

void Form1::ListView2_ColumnClick(ColumnHeader* ColumnHeader) {
    if (!ColumnHeader) return;
    mLV::SwitchSortDisk(*ListView2, ColumnHeader->Index() - 1, true);
}
