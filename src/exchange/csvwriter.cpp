#include "exchange/csvwriter.h"

#include "core/error.h"

#include <QIODevice>

namespace exchange {

QString CsvRecord(const QStringList& fields, QChar separator) {
    QString out;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (i) out += separator;
        const QString& f = fields.at(i);
        const bool quote = f.contains(separator) || f.contains(QLatin1Char('"')) ||
                           f.contains(QLatin1Char('\n')) || f.contains(QLatin1Char('\r')) ||
                           (!f.isEmpty() && (f.front().isSpace() || f.back().isSpace()));
        if (!quote) {
            out += f;
            continue;
        }
        out += QLatin1Char('"');
        QString inner = f;
        inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
        out += inner;
        out += QLatin1Char('"');
    }
    out += QLatin1String("\r\n");
    return out;
}

CsvWriter::CsvWriter(QIODevice* device, QChar separator, bool byteOrderMark)
    : m_device(device), m_separator(separator), m_bomPending(byteOrderMark) {}

bool CsvWriter::write(const QStringList& fields) {
    HUNT_PLACE("CsvWriter::write");
    QByteArray bytes = CsvRecord(fields, m_separator).toUtf8();
    if (m_bomPending) {
        bytes.prepend("\xEF\xBB\xBF");
        m_bomPending = false;
    }
    return m_device->write(bytes) == bytes.size();
}

} // namespace exchange
