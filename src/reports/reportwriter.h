#pragma once
// The report files: HTML or separated text, columnar (a block of label and value lines per
// contact) or tabular (one row per contact). The writer streams: it takes the rows of the report
// query one by one and sends each line to the file as it is made, so a report of any size needs
// the room of one row.
//
// Values are written as typed: in HTML "&", "<", ">" and '"' become entities; in separated text
// a quote mark inside a quoted value is doubled. Files are UTF-8, and the HTML head says so.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QIODevice;

namespace dao {
class Recordset;
}

namespace mReport {

enum class ReportKind {
    HtmlColumnar, // SaveReport
    HtmlTabular,  // SaveReportHorizontal
    TextColumnar, // SaveReport2
    TextTabular,  // SaveReportHorizontal2
};

struct ReportLayout {
    ReportKind Kind = ReportKind::HtmlColumnar;
    QString Title;
    QString Comment;
    QString Separator;   // separated text only; any length
    QStringList Columns; // the tags of the checked columns, in order
    QDateTime Created;   // the time in the footer of an HTML report
};

// The time a report says it was made: the clock, unless a test has set another.
QDateTime ReportTime();
using ReportClock = std::function<QDateTime()>;
ReportClock SetReportClock(ReportClock clock); // returns the previous one; empty restores the clock

class ReportWriter {
  public:
    ReportWriter(QIODevice& out, const ReportLayout& layout);
    ~ReportWriter();
    ReportWriter(const ReportWriter&) = delete;
    ReportWriter& operator=(const ReportWriter&) = delete;

    void Head();
    // The contact the recordset (of the report query) stands on. The columnar layouts skip a
    // row of the same contact as the row before.
    void Row(const dao::Recordset& rs);
    void Tail();
    // Sends what is waiting to the device; false when the device refused it.
    bool Flush();

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// What a run tells and asks while it writes: `Progress` hears the rows written at most about a
// thousand times per report and is the one place where the run yields; `Cancelled` is asked
// before each row.
struct ReportRun {
    std::function<void(int rows)> Progress;
    std::function<bool()> Cancelled;
};

// Writes the report of `rowSql` (a report query reading `count` rows) to `path`, replacing any
// file there. False when the run was cancelled: the partial file is deleted. A file that cannot
// be written raises error 75.
bool WriteReportFile(const ReportLayout& layout, const QString& path, const QString& rowSql, qint32 count,
                     const ReportRun& run);

} // namespace mReport
