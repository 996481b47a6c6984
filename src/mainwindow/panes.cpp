// The four dockable panes of the main window: their default layout, the saved layouts, and the
// pane entries of the View menu with the preferences behind them.
#include "core/commandids.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

using namespace mLanguageGobals;

namespace {

struct PaneBinding {
    int pane;
    int command;
    bool* preference;
    const char* key;
};

const PaneBinding kPanes[] = {
    {Form1::PaneIdCategories, cmd::ViewPaneCategories, &PaneCategories, "PaneCategories"},
    {Form1::PaneIdContacts, cmd::ViewPaneContacts, &PaneDisks, "PaneDisks"},
    {Form1::PaneIdCard, cmd::ViewPaneCard, &PaneDiskContents, "PaneDiskContents"},
    {Form1::PaneIdPhoto, cmd::ViewPanePhoto, &PaneDiskImage, "PaneDiskImage"},
};

const PaneBinding* binding(int pane) {
    for (const PaneBinding& b : kPanes)
        if (b.pane == pane) return &b;
    return nullptr;
}

void storePreference(const PaneBinding& b) {
    SaveSetting(AppTitle(), QStringLiteral("PreferencesNew"), QLatin1String(b.key), *b.preference);
}

} // namespace

void Form1::LoadPanes() {
    HUNT_PLACE("Form1.LoadPanes");
    PListView2 = new DockingPane(PaneIdContacts, msgContacts, QStringLiteral("PListView2"), this);
    PListView1 = new DockingPane(PaneIdCard, msgContactCardPane, QStringLiteral("PListView1"), this);
    PPhoto = new DockingPane(PaneIdPhoto, msgPhoto, QStringLiteral("PPhoto"), this);
    PCatTree = new DockingPane(PaneIdCategories, msgCategories, QStringLiteral("PCatTree"), this);
    PCatTree->setWidget(CatTree);
    PListView2->setWidget(ListView2);
    PListView1->setWidget(ListView1);
    PPhoto->setWidget(m_photoFrame);
    for (DockingPane* pane : {PCatTree, PListView2, PListView1, PPhoto}) {
        pane->widget()->setMinimumSize(20, 20);
        connect(pane, &DockingPane::Closing, this, [this](int id) {
            RunEvent("Form1.DockingPaneManager_Action",
                     [this, id] { DockingPaneManager_Action(PaneActionClosing, id); });
        });
    }

    // The tree takes the left side from top to bottom; beside it the contact list stands above
    // the contact's fields, with the photo at their right.
    addDockWidget(Qt::LeftDockWidgetArea, PCatTree);
    splitDockWidget(PCatTree, PListView2, Qt::Horizontal);
    splitDockWidget(PListView2, PListView1, Qt::Vertical);
    splitDockWidget(PListView1, PPhoto, Qt::Horizontal);
    resizeDocks({PCatTree, PListView2}, {220, width() - 220}, Qt::Horizontal);
    resizeDocks({PListView2, PListView1}, {height() - 220, 220}, Qt::Vertical);
    resizeDocks({PListView1, PPhoto}, {width() - 220 - 160, 160}, Qt::Horizontal);

    SaveSetting(AppTitle(), kLayout, QStringLiteral("MainWindowPanesDefault"),
                QString::fromLatin1(saveState().toBase64()));
    loadPaneLayout(gResetPanes ? QStringLiteral("MainWindowPanesDefault")
                               : QStringLiteral("MainWindowPanes"));
    applyPaneVisibility();
}

// The saved pane layout carries the toolbars of its time too; they stay where they are now. Sizes
// only come out right on a window that has its real size, so a window that does not show yet
// takes the layout when it first shows.
void Form1::loadPaneLayout(const QString& key) {
    const QByteArray state = QByteArray::fromBase64(GetSetting(AppTitle(), kLayout, key).toLatin1());
    if (state.isEmpty()) return;
    if (!isVisible()) {
        m_pendingPanes = state;
        m_pendingToolbars = CommandBars1->SaveLayout();
        return;
    }
    const QString toolbars = CommandBars1->SaveLayout();
    restoreState(state);
    CommandBars1->LoadLayout(toolbars);
}

void Form1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (m_pendingPanes.isEmpty()) return;
    restoreState(m_pendingPanes);
    CommandBars1->LoadLayout(m_pendingToolbars);
    m_pendingPanes.clear();
    applyPaneVisibility();
}

// The preferences decide which panes show; the View menu ticks follow them.
void Form1::applyPaneVisibility() {
    for (const PaneBinding& b : kPanes) {
        Pane(b.pane)->setVisible(*b.preference);
        CommandBars1->FindAction(b.command)->SetChecked(*b.preference);
    }
}

void Form1::DockingPaneManager_Action(PaneAction Action, int Pane) {
    HUNT_PLACE("Form1.DockingPaneManager_Action(Action, Pane)", int(Action), Pane);
    if (Action != PaneActionClosing) return;
    const PaneBinding* b = binding(Pane);
    if (!b) return;
    CommandBarAction* entry = CommandBars1->FindAction(b->command);
    entry->SetChecked(!entry->Checked());
    *b->preference = entry->Checked();
    storePreference(*b);
}

void Form1::SwitchPane(int Pane) {
    HUNT_PLACE("Form1.SwitchPane(Pane)", Pane);
    const PaneBinding* b = binding(Pane);
    if (!b) return;
    *b->preference = !*b->preference;
    // Hidden, not closed: closing would tell the pane manager and switch the entry once more.
    this->Pane(Pane)->setVisible(*b->preference);
    CommandBars1->FindAction(b->command)->SetChecked(*b->preference);
    storePreference(*b);
}

void Form1::RestorePaneDefaults() {
    HUNT_PLACE("Form1.RestorePaneDefaults");
    loadPaneLayout(QStringLiteral("MainWindowPanesDefault"));
    for (const PaneBinding& b : kPanes) {
        *b.preference = true;
        storePreference(b);
    }
    applyPaneVisibility();
}

namespace mCommon {

void CategoryCaption(qint16 mode) {
    HUNT_PLACE("mCommon.CategoryCaption(mode)", mode);
    if (!gForm1 || !gForm1->PCatTree) return;
    gForm1->PCatTree->setWindowTitle(mode == 0 ? msgCategories : mode == 1 ? msgGroups : msgFavoritesTree);
}

} // namespace mCommon
