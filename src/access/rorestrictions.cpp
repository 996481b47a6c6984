#include "access/rorestrictions.h"

#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/restrictions.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"

#include <QWidget>

namespace mAccess {

namespace {

// One row per form: its name, then its controls that change data.
const std::vector<RestrictionRow> kRestrictionTable = {
    {QStringLiteral("Form2"), {"bnOK", "bnAddCategory", "bnAddFavorite", "bnAddType"}},
    {QStringLiteral("Form3"), {"bnOK", "bnAddCategory", "bnAddFavorite", "bnAddType"}},
    {QStringLiteral("Form7"), {"bnClearDatabase"}},
    {QStringLiteral("Form14"), {"bnAdd"}},
    {QStringLiteral("Form20"), {"bnOK"}},
    {QStringLiteral("Form23"), {"bnOK"}},
};

const std::vector<int> kMainWindowCommands = {
    cmd::AccessOptions,    cmd::FileClearDB,        cmd::FileCompactDB,
    cmd::CategoryQuickAdd, cmd::CategoryAdd,        cmd::CategoryRename,
    cmd::CategoryDelete,   cmd::ContactAdd,         cmd::ListAdd,
    cmd::MainAdd,          cmd::FileImport,         cmd::FileExportAll,
    cmd::FileExportList,   cmd::FileExportSelected, cmd::FileSync,
    cmd::FileSyncSettings};

const std::vector<int> kMainWindowSelectionCommands = {
    cmd::ContactCopy,    cmd::ContactNoFavorite, cmd::ContactDelete, cmd::ListCopy,
    cmd::ListNoFavorite, cmd::ListDelete,        cmd::MainDelete};

void applyToMainWindow(QWidget* frm) {
    // Without a phonebook every command keeps the state the loss of the connection gave it.
    if (gNotConnected) return;
    auto* bars = frm->findChild<CommandBars*>(QStringLiteral("CommandBars1"));
    if (!bars) return;
    auto enable = [bars](int id, bool on) {
        if (CommandBarAction* a = bars->FindAction(id)) a->SetEnabled(on);
    };
    for (int id : kMainWindowCommands)
        enable(id, !gRestricted);
    const auto* list = frm->findChild<ListView*>(QStringLiteral("ListView2"));
    const bool selected = list && list->ListItems.Count() > 0 && list->SelectedItem();
    for (int id : kMainWindowSelectionCommands) {
        if (gRestricted) {
            enable(id, false);
        } else if (selected && id != cmd::ContactNoFavorite && id != cmd::ListNoFavorite) {
            // Remove from Favorites also needs a contact in a favorites folder: MenuNoBorrow decides.
            enable(id, true);
        }
    }
}

} // namespace

const std::vector<RestrictionRow>& RestrictionTable() {
    return kRestrictionTable;
}

const std::vector<int>& MainWindowCommands() {
    return kMainWindowCommands;
}

const std::vector<int>& MainWindowSelectionCommands() {
    return kMainWindowSelectionCommands;
}

void ApplyRORestrictions(QWidget* frm) {
    HUNT_PLACE("mCommon.RORestrictions(frm)", frm ? frm->objectName() : QString());
    if (!frm) return;
    const QString name = frm->objectName();
    if (name == QLatin1String("Form1")) {
        applyToMainWindow(frm);
        return;
    }
    if (!gRestricted) return;
    for (const RestrictionRow& row : kRestrictionTable) {
        if (row.form != name) continue;
        for (const QString& item : row.items)
            if (auto* w = frm->findChild<QWidget*>(item)) w->setEnabled(false);
    }
}

void InstallRORestrictions() {
    mCommon::SetRORestrictionRules(&ApplyRORestrictions);
}

} // namespace mAccess
