#pragma once
// One row of a ListView. The row keeps the texts of all its cells in one string with their end
// offsets, so that a list of many rows stays small; a cell's Tag, colour or bold face take room
// only where one is set. A row lives while it stays in its list: Remove and Clear delete it.

#include "support/controls/listsubitemcollection.h"

#include <QColor>
#include <QString>
#include <QStringView>
#include <memory>
#include <vector>

class ListView;

// The cell texts of a row being made, to add the row with all its cells at once
// (ListItemCollection::Add). Reused from row to row, it keeps its room.
class ListRowCells {
  public:
    void Clear() {
        m_text.truncate(0);
        m_ends.clear();
    }
    void Add(QStringView text) {
        m_text.append(text);
        m_ends.push_back(quint32(m_text.size()));
    }
    // A cell written in place: append its text to Text(), then end it with EndCell(). The cell
    // begins at CellStart(), the end of the cells before it.
    QString& Text() { return m_text; }
    qsizetype CellStart() const { return m_ends.empty() ? 0 : qsizetype(m_ends.back()); }
    void EndCell() { m_ends.push_back(quint32(m_text.size())); }
    int Count() const { return int(m_ends.size()); }

  private:
    friend class ListItem;
    QString m_text;
    std::vector<quint32> m_ends;
};

class ListItem {
  public:
    const QString& Key() const { return m_key; }
    int Index() const { return m_row + 1; } // place in the list, from 1; changes with sorts and removals

    QString Text() const { return CellText(0); }
    void SetText(const QString& text) { SetCellText(0, text); }
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag);
    // Image keys in the list's ImageList; the small icon is the one a report shows, the icon
    // stands in when no small icon is set.
    const QString& Icon() const { return m_icon; }
    void SetIcon(const QString& key);
    const QString& SmallIcon() const { return m_smallIcon; }
    bool Bold() const { return m_bold; }
    void SetBold(bool bold);
    QColor ForeColor() const { return m_hasColor ? QColor::fromRgba(m_color) : QColor(); }
    void SetForeColor(const QColor& color);

    // The check box of the row, shown when the list has Checkboxes on.
    bool Checked() const { return m_checked; }
    void SetChecked(bool checked);

    bool Selected() const;
    void SetSelected(bool selected);
    void EnsureVisible();

    ListSubItemCollection ListSubItems;
    // The text of sub-item `index` (from 1), as the SubItems property reads and writes it.
    QString SubItems(int index) const { return CellText(index); }
    void SetSubItems(int index, const QString& text) { SetCellText(index, text); }

    // Cells by column: 0 is the item's own text, 1 and up the sub-items.
    int CellCount() const { return int(m_ends.size()); }
    QStringView CellView(int column) const;
    QString CellText(int column) const { return CellView(column).toString(); }
    void SetCellText(int column, const QString& text);
    QString CellTag(int column) const;
    void SetCellTag(int column, const QString& tag);
    QColor CellForeColor(int column) const;
    void SetCellForeColor(int column, const QColor& color);
    bool CellBold(int column) const;
    void SetCellBold(int column, bool bold);

    ListView* View() const { return m_view; }

  private:
    friend class ListItemCollection;
    friend class ListSubItemCollection;
    friend class ListView;
    struct CellExtra {
        int column;
        QString tag;
        QRgb color = 0;
        bool hasColor = false;
        bool bold = false;
    };

    ListItem(ListView* view, int row, const QString& key, const QString& text, int reserveChars,
             int reserveCells);
    ListItem(ListView* view, int row, const QString& key, const ListRowCells& cells);
    ~ListItem();
    ListItem(const ListItem&) = delete;
    ListItem& operator=(const ListItem&) = delete;

    int appendCell(const QString& text);
    int insertCell(int index, const QString& text);
    void truncateCells(int count);
    const CellExtra* extra(int column) const;
    CellExtra& extraFor(int column);
    void dropEmptyExtras();
    void changed(int column); // tells the list that a cell needs painting (-1: the whole row)

    ListView* m_view;
    int m_row;
    QString m_key;
    QString m_tag;
    QString m_icon;
    QString m_smallIcon;
    QString m_text;              // all cells, one after the other
    std::vector<quint32> m_ends; // end of each cell in m_text
    std::unique_ptr<std::vector<CellExtra>> m_extras;
    QRgb m_color = 0;
    bool m_hasColor = false;
    bool m_bold = false;
    bool m_checked = false;
};
