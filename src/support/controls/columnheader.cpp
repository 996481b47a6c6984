#include "support/controls/columnheader.h"

#include "support/controls/listview.h"

void ColumnHeader::SetText(const QString& text) {
    m_text = text;
    m_view->headerChanged(this);
}

void ColumnHeader::SetWidth(double width) {
    m_width = width < 0 ? 0 : width;
    m_view->applyWidth(this);
}

void ColumnHeader::SetAlignment(int alignment) {
    m_alignment = alignment;
    m_view->headerChanged(this);
}

int ColumnHeader::Position() const {
    return m_view->visualPosition(this);
}

void ColumnHeader::SetPosition(int position) {
    m_view->moveToPosition(this, position);
}

void ColumnHeader::SetIcon(int icon) {
    m_icon = icon;
    m_view->headerChanged(this);
}
