#pragma once
// Reading the text of a setting as a boolean or a number. A text that is neither raises the
// "Type mismatch" error (13); an integer beyond 16 bits raises "Overflow" (6).

#include <QString>

namespace mRegSettings {

// "1", "-1", any non-zero number and "True" are true; "0" and "False" are false.
bool SettingBool(const QString& value);
// A number rounded to the nearest integer, halves to even.
int SettingInt(const QString& value);
// A decimal number (the C locale's point), as written by SaveSetting.
double SettingNumber(const QString& value);
// True when the text reads as a number.
bool IsNumericSetting(const QString& value);

} // namespace mRegSettings
