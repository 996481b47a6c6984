#pragma once
// Row and cell colours of a list: every second row a shade off the list's base colour, and the
// cells of the column the list is sorted by tinted toward the selection colour. The colours come
// from the list's palette as it is painted, so they follow the window theme, and the sorted
// column follows the list's SortKey while the list keeps a sort. Any list can switch it on.

#include <QColor>

class ListView;
class QPalette;

namespace mListViewColor {

// The background of a cell: `row` counts from 1, `sortedColumn` tells whether the cell stands in
// the column the list is sorted by. Odd rows of other columns keep the base colour.
QColor CellColor(const QPalette& palette, int row, bool sortedColumn);

// Switches the colouring on for `lv` (off again with lv.SetCellColorRule({})).
void SetListColors(ListView& lv);

} // namespace mListViewColor
