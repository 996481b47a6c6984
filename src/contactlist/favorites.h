#pragma once
// Remove from Favorites: the command of the Contacts menu and the same command of the contact
// list's pop-up. Taking a contact out of its favorites folder notes the end of that assignment
// in LoanHistory, and the list and the counts follow as after any change of assignment.

#include "trees/mainview.h"

class CommandBars;
class ListView;

namespace mCommon {

// Enables Remove from Favorites (both commands alike) when the selected row of the contact list
// is a contact that is a favorite. A restricted session keeps it disabled.
void MenuNoBorrow(const ListView& ListView2, CommandBars& bars);
// Takes the contact of the selected row out of its favorites folder, in one transaction. A node
// row, or no selected row, does nothing.
void NoBorrowByClick(const mTV::MainView& view);
} // namespace mCommon
