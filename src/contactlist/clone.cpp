#include "contactlist/clone.h"

#include "contactlist/listfill.h"
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/lookups.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"
#include "trees/countstep.h"
#include "trees/viewstate.h"

#include <QStringList>

namespace mLV {

namespace {

// The fields of CDs a copy takes over, in the order of the table; IDCD, ContactNumber and
// DateScan are the copy's own.
QString copiedFields() {
    QStringList fields = {
        QStringLiteral("FileSystem"),
        QStringLiteral("DriveType"),
        QStringLiteral("ComputerName"),
        QStringLiteral("Label"),
        QStringLiteral("Drive_Folder"),
        QStringLiteral("TotalSize"),
        QStringLiteral("Comment"),
        QStringLiteral("FolderName"),
        QStringLiteral("ReadOnly"),
        QStringLiteral("Archive"),
        QStringLiteral("Hidden"),
        QStringLiteral("System"),
        QStringLiteral("Compressed"),
        QStringLiteral("CreationTime"),
        QStringLiteral("LastAccessTime"),
        QStringLiteral("LastWriteTime"),
        QStringLiteral("ContainsOfFiles"),
        QStringLiteral("ContainsOfFolders"),
        QStringLiteral("ContainsOfFilesSelf"),
        QStringLiteral("ContainsOfFoldersSelf"),
        QStringLiteral("SN"),
        QStringLiteral("IDC"),
        QStringLiteral("IDX"),
        QStringLiteral("IDB"),
        QStringLiteral("IsLend"),
        QStringLiteral("LoanStart"),
        QStringLiteral("LoanComment"),
        QStringLiteral("IsFolder"),
        QStringLiteral("ScannedArchives"),
        QStringLiteral("FullName"),
        QStringLiteral("Title"),
        QStringLiteral("Company"),
        QStringLiteral("Address"),
        QStringLiteral("City"),
        QStringLiteral("State"),
        QStringLiteral("Zip"),
    };
    for (int n = 1; n <= 12; ++n)
        fields << QStringLiteral("Type%1").arg(n);
    for (int n = 1; n <= 12; ++n)
        fields << QStringLiteral("Number%1").arg(n);
    fields << QStringLiteral("Photo") << QStringLiteral("PhotoExt") << QStringLiteral("PhotoSize");
    return fields.join(QStringLiteral(", "));
}

} // namespace

qint32 CloneContact(const mTV::MainView& view) {
    HUNT_PLACE("Form1.CloneContact");
    const ListItem* row = view.ListView2.SelectedItem();
    if (!row || row->Key().contains(QLatin1Char('E'))) return 0;
    const qint32 n = mCommon::GetID1(row->Key());

    // Where the copy stands, for the counts.
    dao::Recordset place = gDB.OpenRecordset(
        QStringLiteral("SELECT IDC, IDX, IDB, Label FROM CDs WHERE IDCD = %1").arg(n), dao::dbOpenSnapshot);
    if (place.AtEOF()) return 0;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString node = QLatin1String("ID") + place.Text(mode == 0 ? 0 : mode == 1 ? 1 : 2);
    const QString label = place.Text(3);
    place.Close();

    dao::Recordset max =
        gDB.OpenRecordset(QStringLiteral("SELECT Max(IDCD) AS maxID FROM CDs"), dao::dbOpenSnapshot);
    const QVariant top = max.AtEOF() ? QVariant() : max[QStringLiteral("maxID")];
    max.Close();
    const qint32 id = (top.isNull() ? 0 : top.toInt()) + 1;
    const QString number = mCommon::GetMaxNumber();

    static const QString fields = copiedFields();
    gDB.Execute(QStringLiteral("INSERT INTO CDs ( IDCD, ContactNumber, ") + fields +
                QStringLiteral(" ) SELECT ") + QString::number(id) + QStringLiteral(" AS NewIDCD, ") +
                number + QStringLiteral(" AS ContactNumber, ") + fields +
                QStringLiteral(" From CDs WHERE IDCD=") + QString::number(n));
    AddDriveListPassive(view.ListView2, id);
    // One contact more under the original's node: the counts step up without a new count.
    mTV::CountContact(view.CatTree, node, label, 1);
    return id;
}

} // namespace mLV
