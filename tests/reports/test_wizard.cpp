// The report wizard: which choices let it go on, the options it keeps, and the rows and order
// of the report it makes.
#include "reports/reportbook.h"

#include "contactlist/listsort.h"
#include "preferences/settings.h"
#include "reports/form16.h"
#include "reports/reportcolumns.h"
#include "reports/reportquery.h"
#include "reports/reportwindow.h"
#include "support/helpers/keys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using reporttest::FileDialogAnswer;

namespace {

class Wizard : public reporttest::ReportBook {
  protected:
    QString option(const char* key) { return GetSetting(AppTitle(), u"ReportOptions"_s, QLatin1String(key)); }
    void select(Form15& frm, std::initializer_list<int> ids) {
        for (ListItem* row : frm.lvReport->ListItems)
            row->SetSelected(std::find(ids.begin(), ids.end(), mCommon::GetID1(row->Key())) != ids.end());
    }
    // The first values of the rows of a tabular separated-text report, in file order.
    QStringList namesIn(const QString& path) {
        QStringList names;
        const QStringList lines = QString::fromUtf8(readAll(path)).split(u"\r\n"_s);
        for (int i = 1; i < lines.size(); ++i) {
            const QString& line = lines[i];
            if (!line.startsWith('"')) continue;
            QString value;
            for (int k = 1; k < line.size(); ++k) {
                if (line[k] == '"' && (k + 1 >= line.size() || line[k + 1] != '"')) break;
                if (line[k] == '"') ++k;
                value += line[k];
            }
            names << value;
        }
        return names;
    }
    Form15& toOptions(Form15& frm) {
        frm.bnNextSave_Click();
        return frm;
    }
};

TEST_F(Wizard, NextNeedsARowThatTheChoiceTakes) {
    auto frm = wizard();
    ASSERT_EQ(frm->lvReport->ListItems.Count(), 5);
    EXPECT_TRUE(frm->Option1[0]->isChecked());
    EXPECT_TRUE(frm->bnNextSave->isEnabled());

    // Nothing selected: "Selected" cannot go on, "Not selected" can.
    select(*frm, {});
    frm->Option1[1]->setChecked(true);
    frm->Option1_Click(1);
    EXPECT_FALSE(frm->bnNextSave->isEnabled());
    frm->Option1[2]->setChecked(true);
    frm->Option1_Click(2);
    EXPECT_TRUE(frm->bnNextSave->isEnabled());

    // Everything selected: the other way round.
    select(*frm, {zoe, nobody, many, photo, quoted});
    frm->AllowNext();
    EXPECT_FALSE(frm->bnNextSave->isEnabled());
    frm->Option1[1]->setChecked(true);
    frm->Option1_Click(1);
    EXPECT_TRUE(frm->bnNextSave->isEnabled());

    // An empty list never goes on.
    main->ListItems.Clear();
    auto empty = wizard();
    EXPECT_FALSE(empty->bnNextSave->isEnabled());
}

TEST_F(Wizard, NextAndBackSwitchThePages) {
    auto frm = wizard();
    frm->show();
    EXPECT_TRUE(frm->pbList->isVisible());
    EXPECT_FALSE(frm->fdBack->isVisible());
    frm->bnNextSave_Click();
    EXPECT_FALSE(frm->pbList->isVisible());
    EXPECT_TRUE(frm->pbOptions->isVisible());
    EXPECT_TRUE(frm->fdBack->isVisible());
    EXPECT_EQ(frm->bnNextSave->text(), "Create");
    frm->fdBack_Click();
    EXPECT_TRUE(frm->pbList->isVisible());
    EXPECT_EQ(frm->bnNextSave->text(), "Next >");
}

TEST_F(Wizard, OptionsAreStoredOnlyWhenClosingWithSaveSettings) {
    {
        auto frm = wizard();
        frm->Option2[1]->setChecked(true);
        frm->chShortCategory->setChecked(true);
        frm->cmbSortDisks->setCurrentIndex(4);
        frm->lvDiskColumns->ListItems(1)->SetChecked(false);
        frm->bnCancel_Click();
    }
    EXPECT_TRUE(option("Format").isEmpty());
    EXPECT_TRUE(option("DiskColumns").isEmpty());
    {
        auto frm = wizard();
        frm->Option2[1]->setChecked(true);
        frm->Option3[1]->setChecked(true);
        frm->chShortCategory->setChecked(true);
        frm->cmbSortDisks->setCurrentIndex(4);
        frm->lvDiskColumns->ListItems(1)->SetChecked(false);
        frm->chSaveSettings->setChecked(true);
        frm->bnCancel_Click();
    }
    EXPECT_EQ(option("Format"), "1");
    EXPECT_EQ(option("Layout"), "1");
    EXPECT_EQ(option("ShortCategory"), "1");
    EXPECT_EQ(option("SortDisks"), "City");
    EXPECT_EQ(option("Open"), "0");
    EXPECT_EQ(option("DiskColumns"), "FullName|+Title|+Company|+Numbers|+Address|+City|+State|+Zip|+Comment|+"
                                     "Category|+Favorite|+#|+Added|+Box");
    // The next wizard starts from them.
    auto again = wizard();
    EXPECT_TRUE(again->Option2[1]->isChecked());
    EXPECT_TRUE(again->Option3[1]->isChecked());
    EXPECT_TRUE(again->fdSeparator->isEnabled());
    EXPECT_EQ(again->cmbSortDisks->currentText(), "City");
    EXPECT_FALSE(again->lvDiskColumns->ListItems(1)->Checked());
    EXPECT_EQ(again->DiskSpan(), 13);
}

TEST_F(Wizard, AColumnListWithoutGroupGainsItCheckedAtTheEnd) {
    SaveSetting(AppTitle(), u"ReportOptions"_s, u"DiskColumns"_s, u"+Comment|FullName|+Numbers|Bogus"_s);
    auto frm = wizard();
    QStringList rows;
    for (const ListItem* row : frm->lvDiskColumns->ListItems)
        rows << (row->Checked() ? "+" : "") + row->Tag() + "=" + row->Text();
    EXPECT_EQ(rows.join('|'),
              "+Comment=Comment|FullName=Full Name|+Numbers=Phone, Fax, Email, Skype, etc.|+Box=Group");
    // A list that has the column keeps it where it is, unchecked.
    EXPECT_EQ(mReport::JoinDiskColumns(mReport::ParseDiskColumns(u"Box|+Title"_s)), "Box|+Title");
}

TEST_F(Wizard, TheSeparatorOfferedIsTheLocales) {
    SaveSetting(AppTitle(), u"ReportOptions"_s, u"Separator"_s, u"||"_s);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto german = wizard();
    EXPECT_EQ(german->fdSeparator->text(), ";");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    auto english = wizard();
    EXPECT_EQ(english->fdSeparator->text(), ",");
    english->fdSeparator->setText(u"#"_s);
    english->chSaveSettings->setChecked(true);
    english->bnCancel_Click();
    EXPECT_EQ(option("Separator"), "#");
    EXPECT_EQ(wizard()->fdSeparator->text(), ",");
    QLocale::setDefault(QLocale::system());
    // The separator box is for separated text only.
    EXPECT_FALSE(english->fdSeparator->isEnabled());
}

TEST_F(Wizard, ThePreviewCopiesTheMainListInItsOrder) {
    mLV::SwitchSortDisk(*main, mLV::cellCompany, false);
    main->ListItems(u"ID%1"_s.arg(many))->SetSelected(true);
    auto frm = wizard();
    ASSERT_EQ(frm->lvReport->ListItems.Count(), main->ListItems.Count());
    for (int i = 1; i <= main->ListItems.Count(); ++i) {
        const ListItem* a = main->ListItems(i);
        const ListItem* b = frm->lvReport->ListItems(i);
        EXPECT_EQ(a->Key(), b->Key());
        EXPECT_EQ(a->SubItems(mLV::cellCompany), b->SubItems(mLV::cellCompany));
        EXPECT_EQ(a->SubItems(mLV::cellAdded), b->SubItems(mLV::cellAdded));
        EXPECT_EQ(a->Selected(), b->Selected());
    }
    EXPECT_EQ(frm->lvReport->ColumnHeaders.Count(), 25);
    EXPECT_EQ(frm->lvReport->ColumnHeaders(11)->Tag(), "ID");
    EXPECT_EQ(frm->lvReport->ColumnHeaders(25)->Tag(), "Info 12");
}

TEST_F(Wizard, TheReportHoldsThePickedRowsInTheOrderOfTheSortBox) {
    const QString path = this->path(u"r.csv"_s);
    FileDialogAnswer answer(path);
    auto frm = wizard();
    checkColumns(*frm, {u"FullName"_s});
    frm->Option2[1]->setChecked(true);
    frm->Option3[1]->setChecked(true);
    frm->fdSeparator->setText(u","_s);
    set(zoe, "Title", u"Alpha"_s);
    set(nobody, "Title", u"Zulu"_s);
    set(photo, "Title", u"Mike"_s);
    // Titles sort descending; the preview's own order plays no part.
    select(*frm, {zoe, many, photo});
    frm->Option1[2]->setChecked(true);
    frm->cmbSortDisks->setCurrentIndex(1);
    toOptions(*frm).bnNextSave_Click();
    EXPECT_EQ(namesIn(path), QStringList({u"Nemo Numberless"_s, u"O'Brien, \"Pat\""_s}));
    frm->Option1[1]->setChecked(true);
    frm->bnNextSave_Click();
    EXPECT_EQ(namesIn(path),
              QStringList({u"Twelve Numbers"_s, u"Pia Photo"_s, QString::fromUtf8("Zoë Åberg-Łukasz")}));
    EXPECT_EQ(answer.shown, 2);
    EXPECT_EQ(answer.title, "Create report");
    EXPECT_EQ(answer.mask, "CSV files (*.csv)|*.csv");
    EXPECT_EQ(GetSetting(AppTitle(), u"ReportLocation"_s, u"Path"_s), path);
    // By contact number, and by the date added.
    frm->cmbSortDisks->setCurrentIndex(10);
    frm->bnNextSave_Click();
    EXPECT_EQ(namesIn(path),
              QStringList({QString::fromUtf8("Zoë Åberg-Łukasz"), u"Twelve Numbers"_s, u"Pia Photo"_s}));
    set(zoe, "DateScan", QDateTime(QDate(2025, 1, 1), QTime(0, 0)));
    frm->cmbSortDisks->setCurrentIndex(11);
    frm->bnNextSave_Click();
    EXPECT_EQ(namesIn(path),
              QStringList({u"Twelve Numbers"_s, u"Pia Photo"_s, QString::fromUtf8("Zoë Åberg-Łukasz")}));
}

TEST_F(Wizard, ShortCategoryPrintsAndSortsByTheLastName) {
    const QString path = this->path(u"r.csv"_s);
    FileDialogAnswer answer(path);
    auto frm = wizard();
    checkColumns(*frm, {u"Category"_s, u"Box"_s});
    frm->Option2[1]->setChecked(true);
    frm->Option3[1]->setChecked(true);
    frm->fdSeparator->setText(u";"_s);
    frm->cmbSortDisks->setCurrentIndex(8);
    frm->SaveReportHorizontal2();
    const QByteArray full = readAll(path);
    EXPECT_TRUE(full.contains("\"Business/Customers\";")) << full.constData();
    frm->chShortCategory->setChecked(true);
    frm->chShortBox->setChecked(true);
    frm->SaveReportHorizontal2();
    const QList<QByteArray> lines = readAll(path).split('\n');
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines[0], "\"Category\";\"Group\"\r");
    EXPECT_EQ(lines[1], "\"Business\";\"Others\"\r");
    EXPECT_EQ(lines[2], "\"Customers\";\"Others\"\r");
    EXPECT_EQ(lines[3], "\"Family\";\"Others\"\r");
    EXPECT_EQ(lines[4], "\"Personal\";\"Others\"\r");
}

