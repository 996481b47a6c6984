#pragma once
// The properties of one node: its name and comment, to view and change, or to give a new node.
// A new node goes under the node selected in the main window's tree (favorites under the root).
// The root keeps its name; its comment may change. OK writes only what was changed, in one
// transaction, and brings the main window's tree and contact list up to date.
//
// mCommon::GetCatProperties opens it for an existing node; the Add command for a new one.

#include "trees/mainview.h"

#include "preferences/formdialog.h"

#include <QString>
#include <functional>

class ListView;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class TreeView;

class Form20 : public FormDialog {
    Q_OBJECT
  public:
    // Builds and loads the dialog (Form_Load) for node `pID` (-1: a new node) of the tree of
    // `mode`. `view` is the main window, whose tree shows that tree; pFromDiskList tells that
    // the node is the row selected in its contact list.
    Form20(const mTV::MainView& view, qint32 pID, qint16 mode, bool pFromDiskList, QWidget* parent = nullptr);
    ~Form20() override;

    qint32 pID;         // node number; -1 for a new node
    qint16 mode;        // 0 categories, 1 groups, 2 favorites
    bool pFromDiskList; // opened on a node row of the contact list

    // Controls.
    QLabel* pbIcon = nullptr;
    QLineEdit* fdName = nullptr;
    QFrame* Line1 = nullptr;
    QLabel* lblComment = nullptr;
    QPlainTextEdit* fdComment = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    void bnOK_Click();
    void bnCancel_Click();

  protected:
    void BeforeUnload() override;

  private:
    void buildControls();
    void releaseCommentHook();

    TreeView& m_tree;
    ListView& m_list;
    QString m_loadedName;
    QString m_loadedComment;
    std::function<bool(QString&)> m_previousCommentHook; // restored when the dialog closes
    bool m_hooked = false;
};
