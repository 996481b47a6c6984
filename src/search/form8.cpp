#include "search/form8.h"

#include "card/cardentries.h"
#include "contactlist/columns.h"
#include "contactlist/form21.h"
#include "contactlist/listsort.h"
#include "contactlist/listupdate.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"
#include "preferences/regsettings.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "search/searchpopup.h"
#include "search/searchrows.h"
#include "support/controls/listview.h"
#include "support/controls/subclass.h"
#include "support/themes/listcolor.h"
#include "trees/mainview.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

using namespace mLanguageGobals;

Form8* gForm8 = nullptr;

namespace {

const QString kOptions = QStringLiteral("SearchOptions");
const QString kHistorySection = QStringLiteral("SearchName");

// The nine field boxes by their keys in the settings.
struct OptionBox {
    const char* key;
    QCheckBox* Form8::*box;
};
const OptionBox kOptionBoxes[] = {
    {"Numbers", &Form8::chNumbers}, {"FullName", &Form8::chFullName}, {"Title", &Form8::chTitle},
    {"Company", &Form8::chCompany}, {"Comment", &Form8::chComment},   {"Address", &Form8::chAddress},
    {"City", &Form8::chCity},       {"State", &Form8::chState},       {"Zip", &Form8::chZip},
};

// The progress bar moves at most about a thousand times, whatever the number of rows.
int progressStep(int count) {
    return std::max(1, (count + 999) / 1000);
}

// The number of rows as the status line shows it: "#,##0".
QString groupedNumber(int n) {
    return QLocale::system().toString(n);
}

// The entries of "Arrange Items", by column, and the headers of the column menu.
const QString* const kArrange[] = {
    &msgByFullName,      &msgByTitle,     &msgByCompany, &msgByInfo1,  &msgByInfo2,
    &msgByInfo3,         &msgByInfo4,     &msgByInfo5,   &msgByInfo6,  &msgByInfo7,
    &msgByInfo8,         &msgByInfo9,     &msgByInfo10,  &msgByInfo11, &msgByInfo12,
    &msgByCategory,      &msgByFavorites, &msgByAddress, &msgByCity,   &msgByStateProv,
    &msgByZipPostalCode, &msgByComment,   &msgByNumber,  &msgByAdded,  &msgByGroup,
};

int arrangeId(int column) {
    return column == 24 ? Form8::idSortByGroup : Form8::idSortFirst + column;
}

int columnMenuId(int index) {
    return index == 25 ? Form8::idColumnGroup : Form8::idColumnFirst + index - 1;
}

QAction* addEntry(QMenu* menu, int id, const QString& caption, bool checkable = false, bool checked = false) {
    QAction* a = menu->addAction(caption);
    a->setData(id);
    a->setCheckable(checkable);
    a->setChecked(checked);
    return a;
}

} // namespace

Form8::Form8(QWidget* parent, qint32 pIDCD, const QString& pPath)
    : FormDialog(QStringLiteral("Form8"), parent), IDCD(pIDCD), Path(pPath) {
    buildControls();
    connectEvents();
    RunEvent("Form8.Form_Load", [this] { Form_Load(); });
}

Form8::~Form8() {
    if (gForm8 == this) gForm8 = nullptr;
}

QCheckBox* Form8::box(const char* name, const QString& caption) {
    auto* b = new QCheckBox(caption, this);
    b->setObjectName(QLatin1String(name));
    return b;
}

