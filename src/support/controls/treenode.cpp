#include "support/controls/treenode.h"

#include "support/controls/imagelist.h"
#include "support/controls/textorder.h"
#include "support/controls/treeview.h"

#include <QBrush>
#include <QFont>
#include <QPalette>
#include <algorithm>
#include <vector>

TreeNode::TreeNode(TreeView* tree, const QString& key) : m_tree(tree), m_key(key) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
}

TreeNode::~TreeNode() {
    if (m_tree) m_tree->nodeGone(this);
}

QString TreeNode::Text() const {
    return text(0);
}

void TreeNode::SetText(const QString& text) {
    setText(0, text);
}

void TreeNode::SetImage(const QString& key) {
    if (m_image == key) return;
    m_image = key;
    emitDataChanged();
}

void TreeNode::SetSelectedImage(const QString& key) {
    if (m_selectedImage == key) return;
    m_selectedImage = key;
    emitDataChanged();
}

TreeNode* TreeNode::Parent() const {
    return static_cast<TreeNode*>(parent());
}

void TreeNode::SetParent(TreeNode* parent) {
    if (!parent || parent == Parent() || parent->m_tree != m_tree) return;
    for (const QTreeWidgetItem* up = parent; up; up = up->parent())
        if (up == this) return;
    std::vector<TreeNode*> expanded;
    std::function<void(TreeNode*)> collect = [&](TreeNode* node) {
        if (node->isExpanded()) expanded.push_back(node);
        for (int i = 0; i < node->childCount(); ++i)
            collect(static_cast<TreeNode*>(node->child(i)));
    };
    collect(this);
    if (QTreeWidgetItem* from = QTreeWidgetItem::parent())
        from->takeChild(from->indexOfChild(this));
    else if (m_tree)
        m_tree->takeTopLevelItem(m_tree->indexOfTopLevelItem(this));
    if (parent->Sorted() && m_tree)
        m_tree->insertSorted(parent, this);
    else
        parent->addChild(this);
    for (TreeNode* node : expanded)
        node->setExpanded(true);
}

static QTreeWidgetItem* siblingAt(const QTreeWidgetItem* item, int offset) {
    const QTreeWidgetItem* p = item->parent();
    if (p) {
        const int i = p->indexOfChild(const_cast<QTreeWidgetItem*>(item)) + offset;
        return i >= 0 && i < p->childCount() ? p->child(i) : nullptr;
    }
    QTreeWidget* w = item->treeWidget();
    if (!w) return nullptr;
    const int i = w->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item)) + offset;
    return i >= 0 && i < w->topLevelItemCount() ? w->topLevelItem(i) : nullptr;
}

TreeNode* TreeNode::Next() const {
    return static_cast<TreeNode*>(siblingAt(this, 1));
}

TreeNode* TreeNode::Previous() const {
    return static_cast<TreeNode*>(siblingAt(this, -1));
}

TreeNode* TreeNode::Child() const {
    return childCount() ? static_cast<TreeNode*>(child(0)) : nullptr;
}

TreeNode* TreeNode::LastChild() const {
    return childCount() ? static_cast<TreeNode*>(child(childCount() - 1)) : nullptr;
}

TreeNode* TreeNode::FirstSibling() const {
    if (const QTreeWidgetItem* p = parent()) return static_cast<TreeNode*>(p->child(0));
    QTreeWidget* w = treeWidget();
    return w ? static_cast<TreeNode*>(w->topLevelItem(0)) : const_cast<TreeNode*>(this);
}

TreeNode* TreeNode::LastSibling() const {
    if (const QTreeWidgetItem* p = parent()) return static_cast<TreeNode*>(p->child(p->childCount() - 1));
    QTreeWidget* w = treeWidget();
    return w ? static_cast<TreeNode*>(w->topLevelItem(w->topLevelItemCount() - 1))
             : const_cast<TreeNode*>(this);
}

TreeNode* TreeNode::Root() const {
    const QTreeWidgetItem* n = this;
    while (n->parent())
        n = n->parent();
    return static_cast<TreeNode*>(const_cast<QTreeWidgetItem*>(n));
}

void TreeNode::SetExpanded(bool expanded) {
    setExpanded(expanded);
}

void TreeNode::SetSelected(bool selected) {
    if (selected && m_tree) {
        m_tree->SetSelectedItem(this);
    } else {
        setSelected(selected);
    }
}

bool TreeNode::Bold() const {
    return font(0).bold();
}

void TreeNode::SetBold(bool bold) {
    QFont f = font(0);
    f.setBold(bold);
    setFont(0, f);
}

QColor TreeNode::ForeColor() const {
    const QVariant v = QTreeWidgetItem::data(0, Qt::ForegroundRole);
    return v.isValid() ? v.value<QBrush>().color() : QColor();
}

void TreeNode::SetForeColor(const QColor& color) {
    setData(0, Qt::ForegroundRole, color.isValid() ? QVariant(QBrush(color)) : QVariant());
}

void TreeNode::EnsureVisible() {
    for (QTreeWidgetItem* p = parent(); p; p = p->parent())
        p->setExpanded(true);
    if (m_tree) m_tree->scrollToItem(this);
}

void TreeNode::SetSorted(bool sorted) {
    m_sorted = sorted;
    if (sorted) {
        SortChildren(
            [](const TreeNode* a, const TreeNode* b) { return TextOrder::Compare(a->Text(), b->Text()); });
    }
}

void TreeNode::SortChildren(const std::function<int(const TreeNode* a, const TreeNode* b)>& compare) {
    if (childCount() < 2) return;
    if (m_tree) m_tree->sortChildrenOf(this, compare);
}

bool TreeNode::operator<(const QTreeWidgetItem& other) const {
    const TreeNode& o = static_cast<const TreeNode&>(other);
    if (m_tree && m_tree->m_compare) return (*m_tree->m_compare)(this, &o) < 0;
    return TextOrder::Compare(Text(), o.Text()) < 0;
}

QVariant TreeNode::data(int column, int role) const {
    if (column == 0 && m_tree) {
        if (role == Qt::DecorationRole) {
            const QString& key = isSelected() && !m_selectedImage.isEmpty() ? m_selectedImage : m_image;
            return m_tree->ImageListPtr()->Icon(key);
        }
        if (m_tree->DropHighlight() == this) {
            if (role == Qt::BackgroundRole) return m_tree->palette().brush(QPalette::Highlight);
            if (role == Qt::ForegroundRole) return m_tree->palette().brush(QPalette::HighlightedText);
        }
    }
    return QTreeWidgetItem::data(column, role);
}
