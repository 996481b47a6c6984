#include "search/searchrows.h"

#include "contactlist/celltext.h"
#include "core/error.h"
#include "support/controls/listview.h"
#include "support/helpers/dates.h"
#include "trees/treeselect.h"

#include <cstdio>

namespace mSearch {

namespace {

const QString kContactIcon = QStringLiteral("BOR");

} // namespace

QColor LinkColor() {
    return QColor(0, 0, 255);
}

SearchFields::SearchFields(const dao::Recordset& rs)
    : IDCD(mLV::FieldIndex(rs, QStringLiteral("IDCD"))),
      FullName(mLV::FieldIndex(rs, QStringLiteral("FullName"))),
      Title(mLV::FieldIndex(rs, QStringLiteral("Title"))),
      Company(mLV::FieldIndex(rs, QStringLiteral("Company"))),
      Category(mLV::FieldIndex(rs, QStringLiteral("Category"))),
      Favorite(mLV::FieldIndex(rs, QStringLiteral("Favorite"))),
      Address(mLV::FieldIndex(rs, QStringLiteral("Address"))),
      City(mLV::FieldIndex(rs, QStringLiteral("City"))), State(mLV::FieldIndex(rs, QStringLiteral("State"))),
      Zip(mLV::FieldIndex(rs, QStringLiteral("Zip"))),
      Comment(mLV::FieldIndex(rs, QStringLiteral("Comment"))),
      ContactNumber(mLV::FieldIndex(rs, QStringLiteral("ContactNumber"))),
      DateScan(mLV::FieldIndex(rs, QStringLiteral("DateScan"))),
      Box(mLV::FieldIndex(rs, QStringLiteral("Box"))) {
    for (int k = 0; k < 12; ++k) {
        T[k] = mLV::FieldIndex(rs, QStringLiteral("T%1").arg(k + 1));
        Number[k] = mLV::FieldIndex(rs, QStringLiteral("Number%1").arg(k + 1));
    }
}

void AddSearchRecord(ListView& ListView1, const dao::Recordset& rs, const SearchFields& f) {
    HUNT_PLACE("Form8.AddSearchRecord");
    char digits[24];
    const int length =
        std::snprintf(digits, sizeof digits, "ID%lld", static_cast<long long>(rs.LongAt(f.IDCD)));
    const QString key = QString::fromLatin1(digits, length);

    ListRowCells& cells = f.Row;
    cells.Clear();
    QString& row = cells.Text();
    const auto textCell = [&](int field) {
        rs.AppendText(field, row);
        cells.EndCell();
    };
    textCell(f.FullName);
    textCell(f.Title);
    textCell(f.Company);
    // "Type: number", or the number alone when it has no type; links are marked below.
    bool links = false;
    for (int k = 0; k < 12; ++k) {
        if (!rs.IsNull(f.T[k])) {
            rs.AppendText(f.T[k], row);
            row += QLatin1Char(':');
        }
        row += QLatin1Char(' ');
        if (rs.AppendText(f.Number[k], row)) links = links || !rs.IsNull(f.Number[k]);
        mLV::TrimBlanks(row, cells.CellStart());
        cells.EndCell();
    }
    textCell(f.Category);
    textCell(f.Favorite);
    if (rs.AppendText(f.Address, row)) mLV::JoinLines(row, cells.CellStart());
    cells.EndCell();
    textCell(f.City);
    textCell(f.State);
    textCell(f.Zip);
    if (rs.AppendText(f.Comment, row)) mLV::KeepFirstLine(row, cells.CellStart());
    cells.EndCell();
    textCell(f.ContactNumber);
    QDate date;
    QTime time;
    if (rs.DateAt(f.DateScan, date, time)) f.Added.Append(date, time, row);
    if (row.size() == cells.CellStart()) row += mCommon::TimeCorrectView(rs.Value(f.DateScan));
    cells.EndCell();
    textCell(f.Box);

    ListItem* item = ListView1.ListItems.Add(key, cells, QString(), kContactIcon);
    if (!links) return;
    for (int k = 0; k < 12; ++k) {
        if (rs.IsNull(f.Number[k])) continue;
        const QString number = rs.Text(f.Number[k]);
        if (!mTV::IsLinkValue(number)) continue;
        item->SetCellForeColor(scInfo1 + k, LinkColor());
        item->SetCellTag(scInfo1 + k, number);
    }
}

} // namespace mSearch
