#pragma once
// The node chooser: one of the three trees without counts, wholly expanded, from which the user
// picks a node below the root. "Add" makes a node under the selected one (favorites stay under
// the root) and opens its label for the name at once; the new node is in the phonebook from that
// moment, whatever button closes the dialog.
//
// The contact card opens it for the tree of one of its combos:
//     Form14 frm(0, this);
//     ShowModal(&frm, this);
//     if (frm.AddCat) ...refill the combo...
//     if (!frm.ChosenKey.isEmpty()) ...select frm.ComboKey...

#include "trees/treeform.h"

#include "preferences/formdialog.h"

#include <QString>

class QLabel;
class QPushButton;
class TreeNode;
class TreeView;

class Form14 : public FormDialog {
    Q_OBJECT
  public:
    // Builds and loads the dialog (Form_Load) for the tree of `mode`.
    explicit Form14(qint16 mode, QWidget* parent = nullptr);

    qint16 mode;        // 0 categories, 1 groups, 2 favorites
    QString ChosenKey;  // key of the chosen node on OK, "" otherwise
    QString ComboKey;   // the same key, for the caller's combo
    QString ChosenText; // the chosen node's name
    // A node was added to the tree of that kind while the dialog was open, so the caller's copy
    // of that tree is out of date.
    bool AddCat = false;
    bool AddBox = false;
    bool AddBor = false;

    // Controls.
    QLabel* Label1 = nullptr;
    TreeView* CatTree = nullptr;
    QPushButton* bnAdd = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    // OK is possible on any node but the root.
    void CheckOk();

    void bnAdd_Click();
    void bnOK_Click();
    void bnCancel_Click();

    void CatTree_AfterLabelEdit(bool& Cancel, QString& NewString);
    void CatTree_Collapse(TreeNode* Node);
    void CatTree_GotFocus();
    void CatTree_KeyUp();
    void CatTree_LostFocus();
    void CatTree_MouseDown();
    void CatTree_NodeClick(TreeNode* Node);

  private:
    void buildControls();
    mTV::TreeForm treeForm() const { return {*CatTree, false}; }
};
