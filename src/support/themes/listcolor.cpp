#include "support/themes/listcolor.h"

#include "support/controls/listview.h"
#include "support/themes/themes.h"

#include <QPalette>

namespace mListViewColor {

QColor CellColor(const QPalette& palette, int row, bool sortedColumn) {
    const QColor base = palette.color(QPalette::Base);
    const bool dark = mThemes::IsDark(palette) || base.lightness() < 128;
    QColor c = base;
    // A dark list shows its tints lighter, a light one darker; the sort tint is stronger there,
    // where the accent stands out less against the dark.
    if (sortedColumn) c = mThemes::LightColor(c, palette.color(QPalette::Highlight), dark ? 14 : 8);
    if (row % 2 == 0)
        c = mThemes::LightColor(c, dark ? QColor(Qt::white) : palette.color(QPalette::Text), dark ? 4 : 3);
    return c == base ? QColor() : c;
}

void SetListColors(ListView& lv) {
    ListView* list = &lv;
    lv.SetCellColorRule([list](const ListItem* item, int column) {
        const bool sorted = (list->Sorted() || list->HasSortRule()) && column == list->SortKey();
        return CellColor(list->palette(), item->Index(), sorted);
    });
}

} // namespace mListViewColor
