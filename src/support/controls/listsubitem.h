#pragma once
// A cell of a list row beyond the first: a light handle on (row, index). It is valid while its
// row stays in the list; reading past the row's last cell gives empty values, and writing there
// makes the cell.

#include <QColor>
#include <QString>

class ListItem;

class ListSubItem {
  public:
    ListSubItem(ListItem* item, int index) : m_item(item), m_index(index) {}

    int Index() const { return m_index; } // 1 for the first sub-item (the second column)
    ListItem* Item() const { return m_item; }

    QString Text() const;
    void SetText(const QString& text);
    QString Tag() const;
    void SetTag(const QString& tag);
    QColor ForeColor() const; // invalid: the list's text colour
    void SetForeColor(const QColor& color);
    bool Bold() const;
    void SetBold(bool bold);

  private:
    ListItem* m_item;
    int m_index;
};
