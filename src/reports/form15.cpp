#include "reports/form15.h"

#include "contactlist/listsort.h"
#include "core/cfiledialog.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "reports/reportcolumns.h"
#include "reports/reportquery.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"
#include "support/themes/listcolor.h"
#include "trees/mainview.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace mLanguageGobals;

namespace {

const QString kOptions = QStringLiteral("ReportOptions");
const QString kLocation = QStringLiteral("ReportLocation");

QString readOption(const char* key) {
    return mRegSettings::ReadSetting(kOptions, QLatin1String(key));
}

void saveOption(const char* key, const QString& value) {
    SaveSetting(AppTitle(), kOptions, QLatin1String(key), value);
}

// The hourglass for the length of a run, whatever way the run ends.
class Hourglass {
  public:
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

const ListView* mainContactList() {
    const auto view = mTV::MainWindowView();
    return view ? &view->ListView2 : nullptr;
}

} // namespace

Form15::Form15(bool diskMode, QWidget* parent) : Form15(diskMode, mainContactList(), parent) {}

Form15::Form15(bool diskMode, const ListView* source, QWidget* parent)
    : FormDialog(QStringLiteral("Form15"), parent), DiskMode(diskMode), m_source(source) {
    buildControls();
    Form_Load();
}

void Form15::buildControls() {
    auto radio = [](const char* name, QWidget* parent) {
        auto* r = new QRadioButton(parent);
        r->setObjectName(QLatin1String(name));
        return r;
    };
    auto check = [this](const char* name) {
        auto* c = new QCheckBox(this);
        c->setObjectName(QLatin1String(name));
        return c;
    };

    // The list page.
    pbList = new QWidget(this);
    pbList->setObjectName(QStringLiteral("pbList"));
    lvReport = new ListView(pbList);
    mListViewColor::SetListColors(*lvReport);
    lvReport->setObjectName(QStringLiteral("lvReport"));
    lvReport->SetMultiSelect(true);
    auto* listLayout = new QVBoxLayout(pbList);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->addWidget(lvReport, 1);
    auto* choice = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        Option1[i] = radio(i == 0 ? "Option1_0" : i == 1 ? "Option1_1" : "Option1_2", pbList);
        choice->addWidget(Option1[i]);
    }
    choice->addStretch(1);
    listLayout->addLayout(choice);

    // The options page.
    pbOptions = new QWidget(this);
    pbOptions->setObjectName(QStringLiteral("pbOptions"));
    Label1 = new QLabel(pbOptions);
    fdTitle = new QLineEdit(pbOptions);
    fdTitle->setObjectName(QStringLiteral("fdTitle"));
    Label2 = new QLabel(pbOptions);
    fdComment = new QLineEdit(pbOptions);
    fdComment->setObjectName(QStringLiteral("fdComment"));
    Label3 = new QLabel(pbOptions);
    cmbSortDisks = new QComboBox(pbOptions);
    cmbSortDisks->setObjectName(QStringLiteral("cmbSortDisks"));
    lvDiskColumns = new ListView(pbOptions);
    lvDiskColumns->setObjectName(QStringLiteral("lvDiskColumns"));
    lvDiskColumns->SetCheckboxes(true);
    lvDiskColumns->header()->setSectionsClickable(false);
    lvDiskColumns->header()->setSectionsMovable(false);
    lvDiskColumns->header()->setStretchLastSection(true);
    VScroll1 = new QScrollBar(Qt::Vertical, pbOptions);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setFocusPolicy(Qt::NoFocus);
    VScroll1->setSingleStep(1);
    VScroll1->setPageStep(1);
    bnUp = MakeButton("bnUp");
    bnDown = MakeButton("bnDown");
    chShortBox = check("chShortBox");
    chShortCategory = check("chShortCategory");
    chSummary = check("chSummary");
    XPFrame1 = new QGroupBox(pbOptions);
    Option2[0] = radio("Option2_0", XPFrame1);
    Option2[1] = radio("Option2_1", XPFrame1);
    Label4 = new QLabel(XPFrame1);
    fdSeparator = new QLineEdit(XPFrame1);
    fdSeparator->setObjectName(QStringLiteral("fdSeparator"));
    fdSeparator->setMaximumWidth(60);
    auto* formatLayout = new QGridLayout(XPFrame1);
    formatLayout->addWidget(Option2[0], 0, 0);
    formatLayout->addWidget(Option2[1], 1, 0);
    formatLayout->addWidget(Label4, 1, 1);
    formatLayout->addWidget(fdSeparator, 1, 2);
    formatLayout->setColumnStretch(3, 1);
    Frame1 = new QGroupBox(pbOptions);
    Option3[0] = radio("Option3_0", Frame1);
    Option3[1] = radio("Option3_1", Frame1);
    auto* layoutLayout = new QVBoxLayout(Frame1);
    layoutLayout->addWidget(Option3[0]);
    layoutLayout->addWidget(Option3[1]);
    chOpen = check("chOpen");
    chSaveSettings = check("chSaveSettings");

