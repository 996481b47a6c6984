// The CSV reader on any bytes: its records map onto contacts under the preset their header
// matches, and written by the CSV writer and read again they come back as they were (line breaks
// inside a field come back as LF, which the reader makes of every line end).
#include "core/language.h"
#include "exchange/charsets.h"
#include "exchange/csvmap.h"
#include "exchange/csvreader.h"
#include "exchange/csvwriter.h"

#include <QBuffer>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace exchange;

namespace {

[[noreturn]] void fail(const QStringList& expected, const QStringList& got, const QByteArray& written) {
    std::fprintf(stderr, "expected [%s]\ngot      [%s]\nwritten:\n%s\n",
                 qPrintable(expected.join(QLatin1Char('|'))), qPrintable(got.join(QLatin1Char('|'))),
                 written.toHex(' ').constData());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = [] {
        mLanguageEng::lngEng();
        return true;
    }();
    (void)ready;
    QBuffer in;
    in.setData(reinterpret_cast<const char*>(data), qsizetype(size));
    in.open(QIODevice::ReadOnly);
    CsvReader reader(&in);
    QList<QStringList> records;
    QStringList fields;
    while (reader.next(fields))
        records.append(fields);
    for (const CsvProblem& p : reader.problems())
        (void)ProblemText(p);
    if (records.isEmpty()) return 0;

    const QStringList& header = records.first();
    const QList<CsvColumn> mapping = CsvMapping(DetectCsvPreset(header), header);
    const QList<CsvColumn> own = KelvarinCsvColumns();
    for (const QStringList& row : records)
        (void)CsvValues(own, RecordFromCsv(mapping, header, row));

    QBuffer out;
    out.open(QIODevice::WriteOnly);
    CsvWriter writer(&out);
    QList<QStringList> expected;
    for (const QStringList& row : records) {
        if (!writer.write(row)) std::abort();
        QStringList e;
        for (const QString& f : row) {
            QString t = FromUtf8(f.toUtf8());
            t.replace(QLatin1String("\r\n"), QLatin1String("\n"))
                .replace(QLatin1Char('\r'), QLatin1Char('\n'));
            e.append(t);
        }
        expected.append(e);
    }
    out.close();
    out.open(QIODevice::ReadOnly);
    CsvReader back(&out, QLatin1Char(','));
    for (const QStringList& e : expected) {
        if (!back.next(fields) || fields != e) fail(e, fields, out.data());
    }
    if (back.next(fields) || !back.problems().isEmpty()) fail({}, fields, out.data());
    return 0;
}
