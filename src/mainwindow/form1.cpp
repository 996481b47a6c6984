#include "mainwindow/form1.h"

#include "sync/ui/synccontroller.h"

#include "card/photoload.h"
#include "mainwindow/tray.h"
#include "support/controls/subclass.h"

#include "contactlist/columns.h"

#include "core/commandids.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/restrictions.h"
#include "mainwindow/connection.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/statusbar.h"
#include "mainwindow/tray.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "preferences/mru.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "support/controls/commandbars.h"
#include "support/controls/icons.h"
#include "support/controls/imagelist.h"
#include "support/controls/listview.h"
#include "support/controls/photofit.h"
#include "support/controls/subclass.h"
#include "support/controls/treeview.h"
#include "support/helpers/dates.h"
#include "support/themes/desktopscheme.h"
#include "support/themes/listcolor.h"
#include "support/themes/themes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QTimer>

using namespace mLanguageGobals;

Form1* gForm1 = nullptr;
bool MainFormVisible = true;
qint16 LastWindowState = 0;
qint16 CurrentWindowsTheme = 0;

const QString Form1::kLayout = QStringLiteral("Layout");

namespace {
const QString kMain = QStringLiteral("Main");

float readPercent(const char* key, float fallback) {
    const QString v = GetSetting(AppTitle(), kMain, QLatin1String(key), QString::number(fallback));
    bool ok = false;
    const float f = v.toFloat(&ok);
    return ok ? f : fallback;
}
} // namespace

Form1::Form1(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(AppTitle());
    setWindowIcon(mIcons::AppIcon());
    setMinimumSize(780, 540);
    resize(1024, 720);
    // The panes take the whole window; the central place stays empty.
    auto* centre = new QWidget(this);
    setCentralWidget(centre);
    centre->hide();

    CatTree = new TreeView(this);
    CatTree->setObjectName(QStringLiteral("CatTree"));
    ListView2 = new ListView(this);
    ListView2->setObjectName(QStringLiteral("ListView2"));
    mListViewColor::SetListColors(*ListView2);
    ListView1 = new ListView(this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    m_photoFrame = new QWidget(this);
    m_photoFrame->setObjectName(QStringLiteral("picFrame"));
    m_photoFrame->setAutoFillBackground(true);
    QPalette white = m_photoFrame->palette();
    white.setColor(QPalette::Window, Qt::white);
    m_photoFrame->setPalette(white);
    m_photoFrame->installEventFilter(this);
    picBox = new QLabel(m_photoFrame);
    picBox->setObjectName(QStringLiteral("picBox"));
    imNoImage = mIcons::NoPhotoPicture(QSize(120, 150));

    StatusBar1 = new StatusBar(1, this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    setStatusBar(StatusBar1);
    m_sync = new carddav::SyncController(this, StatusBar1);
    connect(m_sync, &carddav::SyncController::finished, this,
            [this](const carddav::SyncSummary&, bool changedHere) {
                if (changedHere && !gNotConnected) mnuViewMainRefresh_Click();
            });
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    Timer1 = new QTimer(this);
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this,
            [this] { RunEvent("Form1.Timer1_Timer", [this] { Timer1_Timer(); }); });

    connectViewEvents();
    connectDragEvents();
    gForm1 = this;
    mTV::SetMainWindow(this);
    RunEvent("Form1.Form_Load", [this] { Form_Load(); });
}

Form1::~Form1() {
    // Controls that go after this part of the window tell it nothing more.
    CatTree->disconnect(this);
    ListView2->disconnect(this);
    mMru::SetMenuHandler({});
    if (gForm1 == this) {
        clearHooks();
        clearAccessHooks();
        gForm1 = nullptr;
        mTV::SetMainWindow(nullptr);
    }
}

DockingPane* Form1::Pane(int id) const {
    switch (id) {
    case PaneIdCategories:
        return PCatTree;
    case PaneIdContacts:
        return PListView2;
    case PaneIdCard:
        return PListView1;
    case PaneIdPhoto:
        return PPhoto;
    default:
        return nullptr;
    }
}

void Form1::Form_Load() {
    HUNT_PLACE("Form1.Form_Load");
    LoadMenuToolbar();
    LoadPanes();
    fillHooks();
    fillAccessHooks();
    // Kept from an older layout of the window: read here, written back at unload.
    SXpc2 = readPercent("SXpc2", 70);
    SXpc1 = readPercent("SXpc1", 35);
    SYpc = readPercent("SYpc", 50);
    mIcons::RegisterImages(ImageList::Shared());
    mProgressBar::MoveIntoStatusBar(ProgressBar1, StatusBar1, 1);
    StatusBar1->setVisible(ShowStatusbar);
    mRegSettings::GetWindowConfig(this, QStringLiteral("Form1"));
    SubClasser::StartSubClass(this, SubClassMy::MainWindow);
    mRegSettings::ApplyPreferences(true, ToolbarTheme, AppTheme, {CatTree, ListView2, ListView1});
    mMru::ShowMRUList();
    Timer1_Timer();
    Timer1->start();
}

void Form1::Form_Unload() {
    HUNT_PLACE("Form1.Form_Unload");
    if (m_unloaded) return;
    m_unloaded = true;
    Timer1->stop();
    mLV::SaveColumnSize(*ListView2, mLV::lcContacts);
    mLV::SaveColumnSize(*ListView1, mLV::lcDetails);
    SaveSetting(AppTitle(), kMain, QStringLiteral("SXpc2"), double(SXpc2));
    SaveSetting(AppTitle(), kMain, QStringLiteral("SXpc1"), double(SXpc1));
    SaveSetting(AppTitle(), kMain, QStringLiteral("SYpc"), double(SYpc));
    SaveSetting(AppTitle(), kLayout, QStringLiteral("MainWindowToolbar"), CommandBars1->SaveLayout());
    // A window that never showed still holds the layout it loaded, not yet applied.
    const QByteArray panes = m_pendingPanes.isEmpty() ? saveState() : m_pendingPanes;
    SaveSetting(AppTitle(), kLayout, QStringLiteral("MainWindowPanes"),
                QString::fromLatin1(panes.toBase64()));
    mRegSettings::SaveWindowConfig(this, QStringLiteral("Form1"));
    mMain::Closing();
}

void Form1::closeEvent(QCloseEvent* event) {
    RunEvent("Form1.Form_Unload", [this] { Form_Unload(); });
    event->accept();
}

void Form1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) RunEvent("Form1.Form_Resize", [this] { Form_Resize(); });
}

