#pragma once
// Creation of a new phonebook with its tables and default rows.

#include <QString>

namespace mAccess {
// 0: the file exists, nothing done; 1: created, gWS and gDB open; -1: nothing open.
int CreateDB(const QString& sBaseName, bool FromStart);
} // namespace mAccess