    auto* options = new QGridLayout(pbOptions);
    options->setContentsMargins(0, 0, 0, 0);
    options->addWidget(Label1, 0, 0);
    options->addWidget(fdTitle, 0, 1, 1, 3);
    options->addWidget(Label2, 1, 0);
    options->addWidget(fdComment, 1, 1, 1, 3);
    options->addWidget(Label3, 2, 0);
    options->addWidget(cmbSortDisks, 2, 1, 1, 3);
    options->addWidget(lvDiskColumns, 3, 0, 6, 2);
    options->addWidget(VScroll1, 3, 2, 2, 1);
    options->addWidget(bnUp, 3, 3);
    options->addWidget(bnDown, 4, 3);
    auto* boxes = new QVBoxLayout;
    boxes->addWidget(chShortBox);
    boxes->addWidget(chShortCategory);
    boxes->addWidget(chSummary);
    boxes->addWidget(XPFrame1);
    boxes->addWidget(Frame1);
    boxes->addStretch(1);
    options->addLayout(boxes, 5, 2, 4, 2);
    options->addWidget(chOpen, 9, 0, 1, 4);
    options->addWidget(chSaveSettings, 10, 0, 1, 4);
    options->setColumnStretch(1, 1);
    options->setRowStretch(8, 1);

    // Below both pages.
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    fdBack = MakeButton("fdBack");
    bnNextSave = MakeButton("bnNextSave");
    bnCancel = MakeButton("bnCancel");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ProgressBar1, 1);
    buttons->addStretch(0);
    buttons->addWidget(fdBack);
    buttons->addWidget(bnNextSave);
    buttons->addWidget(bnCancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(pbList, 0, 0);
    grid->addWidget(pbOptions, 0, 0); // the two pages take turns at one place
    grid->addLayout(buttons, 1, 0);
    grid->setRowStretch(0, 1);
    resize(620, 520);

    auto event = [this](const char* place, auto body) { return [place, body] { RunEvent(place, body); }; };
    connect(bnNextSave, &QPushButton::clicked, this,
            event("Form15.bnNextSave_Click", [this] { bnNextSave_Click(); }));
    connect(fdBack, &QPushButton::clicked, this, event("Form15.fdBack_Click", [this] { fdBack_Click(); }));
    connect(bnCancel, &QPushButton::clicked, this,
            event("Form15.bnCancel_Click", [this] { bnCancel_Click(); }));
    connect(bnUp, &QPushButton::clicked, this, event("Form15.bnUp_Click", [this] { bnUp_Click(); }));
    connect(bnDown, &QPushButton::clicked, this, event("Form15.bnDown_Click", [this] { bnDown_Click(); }));
    for (int i = 0; i < 3; ++i)
        connect(Option1[i], &QRadioButton::clicked, this,
                event("Form15.Option1_Click(Index)", [this, i] { Option1_Click(i); }));
    for (int i = 0; i < 2; ++i)
        connect(Option2[i], &QRadioButton::clicked, this,
                event("Form15.Option2_Click(Index)", [this, i] { Option2_Click(i); }));
    // The choice of rows changes with each press of a key or a button on the list.
    connect(lvReport, &ListView::KeyUp, this, event("Form15.lvReport_KeyUp", [this] { AllowNext(); }));
    connect(lvReport, &ListView::MouseUp, this, event("Form15.lvReport_MouseUp", [this] { AllowNext(); }));
    connect(lvReport, &ListView::ColumnClick, this, [this](ColumnHeader* column) {
        RunEvent("Form15.lvReport_ColumnClick", [this, column] { lvReport_ColumnClick(column); });
    });
    connect(lvDiskColumns, &ListView::ItemClick, this, [this](ListItem* item) {
        RunEvent("Form15.lvDiskColumns_ItemClick", [this, item] { lvDiskColumns_ItemClick(item); });
    });
    connect(VScroll1, &QScrollBar::valueChanged, this,
            event("Form15.VScroll1_Change", [this] { VScroll1_Change(); }));
}

