#pragma once
// A column of a ListView. Width is in pixels; a width of 0 hides the column. Position is the
// place on screen from 1 and may differ from Index, the place in the collection, when columns
// have been moved. The cells of the column are the rows' cells number SubItemIndex.

#include <QString>

class ListView;

enum ListColumnAlignment { lvwColumnLeft = 0, lvwColumnRight = 1, lvwColumnCenter = 2 };

class ColumnHeader {
  public:
    const QString& Key() const { return m_key; }
    int Index() const { return m_index + 1; }
    int SubItemIndex() const { return m_index; }

    const QString& Text() const { return m_text; }
    void SetText(const QString& text);
    double Width() const { return m_width; }
    void SetWidth(double width);
    int Alignment() const { return m_alignment; }
    void SetAlignment(int alignment); // a ListColumnAlignment
    int Position() const;
    void SetPosition(int position);
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }
    // The sort arrow in the header: 0 none, 1 descending, 2 ascending.
    int Icon() const { return m_icon; }
    void SetIcon(int icon);

  private:
    friend class ColumnHeaderCollection;
    friend class ListView;
    ColumnHeader(ListView* view, int index, const QString& key, const QString& text)
        : m_view(view), m_index(index), m_key(key), m_text(text) {}
    ColumnHeader(const ColumnHeader&) = delete;
    ColumnHeader& operator=(const ColumnHeader&) = delete;

    ListView* m_view;
    int m_index;
    QString m_key;
    QString m_text;
    QString m_tag;
    double m_width = 0;
    int m_alignment = lvwColumnLeft;
    int m_icon = 0;
};
