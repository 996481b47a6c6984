#pragma once
// The controls of the main window that the view procedures keep in step: the tree of the tree
// tab on display, the contact list and the detail pane of the selected contact. The letter tab,
// the tree tab and the node in force are the view state of viewstate.h.

class ListView;
class TreeView;

namespace mTV {

struct MainView {
    TreeView& CatTree;
    ListView& ListView2; // contacts, and the child nodes in the normal category mode
    ListView& ListView1; // label and value of each field of the selected contact
};

} // namespace mTV
