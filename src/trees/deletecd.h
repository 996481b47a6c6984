#pragma once
// Deletion of contacts with everything that depends on them.

#include <QtGlobal>

namespace mAccess {
// Deletes contacts with their Elements, Paths, SearchWhere and LoanHistory rows, in the caller's
// transaction. mode -1: the contact IDCD, or every contact when IDCD is -1; mode 0: every
// contact under category node IDCD; mode 1: every contact under group node IDCD.
void DeleteCD(qint32 IDCD, qint16 mode);
} // namespace mAccess
