#include "card/cardcombos.h"

#include "support/controls/imagecombo.h"
#include "support/controls/treenode.h"

namespace mCard {

void AddTreeEntries(ImageCombo& combo, const TreeNode* first, int indentation, const QString& image) {
    for (const TreeNode* node = first; node; node = node->Next()) {
        combo.ComboItems.Add(node->Key(), node->Text(), image, QString(), indentation);
        if (node->Children() > 0) AddTreeEntries(combo, node->Child(), indentation + 1, image);
    }
}

QString SelectedKey(const ImageCombo& combo) {
    const ComboItem* item = combo.SelectedItem();
    return item ? item->Key() : QString();
}

bool SelectKey(ImageCombo& combo, const QString& key) {
    ComboItem* item = key.isEmpty() ? nullptr : combo.ComboItems(key);
    if (!item) return false;
    combo.SetSelectedItem(item);
    return true;
}

} // namespace mCard
