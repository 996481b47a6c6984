#pragma once
// How the tables of a phonebook of the Windows version map onto a Kelvarin phonebook. Such a file
// may be of any of the formats the upgrade of older phonebooks knows: tables and fields that a
// later format added may be missing, but every table and field that is there must be one of a
// phonebook, with its type.

#include "legacy/jetfile.h"
#include "phonebook/store/dao.h"

#include <vector>

namespace mLegacy {

struct TablePlan {
    // The table as the Jet file has it: its fields in the file's order, each with the type,
    // size, zero-length rule and default that a phonebook gives it.
    dao::TableDef Def;
    qint64 Rows = 0;
};

struct ConversionPlan {
    std::vector<TablePlan> Tables; // in the order a new phonebook creates them
    // Every table and every field of the present format is there: the file can be filled into a
    // phonebook made as a new one is.
    bool Current = false;
    qint64 Rows = 0; // all rows of all tables
};

// Reads the file's tables and columns and plans their conversion; throws ConversionError
// (OtherSchema) for a file that is not a phonebook.
ConversionPlan PlanConversion(const JetFile& jet);

} // namespace mLegacy
