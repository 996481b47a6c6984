#include "support/controls/listitem.h"

#include "support/controls/listview.h"

#include <algorithm>

ListItem::ListItem(ListView* view, int row, const QString& key, const QString& text, int reserveChars,
                   int reserveCells)
    : ListSubItems(this), m_view(view), m_row(row), m_key(key) {
    m_text.reserve(std::max(reserveChars, int(text.size())));
    m_ends.reserve(std::max(reserveCells, 1));
    m_text.append(text);
    m_ends.push_back(quint32(m_text.size()));
}

ListItem::ListItem(ListView* view, int row, const QString& key, const ListRowCells& cells)
    : ListSubItems(this), m_view(view), m_row(row), m_key(key),
      m_text(cells.m_text.constData(), cells.m_text.size()), m_ends(cells.m_ends) {
    if (m_ends.empty()) m_ends.push_back(0);
}

ListItem::~ListItem() = default;

void ListItem::changed(int column) {
    if (m_view) m_view->itemChanged(this, column);
}

void ListItem::SetTag(const QString& tag) {
    m_tag = tag;
    if (m_view) m_view->tagChanged(this);
}

void ListItem::SetIcon(const QString& key) {
    m_icon = key;
    changed(0);
}

void ListItem::SetBold(bool bold) {
    m_bold = bold;
    changed(0);
}

void ListItem::SetForeColor(const QColor& color) {
    m_hasColor = color.isValid();
    m_color = m_hasColor ? color.rgba() : 0;
    changed(0);
}

void ListItem::SetChecked(bool checked) {
    m_checked = checked;
    changed(0);
}

bool ListItem::Selected() const {
    return m_view && m_view->isRowSelected(m_row);
}

void ListItem::SetSelected(bool selected) {
    if (m_view) m_view->selectRow(m_row, selected);
}

void ListItem::EnsureVisible() {
    if (m_view) m_view->showRow(m_row);
}

QStringView ListItem::CellView(int column) const {
    if (column < 0 || column >= CellCount()) return QStringView();
    const quint32 start = column ? m_ends[column - 1] : 0;
    return QStringView(m_text).mid(start, m_ends[column] - start);
}

void ListItem::SetCellText(int column, const QString& text) {
    if (column < 0) return;
    while (column >= CellCount())
        m_ends.push_back(m_ends.back());
    const quint32 start = column ? m_ends[column - 1] : 0;
    const qsizetype oldLen = m_ends[column] - start;
    const qsizetype delta = text.size() - oldLen;
    if (delta == 0 && QStringView(m_text).mid(start, oldLen) == text) return;
    m_text.replace(start, oldLen, text);
    for (size_t i = column; i < m_ends.size(); ++i)
        m_ends[i] = quint32(qint64(m_ends[i]) + delta);
    changed(column);
}

int ListItem::appendCell(const QString& text) {
    m_text.append(text);
    m_ends.push_back(quint32(m_text.size()));
    const int column = CellCount() - 1;
    changed(column);
    return column;
}

int ListItem::insertCell(int index, const QString& text) {
    index = std::clamp(index, 1, CellCount());
    if (index == CellCount()) return appendCell(text);
    const quint32 start = m_ends[index - 1];
    m_text.insert(start, text);
    m_ends.insert(m_ends.begin() + index, start);
    for (size_t i = index; i < m_ends.size(); ++i)
        m_ends[i] += quint32(text.size());
    if (m_extras) {
        for (CellExtra& e : *m_extras)
            if (e.column >= index) ++e.column;
    }
    changed(-1);
    return index;
}

void ListItem::truncateCells(int count) {
    if (count >= CellCount()) return;
    m_ends.resize(count);
    m_text.truncate(m_ends.back());
    if (m_extras) {
        m_extras->erase(std::remove_if(m_extras->begin(), m_extras->end(),
                                       [count](const CellExtra& e) { return e.column >= count; }),
                        m_extras->end());
        dropEmptyExtras();
    }
    changed(-1);
}

const ListItem::CellExtra* ListItem::extra(int column) const {
    if (!m_extras) return nullptr;
    for (const CellExtra& e : *m_extras)
        if (e.column == column) return &e;
    return nullptr;
}

ListItem::CellExtra& ListItem::extraFor(int column) {
    if (!m_extras) m_extras = std::make_unique<std::vector<CellExtra>>();
    for (CellExtra& e : *m_extras)
        if (e.column == column) return e;
    m_extras->push_back(CellExtra{column, QString(), 0, false, false});
    return m_extras->back();
}

void ListItem::dropEmptyExtras() {
    if (!m_extras) return;
    m_extras->erase(
        std::remove_if(m_extras->begin(), m_extras->end(),
                       [](const CellExtra& e) { return e.tag.isEmpty() && !e.hasColor && !e.bold; }),
        m_extras->end());
    if (m_extras->empty()) m_extras.reset();
}

QString ListItem::CellTag(int column) const {
    if (column == 0) return m_tag;
    const CellExtra* e = extra(column);
    return e ? e->tag : QString();
}

void ListItem::SetCellTag(int column, const QString& tag) {
    if (column == 0) {
        SetTag(tag);
        return;
    }
    if (column < 0 || (tag.isEmpty() && !extra(column))) return;
    extraFor(column).tag = tag;
    if (tag.isEmpty()) dropEmptyExtras();
}

QColor ListItem::CellForeColor(int column) const {
    if (column == 0) return ForeColor();
    const CellExtra* e = extra(column);
    return e && e->hasColor ? QColor::fromRgba(e->color) : QColor();
}

void ListItem::SetCellForeColor(int column, const QColor& color) {
    if (column == 0) {
        SetForeColor(color);
        return;
    }
    if (column < 0 || (!color.isValid() && !extra(column))) return;
    CellExtra& e = extraFor(column);
    e.hasColor = color.isValid();
    e.color = e.hasColor ? color.rgba() : 0;
    if (!e.hasColor) dropEmptyExtras();
    changed(column);
}

bool ListItem::CellBold(int column) const {
    if (column == 0) return m_bold;
    const CellExtra* e = extra(column);
    return e && e->bold;
}

void ListItem::SetCellBold(int column, bool bold) {
    if (column == 0) {
        SetBold(bold);
        return;
    }
    if (column < 0 || (!bold && !extra(column))) return;
    extraFor(column).bold = bold;
    if (!bold) dropEmptyExtras();
    changed(column);
}
