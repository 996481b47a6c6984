#pragma once
// Node keys ("ID17"), two-part keys ("ID12P34") and the command ids of the letter tabs.

#include <QString>

namespace mCommon {

// The number of a key: the key less its first two characters, as a 32-bit integer. The key must
// not carry a trailing "E". Throws error 13 (Type mismatch) when the rest is no number and 6
// (Overflow) when it does not fit.
qint32 GetID1(const QString& Key);
// The first number of a two-part key "ID12P34": 12. The caller's key is cut at the first "P" and
// keeps what follows it ("34"), ready for the second number. Throws error 5 when there is no "P".
qint32 GetID2(QString& Key);

} // namespace mCommon

namespace mDrive {

// The command id of a letter tab: "A" 10425 to "Z" 10450, "NUM" 10451, "UNK" 10452, and "ALL"
// 10402. 0 for any other key.
qint32 GetLetterTabID(const QString& Key);

} // namespace mDrive
