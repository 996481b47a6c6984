#include "mainwindow/form7.h"

#include "access/maintenance.h"
#include "contactlist/favorites.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/helpers/files.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include <cmath>

using namespace mLanguageGobals;

namespace {

QCheckBox* check(QWidget* parent, const char* name) {
    auto* c = new QCheckBox(parent);
    c->setObjectName(QLatin1String(name));
    return c;
}

QLineEdit* field(QWidget* parent, const char* name) {
    auto* f = new QLineEdit(parent);
    f->setObjectName(QLatin1String(name));
    f->setReadOnly(true);
    f->setFrame(false);
    QPalette p = f->palette();
    p.setColor(QPalette::Base, Qt::transparent);
    f->setPalette(p);
    return f;
}

void store(const char* key, bool value) {
    SaveSetting(AppTitle(), mRegSettings::kPreferencesNew, QLatin1String(key), value);
}

void store(const char* key, int value) {
    SaveSetting(AppTitle(), mRegSettings::kPreferencesNew, QLatin1String(key), value);
}

// The toolbars in the order of the page: trees, letters, main.
QToolBar* toolbar(int index) {
    if (!gForm1 || !gForm1->CommandBars1) return nullptr;
    const QList<QToolBar*>& bars = gForm1->CommandBars1->ToolBars();
    return index < bars.size() ? bars.at(index) : nullptr;
}

} // namespace

Form7::Form7(QWidget* parent, bool NoPhonebook, const QString& Reason)
    : FormDialog(QStringLiteral("Form7"), parent), NoPhonebook(NoPhonebook), m_reason(Reason) {
    buildControls();
    RunEvent("Form7.Form_Load", [this] { Form_Load(); });
}

