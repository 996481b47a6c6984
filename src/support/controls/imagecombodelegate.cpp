#include "support/controls/imagecombodelegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

void ImageComboDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const int indent = index.data(IndentRole).toInt() * IndentStep;
    // The selection band covers the whole row; the icon and text start at the indentation.
    const QWidget* w = opt.widget;
    QStyle* style = w ? w->style() : QApplication::style();
    QStyleOptionViewItem band = opt;
    band.text.clear();
    band.icon = QIcon();
    style->drawControl(QStyle::CE_ItemViewItem, &band, painter, w);
    opt.rect.adjust(indent, 0, 0, 0);
    opt.backgroundBrush = Qt::NoBrush;
    opt.state &= ~QStyle::State_HasFocus;
    painter->save();
    painter->setClipRect(opt.rect);
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, w);
    painter->restore();
}

QSize ImageComboDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize s = QStyledItemDelegate::sizeHint(option, index);
    s.rwidth() += index.data(IndentRole).toInt() * IndentStep;
    return s;
}
