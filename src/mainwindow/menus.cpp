// The command structure of the main window: menu bar, toolbars, the contact list's pop-up and
// the key bindings, all made here with their ids.
#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "preferences/mru.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/icons.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

using namespace mLanguageGobals;

namespace {
constexpr ControlType kPlain = ControlType::Button;
constexpr ControlType kRadio = ControlType::RadioButton;

// The mnemonic of a caption: the character after its first single "&", null for none.
QChar mnemonicOf(const QString& caption) {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != QLatin1Char('&')) continue;
        if (caption.at(i + 1) != QLatin1Char('&')) return caption.at(i + 1).toLower();
        ++i;
    }
    return QChar();
}

// The characters an entry may take as its mnemonic, best first: the first letters of its words,
// then its other letters and digits, each once, in lower case.
QList<QChar> mnemonicChoices(const QString& text) {
    QList<QChar> starts, others;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i).toLower();
        if (!c.isLetterOrNumber() || starts.contains(c) || others.contains(c)) continue;
        (i == 0 || !text.at(i - 1).isLetterOrNumber() ? starts : others) << c;
    }
    for (const QChar c : std::as_const(others))
        if (!starts.contains(c)) starts << c;
    return starts;
}

// Gives entry `e` one of its choices, moving an earlier entry to another of its own choices
// when that frees one; false when no such move exists.
bool takeMnemonic(int e, const QList<QList<QChar>>& choices, QHash<QChar, int>& owner, QSet<QChar>& tried) {
    for (const QChar c : choices[e]) {
        if (tried.contains(c)) continue;
        tried.insert(c);
        const auto it = owner.constFind(c);
        if (it == owner.constEnd() || (it.value() >= 0 && takeMnemonic(it.value(), choices, owner, tried))) {
            owner[c] = e;
            return true;
        }
    }
    return false;
}

// Gives each entry of a menu bar or menu, and of its sub-menus, a mnemonic of its own within
// that menu, preferring the first letter of a word and the entries higher up: as many entries
// as the letters allow. An
// entry that has one keeps it. The captions come from the message catalogue, so the letters are
// chosen here rather than written into them.
void assignMnemonics(QWidget* menu) {
    QHash<QChar, int> owner; // a character and the entry that takes it; -1 for one fixed already
    QList<QAction*> open;
    QList<QList<QChar>> choices;
    const QList<QAction*> entries = menu->actions();
    for (QAction* a : entries) {
        if (a->isSeparator() || !a->isVisible() || a->text().isEmpty()) continue;
        const QChar m = mnemonicOf(a->text());
        if (m.isNull()) {
            open << a;
            choices << mnemonicChoices(a->text());
        } else {
            owner.insert(m, -1);
        }
    }
    // Each entry its best free choice first; an entry left without one may then move others.
    QList<int> left;
    for (int e = 0; e < open.size(); ++e) {
        const auto free =
            std::find_if(choices[e].cbegin(), choices[e].cend(), [&](QChar c) { return !owner.contains(c); });
        if (free == choices[e].cend())
            left << e;
        else
            owner.insert(*free, e);
    }
    for (const int e : std::as_const(left)) {
        QSet<QChar> tried;
        takeMnemonic(e, choices, owner, tried);
    }
    for (auto it = owner.cbegin(); it != owner.cend(); ++it) {
        if (it.value() < 0) continue;
        QAction* a = open[it.value()];
        const QString text = a->text();
        qsizetype at = 0;
        while (text.at(at).toLower() != it.key() || !text.at(at).isLetterOrNumber())
            ++at;
        // Prefer the place where the character starts a word.
        for (qsizetype i = at; i < text.size(); ++i) {
            if (text.at(i).toLower() == it.key() && (i == 0 || !text.at(i - 1).isLetterOrNumber())) {
                at = i;
                break;
            }
        }
        QString marked = text;
        marked.replace(QLatin1Char('&'), QLatin1String("&&"));
        marked.insert(at + text.left(at).count(QLatin1Char('&')), QLatin1Char('&'));
        a->setText(marked);
    }
    for (QAction* a : entries)
        if (QMenu* sub = a->menu()) assignMnemonics(sub);
}

