#pragma once
// Text of bytes in the encodings that exchange files come in: UTF-8 when the bytes are valid
// UTF-8, a named charset when the file names one and Qt knows it, else Windows-1252, the code
// page that old desktop exports were written in.

#include <QByteArray>
#include <QString>

namespace exchange {

// True when the bytes are well-formed UTF-8. With `allowCutEnd` a sequence cut short by the
// end of the bytes is accepted (for a buffer that ends in the middle of a file).
bool IsValidUtf8(const QByteArray& bytes, bool allowCutEnd = false);

// UTF-8 that keeps a U+FEFF at its start (a byte-order mark is taken away where a file begins,
// not in the middle of a value).
QString FromUtf8(const QByteArray& bytes);

// Windows-1252: Latin-1 with printable characters in 0x80 to 0x9F.
QString FromWindows1252(const QByteArray& bytes);

// The bytes in the named charset; with no name, UTF-8 when valid, else Windows-1252. `known` is
// set false when the name is one Qt does not know (the bytes are then read without it).
QString DecodeText(const QByteArray& bytes, const QString& charset = QString(), bool* known = nullptr);

} // namespace exchange
