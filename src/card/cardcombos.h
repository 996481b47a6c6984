#pragma once
// The image combos of the contact card: a tree copied into a combo, indented by depth, and the
// choice of an entry by its key.

#include <QString>

class ImageCombo;
class TreeNode;

namespace mCard {

// Adds an entry for `first` and each of its following siblings, each followed by its subtree one
// level deeper; every entry gets the node's key and text and the image `image`.
void AddTreeEntries(ImageCombo& combo, const TreeNode* first, int indentation, const QString& image);

// The key of the chosen entry, "" when nothing is chosen.
QString SelectedKey(const ImageCombo& combo);
// Chooses the entry of `key`; answers false, and leaves the choice alone, when there is none.
bool SelectKey(ImageCombo& combo, const QString& key);

} // namespace mCard
