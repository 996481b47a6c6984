#pragma once
// A list control in report mode with the vocabulary of the procedures: keyed ListItems with
// ListSubItems, ColumnHeaders, a text sort by one column, selection, a background text for the
// empty list and the events the procedures handle. A QTreeView over ListModel: it holds a
// hundred thousand rows in little memory, and BeginUpdate/EndUpdate turn a bulk fill into one
// model reset. It works without a visible window.

#include "support/controls/columnheader.h"
#include "support/controls/columnheadercollection.h"
#include "support/controls/listitem.h"
#include "support/controls/listitemcollection.h"
#include "support/controls/textorder.h"

#include <QPoint>
#include <QString>
#include <QTreeView>
#include <functional>
#include <vector>

class ImageList;
class ListModel;

enum ListSortOrder { lvwAscending = 0, lvwDescending = 1 };
// Mouse pointers of the list: default, hourglass, the hand shown over links.
enum ListMousePointer { ccDefault = 0, ccArrow = 1, ccHourglass = 11, ccArrowHourglass = 13, ccCustom = 99 };

class ListView : public QTreeView {
    Q_OBJECT
  public:
    static constexpr double DefaultColumnWidth = 100;

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    ColumnHeaderCollection ColumnHeaders;
    ListItemCollection ListItems;

    // Sorted true sorts the rows now by the text of cell SortKey (0: the item text) in
    // SortOrder, and keeps them so while it stays true: rows added go to their place, and a
    // change of SortKey or SortOrder sorts again. False leaves the order as it is. The order is
    // the text order of TextOrder (locale-aware, case-insensitive); equal texts keep their order.
    bool Sorted() const { return m_sorted; }
    void SetSorted(bool sorted);
    int SortKey() const { return m_sortKey; }
    void SetSortKey(int column);
    int SortOrder() const { return m_sortOrder; }
    void SetSortOrder(int order); // a ListSortOrder
    // Sorts the rows once in SortOrder by keys made for them instead of by their cells: `keys`
    // holds one key per row, in the present order of the rows. Equal keys keep their order;
    // Sorted stays as it is. Inside a BeginUpdate block the view hears of it at EndUpdate.
    void SortByKeys(const TextOrder::Keys& keys);
    // Sorts the rows in SortOrder by the texts that `rule` writes for them (appending to `out`)
    // instead of by their cells, and keeps them so while the rule is in force: a row added, or
    // one whose cells or Tag change, goes to its place, and a new SortOrder sorts again. The rule
    // ends with SetSorted, SetSortKey, SortByKeys, another rule, or a Clear of the rows (a list
    // filled afresh is sorted afresh). Equal texts keep their order. Inside a BeginUpdate block
    // the view hears of it at EndUpdate, and rows added there are placed then.
    using SortTextRule = std::function<void(const ListItem& item, QString& out)>;
    void SortByRule(SortTextRule rule);
    bool HasSortRule() const { return bool(m_sortRule); }

    // The selected row, nullptr for none: the current row when it is selected, else the first
    // selected row. Setting selects that row alone; nullptr clears the selection.
    ListItem* SelectedItem() const;
    void SetSelectedItem(ListItem* item);
    std::vector<ListItem*> SelectedItems() const; // in list order
    bool MultiSelect() const;
    void SetMultiSelect(bool multi);

    // A check box in front of every row (ListItem::Checked); the user may tick it.
    bool Checkboxes() const { return m_checkboxes; }
    void SetCheckboxes(bool on);

    // Bulk changes: between the first BeginUpdate and its matching EndUpdate the view is not
    // told row by row; EndUpdate resets it once, sorts once when Sorted, and keeps the
    // selection of the rows that are still there.
    void BeginUpdate();
    void EndUpdate();

