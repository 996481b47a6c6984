#include "support/controls/listsubitemcollection.h"

#include "support/controls/listitem.h"

ListSubItem ListSubItemCollection::Add(const QString& text) {
    return ListSubItem(m_item, m_item->appendCell(text));
}

ListSubItem ListSubItemCollection::Add(int index, const QString& text) {
    return ListSubItem(m_item, m_item->insertCell(index, text));
}

int ListSubItemCollection::Count() const {
    return m_item->CellCount() - 1;
}

void ListSubItemCollection::Clear() {
    m_item->truncateCells(1);
}
