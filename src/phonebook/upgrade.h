#pragma once
// Recognising and bringing up to date a phonebook of an older format. An older file is known
// only by what is missing from it.

#include <QString>

namespace mAccess {
bool CheckTable(const QString& strName);
bool CheckTableField(const QString& strTableName, const QString& strFieldName);
void CreateCategoryRoot();
void AddTableField5();
void CreateBoxes();
void AddTableField6();
void FixNullIDX();
void AddSyncTables();
// The steps in their order, each guarded by its own test.
void UpgradeChain();
} // namespace mAccess
