#pragma once
// The detail pane of the main window: one line for each field of the selected contact, its
// label in bold and its value beside it; a number that is a mail or web address shows in blue as
// a link.

#include "trees/mainview.h"

#include <QString>

class ListView;

namespace mTV {

// A row of the contact list was selected: shows the contact in the detail pane unless it is
// there already (the list's Tag holds its number), or empties the pane for a node row.
void PreFillTree(const MainView& view, const QString& Key);
// Fills the detail pane with contact Key ("ID" + IDCD) and shows its photo.
void SelectNode(ListView& ListView1, const QString& Key);
// Empties the detail pane, shows the no-photo picture and forgets the contact shown (the Tags of
// both lists).
void ClearDetailPane(const MainView& view);

// Whether a number is a link: it holds "@", or "http" or "www." in any case.
bool IsLinkValue(const QString& value);

} // namespace mTV
