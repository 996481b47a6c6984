#pragma once
// A tree control with the vocabulary of the procedures: keyed Nodes, a control Tag, Sorted,
// SelectedItem, label editing through events, HitTest and a drop highlight. It works without a
// visible window, so tests drive it directly.

#include "support/controls/treenode.h"
#include "support/controls/treenodes.h"

#include <QPoint>
#include <QString>
#include <QTreeWidget>

class ImageList;
class TreeLabelDelegate;

class TreeView : public QTreeWidget {
    Q_OBJECT
  public:
    explicit TreeView(QWidget* parent = nullptr);
    ~TreeView() override;

    TreeNodes Nodes;

    // The selected node; nullptr when none. Setting does not raise NodeClick.
    TreeNode* SelectedItem() const;
    void SetSelectedItem(TreeNode* node);

    // A free text the procedures keep on the control (the key of the node being renamed).
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }

    // Sorted true sorts the top-level nodes by text now and keeps later ones in order.
    bool Sorted() const { return m_sorted; }
    void SetSorted(bool sorted);

    // Icons come from this list (the shared one by default); the tree does not own it.
    ImageList* ImageListPtr() const { return m_images; }
    void SetImageList(ImageList* images);

    // Opens the label of the selected node for editing. BeforeLabelEdit may cancel that.
    // When the edit ends, AfterLabelEdit gets the new text (a null string when the user
    // abandoned it with Esc) and may cancel or change it; unless cancelled, a non-empty
    // NewString becomes the node's text.
    void StartLabelEdit();
    bool IsEditingLabel() const { return m_editing != nullptr; }

    // The node under a point of the viewport, nullptr over empty space.
    TreeNode* HitTest(const QPoint& viewportPos) const;
    TreeNode* HitTest(int x, int y) const { return HitTest(QPoint(x, y)); }

    // The node marked as the target of a drag; nullptr clears the mark.
    TreeNode* DropHighlight() const { return m_dropHighlight; }
    void SetDropHighlight(TreeNode* node);

  signals:
    // A click on a node with either button, or keyboard navigation to one. A right click that
    // selects another node raises it too, before ContextMenu, so that what the tree selects and
    // what the rest of the window shows never part.
    void NodeClick(TreeNode* node);
    void Collapse(TreeNode* node); // a selected descendant moves to the collapsed node first
    void Expand(TreeNode* node);
    void BeforeLabelEdit(bool& Cancel);
    void AfterLabelEdit(bool& Cancel, QString& NewString);
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, const QPoint& pos);
    // The pop-up menu is asked for: a right click or the menu key. `pos` is in the viewport; from
    // the keyboard it is the middle of the selected node.
    void ContextMenu(const QPoint& pos);
    void KeyUp(int key, Qt::KeyboardModifiers shift);
    void GotFocus();
    void LostFocus();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    friend class TreeNode;
    friend class TreeNodes;
    friend class TreeLabelDelegate;
    void nodeGone(TreeNode* node); // a node is being deleted
    void insertSorted(QTreeWidgetItem* parent, TreeNode* node);
    void sortChildrenOf(QTreeWidgetItem* parent,
                        const std::function<int(const TreeNode*, const TreeNode*)>& compare);
    void labelEditCommitted(const QString& text);
    void finishLabelEdit(TreeNode* node, const QString& text, bool abandoned);
    void onCollapsed(QTreeWidgetItem* item);

    QString m_tag;
    bool m_sorted = false;
    bool m_clearing = false;
    ImageList* m_images;
    TreeNode* m_dropHighlight = nullptr;
    TreeNode* m_editing = nullptr;
    TreeLabelDelegate* m_delegate;
    const std::function<int(const TreeNode*, const TreeNode*)>* m_compare = nullptr; // during a sort
};
