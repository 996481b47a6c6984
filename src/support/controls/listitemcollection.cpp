#include "support/controls/listitemcollection.h"

#include "core/error.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"

#include <algorithm>

ListItemCollection::~ListItemCollection() {
    for (ListItem* item : m_rows)
        delete item;
}

namespace {

[[noreturn]] void duplicateKey() {
    throw HuntERR::Error(35602, QStringLiteral("Key is not unique in collection"),
                         QStringLiteral("ListItems.Add"));
}

} // namespace

ListItem* ListItemCollection::Add(int index, const QString& key, const QString& text, const QString& icon,
                                  const QString& smallIcon) {
    if (!key.isEmpty() && m_byKey.contains(key)) duplicateKey();
    if (!m_rows.empty()) {
        const ListItem* last = m_rows.back();
        m_lastChars = int(last->m_text.size());
        m_lastCells = last->CellCount();
    }
    const int row = index >= 1 && index <= Count() ? index - 1 : Count();
    auto* item = new ListItem(m_view, row, key, text, m_lastChars + 16,
                              std::max(m_lastCells, m_view->ColumnHeaders.Count()));
    item->m_icon = icon;
    item->m_smallIcon = smallIcon;
    return insert(item, row);
}

ListItem* ListItemCollection::Add(const QString& key, const ListRowCells& cells, const QString& icon,
                                  const QString& smallIcon) {
    auto* item = new ListItem(m_view, Count(), key, cells);
    item->m_icon = icon;
    item->m_smallIcon = smallIcon;
    return insert(item, Count());
}

ListItem* ListItemCollection::insert(ListItem* item, int row) {
    if (m_rows.empty() && m_lastCount > 0) {
        m_rows.reserve(size_t(m_lastCount));
        m_byKey.reserve(m_lastCount);
        m_lastCount = 0;
    }
    if (!item->m_key.isEmpty()) {
        // One look-up both checks the key and makes its entry.
        ListItem*& entry = m_byKey[item->m_key];
        if (entry) {
            delete item;
            duplicateKey();
        }
        entry = item;
    }
    row = m_view->placeOfNewRow(item, row);
    item->m_row = row;
    m_view->rowsInserting(row);
    m_rows.insert(m_rows.begin() + row, item);
    if (row + 1 < Count()) renumber(row + 1);
    m_view->rowsInserted();
    return item;
}

void ListItemCollection::Remove(const QString& key) {
    Remove(Item(key));
}

void ListItemCollection::Remove(int index) {
    Remove(Item(index));
}

void ListItemCollection::Remove(ListItem* item) {
    if (!item || item->m_view != m_view) return;
    const int row = item->m_row;
    m_view->rowsRemoving(row);
    m_rows.erase(m_rows.begin() + row);
    if (!item->m_key.isEmpty()) m_byKey.remove(item->m_key);
    renumber(row);
    m_view->rowsRemoved(item);
    delete item;
}

void ListItemCollection::Clear() {
    m_view->resetting(true);
    m_lastCount = std::max(m_lastCount, Count());
    for (ListItem* item : m_rows) {
        m_view->itemGone(item);
        delete item;
    }
    m_rows.clear();
    m_byKey.clear();
    m_view->resetting(false);
}

void ListItemCollection::renumber(int from) {
    for (int i = from; i < Count(); ++i)
        m_rows[size_t(i)]->m_row = i;
}
