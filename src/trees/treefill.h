#pragma once
// Filling a tree control from the table of a tree kind. On the main window every node shows
// how many contacts of the letter tab in force lie in it and below it; the node chooser shows
// the names alone.

#include "trees/treeform.h"

#include <QString>

namespace mTV {

// The count of the root of tree `mode` for the letter tab in force: every contact with a
// matching Label, for favorites (mode 2) only those that are favorites. 0 on an empty phonebook.
qint32 RootCNT(qint16 mode);
// The query RootCNT runs: one row with the counts of all three kinds.
QString RootCountQuery();

// Fills frm.CatTree from the table of `mode`, sorted by name, wholly expanded, with the root
// selected. On the main window the labels carry the counts, the Tags hold them, and the root
// becomes the node in force (CurrentNodeKey). m_hwndTV is not used.
void CategoryFill(const TreeForm& frm, qint16 mode, qint64 m_hwndTV = 0);

} // namespace mTV