void Form1::Form_Resize() {
    HUNT_PLACE("Form1.Form_Resize");
    if (!isMinimized()) {
        LastWindowState = isMaximized() ? 2 : 0;
        return;
    }
    // Where the desktop has no notification area the window stays minimised as usual.
    if (MinimizeToTray && MainFormVisible && mTray::AddIcon()) mMain::MainFormHide();
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (dragEventFilter(watched, event)) return true;
    // The photo follows the size of its pane; a failure here must not open a dialog mid-resize.
    if (watched == m_photoFrame && event->type() == QEvent::Resize && !isMinimized()) {
        try {
            ResizePhoto();
        } catch (...) {
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void Form1::Timer1_Timer() {
    HUNT_PLACE("Form1.Timer1_Timer");
    StatusBar1->SetPanelText(1, msgTodayColon + mDateTime::FormatDate(QDate::currentDate()));
    EditCaption();
    // The default window theme follows the desktop's light or dark preference.
    if (AppTheme == 0) {
        mThemes::FollowDesktopScheme();
        CurrentWindowsTheme = mThemes::DesktopColorScheme() == mThemes::ColorScheme::Dark ? 1 : 0;
    }
}

void Form1::EditCaption() {
    HUNT_PLACE("Form1.EditCaption");
    if (!gNotConnected && gDBOpen) mCommon::EditCaption();
}

void Form1::SetNoImage() {
    HUNT_PLACE("Form1.SetNoImage");
    picImage = imNoImage;
    ResizePhoto();
}

// The photo of the contact the recordset stands on; a contact without one, or with one that
// cannot be read, shows the no-photo picture.
void Form1::LoadPhotoFromDB(const dao::Recordset& rstWork) {
    HUNT_PLACE("Form1.LoadPhotoFromDB");
    if (mCard::LoadStoredPhoto(rstWork, picImage, imNoImage) != mCard::StoredPhoto::NotRead) ResizePhoto();
}

// The photo fits its pane: a larger one is scaled down to the pane's width, then to its height,
// keeping its proportions; a smaller one is never enlarged. It stands centred on white.
void Form1::ResizePhoto() {
    const QSize frame = m_photoFrame->size();
    const QPixmap shown = mPhoto::FitPhoto(picImage, frame);
    if (shown.isNull()) {
        picBox->clear();
        return;
    }
    picBox->setPixmap(shown);
    picBox->setGeometry((frame.width() - shown.width()) / 2, (frame.height() - shown.height()) / 2,
                        shown.width(), shown.height());
}

void Form1::ROSwitch() {
    HUNT_PLACE("Form1.ROSwitch");
    gRestricted = gFileReadOnly || gReadOnlyMode;
    if (CommandBarAction* full = CommandBars1->FindAction(cmd::AccessFull)) full->SetChecked(!gReadOnlyMode);
    if (CommandBarAction* ro = CommandBars1->FindAction(cmd::AccessReadOnly)) ro->SetChecked(gReadOnlyMode);
}

void Form1::MenuUpdate() {
    HUNT_PLACE("Form1.MenuUpdate");
    auto enable = [this](int id, bool on) {
        if (CommandBarAction* a = CommandBars1->FindAction(id)) a->SetEnabled(on);
    };
    // Without a phonebook the commands keep the state NotConnected gave them.
    if (!gNotConnected) {
        const bool selected = ListView2->ListItems.Count() > 0 && ListView2->SelectedItem();
        for (int id : {int(cmd::ContactCopy), int(cmd::ContactDelete), int(cmd::ContactProperties)})
            enable(id, selected);
        // The toolbar's Delete and Properties also work on the tree when it has the focus.
        const bool treeActive = focusWidget() == CatTree;
        enable(cmd::MainDelete, selected || treeActive);
        enable(cmd::MainProperties, selected || treeActive);
    }
    const int tabs[][2] = {{cmd::TabCategories, cmd::ViewCategories},
                           {cmd::TabGroups, cmd::ViewGroups},
                           {cmd::TabFavorites, cmd::ViewFavorites}};
    for (const auto& t : tabs)
        CommandBars1->FindAction(t[1])->SetChecked(CommandBars1->FindAction(t[0])->Checked());
    mCommon::RORestrictions(this); // a phonebook that may not be changed has the last word
}

void Form1::GroupChange(int ButtonID) {
    HUNT_PLACE("Form1.GroupChange(ButtonID)", ButtonID);
    QList<int> group;
    if (ButtonID == cmd::TabCategories || ButtonID == cmd::TabGroups || ButtonID == cmd::TabFavorites) {
        group = {cmd::TabCategories, cmd::TabGroups, cmd::TabFavorites};
    } else {
        group = {cmd::LetterAll};
        for (int id = cmd::LetterA; id <= cmd::LetterUnknown; ++id)
            group << id;
    }
    for (int id : group)
        if (CommandBarAction* a = CommandBars1->FindAction(id)) a->SetChecked(id == ButtonID);
}
