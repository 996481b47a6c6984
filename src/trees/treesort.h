#pragma once
// The two orders of a tree: by name, which the tree keeps, and by quantity, a momentary view
// with the biggest counts first that lasts until the next node is added, renamed or moved.

class TreeView;

namespace mTV {

// Sorts every level by label and keeps nodes added later in that order.
void SortTreeByName(TreeView& CatTree);
// Sorts every level by count, biggest first (nodes of equal count keep their order); the labels
// and Tags stay unchanged.
void SortTreeByQuantity(TreeView& CatTree);
// Sorts the children of every node by label, descending, by plain character codes. The quantity
// sort runs it while the labels hold the twelve-digit counts.
void SortTreeDesc(TreeView& CatTree);

} // namespace mTV