// The keys of the commands. The window's keys work wherever the focus is; those of the tree
// act on its selected node and only while it has the focus, so that the same keys stay free for
// the contact list.
void bindKeys(CommandBars& cb, TreeView* tree) {
    const std::pair<int, QKeySequence> windowKeys[] = {
        {cmd::FileNew, QKeySequence(Qt::CTRL | Qt::Key_N)},
        {cmd::FileOpen, QKeySequence(Qt::CTRL | Qt::Key_O)},
        {cmd::FileExit, QKeySequence(Qt::CTRL | Qt::Key_Q)},
        {cmd::HelpContents, QKeySequence(Qt::Key_F1)},
        {cmd::ToolsSearch, QKeySequence(Qt::Key_F3)},
        {cmd::ViewRefresh, QKeySequence(Qt::Key_F5)},
    };
    for (const auto& [id, key] : windowKeys)
        cb.FindAction(id)->setShortcut(key);
    const std::pair<int, QKeySequence> treeKeys[] = {
        {cmd::CategoryRename, QKeySequence(Qt::Key_F2)},
        {cmd::CategoryDelete, QKeySequence(Qt::Key_Delete)},
    };
    for (const auto& [id, key] : treeKeys) {
        CommandBarAction* action = cb.FindAction(id);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        tree->addAction(action);
    }
}

// "&3 /home/a&b.kvdb" shows "3 /home/a&b.kvdb" with 3 underlined: only the number's "&" is a
// mnemonic, an "&" in the path shows as it is.
QString recentMenuText(const QString& caption) {
    const int blank = caption.indexOf(QLatin1Char(' '));
    if (blank < 0) return caption;
    QString path = caption.mid(blank + 1);
    path.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption.left(blank + 1) + path;
}
} // namespace

