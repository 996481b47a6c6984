#include "support/controls/treeview.h"

#include "support/controls/imagelist.h"
#include "support/controls/treelabeldelegate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

TreeView::TreeView(QWidget* parent)
    : QTreeWidget(parent), Nodes(this), m_images(&ImageList::Shared()),
      m_delegate(new TreeLabelDelegate(this)) {
    setColumnCount(1);
    setHeaderHidden(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformRowHeights(true);
    setItemDelegate(m_delegate);
    connect(this, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item, int) { emit NodeClick(static_cast<TreeNode*>(item)); });
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { emit Expand(static_cast<TreeNode*>(item)); });
    connect(this, &QTreeWidget::itemCollapsed, this, &TreeView::onCollapsed);
}

TreeView::~TreeView() {
    Nodes.Clear();
}

TreeNode* TreeView::SelectedItem() const {
    const QList<QTreeWidgetItem*> sel = selectedItems();
    return sel.isEmpty() ? nullptr : static_cast<TreeNode*>(sel.first());
}

void TreeView::SetSelectedItem(TreeNode* node) {
    if (!node) {
        clearSelection();
        setCurrentItem(nullptr);
        return;
    }
    if (node->m_tree != this) return;
    setCurrentItem(node);
    node->setSelected(true);
}

void TreeView::SetSorted(bool sorted) {
    m_sorted = sorted;
    if (sorted) sortChildrenOf(invisibleRootItem(), nullptr);
}

void TreeView::SetImageList(ImageList* images) {
    m_images = images ? images : &ImageList::Shared();
    viewport()->update();
}

void TreeView::insertSorted(QTreeWidgetItem* parent, TreeNode* node) {
    // After the last sibling that does not sort after the new node, so equal texts keep the
    // order in which they came.
    int lo = 0, hi = parent->childCount();
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        if (*node < *parent->child(mid))
            hi = mid;
        else
            lo = mid + 1;
    }
    parent->insertChild(lo, node);
}

void TreeView::sortChildrenOf(QTreeWidgetItem* parent,
                              const std::function<int(const TreeNode*, const TreeNode*)>& compare) {
    // QTreeWidgetItem's own sort keeps the nodes, their expansion and the selection; the
    // comparison is read by TreeNode::operator< while it runs.
    m_compare = compare ? &compare : nullptr;
    parent->sortChildren(0, Qt::AscendingOrder);
    m_compare = nullptr;
}

void TreeView::StartLabelEdit() {
    TreeNode* node = SelectedItem();
    if (!node) return;
    bool cancel = false;
    emit BeforeLabelEdit(cancel);
    if (cancel) return;
    node->EnsureVisible();
    m_editing = node;
    editItem(node, 0);
    if (!isPersistentEditorOpen(node) && state() != QAbstractItemView::EditingState) m_editing = nullptr;
}

void TreeView::labelEditCommitted(const QString& text) {
    if (TreeNode* node = m_editing) finishLabelEdit(node, text, false);
}

void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    TreeNode* node = m_editing;
    QTreeWidget::closeEditor(editor, hint);
    // An editor closed without its text being taken (Esc) ends the edit with no new text.
    if (node && m_editing == node) finishLabelEdit(node, QString(), true);
}

void TreeView::finishLabelEdit(TreeNode* node, const QString& text, bool abandoned) {
    m_editing = nullptr;
    bool cancel = false;
    QString newString = abandoned ? QString() : text;
    emit AfterLabelEdit(cancel, newString);
    // The handler may have removed the node; only a node still in the tree takes the text.
    if (!cancel && !newString.isEmpty() && Nodes.m_byKey.value(node->m_key) == node) node->SetText(newString);
}

TreeNode* TreeView::HitTest(const QPoint& viewportPos) const {
    return static_cast<TreeNode*>(itemAt(viewportPos));
}

void TreeView::SetDropHighlight(TreeNode* node) {
    if (node && node->m_tree != this) node = nullptr;
    if (m_dropHighlight == node) return;
    TreeNode* old = m_dropHighlight;
    m_dropHighlight = node;
    if (old) old->emitDataChanged();
    if (node) node->emitDataChanged();
}

void TreeView::nodeGone(TreeNode* node) {
    if (m_dropHighlight == node) m_dropHighlight = nullptr;
    if (m_editing == node) m_editing = nullptr;
    if (m_clearing) return;
    auto it = Nodes.m_byKey.find(node->m_key);
    if (it != Nodes.m_byKey.end() && it.value() == node) Nodes.m_byKey.erase(it);
}

void TreeView::onCollapsed(QTreeWidgetItem* item) {
    // A selection hidden by the collapse moves to the collapsed node, so one stays visible.
    TreeNode* sel = SelectedItem();
    for (QTreeWidgetItem* p = sel ? sel->parent() : nullptr; p; p = p->parent()) {
        if (p == item) {
            SetSelectedItem(static_cast<TreeNode*>(item));
            break;
        }
    }
    emit Collapse(static_cast<TreeNode*>(item));
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    emit MouseDown(event->button(), event->modifiers(), event->position().toPoint());
    const TreeNode* before = SelectedItem();
    QTreeWidget::mousePressEvent(event);
    // The right button selects too; the window follows as for a left click.
    TreeNode* after = SelectedItem();
    if (event->button() == Qt::RightButton && after && after != before) emit NodeClick(after);
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    QPoint pos = event->pos();
    if (event->reason() != QContextMenuEvent::Mouse) {
        const TreeNode* node = SelectedItem();
        if (!node) return;
        scrollToItem(node);
        pos = visualItemRect(node).center();
    }
    emit ContextMenu(pos);
    event->accept();
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    QTreeWidgetItem* before = currentItem();
    QTreeWidget::keyPressEvent(event);
    QTreeWidgetItem* after = currentItem();
    if (after && after != before) emit NodeClick(static_cast<TreeNode*>(after));
}

void TreeView::keyReleaseEvent(QKeyEvent* event) {
    emit KeyUp(event->key(), event->modifiers());
    QTreeWidget::keyReleaseEvent(event);
}

void TreeView::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    emit GotFocus();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
    QTreeWidget::focusOutEvent(event);
    // The label editor takes the focus while it is open; that is no leaving of the tree.
    if (!m_editing) emit LostFocus();
}
