#include "support/controls/columnheadercollection.h"

#include "core/error.h"
#include "support/controls/columnheader.h"
#include "support/controls/listview.h"

ColumnHeaderCollection::~ColumnHeaderCollection() {
    for (ColumnHeader* c : m_columns)
        delete c;
}

ColumnHeader* ColumnHeaderCollection::Add(const QString& key, const QString& text, double width,
                                          int alignment) {
    if (!key.isEmpty() && m_byKey.contains(key))
        throw HuntERR::Error(35602, QStringLiteral("Key is not unique in collection"),
                             QStringLiteral("ColumnHeaders.Add"));
    auto* column = new ColumnHeader(m_view, Count(), key, text);
    column->m_width = width < 0 ? ListView::DefaultColumnWidth : width;
    column->m_alignment = alignment;
    m_view->columnInserting(Count());
    m_columns.push_back(column);
    if (!key.isEmpty()) m_byKey.insert(key, column);
    m_view->columnInserted(column);
    return column;
}

void ColumnHeaderCollection::Clear() {
    if (m_columns.empty()) return;
    m_view->columnsClearing();
    for (ColumnHeader* c : m_columns)
        delete c;
    m_columns.clear();
    m_byKey.clear();
    m_view->columnsCleared();
}
