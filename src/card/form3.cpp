#include "card/form3.h"

#include "card/cardlayout.h"
#include "core/language.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace mLanguageGobals;

namespace {
constexpr int kCommentPage = 3;
}

Form3::Form3(QWidget* parent) : CardForm(QStringLiteral("Form3"), parent) {
    TabControl1 = new QTabWidget(this);
    TabControl1->setObjectName(QStringLiteral("TabControl1"));
    TabControl1->setUsesScrollButtons(false); // the card is as wide as its four tabs
    TabControlPage1 = new QWidget;
    TabControlPage2 = new QWidget;
    TabControlPage3 = new QWidget;
    TabControlPage4 = new QWidget;
    TabControl1->addTab(TabControlPage1, msgGeneralInfo);
    TabControl1->addTab(TabControlPage2, msgPhoneFaxEmailSkypeEtc);
    TabControl1->addTab(TabControlPage3, msgPhoto);
    TabControl1->addTab(TabControlPage4, msgComment);

    // First page: name and address, the comment in a short box, the three trees. While the
    // comment is enlarged its row stays empty and the trees move up.
    auto* general = new QVBoxLayout(TabControlPage1);
    m_commentHome = new QVBoxLayout;
    m_commentHome->addWidget(fdComment);
    auto* commentTools = new QHBoxLayout;
    commentTools->addStretch(1);
    commentTools->addWidget(bnCommentMaximize);
    general->addLayout(mCard::GeneralGrid(*this, m_commentHome, commentTools));
    general->addStretch(1);

    // Second page: the twelve numbers and the means to order them.
    auto* numbers = new QVBoxLayout(TabControlPage2);
    numbers->addLayout(mCard::NumberGrid(*this));
    numbers->addStretch(1);
    numbers->addLayout(mCard::NumberTools(*this));

    // Third page: the photo in its frame, the two buttons under it.
    auto* photo = new QVBoxLayout(TabControlPage3);
    photo->addWidget(GroupBox1, 1);
    photo->addLayout(mCard::PhotoButtons(*this));

    // Fourth page: the enlarged comment with its wrap and the way back.
    auto* comment = new QVBoxLayout(TabControlPage4);
    m_commentPage = new QVBoxLayout;
    comment->addLayout(m_commentPage, 1);
    auto* pageTools = new QHBoxLayout;
    pageTools->addWidget(chWordWrap);
    pageTools->addStretch(1);
    pageTools->addWidget(bnCommentMinimize);
    comment->addLayout(pageTools);

    auto* form = new QVBoxLayout(this);
    form->addWidget(TabControl1, 1);
    form->addLayout(mCard::FormButtons(*this));
    fdComment->setFixedHeight(mCard::ShortCommentHeight(*this));
    TabControl1->setCurrentIndex(0);
}

void Form3::moveComment(QVBoxLayout* to) {
    QVBoxLayout* from = to == m_commentHome ? m_commentPage : m_commentHome;
    if (from->indexOf(fdComment) < 0) return;
    from->removeWidget(fdComment);
    to->addWidget(fdComment);
}

void Form3::ShowCommentLarge(bool large) {
    lblComment->setVisible(!large);
    if (large) {
        fdComment->setMinimumHeight(0);
        fdComment->setMaximumHeight(QWIDGETSIZE_MAX);
        moveComment(m_commentPage);
    } else {
        fdComment->setFixedHeight(mCard::ShortCommentHeight(*this));
        moveComment(m_commentHome);
    }
    fdComment->show();
    TabControl1->setTabVisible(kCommentPage, large);
    if (CardLoaded) {
        TabControl1->setCurrentIndex(large ? kCommentPage : 0);
        if (large) fdComment->setFocus();
    }
}

void Form3::ShowFirstPage() {
    TabControl1->setCurrentIndex(0);
}

void Form3::PutCommentHome() {
    moveComment(m_commentHome);
}
