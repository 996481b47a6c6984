#pragma once
// The counts of the main window's tree. One grouped query over the contacts gives the contacts
// of each node for the letter tab in force; each node shows its own contacts plus those of all
// its descendants, and the root shows the count of RootCNT: every contact of the letter tab, in
// favorites every favorite of it.

#include <QHash>
#include <QString>

class TreeView;

namespace mTV {

// What the grouped query gives: the contacts of each node key ("ID7") whose Label matches the
// letter tab in force, and the count of the root.
struct NodeCounts {
    QHash<QString, qint64> own;
    qint64 root = 0;
};

// The grouped query of tree `mode`: the node's ID, and as `cnt` its contacts whose Label matches
// the letter tab in force. One row per node that holds contacts, rows in no particular order.
QString CountQuery(qint16 mode);
// Runs the query and sums up the root's count.
NodeCounts ReadCounts(qint16 mode);

// Writes the counts into every label and Tag of the tree. The name in each label is kept. The
// label of the node `editingKey` (one being renamed, shown without its count) is left alone; only
// its Tag changes.
void ShowCounts(TreeView& CatTree, const NodeCounts& counts, const QString& editingKey);

// Refreshes every count of the tree on display (the kind of CurrentTreeTab) for the letter tab in
// force. The order of the nodes and the selection stay as they are.
void UpdateCounters(TreeView& CatTree);

} // namespace mTV