void Form8::buildControls() {
    Label2 = new QLabel(this);
    cmbName = new QComboBox(this);
    cmbName->setObjectName(QStringLiteral("cmbName"));
    cmbName->setEditable(true);
    cmbName->setInsertPolicy(QComboBox::NoInsert);
    cmbName->setMaxVisibleItems(kHistory);
    cmbName->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ComboHidden = new QComboBox(this);
    ComboHidden->setVisible(false);
    bnSearch = MakeButton("bnSearch");
    bnStop = MakeButton("bnStop");

    chNumbers = box("chNumbers", msgSearchNumbersCaption);
    chFullName = box("chFullName", QString());
    chTitle = box("chTitle", QString());
    chCompany = box("chCompany", QString());
    chComment = box("chComment", QString());
    chAddress = box("chAddress", QString());
    chCity = box("chCity", QString());
    chState = box("chState", QString());
    chZip = box("chZip", QString());

    XPFrame3 = new QGroupBox(this);
    chDateMin = box("chDateMin", QString());
    chDateMax = box("chDateMax", QString());
    fdDateMin = new QDateEdit(this);
    fdDateMax = new QDateEdit(this);
    for (QDateEdit* d : {fdDateMin, fdDateMax}) {
        d->setCalendarPopup(true);
        d->setDisplayFormat(QLocale::system().dateFormat(QLocale::ShortFormat));
        d->setMinimumWidth(d->fontMetrics().horizontalAdvance(QStringLiteral("00 Mmm 0000")) + 48);
    }
    fdDateMin->setObjectName(QStringLiteral("fdDateMin"));
    fdDateMax->setObjectName(QStringLiteral("fdDateMax"));

    ListView1 = new ListView(this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->SetMultiSelect(true);
    mListViewColor::SetListColors(*ListView1);
    ListView1->header()->setContextMenuPolicy(Qt::CustomContextMenu);

    StatusBar1 = new QStatusBar(this);
    StatusBar1->setSizeGripEnabled(true);
    StatusPanel1 = new QLabel(StatusBar1);
    StatusBar1->addWidget(StatusPanel1, 1);
    ProgressBar1 = new QProgressBar(StatusBar1);
    ProgressBar1->setMaximumWidth(220);
    ProgressBar1->setTextVisible(false);
    StatusBar1->addPermanentWidget(ProgressBar1);
    ProgressBar1->setVisible(false);

    auto* top = new QHBoxLayout;
    top->addWidget(Label2);
    top->addWidget(cmbName, 1);
    top->addWidget(bnSearch);
    top->addWidget(bnStop);

    auto* fields = new QGridLayout;
    // Three columns of three boxes: the name fields, the numbers and texts, the place.
    QCheckBox* const columns[3][3] = {
        {chFullName, chTitle, chCompany}, {chNumbers, chComment, chAddress}, {chCity, chState, chZip}};
    for (int c = 0; c < 3; ++c)
        for (int r = 0; r < 3; ++r)
            fields->addWidget(columns[c][r], r, c);

    auto* dates = new QGridLayout(XPFrame3);
    dates->addWidget(chDateMin, 0, 0);
    dates->addWidget(fdDateMin, 0, 1);
    dates->addWidget(chDateMax, 1, 0);
    dates->addWidget(fdDateMax, 1, 1);

    auto* middle = new QHBoxLayout;
    middle->addLayout(fields, 1);
    middle->addWidget(XPFrame3);

    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addLayout(middle);
    all->addWidget(ListView1, 1);
    all->addWidget(StatusBar1);
    all->setContentsMargins(8, 8, 8, 0);
    resize(820, 560);
}

void Form8::connectEvents() {
    connect(bnSearch, &QPushButton::clicked, this,
            [this] { RunEvent("Form8.bnSearch_Click", [this] { bnSearch_Click(); }); });
    connect(bnStop, &QPushButton::clicked, this,
            [this] { RunEvent("Form8.bnStop_Click", [this] { bnStop_Click(); }); });
    connect(cmbName->lineEdit(), &QLineEdit::returnPressed, this,
            [this] { RunEvent("Form8.cmbName_KeyPress", [this] { cmbName_KeyPress(13); }); });
    connect(chDateMin, &QCheckBox::clicked, this,
            [this] { RunEvent("Form8.chDateMin_Click", [this] { chDateMin_Click(); }); });
    connect(chDateMax, &QCheckBox::clicked, this,
            [this] { RunEvent("Form8.chDateMax_Click", [this] { chDateMax_Click(); }); });
    connect(ListView1, &ListView::DblClick, this,
            [this] { RunEvent("Form8.ListView1_DblClick", [this] { ListView1_DblClick(); }); });
    connect(ListView1, &ListView::KeyPress, this,
            [this](int& key) { RunEvent("Form8.ListView1_KeyPress", [&] { ListView1_KeyPress(key); }); });
    connect(ListView1, &ListView::MouseMove, this,
            [this](Qt::MouseButtons, Qt::KeyboardModifiers, const QPoint& p) {
                RunEvent("Form8.ListView1_MouseMove", [&] { ListView1_MouseMove(p); });
            });
    connect(ListView1, &ListView::MouseUp, this,
            [this](Qt::MouseButton b, Qt::KeyboardModifiers, const QPoint& p) {
                RunEvent("Form8.ListView1_MouseUp", [&] { ListView1_MouseUp(b, p); });
            });
    connect(ListView1, &ListView::ColumnClick, this, [this](ColumnHeader* c) {
        RunEvent("Form8.ListView1_ColumnClick", [&] { ListView1_ColumnClick(c->Index() - 1); });
    });
    connect(ListView1->header(), &QHeaderView::customContextMenuRequested, this,
            [this] { RunEvent("Form8.PopupHL8", [this] { PopupHL8(); }); });
}

void Form8::Form_Load() {
    HUNT_PLACE("Form8.Form_Load");
    setWindowTitle(msgSearchTitle);
    Label2->setText(msgSearchFor);
    bnSearch->setText(msgSearch);
    bnStop->setText(msgStop);
    chFullName->setText(msgFullName);
    chTitle->setText(msgTitle);
    chCompany->setText(msgCompany);
    chComment->setText(msgComment);
    chAddress->setText(msgAddress);
    chCity->setText(msgCity);
    chState->setText(msgStateProv);
    chZip->setText(msgZipPostalCode);
    XPFrame3->setTitle(msgAdded);
    chDateMin->setText(msgFrom);
    chDateMax->setText(msgTo);
    for (const OptionBox& o : kOptionBoxes)
        (this->*o.box)
            ->setChecked(
                mRegSettings::SettingNumber(mRegSettings::ReadSetting(kOptions, QLatin1String(o.key))) == 1);
    RestorePlace();
    SubClasser::StartSubClass(this, SubClassMy::SearchWindow);
    mRegSettings::ApplyPreferenceFont(this);

    bnStop->setEnabled(false);
    chDateMin->setChecked(false);
    chDateMax->setChecked(false);
    chDateMin_Click();
    chDateMax_Click();
    fdDateMin->setDate(QDate::currentDate());
    fdDateMax->setDate(QDate::currentDate());
    SavePath(IDCD, Path);

    mLV::IniSearchListMain(*ListView1);
    GetMRUFileList();
    const QString sort = mLV::SortSection(mLV::lcSearch);
    const int key = mRegSettings::SettingInt(mRegSettings::ReadSetting(sort, QStringLiteral("SortKey")));
    const int order = mRegSettings::SettingInt(mRegSettings::ReadSetting(sort, QStringLiteral("SortOrder")));
    // Stored turned round: the sort of the column in force turns it back.
    ListView1->SetSortKey(key);
    ListView1->SetSortOrder(order == lvwAscending ? lvwDescending : lvwAscending);
    mLV::SwitchSortSearch(*ListView1, key);
    cmbName->setFocus();
}

void Form8::BeforeUnload() {
    HUNT_PLACE("Form8.Form_Unload");
    for (const OptionBox& o : kOptionBoxes)
        SaveSetting(AppTitle(), kOptions, QLatin1String(o.key), (this->*o.box)->isChecked() ? 1 : 0);
    mLV::SaveColumnSize(*ListView1, mLV::lcSearch);
    SaveMRUFileList();
    SubClasser::StopSubClass(this);
}

void Form8::reject() {
    // A search in progress sees the stop first; the window closes once it has ended.
    if (m_running) {
        SearchStopRequested = true;
        QTimer::singleShot(0, this, [this] { reject(); });
        return;
    }
    FormDialog::reject();
}

mSearch::SearchInput Form8::Input() const {
    mSearch::SearchInput in;
    in.Text = cmbName->currentText();
    in.Numbers = chNumbers->isChecked();
    in.FullName = chFullName->isChecked();
    in.Title = chTitle->isChecked();
    in.Company = chCompany->isChecked();
    in.Comment = chComment->isChecked();
    in.Address = chAddress->isChecked();
    in.City = chCity->isChecked();
    in.State = chState->isChecked();
    in.Zip = chZip->isChecked();
    in.DateMinOn = chDateMin->isChecked();
    in.DateMin = fdDateMin->date();
    in.DateMaxOn = chDateMax->isChecked();
    in.DateMax = fdDateMax->date();
    return in;
}

QString Form8::GetWhere(QString& strCount) const {
    return mSearch::BuildWhere(Input(), strCount);
}

QString Form8::GetWhereDisk() const {
    return mSearch::GetWhereDisk();
}

void Form8::StartSearch() {
    HUNT_PLACE("Form8.StartSearch");
    StatusPanel1->clear();
    UpdateCombo(QStringLiteral("cmbName"));
    SearchStopRequested = false;
    ListView1->ListItems.Clear();
    ListView1->SetPicture(QString());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_running = true;
    struct Idle {
        Form8* f;
        ~Idle() {
            f->m_running = false;
            f->ProgressBar1->setVisible(false);
            f->bnSearch->setEnabled(true);
            f->bnStop->setEnabled(false);
            QApplication::restoreOverrideCursor();
        }
    } idle{this};

    QString strCount;
    const QString sql = GetWhere(strCount);
    int count = 0;
    if (!sql.isEmpty()) {
        dao::Recordset rc = gDB.OpenRecordset(strCount, dao::dbOpenSnapshot);
        count = rc[QStringLiteral("cnt")].toInt();
        rc.Close();
    }
    if (count > 0) {
        ProgressBar1->setVisible(true);
        ProgressBar1->setRange(0, count);
        ProgressBar1->setValue(0);
        const int step = progressStep(count);
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        const mSearch::SearchFields fields(rs);
        // The rows go in blocks; between blocks the window answers, so that Stop can be pressed.
        QElapsedTimer sinceEvents;
        sinceEvents.start();
        auto block = std::make_unique<mLV::ListUpdate>(*ListView1);
        for (int row = 1; !rs.AtEOF() && !SearchStopRequested; rs.MoveNext(), ++row) {
            if (row % step == 0) ProgressBar1->setValue(row);
            mSearch::AddSearchRecord(*ListView1, rs, fields);
            if (sinceEvents.elapsed() > 150) {
                block.reset();
                QApplication::processEvents();
                block = std::make_unique<mLV::ListUpdate>(*ListView1);
                sinceEvents.restart();
            }
        }
        block.reset();
        rs.Close();
    }
    SearchStopRequested = false;

    if (ListView1->ListItems.Count() == 0) {
        ListView1->SetPicture(msgNoItemsFound + QStringLiteral("   "));
    } else {
        ListView1->SetSortOrder(ListView1->SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
        mLV::SwitchSortSearch(*ListView1, ListView1->SortKey());
        if (ListItem* selected = ListView1->SelectedItem()) selected->SetSelected(false);
        ListView1->SetSelectedItem(nullptr);
    }
    StatusPanel1->setText(msgContactsColon + groupedNumber(ListView1->ListItems.Count()));
}

void Form8::bnSearch_Click() {
    HUNT_PLACE("Form8.bnSearch_Click");
    if (m_running) return;
    bnSearch->setEnabled(false);
    bnStop->setEnabled(true);
    bnStop->setFocus();
    StartSearch();
    cmbName->setFocus();
}

void Form8::bnStop_Click() {
    SearchStopRequested = true;
}

void Form8::cmbName_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) bnSearch_Click();
}

