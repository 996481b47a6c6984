#include "mainwindow/form9.h"

#include "core/datafiles.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"

#include <QCheckBox>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextStream>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {
const QString kSection = QStringLiteral("PreferencesNew");
}

Form9::Form9(QWidget* parent) : FormDialog(QStringLiteral("Form9"), parent) {
    Label1 = new QLabel(this);
    QFont heading = Label1->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.3);
    Label1->setFont(heading);
    for (QPlainTextEdit** box : {&fdTipTextOne, &fdTipTextAll}) {
        *box = new QPlainTextEdit(this);
        (*box)->setReadOnly(true);
    }
    fdTipTextOne->setObjectName(QStringLiteral("fdTipTextOne"));
    fdTipTextAll->setObjectName(QStringLiteral("fdTipTextAll"));
    cmdOK = MakeButton("cmdOK");
    cmdNextTip = MakeButton("cmdNextTip");
    bnShowAll = MakeButton("bnShowAll");
    chkLoadTipsAtStartup = new QCheckBox(this);
    cmdOK->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkLoadTipsAtStartup);
    buttons->addStretch();
    buttons->addWidget(bnShowAll);
    buttons->addWidget(cmdNextTip);
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(fdTipTextOne);
    layout->addWidget(fdTipTextAll);
    layout->addLayout(buttons);
    resize(480, 260);

    connect(cmdOK, &QPushButton::clicked, this, [this] { accept(); });
    connect(cmdNextTip, &QPushButton::clicked, this,
            [this] { RunEvent("Form9.cmdNextTip_Click", [this] { DoNextTip(); }); });
    connect(bnShowAll, &QPushButton::clicked, this,
            [this] { RunEvent("Form9.bnShowAll_Click", [this] { ShowAllTips(); }); });
    Form_Load();
}

void Form9::Form_Load() {
    HUNT_PLACE("Form9.Form_Load");
    RestorePlace();
    setWindowTitle(msgTipOfTheDayTitle);
    Label1->setText(msgDidYouKnow);
    cmdOK->setText(msgOK);
    cmdNextTip->setText(msgNext);
    chkLoadTipsAtStartup->setText(msgShowTipsAtStartup);
    chkLoadTipsAtStartup->setChecked(TipOfTheDayAtStart);
    CurrentTip =
        GetSetting(AppTitle(), kSection, QStringLiteral("TipOfTheDayCurrent"), QStringLiteral("0")).toInt();
    ShowAllNext =
        GetSetting(AppTitle(), kSection, QStringLiteral("TipOfTheDayShowAll"), QStringLiteral("1")).toInt() !=
        0;
    ShowAllTips();
    LoadTips(mCommon::ProgramDataPath(QStringLiteral("Tips.txt")));
}

void Form9::LoadTips(const QString& sFile) {
    HUNT_PLACE("Form9.LoadTips(sFile)", sFile);
    if (sFile.isEmpty() || !QFile::exists(sFile)) return;
    QFile file(sFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return;
    QTextStream in(&file);
    while (!in.atEnd())
        Tips << in.readLine();
    DoNextTip();
    DoAllTips();
}

// Puts the other view on show; the flag then names the view the next call would show.
void Form9::ShowAllTips() {
    fdTipTextOne->setVisible(!ShowAllNext);
    fdTipTextAll->setVisible(ShowAllNext);
    bnShowAll->setText(ShowAllNext ? msgShowOne : msgShowAll);
    cmdNextTip->setEnabled(!ShowAllNext);
    ShowAllNext = !ShowAllNext;
}

void Form9::DoNextTip() {
    if (ShowAllNext) ++CurrentTip;
    if (CurrentTip == 0 || CurrentTip > Tips.size()) CurrentTip = 1;
    DisplayCurrentTip();
}

void Form9::DisplayCurrentTip() {
    if (!Tips.isEmpty()) fdTipTextOne->setPlainText(Tips.at(CurrentTip - 1));
}

void Form9::DoAllTips() {
    QString all;
    for (const QString& tip : std::as_const(Tips))
        all += tip + QStringLiteral("\n\n");
    fdTipTextAll->setPlainText(all);
}

void Form9::BeforeUnload() {
    TipOfTheDayAtStart = chkLoadTipsAtStartup->isChecked();
    SaveSetting(AppTitle(), kSection, QStringLiteral("TipOfTheDayAtStart"), TipOfTheDayAtStart);
    SaveSetting(AppTitle(), kSection, QStringLiteral("TipOfTheDayShowAll"), ShowAllNext);
    SaveSetting(AppTitle(), kSection, QStringLiteral("TipOfTheDayCurrent"), int(CurrentTip));
}

namespace mTips {

void StartupTip(bool ShowTip, QWidget* owner) {
    HUNT_PLACE("mTips.StartupTip(ShowTip)", ShowTip);
    if (!ShowTip && !TipOfTheDayAtStart) return;
    Form9 form(owner);
    ShowModal(&form, owner);
}

} // namespace mTips
