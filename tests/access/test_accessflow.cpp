// Access modes as the user meets them: the password asked at an open and at a switch of mode,
// a phonebook that could only be opened read-only, and what a restricted session disables on
// every form.
#include "access/accessmode.h"
#include "access/blowfish.h"
#include "access/form22.h"
#include "access/form23.h"
#include "access/rorestrictions.h"
#include "app/mmain.h"
#include "app/previnstance.h"
#include "card/cardentries.h"
#include "card/form2.h"
#include "card/form3.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "mainwindow/form1.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "preferences/preferences.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/fixture.h"
#include "trees/form14.h"
#include "trees/form20.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;
using namespace mLanguageGobals;

namespace {

class AccessFlow : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        m_book = path(u"book.kvdb"_s);
        ASSERT_EQ(mAccess::CreateDB(m_book, false), 1);
        gDB.Execute(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) "
                    "VALUES (1, 1, 'Ann Archer', 1, 1, 1, 'A')"_s);
        mMain::Closing();
        gReadOnlyMode = false;
        gFileReadOnly = false;
        gRestricted = false;
        gPasswordAccepted = false;
    }
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        dao::Hooks() = dao::TestHooks();
        gNotConnected = true;
        gReadOnlyMode = gFileReadOnly = gRestricted = false;
        TempDirTest::TearDown();
    }

    // Stores the passwords of the phonebook as Access options would.
    void setPasswords(const QString& full, const QString& readOnly, bool defaultIsFull) {
        dao::Workspace ws;
        dao::Database db = ws.OpenDatabase(m_book, false, false);
        auto stored = [](const QString& pw) {
            return pw.isEmpty() ? u"Null"_s
                                : u"'"_s + clsBlowfish().EncryptString(pw, mAccess::PasswordKey()) + u"'"_s;
        };
        db.Execute(u"UPDATE AccessMode SET FullPW = %1, ReadOnlyPW = %2, DefaultIsFull = %3"_s.arg(
            stored(full), stored(readOnly), defaultIsFull ? u"True"_s : u"False"_s));
        db.Close();
        ws.Close();
    }

    Form1* start() {
        mMain::SetCommandLine(m_book);
        mMain::Main();
        if (gForm1) {
            EXPECT_TRUE(QTest::qWaitForWindowExposed(gForm1));
        }
        return gForm1;
    }
    CommandBarAction* action(int id) const { return gForm1->CommandBars1->FindAction(id); }

    // Answers the password dialog: the mode (0 Full access, 1 Read-only access) and the password;
    // a mode of -1 cancels.
    static int answer(QDialog* dlg, int mode, const QString& password) {
        auto* f = qobject_cast<Form22*>(dlg);
        EXPECT_TRUE(f);
        if (!f) return 0;
        if (mode < 0) {
            f->bnCancel->click();
            return f->result();
        }
        f->cmbMode->setCurrentIndex(mode);
        f->fdPW->setText(password);
        QTest::keyClick(f->fdPW, Qt::Key_Return); // Enter in the box acts as OK
        return f->result();
    }

    // Every control of the restriction table is disabled on the forms that exist; the forms are
    // opened the way the program opens them, through ShowModal.
    void expectEveryFormRestricted() {
        std::map<QString, std::function<QDialog*()>> make = {
            {u"Form2"_s, [] { return new Form2(gForm1); }},
            {u"Form3"_s, [] { return new Form3(gForm1); }},
            {u"Form14"_s, [] { return new Form14(0, gForm1); }},
            {u"Form20"_s, [] { return new Form20(gForm1->View(), 1, 0, false, gForm1); }},
            {u"Form23"_s, [] { return new Form23(gForm1); }},
        };
        int checkedForms = 0;
        for (const mAccess::RestrictionRow& row : mAccess::RestrictionTable()) {
            if (!make.count(row.form)) {
                EXPECT_EQ(row.form, u"Form7"_s) << "a form of the table without a check here";
                continue;
            }
            std::unique_ptr<QDialog> dlg(make[row.form]());
            fixture::ModalRecorder look([&](QDialog* shown) {
                for (const QString& item : row.items) {
                    auto* w = shown->findChild<QWidget*>(item);
                    EXPECT_TRUE(w) << row.form.toStdString() << "." << item.toStdString();
                    if (w) {
                        EXPECT_FALSE(w->isEnabled()) << row.form.toStdString() << "." << item.toStdString();
                    }
                }
                return 0;
            });
            ShowModal(dlg.get(), gForm1);
            EXPECT_EQ(look.shown, 1);
            ++checkedForms;
        }
        EXPECT_EQ(checkedForms, 5);
        for (int id : mAccess::MainWindowCommands())
            EXPECT_FALSE(action(id)->Enabled()) << id;
        for (int id : mAccess::MainWindowSelectionCommands())
            EXPECT_FALSE(action(id)->Enabled()) << id;
    }

    void selectFirstContact() {
        ListView& list = *gForm1->ListView2;
        ASSERT_GT(list.ListItems.Count(), 0);
        list.SetSelectedItem(list.ListItems(u"ID1"_s));
        gForm1->ListView2_ItemClick(list.ListItems(u"ID1"_s));
    }

    QString m_book;
};

} // namespace

