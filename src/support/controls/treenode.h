#pragma once
// One node of a TreeView. A node lives as long as it stays in its tree; removing it (or an
// ancestor, or clearing the tree) deletes it, so never keep a pointer past that.

#include <QColor>
#include <QString>
#include <QTreeWidgetItem>
#include <functional>

class TreeView;

class TreeNode : public QTreeWidgetItem {
  public:
    const QString& Key() const { return m_key; }

    QString Text() const;
    void SetText(const QString& text);
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }

    // Image keys, looked up in the tree's ImageList. The selected image shows while the node is
    // selected; when it is empty the normal image shows.
    const QString& Image() const { return m_image; }
    void SetImage(const QString& key);
    void SetSelectedImage(const QString& key);

    // Walking the tree; each answers nullptr where there is no such node.
    TreeNode* Parent() const;
    TreeNode* Next() const;     // next sibling
    TreeNode* Previous() const; // previous sibling
    TreeNode* Child() const;    // first child
    TreeNode* LastChild() const;
    TreeNode* FirstSibling() const;
    TreeNode* LastSibling() const;
    TreeNode* Root() const; // the top-level node above this one (itself at the top)
    // Moves the node with its subtree under `parent` (of the same tree), as its last child or at
    // its place when `parent` is Sorted. Nodes of the subtree that were expanded stay so; the
    // selection of the tree is left to the caller. Nothing happens for a null parent, the present
    // one, or one inside the node's own subtree.
    void SetParent(TreeNode* parent);
    int Children() const { return childCount(); }

    bool Expanded() const { return isExpanded(); }
    void SetExpanded(bool expanded);
    bool Selected() const { return isSelected(); }
    void SetSelected(bool selected); // true makes it the tree's SelectedItem
    bool Bold() const;
    void SetBold(bool bold);
    QColor ForeColor() const; // invalid colour: the palette's text colour
    void SetForeColor(const QColor& color);

    // Expands every ancestor and scrolls the node into view.
    void EnsureVisible();

    // Sorted true sorts the children by text now (case-insensitive, locale-aware) and keeps
    // children added later in that order; false leaves the present order as it is.
    bool Sorted() const { return m_sorted; }
    void SetSorted(bool sorted);
    // Sorts the children once by `compare` (negative: a before b), as a caller-supplied order.
    void SortChildren(const std::function<int(const TreeNode* a, const TreeNode* b)>& compare);

    // Icon by the tree's image list and the node's selection; the rest as QTreeWidgetItem.
    QVariant data(int column, int role) const override;
    // The order of sorts: the comparison in force, by default the text order.
    bool operator<(const QTreeWidgetItem& other) const override;

  private:
    friend class TreeNodes;
    friend class TreeView;
    TreeNode(TreeView* tree, const QString& key);
    ~TreeNode() override;
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    TreeView* m_tree;
    QString m_key;
    QString m_tag;
    QString m_image;
    QString m_selectedImage;
    bool m_sorted = false;
};
