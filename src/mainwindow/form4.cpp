#include "mainwindow/form4.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/store/dao.h"
#include "preferences/regsettings.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"
#include "support/themes/listcolor.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace mLanguageGobals;

Form4::Form4(QWidget* parent) : FormDialog(QStringLiteral("Form4"), parent) {
    ListView1 = new ListView(this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    mListViewColor::SetListColors(*ListView1);
    bnOK = MakeButton("bnOK");
    bnOK->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(bnOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(buttons);
    resize(260, 490);
    connect(bnOK, &QPushButton::clicked, this, [this] { accept(); });
    Form_Load();
}

void Form4::Form_Load() {
    HUNT_PLACE("Form4.Form_Load");
    setWindowTitle(msgStatisticsTitle);
    bnOK->setText(msgOK);
    mRegSettings::ApplyPreferenceFont(this);
    RestorePlace();
    // Widths in pixels: both columns stand side by side in the window's default width.
    ListView1->ColumnHeaders.Add(QStringLiteral("Letter"), msgLetter, 100);
    ListView1->ColumnHeaders.Add(QStringLiteral("Contacts"), msgContacts, 110, lvwColumnRight);

    for (char16_t c = u'A'; c <= u'Z'; ++c) {
        const QString letter(QChar{c});
        ListView1->ListItems.Add(letter, letter)->SetSubItems(1, QStringLiteral(" "));
    }
    ListView1->ListItems.Add(QStringLiteral("NUM"), msgLetterDigits)->SetSubItems(1, QStringLiteral(" "));
    ListView1->ListItems.Add(QStringLiteral("UNK"), msgLetterUnknown)->SetSubItems(1, QStringLiteral(" "));

    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Label AS Letter, Count(CDs.IDCD) AS cnt ") +
                                          QStringLiteral("From CDs ") + QStringLiteral("GROUP BY Label ") +
                                          QStringLiteral("ORDER BY Label"));
    qint64 total = 0;
    while (!rs.AtEOF()) {
        const qint64 count = rs[QStringLiteral("cnt")].toLongLong();
        total += count;
        const QString letter = rs[QStringLiteral("Letter")].toString();
        ListItem* row = ListView1->ListItems(letter);
        // A letter outside the index is a fault of the phonebook's data: it is reported.
        if (!row) throw HuntERR::Error(35601, QStringLiteral("Element not found."));
        row->SetSubItems(1, QString::number(count));
        rs.MoveNext();
    }
    rs.Close();
    ListItem* sum = ListView1->ListItems.Add(QString(), msgTotal);
    sum->SetSubItems(1, QString::number(total));
    sum->SetCellBold(0, true);
    sum->SetCellBold(1, true);
    ListView1->ListItems(1)->SetSelected(true);
}

namespace mTips {

void Summary(QWidget* owner) {
    HUNT_PLACE("mTips.Summary");
    Form4 form(owner);
    ShowModal(&form, owner);
}

} // namespace mTips