void Form8::chDateMin_Click() {
    fdDateMin->setEnabled(chDateMin->isChecked());
}

void Form8::chDateMax_Click() {
    fdDateMax->setEnabled(chDateMax->isChecked());
}

void Form8::UpdateCombo(const QString& str) {
    HUNT_PLACE("Form8.UpdateCombo(str)", str);
    QComboBox* combo = findChild<QComboBox*>(str);
    if (!combo) combo = cmbName;
    const QString text = combo->currentText();
    if (text.trimmed().isEmpty()) return;
    if (combo->count() == 0) {
        combo->addItem(text);
        combo->setEditText(text);
        return;
    }
    ComboHidden->clear();
    for (int i = 0; i < combo->count(); ++i)
        ComboHidden->addItem(combo->itemText(i));
    combo->clear();
    const int start = ComboHidden->count();
    for (int i = 0; i < start; ++i) {
        // Case counts: a text that differs only in case is a new one.
        if (i < ComboHidden->count() && ComboHidden->itemText(i) == text) {
            combo->addItem(text);
            ComboHidden->removeItem(i);
        }
    }
    if (combo->count() > 0) {
        for (int i = 0; i < ComboHidden->count(); ++i)
            combo->addItem(ComboHidden->itemText(i));
    } else {
        combo->addItem(text);
        const int keep = ComboHidden->count() == kHistory ? kHistory - 1 : ComboHidden->count();
        for (int i = 0; i < keep; ++i)
            combo->addItem(ComboHidden->itemText(i));
    }
    combo->setEditText(text);
}

