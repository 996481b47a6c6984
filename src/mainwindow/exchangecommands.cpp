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
    std::vector<ListItem*> rows;
    if (id == cmd::FileExportSelected) {
        rows = ListView2->SelectedItems();
    } else if (id == cmd::FileExportList) {
        for (int n = 1; n <= ListView2->ListItems.Count(); ++n)
            rows.push_back(ListView2->ListItems(n));
    }
    QList<qint32> ids;
    for (const ListItem* row : rows) {
        bool number = false;
        const qint32 idcd = row->Key().mid(2).toInt(&number); // keys are "ID" and the IDCD
        if (number) ids << idcd;
    }
    mExchange::ExportWithDialogs(this, ids, id == cmd::FileExportAll);
}