void Form1::LoadMenuToolbar() {
    HUNT_PLACE("Form1.LoadMenuToolbar");
    CommandBars1 = new CommandBars(this);
    CommandBars1->setObjectName(QStringLiteral("CommandBars1"));
    CommandBars1->SetIconProvider(mIcons::CommandIcon);
    CommandBars1->SetShowToolTips(ShowToolTip);
    CommandBars1->SetLargeIcons(ShowLargeIcons);
    CommandBars1->SetLocked(LockToolbar);
    connect(CommandBars1, &CommandBars::Execute, this, &Form1::CommandBars1_Execute);

    // The toolbars first, so that the toolbar list of the View menu finds them.
    buildToolbars();

    CommandBars& cb = *CommandBars1;
    QMenuBar* bar = menuBar();
    buildFileMenu(cb.AddPopup(bar, msgFile));

    QMenu* categories = cb.AddPopup(bar, msgCategories);
    cb.AddButton(categories, kPlain, cmd::CategoryQuickAdd, msgQuickAdd);
    cb.AddButton(categories, kPlain, cmd::CategoryAdd, msgAdd, true);
    cb.AddButton(categories, kPlain, cmd::CategoryRename, msgRename);
    cb.AddButton(categories, kPlain, cmd::CategoryDelete, msgDelete);
    cb.AddButton(categories, kPlain, cmd::CategorySortByName, msgSortByName, true);
    cb.AddButton(categories, kPlain, cmd::CategorySortByContacts, msgSortByContacts);
    cb.AddButton(categories, kRadio, cmd::CategoryModeNormal, msgNormalMode, true);
    cb.AddButton(categories, kRadio, cmd::CategoryModeAdvanced, msgAdvancedMode);
    cb.AddButton(categories, kPlain, cmd::CategoryProperties, msgProperties, true);

    QMenu* contacts = cb.AddPopup(bar, msgContacts);
    cb.AddButton(contacts, kPlain, cmd::ContactAdd, msgAddContact);
    cb.AddButton(contacts, kPlain, cmd::ContactCopy, msgCreateCopy);
    cb.AddButton(contacts, kPlain, cmd::ContactNoFavorite, msgRemoveFromFavorites, true);
    cb.AddButton(contacts, kPlain, cmd::ContactDelete, msgDelete, true);
    cb.AddButton(contacts, kPlain, cmd::ContactProperties, msgProperties);

    QMenu* view = cb.AddPopup(bar, msgView);
    QMenu* toolbars = cb.AddPopup(view, msgToolbars);
    cb.AddToolbarList(toolbars, cmd::ToolbarList, msgToolbarList);
    cb.AddButton(toolbars, kRadio, cmd::ViewToolTips, msgToolTips, true);
    cb.AddButton(toolbars, kRadio, cmd::ViewLargeIcons, msgLargeIcons);
    cb.AddButton(toolbars, kRadio, cmd::ViewLockToolbars, msgLockTheToolbars);
    cb.AddButton(toolbars, kPlain, cmd::ViewToolbarsDefault, msgRestoreDefaults, true);
    QMenu* panes = cb.AddPopup(view, msgPanes);
    cb.AddButton(panes, kRadio, cmd::ViewPaneCategories, msgCategoriesFavoritesPane);
    cb.AddButton(panes, kRadio, cmd::ViewPaneContacts, msgContacts);
    cb.AddButton(panes, kRadio, cmd::ViewPaneCard, msgContactCardPane);
    cb.AddButton(panes, kRadio, cmd::ViewPanePhoto, msgPhoto);
    cb.AddButton(panes, kPlain, cmd::ViewPanesDefault, msgRestoreDefaults, true);
    cb.AddButton(view, kRadio, cmd::ViewStatusBar, msgStatusBar);
    cb.AddButton(view, kRadio, cmd::ViewCategories, msgCategories, true);
    cb.AddButton(view, kRadio, cmd::ViewGroups, msgGroups);
    cb.AddButton(view, kRadio, cmd::ViewFavorites, msgFavoritesTree);
    cb.AddButton(view, kPlain, cmd::ViewRefresh, msgRefresh, true);

    QMenu* tools = cb.AddPopup(bar, msgTools);
    cb.AddButton(tools, kPlain, cmd::ToolsSearch, msgSearch);
    cb.AddButton(tools, kPlain, cmd::ToolsStatistics, msgStatistics);
    cb.AddButton(tools, kPlain, cmd::ToolsReport, msgReport);
    cb.AddButton(tools, kPlain, cmd::ToolsPreferences, msgPreferences, true);

    QMenu* help = cb.AddPopup(bar, msgHelp);
    cb.AddButton(help, kPlain, cmd::HelpContents, msgHelpContents);
    cb.AddButton(help, kPlain, cmd::HelpTip, msgTipOfTheDay);
    cb.AddButton(help, kPlain, cmd::HelpWebsite, msgWebsite);
    cb.AddButton(help, kPlain, cmd::HelpSupport, msgTechnicalSupport);
    cb.AddButton(help, kPlain, cmd::HelpFeedback, msgSendFeedbackMenu);
    cb.AddButton(help, kPlain, cmd::HelpAbout, msgAbout, true);

    buildListPopup();
    buildQuickActionMenus();

    // The pop-up of the tray icon.
    QMenu* tray = cb.AddContextMenu(QStringLiteral("PopupTray"));
    cb.AddButton(tray, kPlain, cmd::TrayRestore, msgRestore);
    cb.AddButton(tray, kPlain, cmd::TrayWebsite, msgWebsite, true);
    cb.AddButton(tray, kPlain, cmd::TraySupport, msgTechnicalSupport);
    cb.AddButton(tray, kPlain, cmd::TrayFeedback, msgSendFeedbackMenu);
    cb.AddButton(tray, kPlain, cmd::TrayExit, msgExit, true);

    // The pop-up of a tree node: the node commands of the Categories menu.
    QMenu* nodePopup = cb.AddContextMenu(QStringLiteral("TreePopup"));
    cb.AddButton(nodePopup, kPlain, cmd::CategoryQuickAdd, msgQuickAdd);
    cb.AddButton(nodePopup, kPlain, cmd::CategoryAdd, msgAdd);
    cb.AddButton(nodePopup, kPlain, cmd::CategoryRename, msgRename, true);
    cb.AddButton(nodePopup, kPlain, cmd::CategoryDelete, msgDelete);
    cb.AddButton(nodePopup, kPlain, cmd::CategoryProperties, msgProperties, true);

    assignMnemonics(bar);
    for (QMenu* popup : {Popup, nodePopup, cb.ContextMenu(QStringLiteral("PopupDetails"))})
        assignMnemonics(popup);
    bindKeys(cb, CatTree);
    tickViewEntries();

    SaveSetting(AppTitle(), kLayout, QStringLiteral("MainWindowToolbarDefault"), cb.SaveLayout());
    cb.LoadLayout(GetSetting(AppTitle(), kLayout, QStringLiteral("MainWindowToolbar")));
}

