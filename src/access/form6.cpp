#include "access/form6.h"

#include "access/maintenance.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "support/helpers/drives.h"
#include "support/helpers/files.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace mLanguageGobals;

Form6::Form6(QWidget* parent) : FormDialog(QStringLiteral("Form6"), parent) {
    lblLocation = new QLabel(this);
    fdDatabasePath = new QLabel(this);
    fdDatabasePath->setObjectName(QStringLiteral("fdDatabasePath"));
    fdDatabasePath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    fdDatabasePath->setWordWrap(true);
    lblSize = new QLabel(this);
    lblSize->setObjectName(QStringLiteral("lblSize"));
    lblFreeSpace = new QLabel(this);
    lblFreeSpace->setObjectName(QStringLiteral("lblFreeSpace"));
    bnMoveDatabase = MakeButton("bnMoveDatabase");
    bnOK = MakeButton("bnOK");
    bnOK->setDefault(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(lblLocation, 0, 0, Qt::AlignTop);
    grid->addWidget(fdDatabasePath, 0, 1);
    grid->addWidget(lblSize, 1, 0, 1, 2);
    grid->addWidget(lblFreeSpace, 2, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(bnMoveDatabase);
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    resize(440, 160);

    connect(bnMoveDatabase, &QPushButton::clicked, this,
            [this] { RunEvent("Form6.bnMoveDatabase_Click", [this] { bnMoveDatabase_Click(); }); });
    connect(bnOK, &QPushButton::clicked, this,
            [this] { RunEvent("Form6.bnOK_Click", [this] { bnOK_Click(); }); });
    RunEvent("Form6.Form_Load", [this] { Form_Load(); });
}

void Form6::Form_Load() {
    HUNT_PLACE("Form6.Form_Load");
    setWindowTitle(msgDatabaseInfoTitle);
    lblLocation->setText(msgLocationColon);
    bnMoveDatabase->setText(msgMoveDatabaseTo);
    bnOK->setText(msgOK);
    showFigures();
    RestorePlace();
}

void Form6::showFigures() {
    fdDatabasePath->setText(gDBPath);
    lblSize->setText(msgDatabaseSize + mScanCD::GetFileDBSize(true, gDBPath));
    lblFreeSpace->setText(msgDiskFreeSpace + QLatin1Char(' ') + mDrive::GetFreeSpace(gDBPath, true));
}

void Form6::bnMoveDatabase_Click() {
    HUNT_PLACE("Form6.bnMoveDatabase_Click");
    mAccess::MoveDatabase(this);
    showFigures();
}

void Form6::bnOK_Click() {
    accept();
}
