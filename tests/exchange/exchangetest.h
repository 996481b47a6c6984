#pragma once
// Shared helpers of the exchange tests: the hand-written files of data/ and generated contacts.

#include "exchange/contactrecord.h"
#include "support/fixturerecords.h"

#include <QByteArray>
#include <QFile>
#include <QString>

namespace exchangetest {

inline QByteArray DataFile(const char* name) {
    QFile f(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/exchange/data/") + QLatin1String(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

using fixture::FullContact;

} // namespace exchangetest