void Form1::buildFileMenu(QMenu* file) {
    CommandBars& cb = *CommandBars1;
    cb.AddButton(file, kPlain, cmd::FileNew, msgNew);
    cb.AddButton(file, kPlain, cmd::FileOpen, msgOpen);
    QMenu* access = cb.AddPopup(file, msgAccessMode);
    cb.AddButton(access, kRadio, cmd::AccessFull, msgFullAccess);
    cb.AddButton(access, kRadio, cmd::AccessReadOnly, msgReadOnlyAccess);
    cb.AddButton(access, kPlain, cmd::AccessOptions, msgAccessOptions, true);
    cb.AddButton(file, kPlain, cmd::FileInfo, msgDatabaseInfo, true);
    cb.AddButton(file, kPlain, cmd::FileClearDB, msgClearDatabase);
    cb.AddButton(file, kPlain, cmd::FileCompactDB, msgCompactDatabase);
    cb.AddButton(file, kPlain, cmd::FileImport, msgExImport, true);
    QMenu* exporting = cb.AddPopup(file, msgExExport);
    cb.AddButton(exporting, kPlain, cmd::FileExportAll, msgExExportAll);
    cb.AddButton(exporting, kPlain, cmd::FileExportList, msgExExportList);
    cb.AddButton(exporting, kPlain, cmd::FileExportSelected, msgExExportSelected);
    cb.AddButton(file, kPlain, cmd::FileSync, msgSyncNowMenu, true);
    cb.AddButton(file, kPlain, cmd::FileSyncSettings, msgSyncSettingsMenu);
    QMenu* recent = cb.AddPopup(file, msgRecentFiles);
    for (int n = cmd::RecentFirst; n <= cmd::RecentLast; ++n)
        cb.AddButton(recent, kPlain, n, QStringLiteral("-"))->SetVisible(false);
    cb.AddButton(recent, kPlain, cmd::RecentClear, msgClearList, true);
    cb.AddButton(file, kPlain, cmd::FileExit, msgExit, true);
    mMru::SetMenuHandler([this](const QStringList& captions) { showRecentList(captions); });
}

void Form1::showRecentList(const QStringList& captions) {
    for (int n = cmd::RecentFirst; n <= cmd::RecentLast; ++n) {
        CommandBarAction* entry = CommandBars1->FindAction(n);
        const bool used = n <= captions.size();
        entry->SetCaption(used ? recentMenuText(captions.at(n - 1)) : QStringLiteral("-"));
        entry->SetVisible(used);
    }
}

void Form1::buildToolbars() {
    CommandBars& cb = *CommandBars1;
    auto tagged = [&](QToolBar* bar, int id, const QString& caption, const QString& tag, ControlType type,
                      bool beginGroup = false) {
        CommandBarAction* a = cb.AddButton(bar, type, id, caption, beginGroup);
        a->SetTag(tag);
        return a;
    };

    QToolBar* trees = cb.AddToolBar(msgCategoriesFavorites, QStringLiteral("CategoriesFavorites"));
    trees->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tagged(trees, cmd::TabCategories, msgCategories, QStringLiteral("Categories"), kRadio)->SetChecked(true);
    tagged(trees, cmd::TabGroups, msgGroups, QStringLiteral("Boxes"), kRadio);
    tagged(trees, cmd::TabFavorites, msgFavoritesTree, QStringLiteral("Borrows"), kRadio);

    QToolBar* letters = cb.AddToolBar(msgAlphabeticalIndex, QStringLiteral("AlphabeticalIndex"));
    tagged(letters, cmd::LetterAll, msgLetterAll, QStringLiteral("ALL"), kRadio)->SetChecked(true);
    for (int id = cmd::LetterA; id <= cmd::LetterZ; ++id) {
        const QString letter(QChar(u'A' + (id - cmd::LetterA)));
        tagged(letters, id, letter, letter, kRadio);
    }
    tagged(letters, cmd::LetterDigits, msgLetterDigits, QStringLiteral("NUM"), kRadio);
    tagged(letters, cmd::LetterUnknown, msgLetterUnknown, QStringLiteral("UNK"), kRadio);
    // Letters of one width, narrow enough for the whole index to fit the smallest window.
    const int letterWidth = letters->fontMetrics().horizontalAdvance(QLatin1Char('W')) + 10;
    for (QAction* a : letters->actions())
        if (a->text().size() == 1)
            if (QWidget* button = letters->widgetForAction(a)) button->setFixedWidth(letterWidth);

    QToolBar* main = cb.AddToolBar(msgMain, QStringLiteral("Main"));
    tagged(main, cmd::MainAdd, msgAddContact, QStringLiteral("New"), kPlain);
    tagged(main, cmd::MainDelete, msgDelete, QStringLiteral("Delete"), kPlain, true);
    tagged(main, cmd::MainProperties, msgProperties, QStringLiteral("Prop"), kPlain);
    tagged(main, cmd::MainSearch, msgSearch, QStringLiteral("Search"), kPlain, true);
    tagged(main, cmd::MainStatistics, msgStatistics, QStringLiteral("Stat"), kPlain);
    CommandBarAction* report = tagged(main, cmd::MainReport, msgReport, QStringLiteral("Report"), kPlain);
    QMenu* reports = cb.AddDropDown(main, report);
    cb.AddButton(reports, kPlain, cmd::ReportOnList, msgReportBasedOnContactList);
    cb.AddButton(reports, kPlain, cmd::ReportOnContact, msgReportBasedOnSelectedContact);
    tagged(main, cmd::MainPreferences, msgPreferences, QStringLiteral("Options"), kPlain, true);
    tagged(main, cmd::MainHelp, msgHelp, QStringLiteral("Help"), kPlain);
    // Icons alone keep the bar narrow; the command used most also shows its caption.
    main->setToolButtonStyle(Qt::ToolButtonIconOnly);
    if (auto* button = qobject_cast<QToolButton*>(main->widgetForAction(cb.FindAction(cmd::MainAdd))))
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    buildQuickFilter(main);

    // One row for the tree tabs and the main commands, the letters on a row of their own.
    cb.DockRightOf(main, trees);
    cb.DockOnNewRow(letters);
}

