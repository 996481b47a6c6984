#include "access/form22.h"

#include "access/accessmode.h"
#include "access/blowfish.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace mLanguageGobals;

namespace {
// The deciphered password of a stored one: "" for none, nothing when it cannot be read (the error
// is reported, and that mode can then not be entered).
std::optional<QString> decipher(const QVariant& stored) {
    if (stored.isNull() || stored.toString().isEmpty()) return QString();
    try {
        return clsBlowfish().DecryptString(stored.toString(), mAccess::PasswordKey());
    } catch (const HuntERR::Error& e) {
        HuntERR::Report(e, "Form22.Form_Load");
        return std::nullopt;
    }
}
} // namespace

Form22::Form22(bool fromMenu, bool fullMode, QWidget* parent)
    : FormDialog(QStringLiteral("Form22"), parent), pFromMenu(fromMenu), pFullMode(fullMode) {
    buildControls();
    RunEvent("Form22.Form_Load", [this] { Form_Load(); });
}

void Form22::buildControls() {
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label2 = new QLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label3 = new QLabel(this);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setWordWrap(true);
    cmbMode = new QComboBox(this);
    cmbMode->setObjectName(QStringLiteral("cmbMode"));
    fdPW = new QLineEdit(this);
    fdPW->setObjectName(QStringLiteral("fdPW"));
    fdPW->setEchoMode(QLineEdit::Password);
    bnOK = MakeButton("bnOK");
    bnCancel = MakeButton("bnCancel");
    Label1->setBuddy(cmbMode);
    Label2->setBuddy(fdPW);

    auto* grid = new QGridLayout(this);
    grid->addWidget(Label3, 0, 0, 1, 2);
    grid->addWidget(Label1, 1, 0);
    grid->addWidget(cmbMode, 1, 1);
    grid->addWidget(Label2, 2, 0);
    grid->addWidget(fdPW, 2, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    buttons->addWidget(bnCancel);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    resize(340, 150);

    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form22.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(fdPW, &QLineEdit::returnPressed, this,
            [this] { RunEvent("Form22.bnOK_Click", [this] { bnOK_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form22.bnCancel_Click", [this] { bnCancel_Click(); }); });
}

void Form22::Form_Load() {
    HUNT_PLACE("Form22.Form_Load", pFromMenu, pFullMode);
    setWindowTitle(msgKelvarin2);
    Label1->setText(msgAccessModeColon);
    Label2->setText(msgPassword);
    Label3->setText(msgPleaseSelectAnAccessMode);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);
    cmbMode->addItem(msgFullAccess);
    cmbMode->addItem(msgReadOnlyAccess);
    const mAccess::AccessModeRow row = mAccess::ReadAccessMode();
    m_fullPW = decipher(row.FullPW);
    m_readOnlyPW = decipher(row.ReadOnlyPW);
    const bool full = pFromMenu ? pFullMode : row.DefaultIsFull;
    cmbMode->setCurrentIndex(full ? 0 : 1);
    fdPW->setFocus();
    RestorePlace();
}

void Form22::bnOK_Click() {
    HUNT_PLACE("Form22.bnOK_Click");
    const bool full = cmbMode->currentIndex() == 0;
    const std::optional<QString>& password = full ? m_fullPW : m_readOnlyPW;
    if (!password || fdPW->text() != *password) {
        MsgBox(msgPasswordIsInvalid, vb::vbOKOnly, vb::vbCritical);
        fdPW->setFocus();
        fdPW->selectAll();
        return;
    }
    gReadOnlyMode = !full;
    gPasswordAccepted = true;
    accept();
}

void Form22::bnCancel_Click() {
    HUNT_PLACE("Form22.bnCancel_Click");
    gPasswordAccepted = false;
    reject();
}
