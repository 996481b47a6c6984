#pragma once
// A contact card on a fresh phonebook, behind a main window whose tree and list show the whole
// phonebook. Parameterised by layout: true the card with tabs, false the wide card.

#include "card/cardform.h"
#include "card/cardhooks.h"
#include "card/form2.h"
#include "card/form3.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "core/globals.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "support/controls/imagecombo.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/fixture.h"
#include "trees/treefill.h"
#include "trees/viewstate.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <memory>

class CardTest : public fixture::PhonebookTest, public ::testing::WithParamInterface<bool> {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        gResetPanes = false;
        mRegSettings::IniPreferences();
        gRestricted = false;
        ContactCardWithTabs = GetParam();
        AdvancedCategoryMode = false;
        CurrentLetter = QStringLiteral("ALL");
        CurrentTreeTab = QStringLiteral("Categories");
        CurrentNodeKey = QStringLiteral("ID0");
        main = std::make_unique<Form1>();
        mLV::IniList(*main->ListView2, mLV::lcContacts);
        mCard::Hooks().UpdateMainCatTree = [this](bool cat, bool bor, bool box) {
            treeRefills << QStringLiteral("%1%2%3").arg(int(cat)).arg(int(bor)).arg(int(box));
        };
        mCard::Hooks().UpdateGlobalInfo = [this](const QString& type, const QString& oldType,
                                                 const QString& oldCat, const QString& newCat,
                                                 const QString& oldBor, const QString& newBor,
                                                 const QString& oldBox, const QString& newBox, qint32 id) {
            assignments << QStringList{type,   oldType, oldCat,
                                       newCat, oldBor,  newBor,
                                       oldBox, newBox,  QString::number(id)}
                               .join(QLatin1Char('|'));
        };
        showPhonebook();
    }
    void TearDown() override {
        mCard::Hooks() = mCard::CardHooks();
        card.reset();
        main.reset();
        AdvancedCategoryMode = true;
        PhonebookTest::TearDown();
    }

    // The main window's tree and list as a fresh view of the whole phonebook.
    void showPhonebook() {
        mTV::CategoryFill(mTV::TreeForm{*main->CatTree, true}, 0);
        mLV::FillDriveList(*main->ListView2, CurrentLetter, CurrentNodeKey);
    }

    // A card of the layout under test, loaded for contact `key` ("0": a new one).
    CardForm& open(const QString& key = QStringLiteral("0")) {
        if (GetParam())
            card = std::make_unique<Form3>();
        else
            card = std::make_unique<Form2>();
        card->CardKey = key;
        card->Form_Load();
        return *card;
    }
    bool closedWithOK() const { return card->result() == QDialog::Accepted; }

    QString setting(const char* section, const char* key) {
        return GetSetting(AppTitle(), QLatin1String(section), QLatin1String(key));
    }
    static QString selectedKey(const ImageCombo* combo) {
        return combo->SelectedItem() ? combo->SelectedItem()->Key() : QString();
    }
    static void choose(ImageCombo* combo, const char* key) {
        combo->SetSelectedItem(combo->ComboItems(QLatin1String(key)));
    }
    static void stand(CardForm& c, int row) { c.cmbUpDown->setCurrentIndex(row - 1); }

    std::unique_ptr<Form1> main;
    std::unique_ptr<CardForm> card;
    QStringList treeRefills; // flags handed to the refill of the main tree, as "cat bor box"
    QStringList assignments; // what an edit handed to the assignment update
};