void Form15::Form_Load() {
    HUNT_PLACE("Form15.Form_Load");
    setWindowTitle(msgReport);
    Option1[0]->setText(msgAll);
    Option1[1]->setText(msgSelected);
    Option1[2]->setText(msgNotSelected);
    Label1->setText(msgReportTitle);
    Label2->setText(msgCommentColon);
    Label3->setText(msgSortRecordsBy);
    bnUp->setText(msgMoveUp);
    bnDown->setText(msgMoveDown);
    chShortBox->setText(msgShortGroup);
    chShortCategory->setText(msgShortCategory);
    chSummary->setText(msgSummaryInfo);
    XPFrame1->setTitle(msgReportFormat);
    Option2[0]->setText(msgFormatHTML);
    Option2[1]->setText(msgFormatCSV);
    Frame1->setTitle(msgLayout);
    Option3[0]->setText(msgColumnar);
    Option3[1]->setText(msgTabular);
    Label4->setText(msgSeparator);
    chOpen->setText(msgOpenAfterTheReportIsCreated);
    chSaveSettings->setText(msgSaveSettings);
    fdBack->setText(msgBackArrow);
    bnNextSave->setText(msgNextArrow);
    bnCancel->setText(msgClose);
    fdBack->hide();
    pbOptions->hide();
    ProgressBar1->hide();
    Option1[0]->setChecked(true);
    IniDiskColumnsList();
    mLV::IniReportList(*lvReport, *cmbSortDisks, DiskMode);
    RestorePlace();
    GetReportOptions();
    if (m_source) mLV::FillReportList(*lvReport, *m_source, DiskMode);
    AllowNext();
}

void Form15::IniDiskColumnsList() {
    HUNT_PLACE("Form15.IniDiskColumnsList");
    lvDiskColumns->ColumnHeaders.Clear();
    lvDiskColumns->ColumnHeaders.Add(QString(), msgColumns, 2500.0 / 15);
}

void Form15::AllowNext() {
    HUNT_PLACE("Form15.AllowNext");
    bool allow = false;
    for (const ListItem* row : lvReport->ListItems) {
        if (Option1[0]->isChecked())
            allow = true;
        else if (Option1[1]->isChecked())
            allow = row->Selected();
        else if (Option1[2]->isChecked())
            allow = !row->Selected();
        if (allow) break;
    }
    bnNextSave->setEnabled(allow);
}

bool Form15::AnyDisk() const {
    return DiskSpan() > 0;
}

int Form15::DiskSpan() const {
    int n = 0;
    for (const ListItem* row : lvDiskColumns->ListItems)
        if (row->Checked()) ++n;
    return n;
}

QString Form15::LocaleInfo(const QLocale& locale, int lc_type) {
    switch (lc_type) {
    case 12: // the list separator: a semicolon where the comma is the decimal point
        return locale.decimalPoint() == QLatin1String(",") ? QStringLiteral(";") : QStringLiteral(",");
    case 14:
        return locale.decimalPoint();
    case 15:
        return locale.groupSeparator();
    default:
        return QString();
    }
}

void Form15::GetReportOptions() {
    HUNT_PLACE("Form15.GetReportOptions");
    chSummary->setChecked(readOption("Summary") == QLatin1String("1"));
    chOpen->setChecked(readOption("Open") == QLatin1String("1"));
    chShortBox->setChecked(readOption("ShortBox") == QLatin1String("1"));
    chShortCategory->setChecked(readOption("ShortCategory") == QLatin1String("1"));
    const int sort = cmbSortDisks->findText(readOption("SortDisks"));
    cmbSortDisks->setCurrentIndex(std::max(sort, 0));
    const bool csv = readOption("Format") == QLatin1String("1");
    Option2[csv ? 1 : 0]->setChecked(true);
    Option2_Click(csv ? 1 : 0);
    Option3[readOption("Layout") == QLatin1String("1") ? 1 : 0]->setChecked(true);
    lvDiskColumns->ListItems.Clear();
    for (const mReport::DiskColumn& c : mReport::ParseDiskColumns(readOption("DiskColumns"))) {
        ListItem* row = lvDiskColumns->ListItems.Add(QString(), mReport::FindReportColumn(c.tag)->caption);
        row->SetTag(c.tag);
        row->SetChecked(c.checked);
    }
    // Always the locale's separator: what was stored last is not offered again.
    fdSeparator->setText(LocaleInfo(QLocale(), 12));
    VScroll1->setRange(1, std::max(lvDiskColumns->ListItems.Count(), 1));
    if (ListItem* first = lvDiskColumns->ListItems(1)) lvDiskColumns->SetSelectedItem(first);
}

