#pragma once
// The one way the main window changes what it shows: the letter tab, the node in force and the
// tree tab. The contact list is refilled for the new view and sorted in the order in force; a
// selected contact stays selected when the new view still holds it, otherwise the detail pane
// empties; the counts of the tree follow the letter tab.

#include "trees/mainview.h"

#include <QString>

namespace mToolBar {

// Makes letter tab Key ("ALL", a letter, "NUM", "UNK") and node CKey of the tree on display the
// view. Nothing happens when both are in force already, unless ForceUpdate; a forced update
// also drops the selection of the list. IsSelected false drops it as well.
void CheckTab(const mTV::MainView& view, const QString& Key, const QString& CKey, bool ForceUpdate = false,
              bool IsSelected = true);

// Switches to tree tab Key ("Categories", "Boxes" or "Borrows") after the tree has been filled
// for it: the root, which the fill selected, becomes the node in force and the list is refilled.
// A selected contact stays selected, in favorites only when it is a favorite.
void CheckCBTab(const mTV::MainView& view, const QString& Key);

} // namespace mToolBar

namespace mLV {

// Switches between the normal category mode (a node lists its own contacts and its children) and
// the advanced mode (a node lists the contacts of its whole subtree, which the tree marks). The
// choice is stored in the settings and the two menu entries show it.
void SwitchCategoryMode(const mTV::MainView& view, bool NormalMode);

} // namespace mLV
