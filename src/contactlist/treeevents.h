#pragma once
// What the main window's tree and contact list do when the user works them: each event of the
// two controls hands over to one of these.

#include "trees/mainview.h"

#include <QString>

class ListItem;
class TreeNode;

namespace mTV {

// A click on a node (or a move to it with the keys) makes it the node in force.
void CatTreeNodeClick(const MainView& view, TreeNode* Node);
// A collapse that moved the selection to the collapsed node makes that node the node in force.
void CatTreeCollapse(const MainView& view, TreeNode* Node);
// A row of the contact list was clicked: the detail pane shows it, unless the right button was
// pressed or several rows are selected.
void DiskListItemClick(const MainView& view, ListItem* Item);
// A double click on a node row of the contact list opens that node: it becomes the selected node
// of the tree and the node in force.
void DiskListDblClick(const MainView& view);
// A key typed in the contact list: Backspace goes up to the parent of the node in force (not
// above the root), Enter opens a node row like a double click.
void DiskListKeyPress(const MainView& view, int KeyAscii);

} // namespace mTV
