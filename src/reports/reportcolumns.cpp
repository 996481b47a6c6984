#include "reports/reportcolumns.h"

#include "core/language.h"

#include <QStringList>

using namespace mLanguageGobals;

namespace mReport {

namespace {

// Made afresh when the catalogue has been filled again (another language).
const QList<ReportColumn>& Columns() {
    static QList<ReportColumn> columns;
    static QString madeWith;
    if (columns.isEmpty() || madeWith != msgFullNameColon + msgPhoneFaxEmailSkypeEtc) {
        madeWith = msgFullNameColon + msgPhoneFaxEmailSkypeEtc;
        columns = {
            {QStringLiteral("FullName"), msgFullName, msgFullNameColon, msgFullName},
            {QStringLiteral("Numbers"), msgPhoneFaxEmailSkypeEtc, QString(), QString()},
            {QStringLiteral("Title"), msgTitle, msgTitleColon, msgTitle},
            {QStringLiteral("Company"), msgCompany, msgCompanyColon, msgCompany},
            {QStringLiteral("Address"), msgAddress, msgAddressColon, msgAddress},
            {QStringLiteral("City"), msgCity, msgCityColon, msgCity},
            {QStringLiteral("State"), msgStateProv, msgStateProvColon, msgStateProv},
            {QStringLiteral("Zip"), msgZipPostalCode, msgZipPostalCodeColon, msgZipPostalCode},
            {QStringLiteral("Comment"), msgComment, msgCommentColon, msgComment},
            {QStringLiteral("Category"), msgCategory, msgCategoryColon, msgCategory},
            {QStringLiteral("Favorite"), msgFavorites, msgFavoritesColon, msgFavorites},
            {QStringLiteral("#"), msgContactNumber, msgContactNumberColon, msgContactNumber},
            {QStringLiteral("Added"), msgAdded, msgAddedColon, msgAdded},
            {QStringLiteral("Box"), msgGroup, msgGroupColon, msgGroup},
        };
    }
    return columns;
}

} // namespace

const ReportColumn* FindReportColumn(const QString& tag) {
    for (const ReportColumn& c : Columns())
        if (c.tag == tag) return &c;
    return nullptr;
}

QList<DiskColumn> ParseDiskColumns(const QString& stored) {
    QString text = stored;
    if (!text.contains(QLatin1String("Box"))) text += QLatin1String("|+Box");
    QList<DiskColumn> rows;
    for (const QString& entry : text.split(QLatin1Char('|'))) {
        const bool checked = entry.startsWith(QLatin1Char('+'));
        const QString tag = checked ? entry.mid(1) : entry;
        if (FindReportColumn(tag)) rows.append({tag, checked});
    }
    return rows;
}

QString JoinDiskColumns(const QList<DiskColumn>& rows) {
    QStringList entries;
    for (const DiskColumn& row : rows)
        entries << (row.checked ? QLatin1Char('+') + row.tag : row.tag);
    return entries.join(QLatin1Char('|'));
}

} // namespace mReport