void Form8::GetMRUFileList() {
    HUNT_PLACE("Form8.GetMRUFileList");
    for (int i = 0;; ++i) {
        const QString entry = GetSetting(AppTitle(), kHistorySection, QString::number(i));
        if (entry.isEmpty()) break;
        cmbName->addItem(entry);
    }
    cmbName->setEditText(QString());
}

void Form8::SaveMRUFileList() {
    HUNT_PLACE("Form8.SaveMRUFileList");
    for (int i = 0; i < cmbName->count(); ++i)
        SaveSetting(AppTitle(), kHistorySection, QString::number(i), cmbName->itemText(i));
}

void Form8::SavePath(qint32 pIDCD, const QString& pPath) {
    HUNT_PLACE("Form8.SavePath(IDCD,Path)", pIDCD, pPath);
    if (pIDCD == 0 || gFileReadOnly || gReadOnlyMode) return;
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("Select * From SearchWhere Order By Update"));
    QString quoted = pPath;
    quoted.replace(QLatin1Char('\''), QLatin1String("''"));
    rs.FindFirst(QStringLiteral("IDCD = %1 AND Path = '%2'").arg(pIDCD).arg(quoted));
    if (rs.NoMatch()) {
        if (!rs.AtEOF() || !rs.AtBOF()) rs.MoveLast();
        if (rs.RecordCount() >= kHistory) {
            rs.MoveFirst();
            rs.Delete();
        }
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDCD"), pIDCD);
        rs.SetValue(QStringLiteral("Path"), pPath);
        rs.SetValue(QStringLiteral("Update"), QDateTime::currentDateTime());
        rs.Update();
    } else {
        rs.Edit();
        rs.SetValue(QStringLiteral("Update"), QDateTime::currentDateTime());
        rs.Update();
    }
    rs.Close();
}

