#include "trees/counters.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "trees/treelabels.h"
#include "trees/viewstate.h"

#include <vector>

namespace mTV {

QString CountQuery(qint16 mode) {
    // Grouping the contacts by their node needs one pass over CDs; a join from the tree table
    // would have the store build an index on CDs for every refresh.
    return QStringLiteral(
               "SELECT CDs.%1 AS ID, Sum(IIf(Label Like '%2',1,0)) AS cnt FROM CDs GROUP BY CDs.%1")
        .arg(TreeField(mode), LetterPattern(CurrentLetter));
}

NodeCounts ReadCounts(qint16 mode) {
    HUNT_PLACE("mTV.ReadCounts(mode)", mode);
    NodeCounts counts;
    qint64 all = 0;
    dao::Recordset rs = gDB.OpenRecordset(CountQuery(mode), dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        const QVariant id = rs.Value(0);
        const qint64 cnt = rs.Value(1).toLongLong();
        all += cnt;
        // Favorites count only contacts in a favorites folder (IDB -1 is none).
        if (id.isNull() || (mode == 2 && id.toLongLong() < 0)) continue;
        counts.own.insert(QLatin1String("ID") + id.toString(), cnt);
        counts.root += cnt;
    }
    rs.Close();
    // Every contact of the letter tab, in favorites the favorites among them (see RootCNT).
    if (mode != 2) counts.root = all;
    return counts;
}

void ShowCounts(TreeView& CatTree, const NodeCounts& counts, const QString& editingKey) {
    const QString rootKey = QStringLiteral("ID0");
    // Every node before its parent, so that a node's total is complete when it is added on.
    std::vector<TreeNode*> nodes = CatTree.Nodes.All();
    QHash<TreeNode*, qint64> totals;
    totals.reserve(qsizetype(nodes.size()));
    for (auto it = nodes.rbegin(); it != nodes.rend(); ++it) {
        TreeNode* node = *it;
        if (node->Key() == rootKey) {
            totals[node] = counts.root;
            continue;
        }
        const qint64 total = (totals[node] += counts.own.value(node->Key()));
        TreeNode* parent = node->Parent();
        if (parent && parent->Key() != rootKey) totals[parent] += total;
    }
    for (TreeNode* node : nodes) {
        const qint64 total = totals.value(node);
        node->SetTag(CountTag(total));
        if (node->Key() == editingKey) continue;
        const QString label = NodeLabel(NodeName(node->Text()), total);
        if (label != node->Text()) node->SetText(label);
    }
}

void UpdateCounters(TreeView& CatTree) {
    HUNT_PLACE("mTV.UpdateCounters");
    ShowCounts(CatTree, ReadCounts(mToolBar::WhatCATIsChecked()), CatTree.Tag());
}

} // namespace mTV
