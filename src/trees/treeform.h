#pragma once
// The form whose tree a procedure works on: the main window, or the node chooser. Only the main
// window shows counts in its labels and keeps them in the node Tags.

class TreeView;

namespace mTV {

struct TreeForm {
    TreeView& CatTree;
    bool IsMain = false;
};

} // namespace mTV
