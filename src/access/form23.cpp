#include "access/form23.h"

#include "access/accessmode.h"
#include "access/blowfish.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {
constexpr int kMaxPasswordBytes = 68;

QString shown(const QVariant& stored) {
    if (stored.isNull() || stored.toString().isEmpty()) return QString();
    return clsBlowfish().DecryptString(stored.toString(), mAccess::PasswordKey());
}

QVariant stored(const QString& password) {
    if (password.isEmpty()) return QVariant();
    return clsBlowfish().EncryptString(password, mAccess::PasswordKey());
}
} // namespace

Form23::Form23(QWidget* parent) : FormDialog(QStringLiteral("Form23"), parent) {
    buildControls();
    RunEvent("Form23.Form_Load", [this] { Form_Load(); });
}

void Form23::buildControls() {
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    for (int i = 0; i < 2; ++i) {
        Option1[i] = new QRadioButton(Frame1);
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
    }
    auto* frame = new QVBoxLayout(Frame1);
    frame->addWidget(Option1[0]);
    frame->addWidget(Option1[1]);
    lblReadOnlyPW = new QLabel(this);
    fdReadOnlyPW = new QLineEdit(this);
    fdReadOnlyPW->setObjectName(QStringLiteral("fdReadOnlyPW"));
    lblReadOnlyPW->setBuddy(fdReadOnlyPW);
    lblFullPW = new QLabel(this);
    fdFullPW = new QLineEdit(this);
    fdFullPW->setObjectName(QStringLiteral("fdFullPW"));
    lblFullPW->setBuddy(fdFullPW);
    bnOK = MakeButton("bnOK");
    bnOK->setDefault(true);
    bnCancel = MakeButton("bnCancel");

    auto* grid = new QGridLayout(this);
    grid->addWidget(Label1, 0, 0, 1, 2);
    grid->addWidget(Frame1, 1, 0, 1, 2);
    grid->addWidget(lblReadOnlyPW, 2, 0);
    grid->addWidget(fdReadOnlyPW, 2, 1);
    grid->addWidget(lblFullPW, 3, 0);
    grid->addWidget(fdFullPW, 3, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    grid->addLayout(buttons, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    resize(360, 230);

    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form23.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form23.bnCancel_Click", [this] { bnCancel_Click(); }); });
}

void Form23::Form_Load() {
    HUNT_PLACE("Form23.Form_Load");
    setWindowTitle(msgAccessOptionsTitle);
    Label1->setText(msgCurrentPhonebookAccessOptions);
    Frame1->setTitle(msgDefaultAccessMode);
    Option1[0]->setText(msgReadOnlyAccess);
    Option1[1]->setText(msgFullAccess);
    lblReadOnlyPW->setText(msgReadOnlyPasswordColon);
    lblFullPW->setText(msgFullPasswordColon);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);
    const mAccess::AccessModeRow row = mAccess::ReadAccessMode();
    Option1[row.DefaultIsFull ? 1 : 0]->setChecked(true);
    RestorePlace();
    fdReadOnlyPW->setText(shown(row.ReadOnlyPW));
    fdFullPW->setText(shown(row.FullPW));
}

void Form23::bnOK_Click() {
    HUNT_PLACE("Form23.bnOK_Click");
    // A session that may not change the phonebook has the button disabled; a click that still
    // comes (a key, a script) changes nothing either.
    if (gRestricted) return;
    // The stored form of a password must fit its field of 255 characters.
    for (QLineEdit* box : {fdFullPW, fdReadOnlyPW}) {
        if (box->text().toUtf8().size() > kMaxPasswordBytes) {
            MsgBox(msgPasswordTooLong, vb::vbOKOnly, vb::vbExclamation);
            box->setFocus();
            return;
        }
    }
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("Select * From AccessMode"), dao::dbOpenDynaset);
    if (rs.AtEOF())
        rs.AddNew();
    else
        rs.Edit();
    rs.SetValue(QStringLiteral("DefaultIsFull"), Option1[1]->isChecked());
    rs.SetValue(QStringLiteral("FullPW"), stored(fdFullPW->text()));
    rs.SetValue(QStringLiteral("ReadOnlyPW"), stored(fdReadOnlyPW->text()));
    rs.Update();
    rs.Close();
    accept();
}

void Form23::bnCancel_Click() {
    HUNT_PLACE("Form23.bnCancel_Click");
    reject();
}
