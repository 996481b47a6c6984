#pragma once
// The columns a report can print, known by the tags that the column list of the wizard keeps,
// and the stored form of that list: the rows' tags in order joined by "|", each with a "+" in
// front when the row is checked ("+FullName|+Title|Company|...").

#include <QList>
#include <QString>

namespace mReport {

struct ReportColumn {
    QString tag;     // "FullName", "Numbers", "#", ...
    QString caption; // the row of the wizard's column list
    QString label;   // the label of a columnar report, "Full Name:"
    QString heading; // the heading of a tabular report, "Full Name" ("Numbers" has twelve of its own)
};

// The column of `tag`, nullptr for a tag no column has. Texts come from the message catalogue.
const ReportColumn* FindReportColumn(const QString& tag);

struct DiskColumn {
    QString tag;
    bool checked;
};

// The rows of a stored column list, in order. A list without "Box" (saved before that column
// existed) gains it at the end, checked. Entries whose tag no column has are left out.
QList<DiskColumn> ParseDiskColumns(const QString& stored);
// The stored form of `rows`.
QString JoinDiskColumns(const QList<DiskColumn>& rows);

} // namespace mReport
