#pragma once
// The main window: the hub of the program and its only window that is not modal. Four dockable
// panes (the tree, the contact list, the contact's fields, the photo) under a menu bar and three
// toolbars, with a status bar. Every command is an action with a numeric id that reaches
// CommandBars1_Execute.

#include "trees/mainview.h"

#include <QMainWindow>
#include <QPixmap>
#include <QPoint>
#include <QString>

namespace carddav {
class SyncController;
}

class ColumnHeader;
class CommandBarAction;
class CommandBars;
class DockingPane;
class ListItem;
class ListView;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QTimer;
class QToolBar;
class StatusBar;
class TreeNode;
class TreeView;

namespace dao {
class Recordset;
}
namespace mSearch {
class QuickFilter;
}

// View state of the main window that other parts of the program read.
extern bool MainFormVisible;       // shown, not hidden to the tray
extern qint16 LastWindowState;     // last state other than minimised: 0 normal, 2 maximised
extern qint16 CurrentWindowsTheme; // the desktop seen last: 1 when it prefers dark windows, else 0

class Form1 : public QMainWindow, public mTV::MainWindow {
    Q_OBJECT
  public:
    // Pane ids.
    enum { PaneIdCategories = 1, PaneIdContacts = 2, PaneIdCard = 3, PaneIdPhoto = 4 };
    // Actions of the pane manager.
    enum PaneAction { PaneActionClosing = 1 };
    // The settings section of the saved layouts.
    static const QString kLayout;

    // Builds the window (Form_Load); it shows when the caller shows it.
    explicit Form1(QWidget* parent = nullptr);
    ~Form1() override;

    // Controls.
    CommandBars* CommandBars1 = nullptr;
    TreeView* CatTree = nullptr;
    ListView* ListView2 = nullptr; // contacts
    ListView* ListView1 = nullptr; // fields of the selected contact
    DockingPane* PCatTree = nullptr;
    DockingPane* PListView2 = nullptr;
    DockingPane* PListView1 = nullptr;
    DockingPane* PPhoto = nullptr;
    QLabel* picBox = nullptr; // the photo as fitted into its pane
    QPixmap picImage;         // the photo at its own size
    QPixmap imNoImage;        // the picture for contacts without a photo
    StatusBar* StatusBar1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QTimer* Timer1 = nullptr;
    QMenu* Popup = nullptr;              // pop-up of the contact list
    QLineEdit* txtQuickFilter = nullptr; // the quick filter of the contact list, on the main toolbar
    mSearch::QuickFilter* QuickFilter1 = nullptr;

    // Splitter places of an older layout of the window, in percent: read at load, kept at unload.
    float SXpc1 = 35;
    float SXpc2 = 70;
    float SYpc = 50;

    DockingPane* Pane(int id) const;
    // The tree, the contact list and the detail pane, as the view procedures take them.
    mTV::MainView View() override;
    QWidget* Owner() override { return this; }

    // Window procedures.
    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void LoadMenuToolbar();
    void LoadPanes();
    void DockingPaneManager_Action(PaneAction Action, int Pane);
    void Timer1_Timer();
    void EditCaption();
    void MenuUpdate();
    void GroupChange(int ButtonID);
    void ViewMainSwich(const QString& Key);
    void SetNoImage();
    void ResizePhoto();
    void LoadPhotoFromDB(const dao::Recordset& rstWork);
    // Restricted when the file opened read-only or the session is in Read-only access; the two
    // access entries show the mode.
    void ROSwitch();
    // File > Access mode: Full access (true) or Read-only access, with the password when it has one.
    void SwithAccessMode(bool FullMode);
    void OpenAccessOptions();
    // The tree tabs, the letters and the category mode for a phonebook just opened, and its tree
    // filled: Categories, all letters, the root in force.
    void IniToolBar2();
    // IniToolBar2, then the list of the whole phonebook in the order in force.
    void ShowPhonebook();

    // Events of the tree and the contact list.
    void CatTree_NodeClick(TreeNode* Node);
    void CatTree_Collapse(TreeNode* Node);
    void CatTree_AfterLabelEdit(bool& Cancel, QString& NewString);
    void ListView2_ItemClick(ListItem* Item);
    void ListView2_DblClick();
    void ListView2_KeyPress(int& KeyAscii);
    void ListView2_MouseUp();
    void ListView2_ColumnClick(ColumnHeader* ColumnHeader);
    // A click on a link value of the detail pane opens it: a new message or a web page.
    void ListView1_MouseUp(const QPoint& pos);

    // The quick filter (quickfilter.cpp): the list follows the text typed; Esc (27) brings the
    // view of the tree back, Enter (13) opens the search window with the text.
    void txtQuickFilter_Change();
    void txtQuickFilter_KeyPress(int KeyAscii);
    bool QuickFilterHolds() const;
    // Empties the field and gives the tree and the letter tabs back; `refill` fills the list for
    // the view in force again.
    void ClearQuickFilter(bool refill);

    // The one dispatcher of all commands.
    void CommandBars1_Execute(CommandBarAction* Control);
    // The dispatch itself: runs the action of the control's id; false for an id that reaches none.
    bool Dispatch(CommandBarAction& Control);

