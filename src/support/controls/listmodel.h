#pragma once
// The table model under a ListView: reads the rows and columns of the list, and carries the
// list's changes to the view. It keeps no data of its own.

#include <QAbstractTableModel>
#include <vector>

class ListView;

class ListModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ListModel(ListView* view);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override; // the check box

    // The list tells its changes through these.
    void beginInsertRow(int row) { beginInsertRows(QModelIndex(), row, row); }
    void endInsertRow() { endInsertRows(); }
    void beginRemoveRow(int row) { beginRemoveRows(QModelIndex(), row, row); }
    void endRemoveRow() { endRemoveRows(); }
    void beginInsertColumn(int column) { beginInsertColumns(QModelIndex(), column, column); }
    void endInsertColumn() { endInsertColumns(); }
    // Row `from` goes to place `to` (both counted before the move).
    bool beginMoveRow(int from, int to) {
        return beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    }
    void endMoveRow() { endMoveRows(); }
    void beginReset() { beginResetModel(); }
    void endReset() { endResetModel(); }
    void cellChanged(int row, int column); // column -1: the whole row; row -1: every row
    void headerChanged(int column);
    // A sort: newRow[old row] is the row's new place.
    void beginReorder();
    void endReorder(const std::vector<int>& newRow);

  private:
    ListView* m_view;
};
