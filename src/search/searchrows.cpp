#include "search/searchrows.h"

#include "core/error.h"
#include "support/controls/listview.h"
#include "support/helpers/dates.h"
#include "trees/treeselect.h"

#include <cstdio>

namespace mSearch {

namespace {

const QString kContactIcon = QStringLiteral("BOR");

int fieldIndex(const dao::Recordset& rs, const QString& name) {
    const int i = rs.FieldIndex(name);
    if (i < 0)
        throw dao::DbError(dao::errItemNotFound,
                           QStringLiteral("Item '%1' not found in this collection.").arg(name));
    return i;
}

bool isLineBreak(QChar c) {
    return c == QLatin1Char('\r') || c == QLatin1Char('\n');
}

// The text from `start` on cut at its first line break, with " ..." when there was one.
void keepFirstLine(QString& s, qsizetype start) {
    for (qsizetype i = start; i < s.size(); ++i)
        if (s.at(i) == QLatin1Char('\r') || s.at(i) == QLatin1Char('\n')) {
            s.truncate(i);
            s += QLatin1String(" ...");
            return;
        }
}

// The text from `start` on as one line: ", " for each line break, a CR LF pair being one.
void joinLines(QString& s, qsizetype start) {
    qsizetype i = start;
    while (i < s.size() && !isLineBreak(s.at(i)))
        ++i;
    if (i == s.size()) return;
    const QString rest = s.mid(i);
    s.truncate(i);
    for (qsizetype k = 0; k < rest.size(); ++k) {
        const QChar c = rest.at(k);
        if (!isLineBreak(c)) {
            s += c;
            continue;
        }
        s += QLatin1String(", ");
        if (c == QLatin1Char('\r') && k + 1 < rest.size() && rest.at(k + 1) == QLatin1Char('\n')) ++k;
    }
}

// Removes the blanks at both ends of the text from `start` on.
void trimBlanks(QString& s, qsizetype start) {
    qsizetype end = s.size();
    while (end > start && s.at(end - 1) == QLatin1Char(' '))
        --end;
    s.truncate(end);
    qsizetype first = start;
    while (first < s.size() && s.at(first) == QLatin1Char(' '))
        ++first;
    if (first > start) s.remove(start, first - start);
}

} // namespace

QColor LinkColor() {
    return QColor(0, 0, 255);
}

SearchFields::SearchFields(const dao::Recordset& rs)
    : IDCD(fieldIndex(rs, QStringLiteral("IDCD"))), FullName(fieldIndex(rs, QStringLiteral("FullName"))),
      Title(fieldIndex(rs, QStringLiteral("Title"))), Company(fieldIndex(rs, QStringLiteral("Company"))),
      Category(fieldIndex(rs, QStringLiteral("Category"))),
      Favorite(fieldIndex(rs, QStringLiteral("Favorite"))),
      Address(fieldIndex(rs, QStringLiteral("Address"))), City(fieldIndex(rs, QStringLiteral("City"))),
      State(fieldIndex(rs, QStringLiteral("State"))), Zip(fieldIndex(rs, QStringLiteral("Zip"))),
      Comment(fieldIndex(rs, QStringLiteral("Comment"))),
      ContactNumber(fieldIndex(rs, QStringLiteral("ContactNumber"))),
      DateScan(fieldIndex(rs, QStringLiteral("DateScan"))), Box(fieldIndex(rs, QStringLiteral("Box"))) {
    for (int k = 0; k < 12; ++k) {
        T[k] = fieldIndex(rs, QStringLiteral("T%1").arg(k + 1));
        Number[k] = fieldIndex(rs, QStringLiteral("Number%1").arg(k + 1));
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
        trimBlanks(row, cells.CellStart());
        cells.EndCell();
    }
    textCell(f.Category);
    textCell(f.Favorite);
    if (rs.AppendText(f.Address, row)) joinLines(row, cells.CellStart());
    cells.EndCell();
    textCell(f.City);
    textCell(f.State);
    textCell(f.Zip);
    if (rs.AppendText(f.Comment, row)) keepFirstLine(row, cells.CellStart());
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
