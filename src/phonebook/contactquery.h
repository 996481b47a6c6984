#pragma once
// The query of a contact with what it points to: every field of CDs, the twelve number types as
// T1 to T12, and the paths of its three nodes as Cat, Bor and Box.

#include <QString>

namespace mLV {
// The select and from clauses, in Jet SQL; a WHERE clause may follow.
QString ListQuery();
} // namespace mLV
