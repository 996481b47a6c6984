#include "support/controls/listmodel.h"

#include "support/controls/appcache.h"

#include "support/controls/columnheader.h"
#include "support/controls/imagelist.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"
#include "support/themes/themes.h"

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>
#include <array>

namespace {

Qt::Alignment alignmentOf(int a) {
    switch (a) {
    case lvwColumnRight:
        return Qt::AlignRight | Qt::AlignVCenter;
    case lvwColumnCenter:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

// A grey triangle of the header, 9 by 9.
QIcon triangle(const QPolygon& corners) {
    QPixmap pm(9, 9);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(96, 96, 96));
    p.drawPolygon(corners);
    return QIcon(pm);
}

// The two sort arrows of the header, drawn here: 1 points down (descending), 2 up (ascending).
QIcon sortArrow(int icon) {
    static const auto make = [] {
        return std::array<QIcon, 2>{triangle(QPolygon({QPoint(0, 2), QPoint(8, 2), QPoint(4, 7)})),
                                    triangle(QPolygon({QPoint(0, 7), QPoint(8, 7), QPoint(4, 2)}))};
    };
    return icon == 1 || icon == 2 ? AppCached<std::array<QIcon, 2>>(make)[icon - 1] : QIcon();
}

} // namespace

ListModel::ListModel(ListView* view) : QAbstractTableModel(view), m_view(view) {}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_view->ListItems.Count();
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_view->ColumnHeaders.Count();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const ListItem* item = m_view->ListItems.At(index.row());
    const int column = index.column();
    if (!item || column < 0 || column >= m_view->ColumnHeaders.Count()) return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return item->CellText(column);
    case Qt::DecorationRole:
        if (column == 0) {
            const QString& key = item->SmallIcon().isEmpty() ? item->Icon() : item->SmallIcon();
            if (!key.isEmpty()) return m_view->ImageListPtr()->Icon(key);
        }
        return QVariant();
    case Qt::ForegroundRole: {
        const QColor c = item->CellForeColor(column);
        return c.isValid() ? QVariant(QBrush(mThemes::ReadableForeColor(c, m_view->palette()))) : QVariant();
    }
    case Qt::BackgroundRole: {
        const QColor c = m_view->CellColor() ? m_view->CellColor()(item, column) : QColor();
        return c.isValid() ? QVariant(QBrush(c)) : QVariant();
    }
    case Qt::FontRole:
        if (item->CellBold(column)) {
            QFont f = m_view->font();
            f.setBold(true);
            return f;
        }
        return QVariant();
    case Qt::CheckStateRole:
        if (column == 0 && m_view->Checkboxes()) return item->Checked() ? Qt::Checked : Qt::Unchecked;
        return QVariant();
    case Qt::TextAlignmentRole:
        return column == 0 ? QVariant()
                           : QVariant(alignmentOf(m_view->ColumnHeaders.Item(column + 1)->Alignment()));
    default:
        return QVariant();
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const ColumnHeader* c = orientation == Qt::Horizontal ? m_view->ColumnHeaders.Item(section + 1) : nullptr;
    if (!c) return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return c->Text();
    case Qt::TextAlignmentRole:
        return QVariant(alignmentOf(c->Alignment()));
    case Qt::DecorationRole:
        return c->Icon() ? QVariant(sortArrow(c->Icon())) : QVariant();
    default:
        return QVariant();
    }
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags f =
        Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == 0 && m_view->Checkboxes()) f |= Qt::ItemIsUserCheckable;
    return f;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    ListItem* item = m_view->ListItems.At(index.row());
    if (!item || index.column() != 0 || role != Qt::CheckStateRole || !m_view->Checkboxes()) return false;
    item->SetChecked(value.toInt() == Qt::Checked);
    emit m_view->ItemCheck(item);
    return true;
}

void ListModel::cellChanged(int row, int column) {
    const int last = columnCount() - 1;
    if (last < 0 || column > last || rowCount() == 0) return;
    if (row < 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, last));
        return;
    }
    emit dataChanged(index(row, column < 0 ? 0 : column), index(row, column < 0 ? last : column));
}

void ListModel::headerChanged(int column) {
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void ListModel::beginReorder() {
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ListModel::endReorder(const std::vector<int>& newRow) {
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& i : from) {
        const int r = i.row() >= 0 && size_t(i.row()) < newRow.size() ? newRow[size_t(i.row())] : -1;
        to.append(r >= 0 ? index(r, i.column()) : QModelIndex());
    }
    changePersistentIndexList(from, to);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