    // A free text the procedures keep on the control.
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }
    // A text shown in the empty list ("No items found"); empty for none.
    const QString& Picture() const { return m_picture; }
    void SetPicture(const QString& text);
    // A ListMousePointer; any other value shows the default pointer.
    int MousePointer() const { return m_mousePointer; }
    void SetMousePointer(int pointer);

    // The row under a point of the viewport, nullptr over empty space; `subItem` gets the cell
    // number (0 the item text) or -1.
    ListItem* HitTest(const QPoint& viewportPos, int* subItem = nullptr) const;
    ListItem* HitTest(int x, int y, int* subItem = nullptr) const { return HitTest(QPoint(x, y), subItem); }

    ImageList* ImageListPtr() const { return m_images; }
    void SetImageList(ImageList* images); // not owned; nullptr returns to the shared list

    // The background of the cells: asked for each cell as it is painted; an invalid colour, or
    // no rule, leaves the palette's. It must be cheap: it runs for every visible cell.
    using CellColorRule = std::function<QColor(const ListItem* item, int column)>;
    void SetCellColorRule(CellColorRule rule);
    const CellColorRule& CellColor() const { return m_cellColor; }

    // The button of the mouse press that raised the last ItemClick (Qt::NoButton for keys).
    Qt::MouseButton LastButton() const { return m_lastButton; }

  signals:
    void ItemClick(ListItem* item); // a press on a row, or keyboard navigation to a row
    void ItemCheck(ListItem* item); // the user ticked or cleared a row's check box
    void DblClick();
    void ColumnClick(ColumnHeader* column);
    void ColumnResize(ColumnHeader* column); // the user changed the width
    void ColumnMove(ColumnHeader* column);   // the user dragged a column to another position
    // A typed character: 8 Backspace, 13 Enter, 27 Esc, else its code. Set KeyAscii to 0 to
    // swallow the key.
    void KeyPress(int& KeyAscii);
    void KeyDown(int key, Qt::KeyboardModifiers shift);
    void KeyUp(int key, Qt::KeyboardModifiers shift);
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, const QPoint& pos);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, const QPoint& pos);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, const QPoint& pos);
    void ContextMenu(const QPoint& pos);

  protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    friend class ListItem;
    friend class ListItemCollection;
    friend class ListModel;
    friend class ColumnHeader;
    friend class ColumnHeaderCollection;

    // Told by the rows and columns.
    void itemChanged(ListItem* item, int column);
    void rowsInserting(int row);
    void rowsInserted();
    void rowsRemoving(int row);
    void rowsRemoved(ListItem* item);
    void itemGone(ListItem* item);
    void resetting(bool begin);
    void columnInserting(int column);
    void columnInserted(ColumnHeader* column);
    void columnsClearing();
    void columnsCleared();
    void headerChanged(ColumnHeader* column);
    void applyWidth(ColumnHeader* column);
    int visualPosition(const ColumnHeader* column) const;
    void moveToPosition(ColumnHeader* column, int position);
    bool isRowSelected(int row) const;
    void selectRow(int row, bool selected);
    void showRow(int row);
    int sortedPlace(const ListItem* item) const;
    void tagChanged(ListItem* item);
    int placeOfNewRow(const ListItem* item, int row);
    QString ruleText(const ListItem* item) const;

    bool cellTextCut(const QModelIndex& index) const;
    void sortRows();
    void sortNow(bool tellView);
    void sortNow(bool tellView, const TextOrder::Keys& keys);
    void placeRow(ListItem* item);
    bool before(const QString& a, const QString& b) const;
    void onSectionResized(int logical, int oldSize, int newSize);
    void onSectionMoved(int logical, int oldVisual, int newVisual);

    ListModel* m_model;
    ImageList* m_images;
    QString m_tag;
    QString m_picture;
    int m_mousePointer = ccDefault;
    bool m_sorted = false;
    bool m_checkboxes = false;
    int m_sortKey = 0;
    int m_sortOrder = lvwAscending;
    int m_updates = 0;
    bool m_sortPending = false;
    SortTextRule m_sortRule;
    bool m_headerByCode = false; // header changes made here, not by the user
    Qt::MouseButton m_lastButton = Qt::NoButton;
    CellColorRule m_cellColor;
    // While updating: the selection, by row, to restore afterwards.
    std::vector<ListItem*> m_heldSelection;
    ListItem* m_heldCurrent = nullptr;
};
