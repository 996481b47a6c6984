#include "support/controls/treenodes.h"

#include "core/error.h"
#include "support/controls/treenode.h"
#include "support/controls/treeview.h"

namespace {

const qint32 errKeyNotUnique = 35602;
const qint32 errElementNotFound = 35601;

void collect(QTreeWidgetItem* item, std::vector<TreeNode*>& out) {
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem* c = item->child(i);
        out.push_back(static_cast<TreeNode*>(c));
        collect(c, out);
    }
}

} // namespace

TreeNode* TreeNodes::Add(const QString& relative, int relationship, const QString& key, const QString& text,
                         const QString& image, const QString& selectedImage) {
    const TreeNode* rel = nullptr;
    if (!relative.isEmpty()) {
        rel = Item(relative);
        if (!rel)
            throw HuntERR::Error(errElementNotFound, QStringLiteral("Element not found"),
                                 QStringLiteral("Nodes.Add"));
    }
    return Add(rel, relationship, key, text, image, selectedImage);
}

TreeNode* TreeNodes::Add(const TreeNode* relative, int relationship, const QString& key, const QString& text,
                         const QString& image, const QString& selectedImage) {
    if (key.isEmpty() || m_byKey.contains(key))
        throw HuntERR::Error(errKeyNotUnique, QStringLiteral("Key is not unique in collection"),
                             QStringLiteral("Nodes.Add"));

    auto* node = new TreeNode(m_tree, key);
    node->setText(0, text);
    node->m_image = image;
    node->m_selectedImage = selectedImage;
    m_byKey.insert(key, node);

    QTreeWidgetItem* top = m_tree->invisibleRootItem();
    if (!relative) {
        if (relationship == tvwFirst)
            top->insertChild(0, node);
        else if (m_tree->Sorted())
            m_tree->insertSorted(top, node);
        else
            top->addChild(node);
        return node;
    }
    auto* rel = const_cast<TreeNode*>(relative);
    if (relationship == tvwChild) {
        if (rel->Sorted())
            m_tree->insertSorted(rel, node);
        else
            rel->addChild(node);
        return node;
    }
    QTreeWidgetItem* parent = rel->parent() ? rel->parent() : top;
    const int at = parent->indexOfChild(rel);
    switch (relationship) {
    case tvwFirst:
        parent->insertChild(0, node);
        break;
    case tvwPrevious:
        parent->insertChild(at, node);
        break;
    case tvwNext:
        parent->insertChild(at + 1, node);
        break;
    default:
        parent->addChild(node);
        break;
    }
    return node;
}

void TreeNodes::Remove(const QString& key) {
    if (TreeNode* n = Item(key)) Remove(n);
}

void TreeNodes::Remove(TreeNode* node) {
    if (node && node->m_tree == m_tree) delete node; // the node's destructor forgets its subtree
}

void TreeNodes::Clear() {
    m_tree->m_clearing = true;
    m_tree->clear();
    m_tree->m_clearing = false;
    m_byKey.clear();
    m_tree->m_dropHighlight = nullptr;
    m_tree->m_editing = nullptr;
}

std::vector<TreeNode*> TreeNodes::All() const {
    std::vector<TreeNode*> out;
    out.reserve(m_byKey.size());
    collect(m_tree->invisibleRootItem(), out);
    return out;
}
