#pragma once
// The tables of a phonebook: fields in their order with types, sizes, zero-length rules and
// defaults, and their indexes. Creation and the upgrade of older files both build from here.

#include "phonebook/store/dao.h"

namespace mSchema {

dao::TableDef CDs();
dao::TableDef Types();
dao::TableDef Paths();
dao::TableDef Elements();
dao::TableDef SearchWhat();
dao::TableDef SearchWhere();
dao::TableDef Categories(); // also the shape of Boxes
dao::TableDef Boxes();
dao::TableDef Borrows();
dao::TableDef LoanHistory();
dao::TableDef AccessMode();

// What a sync with an address-book server remembers: the account (one row) and, per contact,
// its resource on the server and the version both sides last agreed on. Not part of All(): the
// upgrade adds them to every phonebook that is opened for writing.
dao::TableDef SyncAccount();
dao::TableDef SyncState();
// The trigger that tells the sync a contact is gone: whatever deletes a row of CDs empties the
// Added of its SyncState row, so a later contact given the same IDCD is never taken for it.
extern const char* const kSyncStateTrigger;

// All eleven, in the order a new phonebook creates them.
std::vector<dao::TableDef> All();

} // namespace mSchema