void Form8::DiskPropertiesSearch() {
    HUNT_PLACE("Form8.DiskPropertiesSearch");
    if (PropertiesMode == 0) return;
    PropertiesMode = 0;
    mScanCD::DiskPropertiesSearch(*ListView1);
}

void Form8::ListView1_DblClick() {
    if (m_running || !ListView1->SelectedItem()) return;
    PropertiesMode = 1;
    DiskPropertiesSearch();
}

void Form8::ListView1_KeyPress(int& KeyAscii) {
    if (KeyAscii != 13 || m_running || !ListView1->SelectedItem()) return;
    PropertiesMode = 1;
    DiskPropertiesSearch();
}

QString Form8::LinkAt(const QPoint& pos) const {
    int subItem = -1;
    const ListItem* row = ListView1->HitTest(pos, &subItem);
    if (!row || subItem < 1 || row->CellForeColor(subItem) != mSearch::LinkColor()) return QString();
    return row->CellTag(subItem);
}

void Form8::ListView1_MouseMove(const QPoint& pos) {
    ListView1->SetMousePointer(LinkAt(pos).isEmpty() ? ccDefault : ccCustom);
}

void Form8::ListView1_MouseUp(Qt::MouseButton Button, const QPoint& pos) {
    HUNT_PLACE("Form8.ListView1_MouseUp(Button)", int(Button));
    if (m_running) return;
    const bool right = Button == Qt::RightButton;
    ListItem* item = ListView1->HitTest(pos);
    if (!item) {
        if (ListView1->ListItems.Count() > 0 && ListView1->SelectedItem())
            ListView1->SetSelectedItem(nullptr);
        if (right) {
            PopupSearch(0);
            DiskPropertiesSearch();
        }
    } else {
        const size_t selected = ListView1->SelectedItems().size();
        const int mode = selected >= 2 ? 1 : (item->Tag() == QLatin1String("2") ? 3 : 2);
        if (right) {
            PopupSearch(mode);
            DiskPropertiesSearch();
        }
    }
    const QString link = LinkAt(pos);
    if (!link.isEmpty()) mCommon::OpenLink(link);
}

void Form8::ListView1_ColumnClick(int column) {
    if (m_running) return;
    mLV::SwitchSortSearch(*ListView1, column);
}