TEST_F(AccessFlow, WithoutPasswordsNoDialogEverShows) {
    fixture::ModalRecorder modal([](QDialog*) { return 0; });
    Form1* f = start();
    ASSERT_TRUE(f);
    EXPECT_EQ(modal.shown, 0);
    EXPECT_FALSE(gRestricted);
    EXPECT_TRUE(action(cmd::ContactAdd)->Enabled());
    f->SwithAccessMode(false);
    EXPECT_TRUE(gReadOnlyMode);
    EXPECT_TRUE(gRestricted);
    EXPECT_TRUE(action(cmd::AccessReadOnly)->Checked());
    EXPECT_FALSE(action(cmd::ContactAdd)->Enabled());
    EXPECT_TRUE(f->windowTitle().endsWith(msgCaptionReadOnly));
    f->SwithAccessMode(true);
    EXPECT_FALSE(gRestricted);
    EXPECT_TRUE(action(cmd::ContactAdd)->Enabled());
    EXPECT_TRUE(action(cmd::FileCompactDB)->Enabled());
    EXPECT_EQ(modal.shown, 0);
}

TEST_F(AccessFlow, AFullPasswordIsAskedAndAnEmptyBoxEntersReadOnlyAccess) {
    setPasswords(u"Open Sesame"_s, QString(), true);
    QList<int> modesOffered;
    fixture::ModalRecorder modal([&](QDialog* d) {
        modesOffered << qobject_cast<Form22*>(d)->cmbMode->currentIndex();
        return answer(d, 1, QString());
    });
    Form1* f = start();
    ASSERT_TRUE(f);
    EXPECT_EQ(modesOffered, QList<int>{0}); // the default mode comes first
    EXPECT_TRUE(gPasswordAccepted);
    EXPECT_TRUE(gReadOnlyMode);
    EXPECT_TRUE(gRestricted);
    selectFirstContact();
    f->MenuUpdate();
    expectEveryFormRestricted();

    // Back to Full access: a wrong password (case counts) is refused and the dialog stays.
    fixture::MsgBoxRecorder boxes;
    QStringList tried = {u"open sesame"_s, u"Open Sesame"_s};
    fixture::ModalRecorder again([&](QDialog* d) {
        auto* dlg = qobject_cast<Form22*>(d);
        EXPECT_EQ(dlg->cmbMode->currentIndex(), 0); // the mode asked for
        for (const QString& pw : tried) {
            dlg->fdPW->setText(pw);
            dlg->bnOK->click();
        }
        return dlg->result();
    });
    f->SwithAccessMode(true);
    EXPECT_EQ(boxes.texts(), QStringList{msgPasswordIsInvalid});
    EXPECT_FALSE(gReadOnlyMode);
    EXPECT_FALSE(gRestricted);
    EXPECT_TRUE(action(cmd::ContactAdd)->Enabled());
    EXPECT_TRUE(action(cmd::ContactProperties)->Enabled());
}

TEST_F(AccessFlow, CancelAtASwitchKeepsTheModeAndCancelAtAnOpenLeavesNoPhonebook) {
    setPasswords(QString(), u"ro"_s, true);
    fixture::ModalRecorder none([](QDialog*) { return 0; });
    Form1* f = start();
    ASSERT_TRUE(f);
    EXPECT_EQ(none.shown, 0); // Full access by default, and it has no password
    {
        fixture::ModalRecorder cancel([](QDialog* d) { return answer(d, -1, QString()); });
        f->SwithAccessMode(false);
        EXPECT_EQ(cancel.shown, 1);
    }
    EXPECT_FALSE(gPasswordAccepted);
    EXPECT_FALSE(gReadOnlyMode);
    EXPECT_FALSE(gRestricted);
    EXPECT_TRUE(action(cmd::AccessFull)->Checked());

    // A phonebook whose default mode wants a password, cancelled at File > Open.
    const QString other = path(u"other.kvdb"_s);
    ASSERT_EQ(mAccess::CreateDB(other, false), 1);
    gDB.Execute(u"UPDATE AccessMode SET DefaultIsFull = False, ReadOnlyPW = '%1'"_s.arg(
        clsBlowfish().EncryptString(u"x"_s, mAccess::PasswordKey())));
    mMain::Closing();
    fixture::ModalRecorder cancel([](QDialog* d) { return answer(d, -1, QString()); });
    f->OpenPhonebook(other);
    EXPECT_EQ(cancel.shown, 1);
    EXPECT_TRUE(gNotConnected);
    EXPECT_FALSE(gDBOpen);
}

