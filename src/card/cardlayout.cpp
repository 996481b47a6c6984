#include "card/cardlayout.h"

#include "card/cardform.h"
#include "support/controls/imagecombo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

namespace mCard {

namespace {

int lines(const CardForm& card, int count) {
    return card.fontMetrics().lineSpacing() * count + 12;
}

} // namespace

QGridLayout* GeneralGrid(CardForm& card, QLayout* comment, QLayout* commentTools) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    int row = 0;
    auto field = [&](QLabel* label, QWidget* box) {
        label->setBuddy(box);
        grid->addWidget(label, row, 0, label == card.lblAddress ? Qt::AlignTop : Qt::Alignment());
        grid->addWidget(box, row, 1, 1, 3);
        ++row;
    };
    // The letter stands beside the name, as the name files the contact.
    grid->addWidget(card.lblFullName, row, 0);
    card.lblFullName->setBuddy(card.fdFullName);
    grid->addWidget(card.fdFullName, row, 1);
    grid->addWidget(card.lblIndex, row, 2, Qt::AlignRight);
    grid->addWidget(card.lbLetter, row, 3);
    card.lbLetter->setMinimumWidth(card.fontMetrics().horizontalAdvance(QStringLiteral("0-9")) + 16);
    card.lbLetter->setAlignment(Qt::AlignCenter);
    card.lbLetter->setFrameShape(QFrame::StyledPanel);
    QFont bold = card.lbLetter->font();
    bold.setBold(true);
    card.lbLetter->setFont(bold);
    ++row;
    field(card.lblTitle, card.fdTitle);
    field(card.lblCompany, card.fdCompany);
    card.fdAddress->setFixedHeight(lines(card, 2));
    field(card.lblAddress, card.fdAddress);
    field(card.lblCity, card.fdCity);
    field(card.lblState, card.fdState);
    field(card.lblZip, card.fdZip);

    grid->addWidget(card.lblComment, row, 0, Qt::AlignTop);
    grid->addLayout(comment, row, 1, 1, 3);
    ++row;
    grid->addLayout(commentTools, row, 1, 1, 3);
    ++row;

    // The trees: the combos one under the other, each with its "New" in the column of the letter;
    // the favorite may also be cleared.
    auto tree = [&](QLabel* label, ImageCombo* combo, QPushButton* add) {
        grid->addWidget(label, row, 0);
        grid->addWidget(combo, row, 1);
        grid->addWidget(add, row, 2, 1, 2);
        ++row;
    };
    tree(card.lblCategory, card.icmbCategory, card.bnAddCategory);
    tree(card.lblBox, card.icmbBox, card.bnAddBox);
    tree(card.lblFavorite, card.icmbFavorite, card.bnAddFavorite);
    grid->addWidget(card.bnClearFavorite, row, 1, 1, 3, Qt::AlignRight);
    return grid;
}

QGridLayout* NumberGrid(CardForm& card) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    grid->setVerticalSpacing(4);
    const int typeWidth = card.fontMetrics().horizontalAdvance(QStringLiteral("Mobile phone")) + 48;
    const int numberWidth = card.fontMetrics().horizontalAdvance(QStringLiteral("name@example.org")) + 16;
    for (int n = 1; n <= CardForm::kRows; ++n) {
        card.icType[n]->setMinimumWidth(typeWidth);
        card.fdNumber[n]->setMinimumWidth(numberWidth);
        grid->addWidget(card.lblRow[n], n - 1, 0);
        grid->addWidget(card.icType[n], n - 1, 1);
        grid->addWidget(card.fdNumber[n], n - 1, 2);
        grid->addWidget(card.bnCleareType[n], n - 1, 3);
    }
    return grid;
}

QBoxLayout* NumberTools(CardForm& card) {
    auto* line = new QHBoxLayout;
    line->addWidget(card.cmbUpDown);
    line->addWidget(card.bnUp);
    line->addWidget(card.bnDown);
    line->addStretch(1);
    line->addWidget(card.bnAddType);
    return line;
}

QBoxLayout* PhotoButtons(CardForm& card) {
    auto* line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(card.bnSelectPhoto);
    line->addWidget(card.bnDeletePhoto);
    return line;
}

QBoxLayout* FormButtons(CardForm& card) {
    auto* line = new QHBoxLayout;
    line->addWidget(card.chContactCardWithTabs);
    line->addStretch(1);
    line->addWidget(card.bnOK);
    line->addWidget(card.bnCancel);
    return line;
}

int ShortCommentHeight(const CardForm& card) {
    return lines(card, 3);
}

int LargeCommentHeight(const CardForm& card) {
    return lines(card, 14);
}

} // namespace mCard
