#pragma once
// Readable paths (Catpath) of the three trees, spelled from the node keys in a Pedigree.

#include <QString>

namespace mTV {
// Table of a tree kind: 0 Categories, 1 Boxes, 2 Borrows.
QString TreeTable(qint16 mode);
// Field of CDs that points into that table: IDC, IDX, IDB.
QString TreeField(qint16 mode);
} // namespace mTV

namespace mLV {
// The Catpath that a Pedigree spells: names below the root joined by "/".
QString UpdateCatPath(const QString& Pedigree, qint16 mode);
// Recomputes Catpath of every row whose Pedigree holds pThis (a key with its "E", "ID7E").
void UpdateCatPaths(const QString& pThis, qint16 mode);
// Recomputes Catpath of every row of the three trees.
void UpdateCatPathAll();
// Name of a node, "" when there is no such row.
QString GetCatNameByID(qint32 ID, qint16 mode);
} // namespace mLV
