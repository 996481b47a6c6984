#pragma once
// A reader of CSV files as spreadsheets and mail programs write them, one record at a time from
// a device. Fields follow RFC 4180: a quoted field may hold separators, doubled quote marks and
// line breaks. It is tolerant where writers are not: CRLF, LF or CR line ends, quote marks inside
// an unquoted field taken as they stand, blank lines skipped. The separator (comma, semicolon or
// tab) is found in the first record, the encoding from a byte-order mark, else UTF-8 when the
// start of the file is valid UTF-8, else Windows-1252.

#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class QIODevice;

namespace exchange {

struct CsvProblem {
    int line = 0; // where the quoted field that never closes begins, from 1
};

class CsvReader {
  public:
    // A null separator or an empty encoding name: detect it.
    explicit CsvReader(QIODevice* device, QChar separator = QChar(), const QString& encoding = QString());
    ~CsvReader();
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    // The next record, false at the end of the file.
    bool next(QStringList& fields);
    QChar separator();
    // "UTF-8", "UTF-16LE", "UTF-16BE", "Windows-1252", or the name given.
    QString encoding();
    // Line where the last record began, from 1.
    int line() const;
    const QList<CsvProblem>& problems() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// A problem as a line for the user.
QString ProblemText(const CsvProblem& problem);

// Every record of a file held in memory.
QList<QStringList> ReadCsv(const QByteArray& file, QChar* separator = nullptr, QString* encoding = nullptr);

} // namespace exchange
