#include "support/controls/comboitemcollection.h"

#include "core/error.h"
#include "support/controls/comboitem.h"
#include "support/controls/imagecombo.h"

ComboItemCollection::~ComboItemCollection() {
    for (ComboItem* item : m_items)
        delete item;
}

ComboItem* ComboItemCollection::Add(int index, const QString& key, const QString& text, const QString& image,
                                    const QString& selImage, int indentation) {
    if (!key.isEmpty() && m_byKey.contains(key))
        throw HuntERR::Error(35602, QStringLiteral("Key is not unique in collection"),
                             QStringLiteral("ComboItems.Add"));
    const int at = index >= 1 && index <= Count() ? index - 1 : Count();
    auto* item = new ComboItem(m_combo, at, key, text);
    item->m_image = image;
    item->m_selImage = selImage;
    item->m_indentation = indentation < 0 ? 0 : indentation;
    m_items.insert(m_items.begin() + at, item);
    for (int i = at + 1; i < Count(); ++i)
        m_items[size_t(i)]->m_index = i;
    if (!key.isEmpty()) m_byKey.insert(key, item);
    m_combo->itemInserted(item);
    return item;
}

void ComboItemCollection::Remove(const QString& key) {
    remove(Item(key));
}

void ComboItemCollection::Remove(int index) {
    remove(Item(index));
}

void ComboItemCollection::remove(ComboItem* item) {
    if (!item) return;
    const int at = item->m_index;
    m_items.erase(m_items.begin() + at);
    for (int i = at; i < Count(); ++i)
        m_items[size_t(i)]->m_index = i;
    if (!item->m_key.isEmpty()) m_byKey.remove(item->m_key);
    m_combo->itemRemoved(at);
    delete item;
}

void ComboItemCollection::Clear() {
    m_combo->itemsClearing();
    for (ComboItem* item : m_items)
        delete item;
    m_items.clear();
    m_byKey.clear();
}
