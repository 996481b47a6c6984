#include "card/form2.h"

#include "card/cardlayout.h"
#include "core/language.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

Form2::Form2(QWidget* parent) : CardForm(QStringLiteral("Form2"), parent) {
    GroupBox2 = new QGroupBox(msgGeneralInfo, this);
    GroupBox2->setObjectName(QStringLiteral("GroupBox2"));
    GroupBox3 = new QGroupBox(msgPhoneFaxEmailSkypeEtc, this);
    GroupBox3->setObjectName(QStringLiteral("GroupBox3"));
    GroupBox4 = new QGroupBox(msgPhoto, this);
    GroupBox4->setObjectName(QStringLiteral("GroupBox4"));

    auto* comment = new QVBoxLayout;
    comment->addWidget(fdComment);
    auto* commentTools = new QHBoxLayout;
    commentTools->addWidget(chWordWrap);
    commentTools->addStretch(1);
    commentTools->addWidget(bnCommentMaximize);
    commentTools->addWidget(bnCommentMinimize);
    auto* general = new QVBoxLayout(GroupBox2);
    general->addLayout(mCard::GeneralGrid(*this, comment, commentTools));
    general->addStretch(1);

    auto* numbers = new QVBoxLayout(GroupBox3);
    numbers->addLayout(mCard::NumberGrid(*this));
    numbers->addStretch(1);
    numbers->addLayout(mCard::NumberTools(*this));

    auto* photo = new QVBoxLayout(GroupBox4);
    photo->addWidget(GroupBox1, 1);
    photo->addLayout(mCard::PhotoButtons(*this));
    GroupBox1->setMinimumSize(150, 180);

    auto* boxes = new QHBoxLayout;
    boxes->addWidget(GroupBox2, 5);
    boxes->addWidget(GroupBox3, 4);
    boxes->addWidget(GroupBox4, 2);
    auto* form = new QVBoxLayout(this);
    form->addLayout(boxes, 1);
    form->addLayout(mCard::FormButtons(*this));
    fdComment->setFixedHeight(mCard::ShortCommentHeight(*this));
    // Room for the general information beside the numbers; the height is what the boxes need.
    resize(qMax(sizeHint().width(), 1000), sizeHint().height());
}

// The comment grows in its place; the boxes beside it and the card grow with it.
void Form2::ShowCommentLarge(bool large) {
    const int box = large ? mCard::LargeCommentHeight(*this) : mCard::ShortCommentHeight(*this);
    const int change = box - fdComment->height();
    const int before = height();
    fdComment->setFixedHeight(box);
    if (isVisible() && change != 0) {
        // The boxes take their new size first, from the inside out; then the card follows.
        for (QWidget* w = fdComment->parentWidget(); w; w = w == this ? nullptr : w->parentWidget()) {
            if (w->layout()) w->layout()->activate();
            w->updateGeometry();
        }
        resize(width(), qMax(minimumSizeHint().height(), before + change));
    }
    ResizePhotoInProperties();
}