void Form15::SaveReportOptions() {
    HUNT_PLACE("Form15.SaveReportOptions");
    auto flag = [](const QCheckBox* c) { return c->isChecked() ? QStringLiteral("1") : QStringLiteral("0"); };
    saveOption("Summary", flag(chSummary));
    saveOption("Open", flag(chOpen));
    saveOption("ShortBox", flag(chShortBox));
    saveOption("ShortCategory", flag(chShortCategory));
    saveOption("SortDisks", cmbSortDisks->currentText());
    saveOption("Format", Option2[0]->isChecked() ? QStringLiteral("0") : QStringLiteral("1"));
    saveOption("Layout", Option3[0]->isChecked() ? QStringLiteral("0") : QStringLiteral("1"));
    saveOption("Separator", fdSeparator->text());
    QList<mReport::DiskColumn> rows;
    for (const ListItem* row : lvDiskColumns->ListItems)
        rows.append({row->Tag(), row->Checked()});
    saveOption("DiskColumns", mReport::JoinDiskColumns(rows));
}

QString Form15::GetReportPath(int Ext) {
    HUNT_PLACE("Form15.GetReportPath(Ext)", Ext);
    CFileDialog dialog;
    dialog.Owner = this;
    dialog.Title = msgCreateReport;
    dialog.FileName = GetSetting(AppTitle(), kLocation, QStringLiteral("Path"), DefaultFolder());
    if (Ext == 1) {
        dialog.Extension = QStringLiteral("html");
        dialog.Mask = msgHTMLFiles + QStringLiteral(" (*.html)|*.html");
    } else {
        dialog.Extension = QStringLiteral("csv");
        dialog.Mask = msgCSVFiles + QStringLiteral(" (*.csv)|*.csv");
    }
    return dialog.Show(true) ? dialog.FileName : QString();
}

QString Form15::GetWhereReport(QString& strCount) {
    HUNT_PLACE("Form15.GetWhereReport");
    QList<qint32> ids;
    if (DiskMode) {
        const int choice = Option1[0]->isChecked() ? 0 : Option1[1]->isChecked() ? 1 : 2;
        for (const ListItem* row : lvReport->ListItems)
            if (choice == 0 || row->Selected() == (choice == 1)) ids.append(mCommon::GetID1(row->Key()));
    } else if (const ListItem* row = lvReport->SelectedItem()) {
        ids.append(mCommon::GetID1(row->Key()));
    }
    strCount = mReport::ReportCountSql(ids);
    return mReport::ReportRowSql(ids, cmbSortDisks->currentIndex(), chShortCategory->isChecked(),
                                 chShortBox->isChecked());
}

