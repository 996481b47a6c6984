#include "mainwindow/form10.h"

#include "core/desktop.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"
#include "preferences/regsettings.h"
#include "support/controls/icons.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {
QLabel* linkLabel(QWidget* parent, const char* name, const QString& href, const QString& text) {
    auto* l = new QLabel(parent);
    l->setObjectName(QLatin1String(name));
    l->setText(QStringLiteral("<a href=\"%1\">%2</a>").arg(href.toHtmlEscaped(), text.toHtmlEscaped()));
    l->setTextInteractionFlags(Qt::TextBrowserInteraction);
    l->setOpenExternalLinks(false);
    return l;
}
} // namespace

Form10::Form10(QWidget* parent) : FormDialog(QStringLiteral("Form10"), parent) {
    auto* icon = new QLabel(this);
    icon->setPixmap(mIcons::AppIcon().pixmap(64, 64));
    icon->setAlignment(Qt::AlignTop);
    lblTitle = new QLabel(this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont big = lblTitle->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    lblTitle->setFont(big);
    lblVersion = new QLabel(this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    auto* about = new QLabel(msgAboutText, this);
    about->setWordWrap(true);
    lblWebsite = linkLabel(this, "lblWebsite", mCommon::ProductWebSite(), mCommon::ProductWebSite());
    lblSupport = linkLabel(this, "lblSupport", QStringLiteral("mailto:") + mCommon::SupportMailAddress(),
                           mCommon::SupportMailAddress());
    bnOK = MakeButton("bnOK");
    bnOK->setDefault(true);

    auto* grid = new QGridLayout;
    grid->addWidget(lblTitle, 0, 0, 1, 2);
    grid->addWidget(lblVersion, 1, 0, 1, 2);
    grid->addWidget(about, 2, 0, 1, 2);
    grid->addWidget(new QLabel(msgWebsiteColon, this), 3, 0);
    grid->addWidget(lblWebsite, 3, 1);
    grid->addWidget(new QLabel(msgTechnicalSupportColon, this), 4, 0);
    grid->addWidget(lblSupport, 4, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowMinimumHeight(2, 48);
    auto* top = new QHBoxLayout;
    top->addWidget(icon);
    top->addSpacing(12);
    top->addLayout(grid, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(bnOK);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);
    resize(460, 230);

    connect(bnOK, &QPushButton::clicked, this, &QDialog::accept);
    for (QLabel* l : {lblWebsite, lblSupport})
        connect(l, &QLabel::linkActivated, this,
                [this](const QString& link) { RunEvent("Form10.Link_Click", [&] { Link_Click(link); }); });
    RunEvent("Form10.Form_Load", [this] { Form_Load(); });
}

void Form10::Form_Load() {
    HUNT_PLACE("Form10.Form_Load");
    setWindowTitle(msgAboutKelvarin);
    lblTitle->setText(AppTitle());
    lblVersion->setText(msgVersionColon + QLatin1Char(' ') + mRegSettings::ProgramVersion());
    bnOK->setText(msgOK);
    mRegSettings::CenterOwner(this);
}

void Form10::Link_Click(const QString& link) {
    HUNT_PLACE("Form10.Link_Click(link)", link);
    if (link.startsWith(QLatin1String("mailto:")))
        mCommon::MailSupport(mRegSettings::ProgramVersion());
    else
        ShellOpen(link);
}
