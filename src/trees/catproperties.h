#pragma once
// Opening the node properties dialog from the main window, and the caption of the tree pane.
//
// The commands of the Categories menu and the contact list reach the dialog through these:
//     Add            mTV::mnuCategoryAdd(view)
//     Properties     mTV::mnuCategoryProperties(view)        the node selected in the tree
//     Properties on a node row of the contact list: mTV::DiskListCategoryProperties(view)

#include "trees/mainview.h"

#include <QtGlobal>

namespace mCommon {

// Shows the properties of node pID of the tree on display, modally over the main window.
// pFromDiskList tells that the node is the row selected in the contact list, whose texts then
// follow a change.
void GetCatProperties(const mTV::MainView& view, qint32 pID, bool pFromDiskList);

} // namespace mCommon

namespace mTV {

// A new node under the node selected in the tree (favorites under the root), named and
// described in the properties dialog first.
void mnuCategoryAdd(const MainView& view);
// The properties of the node selected in the tree. Nothing happens when none is selected.
void mnuCategoryProperties(const MainView& view);
// The properties of the node row selected in the contact list. Nothing happens when the
// selected row is a contact or nothing is selected.
void DiskListCategoryProperties(const MainView& view);

} // namespace mTV
