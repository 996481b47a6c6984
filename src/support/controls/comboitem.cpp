#include "support/controls/comboitem.h"

#include "support/controls/imagecombo.h"

void ComboItem::SetText(const QString& text) {
    m_text = text;
    m_combo->itemChanged(this);
}

void ComboItem::SetImage(const QString& key) {
    m_image = key;
    m_combo->itemChanged(this);
}

void ComboItem::SetSelImage(const QString& key) {
    m_selImage = key;
    m_combo->itemChanged(this);
}

bool ComboItem::Selected() const {
    return m_combo->SelectedItem() == this;
}

void ComboItem::SetSelected(bool selected) {
    if (selected)
        m_combo->SetSelectedItem(this);
    else if (Selected())
        m_combo->SetSelectedItem(nullptr);
}
