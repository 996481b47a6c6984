#include "card/form19.h"

#include "card/cardform.h"
#include "card/cardtext.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/store/dao.h"
#include "preferences/regsettings.h"
#include "support/controls/imagecombo.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {

const QString kNew = QStringLiteral("new");
const QString kEdit = QStringLiteral("edit");

// A text as an SQL string literal, its apostrophes doubled.
QString quoted(const QString& text) {
    return QLatin1Char('\'') + QString(text).replace(QLatin1Char('\''), QLatin1String("''")) +
           QLatin1Char('\'');
}

} // namespace

Form19::Form19(CardForm* card, QWidget* parent) : FormDialog(QStringLiteral("Form19"), parent), m_card(card) {
    buildControls();
    Form_Load();
}

void Form19::buildControls() {
    fdNewType = new QLineEdit(this);
    fdNewType->setObjectName(QStringLiteral("fdNewType"));
    bnAdd = MakeButton("bnAdd");
    bnDelete = MakeButton("bnDelete");
    bnEdit = MakeButton("bnEdit");
    lvTypes = new ListView(this);
    lvTypes->setObjectName(QStringLiteral("lvTypes"));
    lvDeletedTypes = new ListView(this);
    lvDeletedTypes->setObjectName(QStringLiteral("lvDeletedTypes"));
    lvDeletedTypes->hide();
    bnOK = MakeButton("bnOK");
    bnCancel = MakeButton("bnCancel");

    // The name over the list; the list with its three buttons beside it; Save and Cancel below.
    auto* side = new QVBoxLayout;
    side->addWidget(bnAdd);
    side->addWidget(bnEdit);
    side->addWidget(bnDelete);
    side->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addWidget(lvTypes, 1);
    middle->addLayout(side);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    auto* box = new QVBoxLayout(this);
    box->addWidget(fdNewType);
    box->addLayout(middle, 1);
    box->addLayout(buttons);
    resize(420, 360);

    auto click = [this](QPushButton* button, const char* place, void (Form19::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, place, handler] { RunEvent(place, [this, handler] { (this->*handler)(); }); });
    };
    click(bnAdd, "Form19.bnAdd_Click", &Form19::bnAdd_Click);
    click(bnEdit, "Form19.bnEdit_Click", &Form19::bnEdit_Click);
    click(bnDelete, "Form19.bnDelete_Click", &Form19::bnDelete_Click);
    click(bnOK, "Form19.bnOK_Click", &Form19::bnOK_Click);
    click(bnCancel, "Form19.bnCancel_Click", &Form19::bnCancel_Click);
    connect(lvTypes, &ListView::ItemClick, this, [this](ListItem* item) {
        RunEvent("Form19.lvTypes_ItemClick", [this, item] { lvTypes_ItemClick(item); });
    });
}

void Form19::Form_Load() {
    HUNT_PLACE("Form19.Form_Load");
    setWindowTitle(msgAddEditType);
    bnAdd->setText(msgAddNew);
    bnDelete->setText(msgDeleteSelectedItem);
    bnEdit->setText(msgUpdateSelectedItem);
    bnOK->setText(msgSave);
    bnCancel->setText(msgCancel);
    bnOK->setEnabled(false);
    for (ListView* list : {lvTypes, lvDeletedTypes})
        list->ColumnHeaders.Add(QStringLiteral("Type"), msgType, 360);

    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT IDTYPE, Type FROM Types"), dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext())
        lvTypes->ListItems.Add(QLatin1String("ID") + rs.Text(0), rs.Text(1));
    rs.Close();
    if (lvTypes->ListItems.Count() > 0) lvTypes->SetSelectedItem(lvTypes->ListItems.Item(1));
    fdNewType->selectAll();
    RestorePlace();
    mRegSettings::ApplyPreferenceFont(this);
}

void Form19::lvTypes_ItemClick(ListItem* Item) {
    if (Item) fdNewType->setText(Item->Text());
}

bool Form19::nameTaken(const QString& text) const {
    for (const ListItem* item : lvTypes->ListItems)
        if (item->Text() == text) return true;
    return false;
}

