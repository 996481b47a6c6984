#pragma once
// The preview list of the report wizard and the query that feeds the report writers. The preview
// is a copy of what the main window's contact list shows; the report is read afterwards from the
// contacts of the rows the user picked, in the order of the wizard's sort box.

#include <QList>
#include <QString>

class ListView;
class QComboBox;

namespace mLV {

// Prepares the preview list and the sort box: with DiskMode the 25 columns of a contact list
// (tagged "FullName" ... "Info 12"), otherwise two columns tagged "Name" and "Size"; the sort
// box gets its thirteen entries.
void IniReportList(ListView& lvReport, QComboBox& cmbSortDisks, bool DiskMode);
// Copies into the preview the rows of the main window's contact list (DiskMode: every contact
// row, with its cells, icon, Tag and selection, in the list's order) or its selected contact
// (otherwise: its name and company, selected).
void FillReportList(ListView& lvReport, const ListView& ListView2, bool DiskMode);

} // namespace mLV

namespace mReport {

// The ORDER BY text of entry `ListIndex` of the sort box, "" outside the table.
QString ReportOrder(int ListIndex, bool ShortCategory, bool ShortBox);
// The row select and the count select of a report over the contacts `ids`, with that order.
// An empty list yields the invalid "Where CDs.IDCD " on its own.
QString ReportRowSql(const QList<qint32>& ids, int ListIndex, bool ShortCategory, bool ShortBox);
QString ReportCountSql(const QList<qint32>& ids);

} // namespace mReport
