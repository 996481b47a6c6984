// File ▸ Import and File ▸ Export: the contacts they work on, and the view after an import.
#include "core/commandids.h"
#include "core/error.h"
#include "exchange/ui/exchangeui.h"
#include "mainwindow/form1.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"

void Form1::mnuFileImport_Click() {
    HUNT_PLACE("Form1.mnuFileImport_Click");
    if (mExchange::ImportWithDialogs(this)) mnuViewMainRefresh_Click();
}

void Form1::mnuFileExport_Click(int id) {
    HUNT_PLACE("Form1.mnuFileExport_Click", id);
    QList<qint32> ids;
    if (id != cmd::FileExportAll) {
        const ListItemCollection& rows = ListView2->ListItems;
        for (int n = 1; n <= rows.Count(); ++n) {
            const ListItem* row = rows(n);
            if (id == cmd::FileExportSelected && !row->Selected()) continue;
            bool number = false;
            const qint32 idcd = row->Key().mid(2).toInt(&number); // keys are "ID" and the IDCD
            if (number) ids << idcd;
        }
    }
    mExchange::ExportWithDialogs(this, ids, id == cmd::FileExportAll);
}
