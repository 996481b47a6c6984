#pragma once
// Copying a contact.

#include "trees/mainview.h"

#include <QtGlobal>

namespace mLV {
// Copies the contact of the selected list row into a new row of CDs with the next IDCD and the
// next contact number: every field (trees, favorite, loan, photo, the twelve numbers) except
// DateScan, which takes the time of the copy. The copy's row joins the list and the counts
// follow. Answers the new IDCD, 0 when the selected row is no contact row.
qint32 CloneContact(const mTV::MainView& view);
} // namespace mLV
