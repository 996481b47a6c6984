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

// All eleven, in the order a new phonebook creates them.
std::vector<dao::TableDef> All();

} // namespace mSchema
