#pragma once
// Paints an entry of an ImageCombo's list moved right by its indentation, with its icon.

#include <QStyledItemDelegate>

class ImageComboDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    static constexpr int IndentRole = Qt::UserRole + 1; // levels of indentation of an entry
    static constexpr int IndentStep = 10;               // pixels per level

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
