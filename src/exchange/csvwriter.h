#pragma once
// Writes CSV one record at a time onto a device, as RFC 4180 says: a field that holds the
// separator, a quote mark, a line break or spaces at its ends is quoted, its quote marks doubled;
// records end in CRLF. UTF-8, with a byte-order mark by default so spreadsheets know it.

#include <QByteArray>
#include <QChar>
#include <QStringList>

class QIODevice;

namespace exchange {

class CsvWriter {
  public:
    explicit CsvWriter(QIODevice* device, QChar separator = QLatin1Char(','), bool byteOrderMark = true);
    // False when the device refused the bytes.
    bool write(const QStringList& fields);

  private:
    QIODevice* m_device;
    QChar m_separator;
    bool m_bomPending;
};

// One record as text, CRLF included.
QString CsvRecord(const QStringList& fields, QChar separator = QLatin1Char(','));

} // namespace exchange