TEST_F(Wizard, NothingToReportShowsTheMessageAndWritesNothing) {
    const QString path = this->path(u"r.html"_s);
    FileDialogAnswer answer(path);
    fixture::MsgBoxRecorder boxes;
    auto frm = wizard();
    checkColumns(*frm, {u"None"_s});
    toOptions(*frm).bnNextSave_Click();
    EXPECT_EQ(boxes.texts(), QStringList({u"There is no data to report. Check the report settings."_s}));
    EXPECT_EQ(boxes.boxes[0].icon, vb::vbExclamation);
    EXPECT_EQ(answer.shown, 0);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(frm->bnNextSave->isEnabled());
    EXPECT_TRUE(frm->fdBack->isEnabled());
}

TEST_F(Wizard, ACancelledFileDialogWritesNothing) {
    FileDialogAnswer answer{QString()};
    auto frm = wizard();
    toOptions(*frm).bnNextSave_Click();
    EXPECT_EQ(answer.shown, 1);
    EXPECT_TRUE(GetSetting(AppTitle(), u"ReportLocation"_s, u"Path"_s).isEmpty());
}

TEST_F(Wizard, OpenHandsTheFileToTheDesktop) {
    const QString path = this->path(u"r.html"_s);
    FileDialogAnswer answer(path);
    QStringList opened;
    const ShellHandler old = SetShellHandler([&](const QString& target) {
        opened << target;
        return true;
    });
    auto frm = wizard();
    frm->chOpen->setChecked(true);
    toOptions(*frm).bnNextSave_Click();
    SetShellHandler(old);
    EXPECT_EQ(opened, QStringList({path}));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(Wizard, TheSelectedContactReportHoldsThatContactAlone) {
    main->SetSelectedItem(main->ListItems(u"ID%1"_s.arg(many)));
    const QString path = this->path(u"one.csv"_s);
    FileDialogAnswer answer(path);
    auto frm = wizard(false);
    ASSERT_EQ(frm->lvReport->ListItems.Count(), 1);
    EXPECT_EQ(frm->lvReport->ColumnHeaders(1)->Tag(), "Name");
    EXPECT_EQ(frm->lvReport->ListItems(1)->Text(), "Twelve Numbers");
    checkColumns(*frm, {u"FullName"_s});
    frm->Option2[1]->setChecked(true);
    frm->Option3[1]->setChecked(true);
    toOptions(*frm).bnNextSave_Click();
    EXPECT_EQ(namesIn(path), QStringList({u"Twelve Numbers"_s}));
    // Without a selected contact there is nothing to go on with.
    main->SetSelectedItem(nullptr);
    EXPECT_FALSE(wizard(false)->bnNextSave->isEnabled());
}

TEST_F(Wizard, TheChooserOpensTheWizardForItsSource) {
    QList<bool> modes;
    fixture::ModalRecorder modal([&](QDialog* dialog) {
        if (auto* chooser = qobject_cast<Form16*>(dialog)) {
            chooser->bnFileList_Click();
            return int(QDialog::Accepted);
        }
        if (auto* frm = qobject_cast<Form15*>(dialog)) modes << frm->DiskMode;
        return int(QDialog::Rejected);
    });
    mCommon::PreReportWindow();
    mCommon::ReportDiskList();
    EXPECT_EQ(modes, QList<bool>({false, true}));
}

TEST_F(Wizard, MovingAColumnCarriesItsCheckAndTag) {
    auto frm = wizard();
    frm->lvDiskColumns->ListItems(2)->SetChecked(false); // Title
    frm->lvDiskColumns->SetSelectedItem(frm->lvDiskColumns->ListItems(2));
    frm->lvDiskColumns_ItemClick(frm->lvDiskColumns->ListItems(2));
    frm->bnUp_Click();
    EXPECT_EQ(frm->lvDiskColumns->ListItems(1)->Tag(), "Title");
    EXPECT_FALSE(frm->lvDiskColumns->ListItems(1)->Checked());
    EXPECT_EQ(frm->lvDiskColumns->ListItems(2)->Tag(), "FullName");
    EXPECT_TRUE(frm->lvDiskColumns->ListItems(2)->Checked());
    frm->bnUp_Click(); // already first
    EXPECT_EQ(frm->lvDiskColumns->ListItems(1)->Tag(), "Title");
}

} // namespace
