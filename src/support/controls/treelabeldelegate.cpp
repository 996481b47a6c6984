#include "support/controls/treelabeldelegate.h"

#include "support/controls/treeview.h"

#include <QLineEdit>

TreeLabelDelegate::TreeLabelDelegate(TreeView* tree) : QStyledItemDelegate(tree), m_tree(tree) {}

void TreeLabelDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
    if (auto* line = qobject_cast<QLineEdit*>(editor)) m_tree->labelEditCommitted(line->text());
}
