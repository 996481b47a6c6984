#include "support/controls/listsubitem.h"

#include "support/controls/listitem.h"

QString ListSubItem::Text() const {
    return m_item->CellText(m_index);
}

void ListSubItem::SetText(const QString& text) {
    m_item->SetCellText(m_index, text);
}

QString ListSubItem::Tag() const {
    return m_item->CellTag(m_index);
}

void ListSubItem::SetTag(const QString& tag) {
    m_item->SetCellTag(m_index, tag);
}

QColor ListSubItem::ForeColor() const {
    return m_item->CellForeColor(m_index);
}

void ListSubItem::SetForeColor(const QColor& color) {
    m_item->SetCellForeColor(m_index, color);
}

bool ListSubItem::Bold() const {
    return m_item->CellBold(m_index);
}

void ListSubItem::SetBold(bool bold) {
    m_item->SetCellBold(m_index, bold);
}