void Form19::bnAdd_Click() {
    HUNT_PLACE("Form19.bnAdd_Click");
    const QString text = mCard::Trim(fdNewType->text());
    if (text.isEmpty()) return;
    if (nameTaken(text)) {
        MsgBox(msgThisTypeAlreadyExists, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    ListItem* item = lvTypes->ListItems.Add(kNew + QString::number(++m_newItems), text);
    item->SetTag(kNew);
    lvTypes->SetSelectedItem(item);
    bnOK->setEnabled(true);
}

void Form19::bnEdit_Click() {
    HUNT_PLACE("Form19.bnEdit_Click");
    const QString text = mCard::Trim(fdNewType->text());
    ListItem* item = lvTypes->SelectedItem();
    if (text.isEmpty() || lvTypes->ListItems.Count() == 0 || !item) return;
    // A rename onto a name in the list is refused without a word.
    if (nameTaken(text)) return;
    item->SetText(text);
    if (item->Tag() != kNew) item->SetTag(kEdit);
    bnOK->setEnabled(true);
}

void Form19::bnDelete_Click() {
    HUNT_PLACE("Form19.bnDelete_Click");
    ListItem* item = lvTypes->SelectedItem();
    if (lvTypes->ListItems.Count() == 0 || !item) return;
    if (item->Tag() != kNew) {
        const qint32 n = mCommon::GetID1(item->Key());
        QString sql = QStringLiteral(" SELECT Type1 From CDs Where Type1 = %1").arg(n);
        for (int k = 2; k <= CardForm::kRows; ++k)
            sql += QStringLiteral(" Or Type%1 = %2").arg(k).arg(n);
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        const bool used = !rs.AtEOF();
        rs.Close();
        if (used && MsgBox(msgSelectedTypeIsUsed + QLatin1Char('\r') + msgReallyDeleteThisType,
                           vb::vbYesNo | vb::vbDefaultButton2, vb::vbExclamation) != vb::vbYes)
            return;
    }
    ListItem* held = lvDeletedTypes->ListItems.Add(item->Key(), item->Text());
    held->SetTag(item->Tag());
    lvTypes->ListItems.Remove(item);
    if (lvTypes->ListItems.Count() > 0)
        if (ListItem* selected = lvTypes->SelectedItem()) lvTypes->SetSelectedItem(selected);
    bnOK->setEnabled(true);
}

void Form19::bnOK_Click() {
    try {
        dao::Transaction trans(gWS);
        applyChanges();
        trans.Commit();
    } catch (const HuntERR::Error& e) {
        HuntERR::Report(e, "Form19.bnOK_Click");
        return;
    } catch (const std::exception& e) {
        HuntERR::ReportForeign(e, "Form19.bnOK_Click");
        return;
    }
    // The card lets go of the deleted types once the phonebook has.
    for (const ListItem* item : lvDeletedTypes->ListItems)
        if (item->Tag() != kNew) dropFromCard(item->Key());
    accept();
}

void Form19::applyChanges() {
    for (const ListItem* item : lvTypes->ListItems) {
        if (item->Tag() == kNew)
            CreateType(item->Text());
        else if (item->Tag() == kEdit)
            gDB.Execute(QStringLiteral("UPDATE Types SET Type = ") + quoted(item->Text()) +
                        QStringLiteral(" WHERE IDTYPE=%1").arg(mCommon::GetID1(item->Key())));
    }
    for (const ListItem* item : lvDeletedTypes->ListItems) {
        // An item added and deleted again was never stored.
        if (item->Tag() == kNew) continue;
        const qint32 n = mCommon::GetID1(item->Key());
        gDB.Execute(QStringLiteral("DELETE * FROM Types WHERE IDTYPE=%1").arg(n));
        for (int k = 1; k <= CardForm::kRows; ++k)
            gDB.Execute(QStringLiteral("UPDATE CDs SET Type%1 = Null WHERE Type%1=%2").arg(k).arg(n));
    }
}

void Form19::dropFromCard(const QString& key) {
    if (!m_card) return;
    for (int k = 1; k <= CardForm::kRows; ++k) {
        ImageCombo* combo = m_card->icType[size_t(k)];
        if (const ComboItem* chosen = combo->SelectedItem(); chosen && chosen->Key() == key)
            combo->SetText(QString());
        if (combo->ComboItems.Exists(key)) combo->ComboItems.Remove(key);
    }
}

void Form19::bnCancel_Click() {
    HUNT_PLACE("Form19.bnCancel_Click");
    reject();
}

qint32 Form19::CreateType(const QString& pNewType) {
    HUNT_PLACE("Form19.CreateType(pNewType)", pNewType);
    dao::Recordset max =
        gDB.OpenRecordset(QStringLiteral("SELECT Max(IDTYPE) AS maxID FROM Types"), dao::dbOpenSnapshot);
    const QVariant top = max.AtEOF() ? QVariant() : max[QStringLiteral("maxID")];
    max.Close();
    const qint32 id = (top.isNull() ? 0 : top.toInt()) + 1;
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM Types"));
    rs.AddNew();
    rs.SetValue(QStringLiteral("IDTYPE"), id);
    rs.SetValue(QStringLiteral("Type"), pNewType);
    rs.Update();
    rs.Close();
    return id;
}

int Form19::CheckExistType() const {
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * From Types Where Type =") +
                                              quoted(mCard::Trim(fdNewType->text())),
                                          dao::dbOpenSnapshot);
    int count = 0;
    for (; !rs.AtEOF(); rs.MoveNext())
        ++count;
    rs.Close();
    return count;
}
