#include "access/form5.h"

#include "access/maintenance.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

Form5::Form5(QWidget* parent) : FormDialog(QStringLiteral("Form5"), parent) {
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    flgMakeBackup = new QCheckBox(this);
    flgMakeBackup->setObjectName(QStringLiteral("flgMakeBackup"));
    flgEraseOld = new QCheckBox(this);
    flgEraseOld->setObjectName(QStringLiteral("flgEraseOld"));
    bnCompact = MakeButton("bnCompact");
    bnCompact->setDefault(true);
    bnCancel = MakeButton("bnCancel");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(flgMakeBackup);
    auto* indent = new QHBoxLayout;
    indent->addSpacing(20);
    indent->addWidget(flgEraseOld);
    layout->addLayout(indent);
    layout->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnCompact);
    buttons->addWidget(bnCancel);
    layout->addLayout(buttons);
    resize(380, 170);

    connect(flgMakeBackup, &QCheckBox::toggled, this,
            [this] { RunEvent("Form5.flgMakeBackup_Click", [this] { flgMakeBackup_Click(); }); });
    connect(bnCompact, &QPushButton::clicked, this,
            [this] { RunEvent("Form5.bnCompact_Click", [this] { bnCompact_Click(); }); });
    connect(bnCancel, &QPushButton::clicked, this,
            [this] { RunEvent("Form5.bnCancel_Click", [this] { bnCancel_Click(); }); });
    RunEvent("Form5.Form_Load", [this] { Form_Load(); });
}

void Form5::Form_Load() {
    HUNT_PLACE("Form5.Form_Load");
    setWindowTitle(msgCompactingTheDatabase);
    Label1->setText(msgCompactingMayTakeMinutes);
    flgMakeBackup->setText(msgMakeBackupCopy);
    flgEraseOld->setText(msgReplaceOldBackup);
    bnCompact->setText(msgCompactDatabase);
    bnCancel->setText(msgCancel);
    flgMakeBackup->setChecked(true);
    flgMakeBackup_Click();
    RestorePlace();
}

void Form5::flgMakeBackup_Click() {
    flgEraseOld->setEnabled(flgMakeBackup->isChecked());
}

void Form5::bnCompact_Click() {
    HUNT_PLACE("Form5.bnCompact_Click");
    bnCompact->setEnabled(false);
    bnCancel->setEnabled(false);
    const bool erase = flgMakeBackup->isChecked() && flgEraseOld->isChecked();
    if (mAccess::CompactDB(gDBPath, flgMakeBackup->isChecked(), erase))
        MsgBox(msgDatabaseCompacted, vb::vbOKOnly, vb::vbInformation);
    accept();
}

void Form5::bnCancel_Click() {
    reject();
}
