#include "trees/form14.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "preferences/regsettings.h"
#include "support/controls/treeview.h"
#include "trees/pedigree.h"
#include "trees/treeedit.h"
#include "trees/treefill.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {

const QString kRoot = QStringLiteral("ID0");

} // namespace

Form14::Form14(qint16 treeMode, QWidget* parent)
    : FormDialog(QStringLiteral("Form14"), parent), mode(treeMode) {
    buildControls();
    Form_Load();
}

void Form14::buildControls() {
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    CatTree = new TreeView(this);
    CatTree->setObjectName(QStringLiteral("CatTree"));
    Label1->setBuddy(CatTree);
    bnAdd = MakeButton("bnAdd");
    bnOK = MakeButton("bnOK");
    bnCancel = MakeButton("bnCancel");
    bnOK->setDefault(true);

    // The label over the tree; "Add" at the left under it, OK and Cancel at the right.
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(bnAdd);
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    auto* box = new QVBoxLayout(this);
    box->addWidget(Label1);
    box->addWidget(CatTree, 1);
    box->addSpacing(4);
    box->addLayout(buttons);
    resize(340, 400);

    connect(bnAdd, &QPushButton::clicked, this,
            [this] { RunEvent("Form14.bnAdd_Click", [this] { bnAdd_Click(); }); });
    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form14.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form14.bnCancel_Click", [this] { bnCancel_Click(); }); });
    connect(CatTree, &TreeView::AfterLabelEdit, this, [this](bool& Cancel, QString& NewString) {
        RunEvent("Form14.CatTree_AfterLabelEdit", [&] { CatTree_AfterLabelEdit(Cancel, NewString); });
    });
    connect(CatTree, &TreeView::Collapse, this,
            [this](TreeNode* Node) { RunEvent("Form14.CatTree_Collapse", [&] { CatTree_Collapse(Node); }); });
    connect(CatTree, &TreeView::GotFocus, this,
            [this] { RunEvent("Form14.CatTree_GotFocus", [this] { CatTree_GotFocus(); }); });
    connect(CatTree, &TreeView::LostFocus, this,
            [this] { RunEvent("Form14.CatTree_LostFocus", [this] { CatTree_LostFocus(); }); });
    connect(CatTree, &TreeView::KeyUp, this,
            [this] { RunEvent("Form14.CatTree_KeyUp", [this] { CatTree_KeyUp(); }); });
    connect(CatTree, &TreeView::MouseDown, this,
            [this] { RunEvent("Form14.CatTree_MouseDown", [this] { CatTree_MouseDown(); }); });
    connect(CatTree, &TreeView::NodeClick, this, [this](TreeNode* Node) {
        RunEvent("Form14.CatTree_NodeClick", [&] { CatTree_NodeClick(Node); });
    });
    // A double click on a node chooses it, as OK does.
    connect(CatTree, &QTreeWidget::itemDoubleClicked, this, [this] {
        RunEvent("Form14.bnOK_Click", [this] {
            if (bnOK->isEnabled() && !CatTree->IsEditingLabel()) bnOK_Click();
        });
    });
}

void Form14::Form_Load() {
    HUNT_PLACE("Form14.Form_Load", mode);
    switch (mode) {
    case 0:
        setWindowTitle(msgBrowseCategories);
        Label1->setText(msgChooseACategory);
        break;
    case 1:
        setWindowTitle(msgBrowseGroups);
        Label1->setText(msgChooseAGroup);
        break;
    default:
        setWindowTitle(msgBrowseFavorites);
        Label1->setText(msgChooseAFavorites);
        break;
    }
    bnAdd->setText(msgAdd);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);
    // Nothing may be added to a phonebook the session cannot change.
    bnAdd->setEnabled(!gRestricted);

    mRegSettings::ApplyPreferenceFont(this);
    const int icon = mRegSettings::LvTvIconSize();
    CatTree->setIconSize(QSize(icon, icon));
    RestorePlace();

    mTV::CategoryFill(treeForm(), mode);
    CheckOk();
}

void Form14::CheckOk() {
    const TreeNode* node = CatTree->SelectedItem();
    bnOK->setEnabled(node && node->Key() != kRoot);
}

void Form14::bnAdd_Click() {
    HUNT_PLACE("Form14.bnAdd_Click", mode);
    mTV::CatTreeAdd(treeForm(), mode);
    // The caller's copy of this tree lacks the new node from now on, even if it is not chosen.
    switch (mode) {
    case 0:
        AddCat = true;
        break;
    case 1:
        AddBox = true;
        break;
    default:
        AddBor = true;
        break;
    }
    CheckOk();
}

void Form14::bnOK_Click() {
    HUNT_PLACE("Form14.bnOK_Click");
    const TreeNode* node = CatTree->SelectedItem();
    if (!node || node->Key() == kRoot) return;
    ChosenKey = node->Key();
    ComboKey = node->Key();
    ChosenText = node->Text();
    accept();
}

void Form14::bnCancel_Click() {
    HUNT_PLACE("Form14.bnCancel_Click");
    reject();
}

void Form14::CatTree_AfterLabelEdit(bool& Cancel, QString& NewString) {
    HUNT_PLACE("Form14.CatTree_AfterLabelEdit", Cancel, NewString);
    // An abandoned or emptied label keeps the name the node has.
    if (NewString.isEmpty()) return;
    mTV::CategoryUpdate(treeForm(), mode, NewString);
}

void Form14::CatTree_Collapse(TreeNode*) {
    HUNT_PLACE("Form14.CatTree_Collapse");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}

void Form14::CatTree_GotFocus() {
    HUNT_PLACE("Form14.CatTree_GotFocus");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}

void Form14::CatTree_KeyUp() {
    HUNT_PLACE("Form14.CatTree_KeyUp");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}

void Form14::CatTree_LostFocus() {
    HUNT_PLACE("Form14.CatTree_LostFocus");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}

void Form14::CatTree_MouseDown() {
    HUNT_PLACE("Form14.CatTree_MouseDown");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}

void Form14::CatTree_NodeClick(TreeNode*) {
    HUNT_PLACE("Form14.CatTree_NodeClick");
    mTV::AfterNoLabelEdit2(treeForm());
    CheckOk();
}