QMenu* Form8::PopupSearch(int pMode, bool show) {
    HUNT_PLACE("Form8.PopupSearch(pMode)", pMode);
    delete m_popup;
    m_popup = new QMenu(this);
    m_popup->setObjectName(QStringLiteral("PopupSearch"));
    QMenu* arrange = m_popup->addMenu(msgArrangeItems);
    for (int column = 0; column < 25; ++column)
        addEntry(arrange, arrangeId(column), *kArrange[column], true, column == ListView1->SortKey());
    if (pMode > 0) addEntry(m_popup, idProperties, msgProperties);
    if (show)
        if (QAction* chosen = mSearch::ShowPopup(m_popup)) CommandBars8_Execute(chosen->data().toInt());
    return m_popup;
}

QMenu* Form8::PopupHL8(bool show) {
    HUNT_PLACE("Form8.PopupHL8");
    delete m_headerPopup;
    m_headerPopup = new QMenu(this);
    m_headerPopup->setObjectName(QStringLiteral("PopupHL8"));
    for (int index = 1; index <= ListView1->ColumnHeaders.Count(); ++index) {
        const ColumnHeader* c = ListView1->ColumnHeaders.Item(index);
        addEntry(m_headerPopup, columnMenuId(index), mLV::ColumnCaption(*c), true, !mLV::HiddenColumn(*c));
        if (index == 24) addEntry(m_headerPopup, idColumnsCustomize, msgCustomizeColumns);
    }
    if (show)
        if (QAction* chosen = mSearch::ShowPopup(m_headerPopup)) CommandBars8_Execute(chosen->data().toInt());
    return m_headerPopup;
}

void Form8::CommandBars8_Execute(int Id) {
    HUNT_PLACE("Form8.CommandBars8_Execute(Control)", Id);
    if (Id == idProperties)
        mnuSearchProperties_Click();
    else if (Id >= idSortFirst && Id <= idSortLast)
        mLV::SwitchSortSearch(*ListView1, Id - idSortFirst);
    else if (Id == idSortByGroup)
        mLV::SwitchSortSearch(*ListView1, 24);
    else if (Id == idInvertSelection)
        mnuSearchInvertSelection_Click();
    else if (Id == idSelectAll)
        mnuSearchSelectAll_Click();
    else if (Id >= idColumnFirst && Id <= idColumnLast)
        mnuHL8_Click(Id - idColumnFirst + 1);
    else if (Id == idColumnsCustomize)
        mnuHL8Customize_Click();
    else if (Id == idColumnGroup)
        mnuHL8_Click(25);
    // idExecute and idOpenInExplorer act on rows that carry a file path; a contact row has none.
}

void Form8::mnuHL8_Click(int Index) {
    HUNT_PLACE("Form8.mnuHL8_Click(Index)", Index);
    ColumnHeader* c = ListView1->ColumnHeaders.Item(Index);
    if (!c) return;
    if (mLV::HiddenColumn(*c))
        mLV::ShowColumn(*c);
    else
        mLV::HideColumn(*c);
}

void Form8::mnuHL8Customize_Click() {
    HUNT_PLACE("Form8.mnuHL8Customize_Click");
    QWidget* owner = mTV::MainWindowOwner();
    Form21 frm(*ListView1, 8, owner ? owner : this);
    ShowModal(&frm, owner ? owner : this);
}

void Form8::mnuSearchProperties_Click() {
    if (ListView1->SelectedItem()) PropertiesMode = 1;
}

void Form8::mnuSearchSelectAll_Click() {
    mLV::ListUpdate block(*ListView1);
    for (ListItem* item : ListView1->ListItems)
        item->SetSelected(true);
}

void Form8::mnuSearchInvertSelection_Click() {
    mLV::ListUpdate block(*ListView1);
    for (ListItem* item : ListView1->ListItems)
        item->SetSelected(!item->Selected());
}

namespace mCommon {

void Search(const QString& text) {
    HUNT_PLACE("mCommon.Search", text);
    if (gNotConnected) return;
    QWidget* owner = mTV::MainWindowOwner();
    Form8 frm(owner);
    gForm8 = &frm;
    if (!text.isEmpty()) {
        frm.cmbName->setEditText(text);
        QTimer::singleShot(0, &frm,
                           [&frm] { RunEvent("Form8.bnSearch_Click", [&frm] { frm.bnSearch_Click(); }); });
    }
    ShowModal(&frm, owner);
}

} // namespace mCommon