void Form1::buildListPopup() {
    CommandBars& cb = *CommandBars1;
    Popup = cb.AddContextMenu(QStringLiteral("Popup"));
    cb.AddButton(Popup, kPlain, cmd::ListRefresh, msgRefresh);
    QMenu* arrange = cb.AddPopup(Popup, msgArrangeItems);
    const QString* sorts[] = {&msgByFullName,      &msgByTitle,   &msgByCompany, &msgByCategory,
                              &msgByFavorites,     &msgByAddress, &msgByCity,    &msgByStateProv,
                              &msgByZipPostalCode, &msgByComment, &msgByNumber,  &msgByAdded};
    for (int i = 0; i < 12; ++i)
        cb.AddButton(arrange, kRadio, cmd::ListSortFirst + i, *sorts[i]);
    cb.AddButton(arrange, kRadio, cmd::ListSortByGroup, msgByGroup);
    const QString* infos[] = {&msgByInfo1, &msgByInfo2,  &msgByInfo3,  &msgByInfo4,
                              &msgByInfo5, &msgByInfo6,  &msgByInfo7,  &msgByInfo8,
                              &msgByInfo9, &msgByInfo10, &msgByInfo11, &msgByInfo12};
    for (int i = 0; i < 12; ++i)
        cb.AddButton(arrange, kRadio, cmd::ListSortInfoFirst + i, *infos[i]);
    cb.AddButton(Popup, kPlain, cmd::ListAdd, msgAddContact, true);
    cb.AddButton(Popup, kPlain, cmd::ListCopy, msgCreateCopy);
    cb.AddButton(Popup, kPlain, cmd::ListNoFavorite, msgRemoveFromFavorites, true);
    cb.AddButton(Popup, kPlain, cmd::ListDelete, msgDelete, true);
    cb.AddButton(Popup, kPlain, cmd::ListProperties, msgProperties);
    connect(ListView2, &ListView::ContextMenu, this, &Form1::showListPopup);
}

void Form1::showListPopup(const QPoint& pos) {
    Popup->popup(ListView2->viewport()->mapToGlobal(pos));
}

// The ticks of the view entries show the preferences.
void Form1::tickViewEntries() {
    const std::pair<int, bool> ticks[] = {
        {cmd::ViewToolTips, ShowToolTip},          {cmd::ViewLargeIcons, ShowLargeIcons},
        {cmd::ViewLockToolbars, LockToolbar},      {cmd::ViewStatusBar, ShowStatusbar},
        {cmd::ViewPaneCategories, PaneCategories}, {cmd::ViewPaneContacts, PaneDisks},
        {cmd::ViewPaneCard, PaneDiskContents},     {cmd::ViewPanePhoto, PaneDiskImage},
    };
    for (const auto& t : ticks)
        CommandBars1->FindAction(t.first)->SetChecked(t.second);
}