void Form7::buildControls() {
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setMaximumWidth(170);
    Pages = new QStackedWidget(this);
    Pages->addWidget(Pref[PageInterface] = buildInterfacePage());
    Pages->addWidget(Pref[PageThemes] = buildThemesPage());
    Pages->addWidget(Pref[PageWindow] = buildWindowPage());
    Pages->addWidget(Pref[PageMisc] = buildMiscPage());
    Pages->addWidget(Pref[PageDatabase] = buildDatabasePage());
    for (int i = 0; i < 5; ++i)
        Pref[i]->setObjectName(QStringLiteral("Pref%1").arg(i));

    bnOK = MakeButton("bnOK");
    bnOK->setDefault(true);
    bnCancel = MakeButton("bnCancel");
    bnApply = MakeButton("bnApply");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    buttons->addWidget(bnApply);
    auto* top = new QHBoxLayout;
    top->addWidget(List1);
    top->addWidget(Pages, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);

    connect(List1, &QListWidget::currentRowChanged, this,
            [this] { RunEvent("Form7.List1_Click", [this] { List1_Click(); }); });
    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnCancel_Click", [this] { bnCancel_Click(); }); });
    connect(bnApply, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnApply_Click", [this] { bnApply_Click(); }); });
    connect(bnLvTvFonts, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnLvTvFonts_Click", [this] { bnLvTvFonts_Click(); }); });
    connect(bnDatabasePath, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnDatabasePath_Click", [this] { bnDatabasePath_Click(); }); });
    connect(Command1, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.Command1_Click", [this] { Command1_Click(); }); });
    connect(bnMoveDatabase, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnMoveDatabase_Click", [this] { bnMoveDatabase_Click(); }); });
    connect(bnClearDatabase, &QPushButton::clicked, this,
            [this] { RunEvent("Form7.bnClearDatabase_Click", [this] { bnClearDatabase_Click(); }); });
    resize(640, 430);
}

QWidget* Form7::buildInterfacePage() {
    auto* page = new QWidget(this);
    auto* toolbars = m_frames[0] = new QGroupBox(page);
    chToolbar1 = check(toolbars, "chToolbar1");
    chToolbar2 = check(toolbars, "chToolbar2");
    chToolbar3 = check(toolbars, "chToolbar3");
    chFlatToolbar = check(toolbars, "chFlatToolbar");
    auto* t = new QVBoxLayout(toolbars);
    for (QWidget* w : {chToolbar1, chToolbar2, chToolbar3, chFlatToolbar})
        t->addWidget(w);
    t->addStretch(1);

    auto* settings = m_frames[1] = new QGroupBox(page);
    chShowToolTip = check(settings, "chShowToolTip");
    chShowLargeIcons = check(settings, "chShowLargeIcons");
    chLockToolbar = check(settings, "chLockToolbar");
    auto* s = new QVBoxLayout(settings);
    for (QWidget* w : {chShowToolTip, chShowLargeIcons, chLockToolbar})
        s->addWidget(w);
    s->addStretch(1);

    auto* panes = m_frames[2] = new QGroupBox(page);
    chPaneCatTree = check(panes, "chPaneCatTree");
    chPaneListView2 = check(panes, "chPaneListView2");
    chPaneListView1 = check(panes, "chPaneListView1");
    chPanePhoto = check(panes, "chPanePhoto");
    chStatusbar = check(panes, "chStatusbar");
    auto* p = new QVBoxLayout(panes);
    for (QWidget* w : {chPaneCatTree, chPaneListView2, chPaneListView1, chPanePhoto, chStatusbar})
        p->addWidget(w);
    p->addStretch(1);

    auto* lists = m_frames[3] = new QGroupBox(page);
    chLvTvLargeIcons = check(lists, "chLvTvLargeIcons");
    bnLvTvFonts = MakeButton("bnLvTvFonts");
    bnLvTvFonts->setParent(lists);
    lbFont = new QLabel(lists);
    lbFont->setObjectName(QStringLiteral("lbFont"));
    lbFont->setWordWrap(true);
    auto* l = new QVBoxLayout(lists);
    l->addWidget(chLvTvLargeIcons);
    auto* font = new QHBoxLayout;
    font->addWidget(bnLvTvFonts);
    font->addWidget(lbFont, 1);
    l->addLayout(font);
    l->addStretch(1);

    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(toolbars, 0, 0);
    grid->addWidget(settings, 0, 1);
    grid->addWidget(panes, 1, 0);
    grid->addWidget(lists, 1, 1);
    return page;
}

QWidget* Form7::buildThemesPage() {
    auto* page = new QWidget(this);
    auto* window = m_frames[4] = new QGroupBox(page);
    auto* w = new QVBoxLayout(window);
    for (int i = 0; i < AppThemeCount; ++i) {
        opAppTheme[i] = new QRadioButton(window);
        opAppTheme[i]->setObjectName(QStringLiteral("opAppTheme_%1").arg(i));
        w->addWidget(opAppTheme[i]);
    }
    w->addStretch(1);
    auto* bars = m_frames[5] = new QGroupBox(page);
    auto* b = new QVBoxLayout(bars);
    for (int i = 0; i < ToolbarThemeCount; ++i) {
        opToolbarTheme[i] = new QRadioButton(bars);
        opToolbarTheme[i]->setObjectName(QStringLiteral("opToolbarTheme_%1").arg(i));
        b->addWidget(opToolbarTheme[i]);
    }
    b->addStretch(1);
    auto* layout = new QHBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(window, 1);
    layout->addWidget(bars, 1, Qt::AlignTop);
    return page;
}

QWidget* Form7::buildWindowPage() {
    auto* page = new QWidget(this);
    auto* frame = m_frames[6] = new QGroupBox(page);
    chSaveWindowLocation = check(frame, "chSaveWindowLocation");
    chSaveWindowSize = check(frame, "chSaveWindowSize");
    chWindowAnimation1 = check(frame, "chWindowAnimation1");
    chMinimizeToTray = check(frame, "chMinimizeToTray");
    hscrAnimationSpeed = new QSlider(Qt::Horizontal, frame);
    hscrAnimationSpeed->setObjectName(QStringLiteral("hscrAnimationSpeed"));
    // The value is a duration: the long one stands at the left, under "Slow".
    hscrAnimationSpeed->setRange(50, 1000);
    hscrAnimationSpeed->setSingleStep(50);
    hscrAnimationSpeed->setPageStep(100);
    hscrAnimationSpeed->setInvertedAppearance(true);
    hscrAnimationSpeed->setInvertedControls(true);
    m_labels[0] = new QLabel(frame);
    m_labels[1] = new QLabel(frame);
    auto* speed = new QHBoxLayout;
    speed->addSpacing(24);
    speed->addWidget(m_labels[0]);
    speed->addWidget(hscrAnimationSpeed, 1);
    speed->addWidget(m_labels[1]);
    auto* f = new QVBoxLayout(frame);
    f->addWidget(chSaveWindowLocation);
    f->addWidget(chSaveWindowSize);
    f->addWidget(chWindowAnimation1);
    f->addLayout(speed);
    f->addWidget(chMinimizeToTray);
    f->addStretch(1);
    connect(chWindowAnimation1, &QCheckBox::toggled, hscrAnimationSpeed, &QWidget::setEnabled);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    return page;
}

QWidget* Form7::buildMiscPage() {
    auto* page = new QWidget(this);
    auto* frame = m_frames[7] = new QGroupBox(page);
    chDuplicateWarning = check(frame, "chDuplicateWarning");
    chDeleteDiskWarning = check(frame, "chDeleteDiskWarning");
    chContactCardWithTabs = check(frame, "chContactCardWithTabs");
    chTipOfTheDayAtStart = check(frame, "chTipOfTheDayAtStart");
    chBDSizeOnTitle = check(frame, "chBDSizeOnTitle");
    cmbFileDoubleClick = new QComboBox(frame);
    cmbFileDoubleClick->setObjectName(QStringLiteral("cmbFileDoubleClick"));
    m_labels[2] = new QLabel(frame);
    m_labels[2]->setBuddy(cmbFileDoubleClick);
    auto* f = new QVBoxLayout(frame);
    for (QWidget* w : {chDuplicateWarning, chDeleteDiskWarning, chContactCardWithTabs, chTipOfTheDayAtStart,
                       chBDSizeOnTitle})
        f->addWidget(w);
    f->addSpacing(8);
    f->addWidget(m_labels[2]);
    auto* combo = new QHBoxLayout;
    combo->addWidget(cmbFileDoubleClick);
    combo->addStretch(1);
    f->addLayout(combo);
    f->addStretch(1);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    return page;
}

QWidget* Form7::buildDatabasePage() {
    auto* page = new QWidget(this);
    auto* frame = m_frames[8] = new QGroupBox(page);
    lbNoPhonebook = new QLabel(frame);
    lbNoPhonebook->setObjectName(QStringLiteral("lbNoPhonebook"));
    lbNoPhonebook->setWordWrap(true);
    lbNoPhonebook->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* warning = new QLabel(frame);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    warning->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(side, side));
    warning->setAlignment(Qt::AlignTop);
    auto* message = new QWidget(frame);
    message->setObjectName(QStringLiteral("NoPhonebookMessage"));
    auto* m = new QHBoxLayout(message);
    m->setContentsMargins(0, 0, 0, 8);
    m->addWidget(warning);
    m->addWidget(lbNoPhonebook, 1);
    message->setVisible(NoPhonebook);

    m_labels[3] = new QLabel(frame); // Location:
    m_labels[3]->setObjectName(QStringLiteral("lbLocation"));
    fdDatabasePath = field(frame, "fdDatabasePath");
    m_labels[4] = new QLabel(frame); // File size:
    m_labels[4]->setObjectName(QStringLiteral("lbSize"));
    fdSize = field(frame, "fdSize");
    bnDatabasePath = MakeButton("bnDatabasePath");
    Command1 = MakeButton("Command1");
    bnMoveDatabase = MakeButton("bnMoveDatabase");
    bnClearDatabase = MakeButton("bnClearDatabase");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(message, 0, 0, 1, 2);
    grid->addWidget(m_labels[3], 1, 0);
    grid->addWidget(fdDatabasePath, 1, 1);
    grid->addWidget(m_labels[4], 2, 0);
    grid->addWidget(fdSize, 2, 1);
    auto* buttons = new QGridLayout;
    buttons->addWidget(bnDatabasePath, 0, 0);
    buttons->addWidget(Command1, 0, 1);
    buttons->addWidget(bnMoveDatabase, 1, 0);
    buttons->addWidget(bnClearDatabase, 1, 1);
    grid->addLayout(buttons, 3, 0, 1, 2, Qt::AlignLeft);
    grid->setRowStretch(4, 1);
    grid->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    return page;
}

void Form7::setCaptions() {
    setWindowTitle(msgPreferencesTitle);
    const QString* pages[] = {&msgInterfaceElements, &msgThemes, &msgWindowSettings, &msgMisc, &msgDatabase};
    for (const QString* p : pages)
        List1->addItem(*p);
    const QString* frames[] = {
        &msgToolbars,    &msgToolbarSettings, &msgPanes,          &msgListAndTreeOptions,
        &msgWindowTheme, &msgToolbarTheme,    &msgWindowSettings, &msgMisc,
        &msgDatabase};
    for (int i = 0; i < 9; ++i)
        m_frames[i]->setTitle(*frames[i]);
    chToolbar1->setText(msgCategoriesFavorites);
    chToolbar2->setText(msgAlphabeticalIndex);
    chToolbar3->setText(msgMain);
    chFlatToolbar->setText(msgFlatToolbar);
    chShowToolTip->setText(msgToolTips);
    chShowLargeIcons->setText(msgLargeIcons);
    chLockToolbar->setText(msgLockTheToolbars);
    chPaneCatTree->setText(msgCategoriesFavoritesPane);
    chPaneListView2->setText(msgContacts);
    chPaneListView1->setText(msgContactCardPane);
    chPanePhoto->setText(msgPhoto);
    chStatusbar->setText(msgStatusBar);
    chLvTvLargeIcons->setText(msgLargeIconsOption);
    bnLvTvFonts->setText(msgFonts);
    const QString* apps[] = {&msgDefaultTheme, &msgXPBlue,         &msgXPOliveGreen,   &msgXPSilver,
                             &msgRoyale,       &msgOffice2007Aqua, &msgOffice2007Blue, &msgVistaBasic};
    for (int i = 0; i < AppThemeCount; ++i)
        opAppTheme[i]->setText(*apps[i]);
    opToolbarTheme[0]->setText(msgDefaultTheme);
    opToolbarTheme[1]->setText(msgOffice2003);
    chSaveWindowLocation->setText(msgSaveWindowPosition);
    chSaveWindowSize->setText(msgSaveWindowSize);
    chWindowAnimation1->setText(msgCloseWindowWithFadeEffect);
    m_labels[0]->setText(msgSlow);
    m_labels[1]->setText(msgFast);
    chMinimizeToTray->setText(msgMinimizeToTray);
    chDuplicateWarning->setText(msgWarnSimilarDisks);
    chDeleteDiskWarning->setText(msgWarnContactDeletion);
    chContactCardWithTabs->setText(msgOpenCardWithTabs);
    chTipOfTheDayAtStart->setText(msgShowTipOfTheDayAtStartup);
    chBDSizeOnTitle->setText(msgShowDatabaseSizeInTitle);
    m_labels[2]->setText(msgDoubleClickOnFileAction);
    cmbFileDoubleClick->addItems({msgExecute, msgOpenInExplorer, msgShowProperties});
    m_labels[3]->setText(msgLocationColon);
    m_labels[4]->setText(msgFileSize);
    bnDatabasePath->setText(msgOpenDatabase);
    Command1->setText(msgCreateNewDatabase);
    bnMoveDatabase->setText(msgMoveDatabaseTo);
    bnClearDatabase->setText(msgClearDatabaseButton);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);
    bnApply->setText(msgApply);
    lbNoPhonebook->setText(m_reason.isEmpty()
                               ? msgDatabaseCannotBeFoundOrDoesNotExist
                               : msgDatabaseCannotBeFoundOrDoesNotExist + QStringLiteral("\n\n") + m_reason);
}

void Form7::Form_Load() {
    HUNT_PLACE("Form7.Form_Load");
    setCaptions();
    Ini();
    refreshDatabase();
    showPages();
    List1->setCurrentRow(NoPhonebook ? PageDatabase : PageInterface);
    RestorePlace();
}

void Form7::Ini() {
    HUNT_PLACE("Form7.Ini");
    QCheckBox* const bars[] = {chToolbar1, chToolbar2, chToolbar3};
    for (int i = 0; i < 3; ++i) {
        const QToolBar* bar = toolbar(i);
        bars[i]->setChecked(bar ? !bar->isHidden() : true);
        bars[i]->setEnabled(bar != nullptr);
    }
    chFlatToolbar->setChecked(FlatToolbar);
    chShowToolTip->setChecked(ShowToolTip);
    chShowLargeIcons->setChecked(ShowLargeIcons);
    chLockToolbar->setChecked(LockToolbar);
    chPaneCatTree->setChecked(PaneCategories);
    chPaneListView2->setChecked(PaneDisks);
    chPaneListView1->setChecked(PaneDiskContents);
    chPanePhoto->setChecked(PaneDiskImage);
    chStatusbar->setChecked(ShowStatusbar);
    chLvTvLargeIcons->setChecked(LvTvLargeIcons);
    opAppTheme[AppTheme >= 0 && AppTheme < AppThemeCount ? AppTheme : 0]->setChecked(true);
    opToolbarTheme[ToolbarTheme >= 0 && ToolbarTheme < ToolbarThemeCount ? ToolbarTheme : 0]->setChecked(
        true);
    chSaveWindowLocation->setChecked(SaveWindowLocation);
    chSaveWindowSize->setChecked(SaveWindowSize);
    chWindowAnimation1->setChecked(WindowAnimation1);
    hscrAnimationSpeed->setValue(AnimationSpeed);
    hscrAnimationSpeed->setEnabled(WindowAnimation1);
    chMinimizeToTray->setChecked(MinimizeToTray);
    chDuplicateWarning->setChecked(DuplicateWarning);
    chDeleteDiskWarning->setChecked(DeleteDiskWarning);
    chContactCardWithTabs->setChecked(ContactCardWithTabs);
    chTipOfTheDayAtStart->setChecked(TipOfTheDayAtStart);
    chBDSizeOnTitle->setChecked(BDSizeOnTitle);
    cmbFileDoubleClick->setCurrentIndex(FileDoubleClick >= 0 && FileDoubleClick < 3 ? FileDoubleClick : 0);
    m_fontChosen = !FontName.isEmpty();
    m_font = mRegSettings::PreferenceFont(gForm1 ? gForm1->ListView2->font() : font());
    showFont();
}

void Form7::showFont() {
    if (!m_fontChosen) {
        lbFont->setText(msgFontNone);
        return;
    }
    QStringList style;
    if (m_font.bold()) style << QStringLiteral("Bold");
    if (m_font.italic()) style << QStringLiteral("Italic");
    lbFont->setText(
        QStringLiteral("%1 %2%3")
            .arg(m_font.family())
            .arg(m_font.pointSizeF())
            .arg(style.isEmpty() ? QString() : QStringLiteral(", ") + style.join(QStringLiteral(" "))));
}

// Without a phonebook, a dialog opened for lack of one offers its Database page only.
void Form7::showPages() {
    const bool databaseOnly = NoPhonebook && gNotConnected;
    for (int i = 0; i < PageDatabase; ++i)
        List1->item(i)->setHidden(databaseOnly);
    bnApply->setEnabled(!databaseOnly);
}

void Form7::SavePreferences() {
    HUNT_PLACE("Form7.SavePreferences");
    FlatToolbar = chFlatToolbar->isChecked();
    ShowToolTip = chShowToolTip->isChecked();
    ShowLargeIcons = chShowLargeIcons->isChecked();
    LockToolbar = chLockToolbar->isChecked();
    PaneCategories = chPaneCatTree->isChecked();
    PaneDisks = chPaneListView2->isChecked();
    PaneDiskContents = chPaneListView1->isChecked();
    PaneDiskImage = chPanePhoto->isChecked();
    ShowStatusbar = chStatusbar->isChecked();
    LvTvLargeIcons = chLvTvLargeIcons->isChecked();
    for (int i = 0; i < AppThemeCount; ++i)
        if (opAppTheme[i]->isChecked()) AppTheme = i;
    for (int i = 0; i < ToolbarThemeCount; ++i)
        if (opToolbarTheme[i]->isChecked()) ToolbarTheme = i;
    SaveWindowLocation = chSaveWindowLocation->isChecked();
    SaveWindowSize = chSaveWindowSize->isChecked();
    WindowAnimation1 = chWindowAnimation1->isChecked();
    AnimationSpeed = hscrAnimationSpeed->value();
    MinimizeToTray = chMinimizeToTray->isChecked();
    DuplicateWarning = chDuplicateWarning->isChecked();
    DeleteDiskWarning = chDeleteDiskWarning->isChecked();
    ContactCardWithTabs = chContactCardWithTabs->isChecked();
    TipOfTheDayAtStart = chTipOfTheDayAtStart->isChecked();
    BDSizeOnTitle = chBDSizeOnTitle->isChecked();
    FileDoubleClick = cmbFileDoubleClick->currentIndex();

    const std::pair<const char*, bool> flags[] = {
        {"FlatToolbar", FlatToolbar},
        {"ShowToolTip", ShowToolTip},
        {"ShowLargeIcons", ShowLargeIcons},
        {"LockToolbar", LockToolbar},
        {"PaneCategories", PaneCategories},
        {"PaneDisks", PaneDisks},
        {"PaneDiskContents", PaneDiskContents},
        {"PaneDiskImage", PaneDiskImage},
        {"ShowStatusbar", ShowStatusbar},
        {"LvTvLargeIcons", LvTvLargeIcons},
        {"SaveWindowLocation", SaveWindowLocation},
        {"SaveWindowSize", SaveWindowSize},
        {"WindowAnimation1", WindowAnimation1},
        {"MinimizeToTray", MinimizeToTray},
        {"DuplicateWarning", DuplicateWarning},
        {"DeleteDiskWarning", DeleteDiskWarning},
        {"ContactCardWithTabs", ContactCardWithTabs},
        {"TipOfTheDayAtStart", TipOfTheDayAtStart},
        {"BDSizeOnTitle", BDSizeOnTitle},
    };
    for (const auto& [key, value] : flags)
        store(key, value);
    store("AppTheme", AppTheme);
    store("ToolbarTheme", ToolbarTheme);
    store("AnimationSpeed", AnimationSpeed);
    store("FileDoubleClick", FileDoubleClick);

    if (m_fontChosen) {
        FontName = m_font.family();
        FontSize = std::round(m_font.pointSizeF() * 10000.0) / 10000.0;
        FontBold = m_font.bold();
        FontItalic = m_font.italic();
        FontStrikethru = m_font.strikeOut();
        FontUnderline = m_font.underline();
        SaveSetting(AppTitle(), mRegSettings::kPreferencesNew, QStringLiteral("FontName"), FontName);
        SaveSetting(AppTitle(), mRegSettings::kPreferencesNew, QStringLiteral("FontSize"), FontSize);
        store("FontBold", FontBold);
        store("FontItalic", FontItalic);
        store("FontStrikethru", FontStrikethru);
        store("FontUnderline", FontUnderline);
    }
}

void Form7::List1_Click() {
    const int row = List1->currentRow();
    if (row >= 0 && row < Pages->count()) Pages->setCurrentIndex(row);
}

void Form7::bnApply_Click() {
    HUNT_PLACE("Form7.bnApply_Click");
    const int oldToolbarTheme = ToolbarTheme;
    const int oldAppTheme = AppTheme;
    SavePreferences();
    QCheckBox* const bars[] = {chToolbar1, chToolbar2, chToolbar3};
    bool shown[3];
    for (int i = 0; i < 3; ++i)
        shown[i] = bars[i]->isChecked();
    if (gForm1) gForm1->ApplyViewPreferences(oldToolbarTheme, oldAppTheme, shown);
}

void Form7::bnOK_Click() {
    HUNT_PLACE("Form7.bnOK_Click");
    if (bnApply->isEnabled()) bnApply_Click();
    accept();
}

void Form7::bnCancel_Click() {
    reject();
}

void Form7::bnLvTvFonts_Click() {
    HUNT_PLACE("Form7.bnLvTvFonts_Click");
    QFont font = m_font;
    if (!ChooseFont(font, this)) return;
    m_font = font;
    m_fontChosen = true;
    showFont();
}

void Form7::refreshDatabase() {
    const bool there = !gDBPath.isEmpty() && QFileInfo(gDBPath).isFile();
    fdDatabasePath->setText(gDBPath);
    fdDatabasePath->setCursorPosition(0);
    fdSize->setText(there ? mScanCD::GetFileDBSize(true, gDBPath) : msgTheDatabaseCannotBeFound);
    const bool open = there && !gNotConnected;
    bnMoveDatabase->setEnabled(open);
    bnClearDatabase->setEnabled(open && !gRestricted);
}

// After Open or New: the page shows the phonebook now in force. A dialog opened for lack of a
// phonebook has done its work once one is open.
void Form7::bnDatabasePath_Click() {
    HUNT_PLACE("Form7.bnDatabasePath_Click");
    if (!gForm1) return;
    gForm1->mnuFileOpen_Click();
    afterDatabaseChange();
}

void Form7::Command1_Click() {
    HUNT_PLACE("Form7.Command1_Click");
    if (!gForm1) return;
    gForm1->mnuFileNew_Click();
    afterDatabaseChange();
}

void Form7::bnMoveDatabase_Click() {
    HUNT_PLACE("Form7.bnMoveDatabase_Click");
    mAccess::MoveDatabase(this, [this](const QString& path) { fdDatabasePath->setText(path); });
    refreshDatabase();
}

void Form7::bnClearDatabase_Click() {
    HUNT_PLACE("Form7.bnClearDatabase_Click");
    mAccess::ClearAndCompactDB(this);
    refreshDatabase();
}

void Form7::afterDatabaseChange() {
    refreshDatabase();
    if (gNotConnected) return;
    mCommon::MenuNoBorrow(*gForm1->ListView2, *gForm1->CommandBars1);
    showPages();
    if (NoPhonebook) accept();
}

QString Form7::Reason() const {
    return m_reason;
}

namespace mCommon {

void ShowPreferences(QWidget* owner) {
    HUNT_PLACE("mCommon.ShowPreferences");
    Form7 frm(owner);
    ShowModal(&frm, owner);
}

} // namespace mCommon