    // File commands.
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileMRU_Click(int Index);
    void mnuFileClear_Click();
    void mnuFileInfo_Click();
    void mnuFileClearDB_Click();
    void mnuFileCompactDB_Click();
    void mnuFileImport_Click();
    void mnuFileExport_Click(int id);
    void mnuFileSync_Click();
    // A linked phonebook syncs once it is open, and then at its interval.
    void SyncAtOpen();
    void mnuFileSyncSettings_Click();
    void mnuFileExit_Click();
    // Opens `path` as File > Open does once a file is chosen (a phonebook handed over by a second start).
    void OpenPhonebook(const QString& path);

    // Commands on the tree and the contacts.
    void mnuViewMainRefresh_Click();
    void mnuEditAdd_Click();
    void mnuEditNoBorrow_Click();
    void mnuEditProperties_Click();
    void PropertiesFromTab();
    void ArrangeBy(int id);
    // Delete of the Contacts menu and of the list's pop-up: the selected row, a node row as a node.
    void mnuEditDelete_Click();
    // The toolbar's Delete and the Delete key in the list: by the control that has the focus.
    void DeleteFromTab(bool fromTab);
    // Copies the selected contact; answers the copy's IDCD, 0 when nothing was copied.
    qint32 CloneContact();
    void DiskMigration(const QString& pKey, bool pRemove);

    // Dragging between the tree and the contact list (Effect: 0 none, 2 move).
    void CatTree_MouseDown(Qt::MouseButton Button, const QPoint& pos);
    bool CatTree_OLEStartDrag(int& AllowedEffects);
    void CatTree_OLEDragOver(int& Effect, const QPoint& pos, int State);
    void CatTree_OLEDragDrop(int& Effect);
    void CatTree_OLECompleteDrag();
    void ListView2_MouseDown();
    void ListView2_OLEStartDrag(int& AllowedEffects);
    void ListView2_OLECompleteDrag(int Effect);

    // View commands.
    void SwitchToolTips();
    void SwitchStatusBar();
    void SwitchLargeIcons();
    void SwitchLockToolbars();
    void RestoreToolbarDefaults();
    void SwitchPane(int Pane);
    void RestorePaneDefaults();

    // Tools > Preferences, and what its Apply changes in this window: bars, panes, the status
    // bar, the lists' font and icons, and the three toolbars shown or hidden (trees, letters, main).
    void mnuToolsPreferences_Click();
    void ApplyViewPreferences(int oldToolbarTheme, int oldAppTheme, const bool (&toolbars)[3]);
    // Help: the product's web site, a mail to support, the feedback page, the About window.
    void mnuHelpWeb_Click();
    void mnuHelpMail_Click();
    void mnuHelpFeedback_Click();
    void mnuHelpAbout_Click();

    // The column pickers of the detail pane (1) and of the contact list (2): one checked entry per
    // visible column, and "Customize columns". Each shows at the cursor unless `show` is false.
    QMenu* PopupHL1(bool show = true);
    QMenu* PopupHL2(bool show = true);
    // Shows the column at one-based `Index` when it is hidden, else hides it.
    void mnuHL1_Click(int Index);
    void mnuHL2_Click(int Index);
    void mnuHL1Customize_Click();
    void mnuHL2Customize_Click();
    // The command of the contact list's picker for column `Index`, and the column of a command (0
    // for none).
    static int ContactColumnCommand(int Index);
    static int ContactColumnIndex(int id);
    // The pop-up of a value of the detail pane at `pos` (viewport coordinates): send mail, open
    // the page, call the number, copy; the column picker where no value is hit.
    QMenu* PopupDetails(const QPoint& pos, bool show = true);
    // The value the detail pane's pop-up acts on.
    const QString& PopupValue() const { return m_popupValue; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildFileMenu(QMenu* file);
    void buildToolbars();
    void buildListPopup();
    void buildQuickActionMenus();
    void runQuickAction(int id);
    void showRecentList(const QStringList& captions);
    void openChosen(const QString& path);
    void fileNew();
    void showLogin(bool connected);
    void applyPaneVisibility();
    void loadPaneLayout(const QString& key);
    void showListPopup(const QPoint& pos);
    void tickViewEntries();
    void connectViewEvents();
    void connectDragEvents();
    // The mouse and drag events of the tree's and the list's viewports; true when handled.
    bool dragEventFilter(QObject* watched, QEvent* event);
    void startDrag(bool fromTree);
    void fillHooks();
    void clearHooks();
    void fillAccessHooks();
    void clearAccessHooks();
    void showTree(const QString& tab);
    int buttonOfTag(const QString& Key) const;
    void tickCategoryMode();
    // The link under a point of the detail pane, "" when there is none.
    QString linkAt(const QPoint& pos) const;
    void buildQuickFilter(QToolBar* bar);
    void setViewControlsEnabled(bool enabled);

    QWidget* m_photoFrame = nullptr;
    QPoint m_pressPos;            // where the left button went down in the tree or the list
    QObject* m_pressIn = nullptr; // the viewport it went down in, while it is held
    QByteArray m_pendingPanes;    // a pane layout waiting for the window to show
    QString m_pendingToolbars;
    bool m_unloaded = false;
    carddav::SyncController* m_sync = nullptr; // syncs of the open phonebook with its address book
    QString m_popupValue;
};

// The one reference to the main window; null while it does not exist.
extern Form1* gForm1;

namespace mCommon {
// Puts the name of the tree of `mode` ("Categories", "Groups", "Favorites") on the main window's
// tree pane: its title, which is also its tab when it shares a place with other panes.
void CategoryCaption(qint16 mode);
} // namespace mCommon