TEST_F(AccessFlow, AFileOpenedReadOnlyStaysRestrictedAfterTheRightFullPassword) {
    setPasswords(u"pw"_s, QString(), true);
    // As for a file the user may not write: the writable open is refused.
    dao::Hooks().refuseOpen = [](const QString&, bool readOnly) {
        return readOnly ? 0 : qint32(dao::errPermission);
    };
    fixture::MsgBoxRecorder boxes;
    fixture::ModalRecorder modal([](QDialog* d) { return answer(d, 0, u"pw"_s); });
    Form1* f = start();
    ASSERT_TRUE(f);
    EXPECT_TRUE(gFileReadOnly);
    EXPECT_FALSE(gReadOnlyMode);
    EXPECT_TRUE(gRestricted);
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_EQ(boxes.boxes[0].text.split(u'\n').size(), 5);
    EXPECT_EQ(boxes.boxes[0].text, mAccess::ReadOnlyWarning());
    EXPECT_EQ(boxes.boxes[0].icon, vb::vbExclamation);
    EXPECT_TRUE(f->windowTitle().endsWith(msgCaptionReadOnly));
    selectFirstContact();
    f->MenuUpdate();
    expectEveryFormRestricted();

    // Access options cannot save, not even by a call past the disabled button.
    Form23 options(f);
    options.fdFullPW->setText(QString());
    options.bnOK_Click();
    dao::Recordset rs = gDB.OpenRecordset(u"SELECT FullPW FROM AccessMode"_s, dao::dbOpenSnapshot);
    EXPECT_FALSE(rs.Value(0).isNull());
    rs.Close();

    // Full access through the menu gives the warning again and changes nothing.
    boxes.boxes.clear();
    f->SwithAccessMode(true);
    EXPECT_EQ(boxes.texts(), QStringList{mAccess::ReadOnlyWarning()});
    EXPECT_TRUE(gRestricted);

    // The card shows the contact and cannot save it.
    fixture::ModalRecorder card([](QDialog* d) {
        auto* ok = d->findChild<QPushButton*>(u"bnOK"_s);
        EXPECT_TRUE(ok && !ok->isEnabled());
        return 0;
    });
    PropertiesMode = 1;
    mScanCD::DiskProperties();
    EXPECT_EQ(card.shown, 1);
}

TEST_F(AccessFlow, AccessOptionsStoreThePasswordsEncipheredAndTheNextOpenAsks) {
    Form1* f = start();
    ASSERT_TRUE(f);
    fixture::ModalRecorder options([](QDialog* d) {
        auto* o = qobject_cast<Form23*>(d);
        EXPECT_TRUE(o->bnOK->isEnabled());
        EXPECT_TRUE(o->Option1[1]->isChecked());
        o->fdFullPW->setText(u"Fülle"_s);
        o->fdReadOnlyPW->setText(u"lesen"_s);
        o->Option1[0]->setChecked(true);
        o->bnOK->click();
        return o->result();
    });
    f->OpenAccessOptions();
    const mAccess::AccessModeRow row = mAccess::ReadAccessMode();
    EXPECT_FALSE(row.DefaultIsFull);
    EXPECT_FALSE(row.FullPW.toString().contains(u"Fülle"_s));
    EXPECT_EQ(clsBlowfish().DecryptString(row.FullPW.toString(), mAccess::PasswordKey()), u"Fülle"_s);
    EXPECT_EQ(clsBlowfish().DecryptString(row.ReadOnlyPW.toString(), mAccess::PasswordKey()), u"lesen"_s);
    // The default is now Read-only access, which has a password.
    EXPECT_TRUE(mMain::NeedPassword(false, false));
    EXPECT_TRUE(mMain::NeedPassword(true, true));

    // Empty boxes take the passwords away again.
    fixture::ModalRecorder clear([](QDialog* d) {
        auto* o = qobject_cast<Form23*>(d);
        EXPECT_EQ(o->fdFullPW->text(), u"Fülle"_s); // shown in clear
        o->fdFullPW->clear();
        o->fdReadOnlyPW->clear();
        o->bnOK->click();
        return o->result();
    });
    f->OpenAccessOptions();
    const mAccess::AccessModeRow none = mAccess::ReadAccessMode();
    EXPECT_TRUE(none.FullPW.isNull());
    EXPECT_TRUE(none.ReadOnlyPW.isNull());
    gReadOnlyMode = false;
    EXPECT_FALSE(mMain::NeedPassword(false, false));
    EXPECT_TRUE(gReadOnlyMode); // Read-only access by default, entered without a dialog
}

// Pictures of the two dialogs for the documentation: run under Xvfb with
// KELVARIN_SHOTS=<folder> and --gtest_also_run_disabled_tests.
TEST_F(AccessFlow, DISABLED_Screenshots) {
    const QString folder = qEnvironmentVariable("KELVARIN_SHOTS");
    ASSERT_FALSE(folder.isEmpty());
    setPasswords(u"secret"_s, u"reader"_s, true);
    gDBPath = m_book;
    ASSERT_TRUE(mLogin::LoginCnn(false));
    Form22 login(false, false);
    login.fdPW->setText(u"secret"_s);
    login.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&login));
    EXPECT_TRUE(login.grab().save(folder + u"/form22-password.png"_s));
    Form23 options;
    options.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&options));
    EXPECT_TRUE(options.grab().save(folder + u"/form23-access-options.png"_s));
}
