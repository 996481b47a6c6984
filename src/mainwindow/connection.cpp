#include "mainwindow/connection.h"
#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "phonebook/login.h"
#include "preferences/preferences.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/files.h"

using namespace mLanguageGobals;

namespace mCommon {

namespace {
// Commands that stay usable without a phonebook.
bool usableWithoutPhonebook(int id) {
    static const int singles[] = {cmd::FileNew,           cmd::FileOpen,        cmd::FileReserved,
                                  cmd::FileExit,          cmd::RecentClear,     cmd::CategoryReserved,
                                  cmd::ContactReserved,   cmd::DetailsReserved, cmd::DetailsViewReserved,
                                  cmd::ViewPanePhoto,     cmd::ToolsReserved,   cmd::ToolsPreferences,
                                  cmd::AfterHelpReserved, cmd::TrayReserved,    cmd::TrayRestore,
                                  cmd::TabsReserved,      cmd::MainPreferences, cmd::MainHelp,
                                  cmd::ToolbarList};
    for (int s : singles)
        if (id == s) return true;
    const int ranges[][2] = {{cmd::RecentFirst, cmd::RecentLast},
                             {cmd::ViewToolTips, cmd::ViewPanesDefault},
                             {cmd::HelpReserved, cmd::HelpTip},
                             {cmd::HelpWebsite, cmd::HelpAbout},
                             {cmd::DetailsColumnName, cmd::DetailsColumnsCustomize},
                             {cmd::ContactColumnsReserved, cmd::ContactColumnLast},
                             {cmd::TrayWebsite, cmd::TrayExit}};
    for (const auto& r : ranges)
        if (id >= r[0] && id <= r[1]) return true;
    return false;
}
} // namespace

void Disconnect() {
    HUNT_PLACE("mCommon.Disconnect");
    if (gForm1) {
        gForm1->ListView2->ListItems.Clear();
        gForm1->ListView1->ListItems.Clear();
        gForm1->SetNoImage();
        gForm1->CatTree->Nodes.Clear();
        gForm1->ListView2->SetTag(QString());
        gForm1->ListView1->SetTag(QString());
        gForm1->CatTree->SetTag(QString());
    }
    mMain::Closing();
}

void NotConnected(bool mode) {
    HUNT_PLACE("mCommon.NotConnected(mode)", mode);
    gNotConnected = mode;
    if (!gForm1) return;
    for (CommandBarAction* action : gForm1->CommandBars1->Actions())
        if (!usableWithoutPhonebook(action->Id())) action->SetEnabled(!mode);
}

void EditCaption() {
    HUNT_PLACE("mCommon.EditCaption");
    if (!gForm1) return;
    QString title = AppTitle();
    if (gDBOpen) {
        title += QStringLiteral(" - ") + gDBPath;
        if (gRestricted) title += msgCaptionReadOnly;
        if (BDSizeOnTitle)
            title += QStringLiteral(" - ") + msgDatabaseSize + mScanCD::GetFileDBSize(false, gDBPath);
    }
    gForm1->setWindowTitle(title);
}

} // namespace mCommon
