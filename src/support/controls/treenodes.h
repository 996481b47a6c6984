#pragma once
// The Nodes collection of a TreeView: adding by a relative and a relationship, lookup by key,
// removal with the subtree.

#include <QHash>
#include <QString>
#include <vector>

class TreeNode;
class TreeView;

// Where a new node goes relative to its relative.
enum TreeRelationship { tvwFirst = 0, tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

class TreeNodes {
  public:
    // Adds a node. With an empty `relative` the node goes to the top level (tvwFirst puts it
    // first there, anything else last). tvwChild appends under `relative` (in text order when
    // that node is Sorted); tvwFirst and tvwLast make it the first or last sibling of
    // `relative`; tvwNext and tvwPrevious put it right after or before `relative`.
    // Throws HuntERR::Error 35602 for a key that is already there (or empty) and 35601 when
    // `relative` is not in the tree.
    TreeNode* Add(const QString& relative, int relationship, const QString& key, const QString& text,
                  const QString& image = QString(), const QString& selectedImage = QString());
    TreeNode* Add(const TreeNode* relative, int relationship, const QString& key, const QString& text,
                  const QString& image = QString(), const QString& selectedImage = QString());

    // The node of `key`, nullptr when there is none.
    TreeNode* Item(const QString& key) const { return m_byKey.value(key, nullptr); }
    TreeNode* operator()(const QString& key) const { return Item(key); }
    bool Exists(const QString& key) const { return m_byKey.contains(key); }

    // Removes the node and everything below it; a missing key is ignored.
    void Remove(const QString& key);
    void Remove(TreeNode* node);
    void Clear();
    int Count() const { return m_byKey.size(); }

    // Every node in tree order: a parent before its children, siblings in their order.
    std::vector<TreeNode*> All() const;

  private:
    friend class TreeView;
    friend class TreeNode;
    explicit TreeNodes(TreeView* tree) : m_tree(tree) {}
    TreeNodes(const TreeNodes&) = delete;
    TreeNodes& operator=(const TreeNodes&) = delete;

    TreeView* m_tree;
    QHash<QString, TreeNode*> m_byKey;
};
