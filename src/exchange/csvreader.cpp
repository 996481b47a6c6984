#include "exchange/csvreader.h"

#include "core/error.h"
#include "core/language.h"
#include "exchange/charsets.h"

#include <QBuffer>
#include <QIODevice>
#include <QStringDecoder>
#include <optional>

namespace exchange {

namespace {
constexpr qint64 kChunk = 64 * 1024;
}

struct CsvReader::Impl {
    QIODevice* device = nullptr;
    QChar sep;
    QString encodingName;
    bool started = false;
    std::optional<QStringDecoder> decoder; // none: Windows-1252
    QString buf;
    qsizetype pos = 0;
    bool eof = false;
    int lineNo = 1;     // line of the next character
    int recordLine = 0; // line where the last record began
    QList<CsvProblem> problems;

    void start() {
        started = true;
        const QByteArray head = device->peek(kChunk);
        QString name = encodingName.trimmed().toLower();
        if (head.startsWith("\xEF\xBB\xBF")) {
            device->read(3);
            name = QStringLiteral("utf-8");
        } else if (head.startsWith("\xFF\xFE")) {
            device->read(2);
            name = QStringLiteral("utf-16le");
        } else if (head.startsWith("\xFE\xFF")) {
            device->read(2);
            name = QStringLiteral("utf-16be");
        } else if (name.isEmpty()) {
            name = IsValidUtf8(head, true) ? QStringLiteral("utf-8") : QStringLiteral("windows-1252");
        }
        if (name == QLatin1String("utf-8") || name == QLatin1String("utf8")) {
            decoder.emplace(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
            encodingName = QStringLiteral("UTF-8");
        } else if (name == QLatin1String("utf-16le")) {
            decoder.emplace(QStringConverter::Utf16LE, QStringConverter::Flag::ConvertInitialBom);
            encodingName = QStringLiteral("UTF-16LE");
        } else if (name == QLatin1String("utf-16be")) {
            decoder.emplace(QStringConverter::Utf16BE, QStringConverter::Flag::ConvertInitialBom);
            encodingName = QStringLiteral("UTF-16BE");
        } else if (name == QLatin1String("windows-1252") || name == QLatin1String("cp1252")) {
            encodingName = QStringLiteral("Windows-1252");
        } else {
            decoder.emplace(name.toLatin1().constData(), QStringConverter::Flag::ConvertInitialBom);
            if (!decoder->isValid()) {
                decoder.reset();
                encodingName = QStringLiteral("Windows-1252");
            }
        }
        fill();
        if (sep.isNull()) sep = detectSeparator();
    }

    // Appends the next chunk of text to the buffer, dropping what has been read.
    bool fill() {
        if (eof) return false;
        const QByteArray bytes = device->read(kChunk);
        if (bytes.isEmpty()) {
            eof = true;
            return false;
        }
        if (pos > 0) {
            buf.remove(0, pos);
            pos = 0;
        }
        buf += decoder ? decoder->decode(bytes) : FromWindows1252(bytes);
        return true;
    }

    bool get(QChar& c) {
        while (pos >= buf.size())
            if (!fill()) return false;
        c = buf.at(pos++);
        return true;
    }

    bool peek(QChar& c) {
        while (pos >= buf.size())
            if (!fill()) return false;
        c = buf.at(pos);
        return true;
    }

    // The separator that the first record uses most, outside quotes; a comma when none is used.
    QChar detectSeparator() {
        // Make sure the first record is in the buffer (a header line fits in a few chunks).
        int counts[3] = {0, 0, 0};
        const QChar candidates[3] = {QLatin1Char(','), QLatin1Char(';'), QLatin1Char('\t')};
        bool quoted = false;
        for (qsizetype i = pos;; ++i) {
            if (i >= buf.size() && !fill()) break;
            if (i >= buf.size()) break;
            const QChar c = buf.at(i);
            if (c == QLatin1Char('"')) quoted = !quoted;
            if (quoted) continue;
            if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) break;
            for (int k = 0; k < 3; ++k)
                if (c == candidates[k]) ++counts[k];
        }
        int best = 0;
        for (int k = 1; k < 3; ++k)
            if (counts[k] > counts[best]) best = k;
        return candidates[best];
    }

    void endOfLine(QChar c) {
        ++lineNo;
        QChar n;
        if (c == QLatin1Char('\r') && peek(n) && n == QLatin1Char('\n')) ++pos;
    }

    // One record; false at the end of the file.
    bool record(QStringList& fields) {
        fields.clear();
        QChar c;
        if (!peek(c)) return false;
        recordLine = lineNo;
        QString field;
        for (;;) {
            if (!get(c)) {
                fields.append(field);
                return true;
            }
            if (c == QLatin1Char('"') && field.isEmpty()) {
                const int openedAt = lineNo;
                bool closed = false;
                while (get(c)) {
                    if (c == QLatin1Char('"')) {
                        QChar n;
                        if (peek(n) && n == QLatin1Char('"')) {
                            ++pos;
                            field += c;
                            continue;
                        }
                        closed = true;
                        break;
                    }
                    if (c == QLatin1Char('\n') || (c == QLatin1Char('\r'))) {
                        QChar n;
                        if (c == QLatin1Char('\r') && peek(n) && n == QLatin1Char('\n')) ++pos;
                        ++lineNo;
                        field += QLatin1Char('\n');
                        continue;
                    }
                    field += c;
                }
                if (!closed) {
                    problems.append(CsvProblem{openedAt});
                    fields.append(field);
                    return true;
                }
                // Text after the closing quote and before the separator stands as it is.
                continue;
            }
            if (c == sep) {
                fields.append(field);
                field.clear();
                continue;
            }
            if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
                endOfLine(c);
                fields.append(field);
                return true;
            }
            field += c;
        }
    }
};

CsvReader::CsvReader(QIODevice* device, QChar separator, const QString& encoding)
    : d(std::make_unique<Impl>()) {
    d->device = device;
    d->sep = separator;
    d->encodingName = encoding;
}

CsvReader::~CsvReader() = default;

bool CsvReader::next(QStringList& fields) {
    HUNT_PLACE("CsvReader::next");
    if (!d->started) d->start();
    while (d->record(fields))
        if (fields.size() > 1 || !fields.first().isEmpty()) return true;
    fields.clear();
    return false;
}

QChar CsvReader::separator() {
    if (!d->started) d->start();
    return d->sep;
}

QString CsvReader::encoding() {
    if (!d->started) d->start();
    return d->encodingName;
}

int CsvReader::line() const {
    return d->recordLine;
}

const QList<CsvProblem>& CsvReader::problems() const {
    return d->problems;
}

QString ProblemText(const CsvProblem& problem) {
    return mLanguageGobals::msgExCsvOpenQuote.arg(problem.line);
}

QList<QStringList> ReadCsv(const QByteArray& file, QChar* separator, QString* encoding) {
    HUNT_PLACE("exchange::ReadCsv");
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    CsvReader reader(&buffer);
    QList<QStringList> records;
    QStringList fields;
    while (reader.next(fields))
        records.append(fields);
    if (separator) *separator = reader.separator();
    if (encoding) *encoding = reader.encoding();
    return records;
}

} // namespace exchange
