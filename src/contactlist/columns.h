#pragma once
// The columns of the three contact lists and their state in the settings store.
//
// A list is known by its code: 11 the fields of one contact (main window), 12 the contact list
// (main window), 81 the search results. The code is also the stem of the list's settings
// sections: "ColumnHeaders12\5" holds "Visible", "Width" and "Position" of column 5, and
// "ColumnHeaders12\Other" the sort of the list.
//
// A column is hidden by width 0 with its old width as text in its Tag; a visible column has an
// empty Tag. Tag not empty is the one test for hidden. Widths are in pixels.

#include <QString>

class ColumnHeader;
class ListView;

namespace mLV {

// List codes.
enum ListCode { lcDetails = 11, lcContacts = 12, lcSearch = 81 };

// The settings section of column `Index` (from 1) of a list: "ColumnHeaders12\5".
QString ColumnSection(int ListCode, int Index);
// The section of the list's sort: "ColumnHeaders12\Other".
QString SortSection(int ListCode);

// The hidden-column rule.
bool HiddenColumn(const ColumnHeader& Column);
// Hides a visible column: its width goes to the Tag, the width becomes 0. A hidden column stays.
void HideColumn(ColumnHeader& Column);
// Shows a hidden column at the width kept in its Tag, and empties the Tag. A visible column stays.
void ShowColumn(ColumnHeader& Column);

// The name of a column as the user reads it: its header text, or for the blank headers of the
// fields list the name that the list's column menu gives it ("Name", "Size").
QString ColumnCaption(const ColumnHeader& Column);

// Adds the columns of list 11 or 12 to `lv` (it clears nothing) and applies their stored state.
// Called once for each list when the main window starts.
void IniList(ListView& lv, int ListCode);
// The same for the search results (list 81).
void IniSearchListMain(ListView& lv);

// Applies the stored width, visibility and position to every column of `lv`; what is not stored
// takes the list's default: visible, at the default width, in the order of the columns.
void GetColumnSize(ListView& lv, int ListCode);
// Stores the state of every column of `lv`, and for lists 12 and 81 the sort column and order.
void SaveColumnSize(ListView& lv, int ListCode);

} // namespace mLV
