#pragma once
// The sorts of the program's lists. The list control sorts by text, so a sort gives each row a
// sort text made from its cell in the column: the row's kind letter (its Tag, "a" for a node
// before "b" for a contact) first, then the cell in a form whose text order is the wanted order
// (dates as yyyyMMddHHmmss, numbers with thirty zero-padded digits each side of the point, texts
// padded with blanks to the longest), then the row's own text, so that ties fall to the name. The
// cells, their Tags and their number are left as they were. The list keeps that order until it is
// filled afresh: a row added or changed in between goes to its place.
//
// A click on the column in force reverses the order; a click on another column sorts it ascending.
// The column gets the sort arrow of its order in its header, every other column none.

#include <QString>

class ListView;

namespace mLV {

// The contact list of the main window. Sort is the column number from 0. EnsVis scrolls the
// selected row into view afterwards. The arrange entry of the column gets the check mark.
void SwitchSortDisk(ListView& ListView2, int Sort, bool EnsVis);
// The detail pane of the main window (columns "Name" and "Size").
void SwitchSort(ListView& ListView1, int Sort);
// The result list of the search window.
void SwitchSortSearch(ListView& ListView1, int Sort);
// The preview list of the report wizard.
void SwitchSortReport(ListView& lvReport, int Sort);

// The command id of the arrange entry that sorts the contact list by column Sort, 0 for none:
// cmd::ListSortFirst to ListSortLast for columns 0 to 11, ListSortByGroup for 12, and
// ListSortInfoFirst to ListSortInfoLast for 13 to 24.
int ArrangeCommandId(int Sort);

} // namespace mLV
