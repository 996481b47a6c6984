#include "card/cardrecord.h"

#include "card/cardtext.h"
#include "contactlist/listfill.h"
#include "core/error.h"
#include "core/globals.h"
#include "support/controls/listitem.h"
#include "support/helpers/values.h"

namespace mCard {

namespace {

// The single value of a Max query, Null on an empty table.
QVariant maxValue(const QString& jetSql) {
    dao::Recordset rs = gDB.OpenRecordset(jetSql, dao::dbOpenSnapshot);
    const QVariant value = rs.AtEOF() ? QVariant() : rs.Value(0);
    rs.Close();
    return value;
}

} // namespace

void WriteCardFields(dao::Recordset& rs, const CardFields& f) {
    rs.SetValue(QStringLiteral("Label"), f.Label);
    rs.SetValue(QStringLiteral("FullName"), f.FullName);
    rs.SetValue(QStringLiteral("Title"), f.Title);
    rs.SetValue(QStringLiteral("Company"), f.Company);
    rs.SetValue(QStringLiteral("Address"), f.Address);
    rs.SetValue(QStringLiteral("City"), f.City);
    rs.SetValue(QStringLiteral("State"), f.State);
    rs.SetValue(QStringLiteral("Zip"), f.Zip);
    rs.SetValue(QStringLiteral("Comment"), f.Comment);
    for (int n = 1; n <= 12; ++n)
        rs.SetValue(QStringLiteral("Type%1").arg(n), f.Type[size_t(n)]);
    for (int n = 1; n <= 12; ++n)
        rs.SetValue(QStringLiteral("Number%1").arg(n), f.Number[size_t(n)]);
}

qint32 NextContactID() {
    HUNT_PLACE("mCard.NextContactID");
    const QVariant maxID = maxValue(QStringLiteral("SELECT Max(IDCD) AS maxID FROM CDs"));
    return (maxID.isNull() ? 0 : maxID.toInt()) + 1;
}

void WriteContactRow(ListItem& row, const CardRowTexts& t) {
    const QVariant empty = QVariant(QString());
    row.SetText(t.FullName);
    row.SetCellText(mLV::cellTitle, t.Title);
    row.SetCellText(mLV::cellCompany, t.Company);
    row.SetCellText(mLV::cellCategory, t.Category);
    row.SetCellText(mLV::cellFavorite, t.Favorite);
    row.SetCellText(mLV::cellAddress, Trim(mCommon::NzMultiline2(t.Address, empty).toString()));
    row.SetCellText(mLV::cellCity, t.City);
    row.SetCellText(mLV::cellState, t.State);
    row.SetCellText(mLV::cellZip, t.Zip);
    row.SetCellText(mLV::cellComment, Trim(mCommon::NzMultiline(t.Comment, empty).toString()));
    row.SetCellText(mLV::cellBox, t.Box);
    // "Type: number", the number alone without a type, the type and its colon without a number.
    for (int n = 1; n <= 12; ++n) {
        const QString type = mCommon::strNzColon(Trim(t.TypeText[size_t(n)]), empty).toString();
        row.SetCellText(mLV::cellInfo1 + n - 1, Trim(type + QLatin1Char(' ') + t.Number[size_t(n)]));
    }
}

} // namespace mCard