void Form15::runReport(mReport::ReportKind kind, const char* place) {
    HUNT_PLACE(place);
    if (!AnyDisk()) {
        MsgBox(msgNoDataToReport, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    const QString path = GetReportPath(Option2[0]->isChecked() ? 1 : 2);
    if (path.isEmpty()) return;
    SaveSetting(AppTitle(), kLocation, QStringLiteral("Path"), path);
    mReport::ReportLayout layout;
    layout.Kind = kind;
    layout.Title = fdTitle->text();
    layout.Comment = fdComment->text();
    layout.Separator = fdSeparator->text();
    for (const ListItem* row : lvDiskColumns->ListItems)
        if (row->Checked()) layout.Columns << row->Tag();
    QString strCount;
    const QString rowSql = GetWhereReport(strCount);
    qint32 count = 0;
    {
        dao::Recordset rs = gDB.OpenRecordset(strCount, dao::dbOpenSnapshot);
        count = qint32(rs[QStringLiteral("cnt")].toLongLong());
    }
    if (count == 0) {
        MsgBox(msgNoDataToReport, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    ProgressBar1->setRange(0, count);
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    m_cancel = false;
    bool written = false;
    {
        // The bar goes, and the hourglass, however the run ends.
        struct HideBar {
            QProgressBar* bar;
            ~HideBar() { bar->hide(); }
        } hideBar{ProgressBar1};
        Hourglass hourglass;
        layout.Created = mReport::ReportTime();
        mReport::ReportRun run;
        run.Progress = [this](int rows) {
            ProgressBar1->setValue(rows);
            QCoreApplication::processEvents();
        };
        run.Cancelled = [this] { return m_cancel; };
        m_running = true;
        struct Done {
            bool& running;
            ~Done() { running = false; }
        } done{m_running};
        written = mReport::WriteReportFile(layout, path, rowSql, count, run);
    }
    if (written && chOpen->isChecked()) ShellOpen(path);
}

void Form15::SaveReport() {
    runReport(mReport::ReportKind::HtmlColumnar, "Form15.SaveReport");
}

void Form15::SaveReportHorizontal() {
    runReport(mReport::ReportKind::HtmlTabular, "Form15.SaveReportHorizontal");
}

void Form15::SaveReport2() {
    runReport(mReport::ReportKind::TextColumnar, "Form15.SaveReport2");
}

void Form15::SaveReportHorizontal2() {
    runReport(mReport::ReportKind::TextTabular, "Form15.SaveReportHorizontal2");
}

void Form15::bnNextSave_Click() {
    HUNT_PLACE("Form15.bnNextSave_Click");
    if (bnNextSave->text() == msgNextArrow) {
        fdBack->show();
        bnNextSave->setText(msgCreate);
        pbList->hide();
        pbOptions->show();
        return;
    }
    if (bnNextSave->text() != msgCreate) return;
    bnNextSave->setEnabled(false);
    fdBack->setEnabled(false);
    struct Enable {
        Form15* f;
        ~Enable() {
            f->bnNextSave->setEnabled(true);
            f->fdBack->setEnabled(true);
        }
    } enable{this};
    const bool html = Option2[0]->isChecked();
    const bool columnar = Option3[0]->isChecked();
    if (html && columnar)
        SaveReport();
    else if (html)
        SaveReportHorizontal();
    else if (columnar)
        SaveReport2();
    else
        SaveReportHorizontal2();
}

void Form15::fdBack_Click() {
    HUNT_PLACE("Form15.fdBack_Click");
    bnNextSave->setText(msgNextArrow);
    fdBack->hide();
    pbOptions->hide();
    pbList->show();
}

void Form15::bnCancel_Click() {
    HUNT_PLACE("Form15.bnCancel_Click");
    m_cancel = true;
    if (chSaveSettings->isChecked()) SaveReportOptions();
    done(QDialog::Rejected);
}

void Form15::done(int result) {
    // However the wizard ends, a report being written stops at its next row.
    m_cancel = true;
    FormDialog::done(result);
}

void Form15::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        RunEvent("Form15.bnCancel_Click", [this] { bnCancel_Click(); });
        return;
    }
    FormDialog::keyPressEvent(event);
}

void Form15::Option1_Click(int Index) {
    HUNT_PLACE("Form15.Option1_Click(Index)", Index);
    AllowNext();
}

void Form15::Option2_Click(int Index) {
    HUNT_PLACE("Form15.Option2_Click(Index)", Index);
    // A disabled box takes the window's colour, an enabled one that of the text boxes.
    fdSeparator->setEnabled(Index == 1);
    Label4->setEnabled(Index == 1);
}

void Form15::lvReport_ColumnClick(ColumnHeader* column) {
    HUNT_PLACE("Form15.lvReport_ColumnClick");
    if (column) mLV::SwitchSortReport(*lvReport, column->Index() - 1);
}

void Form15::swapRows(ListItem* a, ListItem* b) {
    const QString text = a->Text();
    const QString tag = a->Tag();
    const bool checked = a->Checked();
    a->SetText(b->Text());
    a->SetTag(b->Tag());
    a->SetChecked(b->Checked());
    b->SetText(text);
    b->SetTag(tag);
    b->SetChecked(checked);
}

void Form15::lvDiskColumns_ItemClick(ListItem* Item) {
    HUNT_PLACE("Form15.lvDiskColumns_ItemClick");
    // A press on a check box ticks it without selecting the row: the spin stays with the
    // selected row.
    if (Item && Item == lvDiskColumns->SelectedItem()) {
        const QSignalBlocker quiet(VScroll1);
        VScroll1->setValue(Item->Index());
    }
}

void Form15::VScroll1_Change() {
    HUNT_PLACE("Form15.VScroll1_Change");
    ListItem* selected = lvDiskColumns->SelectedItem();
    ListItem* target = lvDiskColumns->ListItems(VScroll1->value());
    if (!selected || !target || selected == target) return;
    swapRows(selected, target);
    lvDiskColumns->SetSelectedItem(target);
    target->EnsureVisible();
}

void Form15::bnUp_Click() {
    HUNT_PLACE("Form15.bnUp_Click");
    if (VScroll1->value() > VScroll1->minimum()) VScroll1->setValue(VScroll1->value() - 1);
}

void Form15::bnDown_Click() {
    HUNT_PLACE("Form15.bnDown_Click");
    if (VScroll1->value() < VScroll1->maximum()) VScroll1->setValue(VScroll1->value() + 1);
}
