#include "trees/countstep.h"

#include "support/controls/treeview.h"
#include "trees/treelabels.h"
#include "trees/viewstate.h"

namespace mTV {

void CountContact(TreeView& CatTree, const QString& nodeKey, const QString& label, qint64 delta) {
    if (CurrentLetter != QLatin1String("ALL") && label.compare(CurrentLetter, Qt::CaseInsensitive) != 0)
        return;
    for (TreeNode* node = CatTree.Nodes(nodeKey); node; node = node->Parent()) {
        const qint64 count = TagCount(node->Tag()) + delta;
        node->SetTag(CountTag(count));
        // A label being edited shows no count.
        if (node->Key() != CatTree.Tag()) node->SetText(NodeLabel(NodeName(node->Text()), count));
    }
}

} // namespace mTV
