#pragma once
// The default value of every settings key that has one, so that each reader of a key uses the
// same default. Sections of the list columns ("ColumnHeaders12\<column>") share their defaults.

#include <QString>

namespace mRegSettings {

// The default of `Key` in `Section`; empty when the key has none.
QString DefaultSetting(const QString& Section, const QString& Key);

// GetSetting of the program's own settings with the default above.
QString ReadSetting(const QString& Section, const QString& Key);

} // namespace mRegSettings
