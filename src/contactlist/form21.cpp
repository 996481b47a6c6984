#include "contactlist/form21.h"

#include "contactlist/columns.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/language.h"
#include "support/controls/listview.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>

using namespace mLanguageGobals;

namespace {

// A place as the rows show it while they are sorted: two digits, "05".
QString TwoDigits(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

} // namespace

Form21::Form21(ListView& Target, int listNumber, QWidget* parent)
    : FormDialog(QStringLiteral("Form21"), parent), ListNumber(listNumber), m_target(Target) {
    buildControls();
    Form_Load();
}

void Form21::buildControls() {
    lvColumns = new ListView(this);
    lvColumns->setObjectName(QStringLiteral("lvColumns"));
    lvColumns->SetCheckboxes(true);
    QHeaderView* h = lvColumns->header();
    h->setSectionsClickable(false);
    h->setSectionsMovable(false);
    h->setStretchLastSection(true);

    // A short scroll bar: only its two arrows show, and they move the selected row.
    VScroll1 = new QScrollBar(Qt::Vertical, this);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setFocusPolicy(Qt::NoFocus);
    VScroll1->setSingleStep(1);
    VScroll1->setPageStep(1);

    bnUp = MakeButton("bnUp");
    bnDown = MakeButton("bnDown");
    bnDefault = MakeButton("bnDefault");
    bnOK = MakeButton("bnOK");
    bnCancel = MakeButton("bnCancel");
    bnOK->setDefault(true);

    // The list at the left; beside it the spin, at the height of the two buttons it goes with.
    auto* grid = new QGridLayout(this);
    grid->addWidget(lvColumns, 0, 0, 7, 1);
    grid->addWidget(VScroll1, 0, 1, 2, 1);
    grid->addWidget(bnUp, 0, 2);
    grid->addWidget(bnDown, 1, 2);
    grid->setRowMinimumHeight(2, 8);
    grid->addWidget(bnDefault, 3, 2);
    grid->setRowStretch(4, 1);
    grid->addWidget(bnOK, 5, 2);
    grid->addWidget(bnCancel, 6, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnMinimumWidth(2, 96);
    resize(360, 420);

    connect(bnUp, &QPushButton::clicked, this,
            [this] { RunEvent("Form21.bnUp_Click", [this] { bnUp_Click(); }); });
    connect(bnDown, &QPushButton::clicked, this,
            [this] { RunEvent("Form21.bnDown_Click", [this] { bnDown_Click(); }); });
    connect(bnDefault, &QPushButton::clicked, this,
            [this] { RunEvent("Form21.bnDefault_Click", [this] { bnDefault_Click(); }); });
    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form21.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form21.bnCancel_Click", [this] { bnCancel_Click(); }); });
    connect(lvColumns, &ListView::ItemClick, this, [this](ListItem* item) {
        RunEvent("Form21.lvColumns_ItemClick", [this, item] { lvColumns_ItemClick(item); });
    });
    connect(VScroll1, &QScrollBar::valueChanged, this,
            [this] { RunEvent("Form21.VScroll1_Change", [this] { VScroll1_Change(); }); });
}

void Form21::Form_Load() {
    HUNT_PLACE("Form21.Form_Load");
    setWindowTitle(msgCustomizeColumns);
    bnUp->setText(msgMoveUp);
    bnDown->setText(msgMoveDown);
    bnDefault->setText(msgDefault);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);
    IniFileColumnsList();
    PrepareColumnList();
    RestorePlace();
}

void Form21::IniFileColumnsList() {
    HUNT_PLACE("Form21.IniFileColumnsList");
    lvColumns->ColumnHeaders.Add(QString(), msgColumns);
}

void Form21::PrepareColumnList() {
    HUNT_PLACE("Form21.PrepareColumnList", ListNumber);
    // Added with their places as text into a sorted list, the rows come in display order.
    lvColumns->SetSortKey(0);
    lvColumns->SetSortOrder(lvwAscending);
    lvColumns->SetSorted(true);
    for (const ColumnHeader* c : m_target.ColumnHeaders) {
        ListItem* row = lvColumns->ListItems.Add(mLV::ColumnCaption(*c), TwoDigits(c->Position()));
        row->SetChecked(!mLV::HiddenColumn(*c));
        row->SetTag(QString::number(c->Index()));
    }
    lvColumns->SetSorted(false);
    VScroll1->setRange(1, std::max(lvColumns->ListItems.Count(), 1));
    for (ListItem* row : lvColumns->ListItems)
        row->SetText(row->Key());
    if (ListItem* first = lvColumns->ListItems(1)) lvColumns->SetSelectedItem(first);
}

void Form21::swapRows(ListItem* a, ListItem* b) {
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

void Form21::VScroll1_Change() {
    HUNT_PLACE("Form21.VScroll1_Change");
    ListItem* selected = lvColumns->SelectedItem();
    ListItem* target = lvColumns->ListItems(VScroll1->value());
    if (!selected || !target) return;
    swapRows(selected, target);
    lvColumns->SetSelectedItem(target);
    target->EnsureVisible();
    VScroll1->setValue(target->Index());
}

void Form21::lvColumns_ItemClick(ListItem* Item) {
    HUNT_PLACE("Form21.lvColumns_ItemClick");
    // A press on a row's check box ticks it without selecting the row: the spin stays with the
    // selected row, else the next change would move that row to the ticked one's place.
    if (Item && Item == lvColumns->SelectedItem()) VScroll1->setValue(Item->Index());
}

void Form21::bnUp_Click() {
    HUNT_PLACE("Form21.bnUp_Click");
    if (VScroll1->value() > VScroll1->minimum()) VScroll1->setValue(VScroll1->value() - 1);
}

void Form21::bnDown_Click() {
    HUNT_PLACE("Form21.bnDown_Click");
    if (VScroll1->value() < VScroll1->maximum()) VScroll1->setValue(VScroll1->value() + 1);
}

void Form21::ResetToDefaults() {
    HUNT_PLACE("Form21.ResetToDefaults");
    // The column's index as text, sorted, puts the rows in the columns' own order; then the
    // header goes back to the text and every column is shown.
    for (ListItem* row : lvColumns->ListItems) {
        const QString text = row->Text();
        row->SetText(TwoDigits(row->Tag().toInt()));
        row->SetTag(text);
    }
    lvColumns->SetSorted(true);
    lvColumns->SetSorted(false);
    for (ListItem* row : lvColumns->ListItems) {
        const QString text = row->Text();
        row->SetText(row->Tag());
        row->SetTag(QString::number(text.toInt()));
        row->SetChecked(true);
    }
    if (ListItem* first = lvColumns->ListItems(1)) {
        lvColumns->SetSelectedItem(first);
        first->EnsureVisible();
        // The spin follows the selection, so that the next move starts from the first row.
        VScroll1->setValue(1);
    }
}

void Form21::bnDefault_Click() {
    HUNT_PLACE("Form21.bnDefault_Click");
    ResetToDefaults();
}

void Form21::bnOK_Click() {
    HUNT_PLACE("Form21.bnOK_Click", ListNumber);
    int place = 0;
    for (ListItem* row : lvColumns->ListItems) {
        ColumnHeader* c = m_target.ColumnHeaders(row->Tag().toInt());
        if (!c) continue;
        c->SetPosition(++place);
        if (row->Checked())
            mLV::ShowColumn(*c);
        else
            mLV::HideColumn(*c);
    }
    accept();
}

void Form21::bnCancel_Click() {
    HUNT_PLACE("Form21.bnCancel_Click");
    reject();
}
