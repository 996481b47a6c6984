#pragma once
// Shared helpers of the exchange tests: the hand-written files of data/ and generated contacts.

#include "exchange/contactrecord.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <ostream>

namespace exchangetest {

inline QByteArray DataFile(const char* name) {
    QFile f(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/exchange/data/") + QLatin1String(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A contact with every field filled, different for each n: twelve numbers of many types,
// non-Latin names, comments with line breaks, separators and backslashes, a photo.
exchange::ContactRecord FullContact(int n);

} // namespace exchangetest

namespace exchange {
// Readable failures: gtest prints records field by field.
void PrintTo(const ContactRecord& r, std::ostream* os);
inline void PrintTo(const NumberRow& n, std::ostream* os) {
    *os << "[" << n.type.toStdString() << ": " << n.value.toStdString() << "]";
}
} // namespace exchange
