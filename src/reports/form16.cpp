#include "reports/form16.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/language.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

Form16::Form16(QWidget* parent) : FormDialog(QStringLiteral("Form16"), parent) {
    bnDiskList = MakeButton("bnDiskList");
    bnFileList = MakeButton("bnFileList");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(bnDiskList);
    layout->addWidget(bnFileList);
    connect(bnDiskList, &QPushButton::clicked, this,
            [this] { RunEvent("Form16.bnDiskList_Click", [this] { bnDiskList_Click(); }); });
    connect(bnFileList, &QPushButton::clicked, this,
            [this] { RunEvent("Form16.bnFileList_Click", [this] { bnFileList_Click(); }); });
    Form_Load();
}

void Form16::Form_Load() {
    HUNT_PLACE("Form16.Form_Load");
    setWindowTitle(msgReportSource);
    bnDiskList->setText(msgReportBasedOnContactList);
    bnFileList->setText(msgReportBasedOnSelectedContact);
    RestorePlace();
}

void Form16::bnDiskList_Click() {
    HUNT_PLACE("Form16.bnDiskList_Click");
    DiskMode = true;
    Cancelled = false;
    accept();
}

void Form16::bnFileList_Click() {
    HUNT_PLACE("Form16.bnFileList_Click");
    DiskMode = false;
    Cancelled = false;
    accept();
}
