#include "support/controls/imagecombo.h"

#include "support/controls/imagecombodelegate.h"
#include "support/controls/imagelist.h"

ImageCombo::ImageCombo(QWidget* parent)
    : QComboBox(parent), ComboItems(this), m_images(&ImageList::Shared()) {
    setEditable(false);
    setItemDelegate(new ImageComboDelegate(this));
    connect(this, &QComboBox::currentIndexChanged, this, &ImageCombo::onCurrentChanged);
    connect(this, &QComboBox::activated, this, [this](int) { emit Click(); });
}

ImageCombo::~ImageCombo() {
    disconnect(this, nullptr, this, nullptr);
}

ComboItem* ImageCombo::SelectedItem() const {
    return ComboItems.Item(currentIndex() + 1);
}

void ImageCombo::SetSelectedItem(ComboItem* item) {
    setCurrentIndex(item && item->m_combo == this ? item->m_index : -1);
}

QString ImageCombo::Text() const {
    const ComboItem* item = SelectedItem();
    return item ? item->Text() : QString();
}

void ImageCombo::SetText(const QString& text) {
    ComboItem* found = nullptr;
    if (!text.isEmpty()) {
        for (ComboItem* item : ComboItems) {
            if (item->Text() == text) {
                found = item;
                break;
            }
        }
    }
    SetSelectedItem(found);
}

void ImageCombo::SetImageList(ImageList* images) {
    m_images = images ? images : &ImageList::Shared();
    for (int i = 0; i < count(); ++i)
        refreshIcon(i);
}

void ImageCombo::itemInserted(ComboItem* item) {
    const int before = currentIndex();
    insertItem(item->m_index, item->m_text);
    setItemData(item->m_index, item->m_indentation, ImageComboDelegate::IndentRole);
    refreshIcon(item->m_index);
    // QComboBox chooses the first entry of an empty list by itself; this combo waits.
    if (before < 0 && currentIndex() >= 0) setCurrentIndex(-1);
}

void ImageCombo::itemRemoved(int index) {
    removeItem(index);
}

void ImageCombo::itemsClearing() {
    clear();
    m_shownCurrent = -1;
}

void ImageCombo::itemChanged(ComboItem* item) {
    setItemText(item->m_index, item->m_text);
    setItemData(item->m_index, item->m_indentation, ImageComboDelegate::IndentRole);
    refreshIcon(item->m_index);
}

void ImageCombo::refreshIcon(int index) {
    const ComboItem* item = ComboItems.Item(index + 1);
    if (!item) return;
    const bool chosen = index == currentIndex() && !item->m_selImage.isEmpty();
    setItemIcon(index, m_images->Icon(chosen ? item->m_selImage : item->m_image));
}

void ImageCombo::onCurrentChanged(int index) {
    const int old = m_shownCurrent;
    m_shownCurrent = index;
    if (old >= 0 && old < count()) refreshIcon(old);
    if (index >= 0) refreshIcon(index);
}
