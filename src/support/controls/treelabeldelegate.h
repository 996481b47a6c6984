#pragma once
// The editor of a tree label: it hands the typed text to the TreeView, which raises its
// label-edit events and sets the text, instead of writing into the model itself.

#include <QStyledItemDelegate>

class TreeView;

class TreeLabelDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    explicit TreeLabelDelegate(TreeView* tree);
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  private:
    TreeView* m_tree;
};
