#include "reports/reportquery.h"

#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "contactlist/listupdate.h"
#include "core/error.h"
#include "core/language.h"
#include "phonebook/contactquery.h"
#include "support/controls/listview.h"

#include <QComboBox>

using namespace mLanguageGobals;

namespace mLV {

void IniReportList(ListView& lvReport, QComboBox& cmbSortDisks, bool DiskMode) {
    HUNT_PLACE("mLV.IniReportList(DiskMode)", DiskMode);
    lvReport.ColumnHeaders.Clear();
    if (DiskMode) {
        const QString captions[] = {msgFullName,      msgTitle, msgCompany,   msgCategory,      msgFavorites,
                                    msgAddress,       msgCity,  msgStateProv, msgZipPostalCode, msgComment,
                                    msgContactNumber, msgAdded, msgGroup};
        const char* tags[] = {"FullName", "Title", "Company", "Category", "Favorite", "Address", "City",
                              "State",    "Zip",   "Comment", "ID",       "Added",    "Box"};
        for (int i = 0; i < 13; ++i)
            lvReport.ColumnHeaders.Add(QString(), captions[i])->SetTag(QLatin1String(tags[i]));
        const QString* infos[] = {&msgInfo1, &msgInfo2, &msgInfo3, &msgInfo4,  &msgInfo5,  &msgInfo6,
                                  &msgInfo7, &msgInfo8, &msgInfo9, &msgInfo10, &msgInfo11, &msgInfo12};
        for (int i = 0; i < 12; ++i)
            lvReport.ColumnHeaders.Add(QString(), *infos[i])->SetTag(QStringLiteral("Info %1").arg(i + 1));
    } else {
        lvReport.ColumnHeaders.Add(QString(), QString(), 240)->SetTag(QStringLiteral("Name"));
        lvReport.ColumnHeaders.Add(QString(), QString(), 240)->SetTag(QStringLiteral("Size"));
    }
    cmbSortDisks.clear();
    cmbSortDisks.addItems({msgFullName, msgTitle, msgCompany, msgAddress, msgCity, msgStateProv,
                           msgZipPostalCode, msgComment, msgCategory, msgFavorites, msgContactNumber,
                           msgAdded, msgGroup});
}

void FillReportList(ListView& lvReport, const ListView& ListView2, bool DiskMode) {
    HUNT_PLACE("mLV.FillReportList(DiskMode)", DiskMode);
    bool anySelected = false;
    {
        ListUpdate block(lvReport);
        lvReport.ListItems.Clear();
        if (DiskMode) {
            ListRowCells cells;
            for (const ListItem* source : ListView2.ListItems) {
                if (source->Key().contains(QLatin1Char('E'))) continue; // a node, not a contact
                cells.Clear();
                for (int c = 0; c < source->CellCount(); ++c)
                    cells.Add(source->CellView(c));
                ListItem* row =
                    lvReport.ListItems.Add(source->Key(), cells, source->Icon(), source->SmallIcon());
                row->SetTag(source->Tag());
                if (source->Selected()) {
                    row->SetSelected(true);
                    anySelected = true;
                }
            }
        } else if (const ListItem* source = ListView2.SelectedItem();
                   source && !source->Key().contains(QLatin1Char('E'))) {
            ListItem* row =
                lvReport.ListItems.Add(source->Key(), source->Text(), source->Icon(), source->SmallIcon());
            row->SetSubItems(1, source->SubItems(cellCompany));
            row->SetTag(source->Tag());
            row->SetSelected(true);
            anySelected = true;
        }
    }
    if (DiskMode) {
        // The order of the main list: its key with the order flipped, which the sort flips back.
        lvReport.SetSortKey(ListView2.SortKey());
        lvReport.SetSortOrder(ListView2.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
        SwitchSortReport(lvReport, ListView2.SortKey());
    }
    if (lvReport.ListItems.Count() > 0 && !anySelected) lvReport.SetSelectedItem(nullptr);
}

} // namespace mLV

namespace mReport {

namespace {

// The from clause shared with the contact list's query, from its "FROM" on.
QString FromClause() {
    static const QString from = [] {
        const QString query = mLV::ListQuery();
        return query.mid(query.indexOf(QLatin1String("FROM (")));
    }();
    return from;
}

QString WhereClause(const QList<qint32>& ids) {
    QString where = QStringLiteral("Where CDs.IDCD ");
    if (ids.isEmpty()) return where;
    QString list;
    list.reserve(ids.size() * 8);
    for (qint32 id : ids) {
        list += QString::number(id);
        list += QLatin1Char(',');
    }
    list.chop(1);
    return where + QLatin1String("in(") + list + QLatin1Char(')');
}

} // namespace

QString ReportOrder(int ListIndex, bool ShortCategory, bool ShortBox) {
    switch (ListIndex) {
    case 0:
        return QStringLiteral(" ORDER BY CDs.FullName, CDs.ContactNumber");
    case 1:
        return QStringLiteral(" ORDER BY CDs.Title DESC, CDs.ContactNumber");
    case 2:
        return QStringLiteral(" ORDER BY CDs.Company DESC, CDs.ContactNumber");
    case 3:
        return QStringLiteral(" ORDER BY CDs.Address DESC, CDs.ContactNumber");
    case 4:
        return QStringLiteral(" ORDER BY CDs.City, CDs.ContactNumber");
    case 5:
        return QStringLiteral(" ORDER BY CDs.State, CDs.ContactNumber");
    case 6:
        return QStringLiteral(" ORDER BY CDs.Zip, CDs.ContactNumber");
    case 7:
        return QStringLiteral(" ORDER BY CDs.Comment, CDs.ContactNumber");
    case 8:
        return QStringLiteral(" ORDER BY ") +
               (ShortCategory ? QStringLiteral("Categories.Name") : QStringLiteral("Categories.Catpath")) +
               QStringLiteral(", CDs.ContactNumber");
    case 9:
        return QStringLiteral(" ORDER BY Borrows.Catpath, CDs.ContactNumber");
    case 10:
        return QStringLiteral(" ORDER BY CDs.ContactNumber");
    // The date a contact was added is the field DateScan: CDs has no field "Added".
    case 11:
        return QStringLiteral(" ORDER BY CDs.DateScan, CDs.ContactNumber");
    case 12:
        return QStringLiteral(" ORDER BY ") +
               (ShortBox ? QStringLiteral("Boxes.Name") : QStringLiteral("Boxes.Catpath")) +
               QStringLiteral(", CDs.ContactNumber");
    default:
        return QString();
    }
}

QString ReportRowSql(const QList<qint32>& ids, int ListIndex, bool ShortCategory, bool ShortBox) {
    QString select = QStringLiteral("SELECT Types.Type AS T1");
    for (int k = 1; k < 12; ++k)
        select += QStringLiteral(", Types_%1.Type AS T%2").arg(k).arg(k + 1);
    select += QStringLiteral(", CDs.*, ") +
              (ShortCategory ? QStringLiteral("Categories.Name AS Category")
                             : QStringLiteral("Categories.Catpath AS Category")) +
              QStringLiteral(", Borrows.Catpath AS Favorite, ") +
              (ShortBox ? QStringLiteral("Boxes.Name AS Box") : QStringLiteral("Boxes.Catpath AS Box")) +
              QLatin1Char(' ');
    return select + FromClause() + WhereClause(ids) + ReportOrder(ListIndex, ShortCategory, ShortBox);
}

QString ReportCountSql(const QList<qint32>& ids) {
    return QStringLiteral("SELECT Count(CDs.IDCD) AS CNT ") + FromClause() + WhereClause(ids);
}

} // namespace mReport
