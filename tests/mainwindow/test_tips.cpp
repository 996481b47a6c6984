// The tip of the day and the statistics.
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form4.h"
#include "mainwindow/form9.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"
#include "support/fixture.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

using Tips = fixture::TempDirTest;

QString stored(const char* key) {
    return GetSetting(AppTitle(), QStringLiteral("PreferencesNew"), QLatin1String(key));
}

TEST_F(Tips, NextRunsThroughTheTipsAndBackToTheFirst) {
    Form9 form;
    ASSERT_EQ(form.Tips.size(), 20); // the tips installed with the program
    // The first opening shows all of them, Next disabled.
    EXPECT_FALSE(form.fdTipTextAll->isHidden());
    EXPECT_TRUE(form.fdTipTextOne->isHidden());
    EXPECT_FALSE(form.cmdNextTip->isEnabled());
    EXPECT_TRUE(form.fdTipTextAll->toPlainText().startsWith(form.Tips.first() + QStringLiteral("\n\n")));

    form.bnShowAll->click();
    EXPECT_TRUE(form.fdTipTextAll->isHidden());
    EXPECT_EQ(form.bnShowAll->text(), mLanguageGobals::msgShowAll);
    form.CurrentTip = int(form.Tips.size()) - 1;
    form.cmdNextTip->click();
    EXPECT_EQ(form.fdTipTextOne->toPlainText(), form.Tips.last());
    form.cmdNextTip->click();
    EXPECT_EQ(form.CurrentTip, 1);
    EXPECT_EQ(form.fdTipTextOne->toPlainText(), form.Tips.first());
}

TEST_F(Tips, WithoutATipFileNextDoesNothingAndSaysNothing) {
    Form9 form;
    form.bnShowAll->click(); // one tip at a time
    form.Tips.clear();
    form.fdTipTextOne->clear();
    form.LoadTips(path(QStringLiteral("Tips.txt")));
    form.LoadTips(QString());
    form.cmdNextTip->click(); // an unexpected message box would fail the test
    EXPECT_TRUE(form.Tips.isEmpty());
    EXPECT_TRUE(form.fdTipTextOne->toPlainText().isEmpty());
}

TEST_F(Tips, TheWindowAlternatesItsViewsAndKeepsItsPlace) {
    {
        Form9 form;
        form.bnShowAll->click();
        form.cmdNextTip->click();
        form.cmdNextTip->click();
        form.chkLoadTipsAtStartup->setChecked(false);
        form.cmdOK->click();
    }
    EXPECT_EQ(stored("TipOfTheDayCurrent"), QStringLiteral("3"));
    EXPECT_FALSE(TipOfTheDayAtStart);
    {
        // Closed on the single view, it opens on all of them, and the other way round.
        Form9 form;
        EXPECT_FALSE(form.fdTipTextAll->isHidden());
        form.cmdOK->click();
    }
    Form9 form;
    EXPECT_TRUE(form.fdTipTextAll->isHidden());
    EXPECT_EQ(form.CurrentTip, 4);
}

TEST_F(Tips, AtStartTheTipShowsOnlyWhenThePreferenceSaysSo) {
    int shown = 0;
    fixture::ModalRecorder dialogs([&](QDialog* d) {
        shown += qobject_cast<Form9*>(d) != nullptr;
        return 0;
    });
    TipOfTheDayAtStart = false;
    mTips::StartupTip(false, nullptr);
    EXPECT_EQ(shown, 0);
    mTips::StartupTip(true, nullptr); // asked for from the Help menu
    EXPECT_EQ(shown, 1);
    TipOfTheDayAtStart = true;
    mTips::StartupTip(false, nullptr);
    EXPECT_EQ(shown, 2);
}

class Statistics : public fixture::PhonebookTest {};

TEST_F(Statistics, CountsPerLetterWithBlankLettersAndATotal) {
    for (int i = 0; i < 3; ++i)
        addContact(QStringLiteral("%1 Company").arg(i), 1, 1, -1, QStringLiteral("NUM"));
    Form4 form;
    ListView& list = *form.ListView1;
    ASSERT_EQ(list.ListItems.Count(), 29);
    EXPECT_EQ(list.ListItems(QStringLiteral("NUM"))->SubItems(1), QStringLiteral("3"));
    EXPECT_EQ(list.ListItems(QStringLiteral("NUM"))->Text(), mLanguageGobals::msgLetterDigits);
    for (const char* key : {"A", "M", "Z", "UNK"})
        EXPECT_EQ(list.ListItems(QLatin1String(key))->SubItems(1), QStringLiteral(" ")) << key;
    ListItem* total = list.ListItems(29);
    EXPECT_EQ(total->Text(), mLanguageGobals::msgTotal);
    EXPECT_EQ(total->SubItems(1), QStringLiteral("3"));
    EXPECT_TRUE(total->CellBold(0) && total->CellBold(1));
    EXPECT_TRUE(list.ListItems(1)->Selected());

    addContact(QStringLiteral("Anna"), 1, 1, -1, QStringLiteral("A"));
    addContact(QStringLiteral("Øyvind"), 1, 1, -1, QStringLiteral("UNK"));
    Form4 again;
    EXPECT_EQ(again.ListView1->ListItems(QStringLiteral("A"))->SubItems(1), QStringLiteral("1"));
    EXPECT_EQ(again.ListView1->ListItems(QStringLiteral("UNK"))->SubItems(1), QStringLiteral("1"));
    EXPECT_EQ(again.ListView1->ListItems(29)->SubItems(1), QStringLiteral("5"));
}

} // namespace
