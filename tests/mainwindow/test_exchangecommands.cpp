// File ▸ Import and File ▸ Export through the dispatcher: the file chooser, the column window of
// a CSV file, the duplicate question, the summary, and the contacts each export entry takes.
#include "formtest.h"

#include "app/mmain.h"
#include "app/previnstance.h"
#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/language.h"
#include "core/seams.h"
#include "exchange/book/bookexchange.h"
#include "exchange/ui/csvmappingdialog.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "preferences/mru.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

class ExchangeCommands : public FormTest {
  protected:
    void TearDown() override {
        CFileDialog::SetHandler({});
        FormTest::TearDown();
        mMain::Closing();
        mMru::ClearMRUList();
        gDBPath.clear();
        gNotConnected = true;
        gRestricted = false;
    }
    void chooseFile(const QString& chosen) {
        asked = 0;
        CFileDialog::SetHandler([this, chosen](CFileDialog& dialog, bool saveMode) {
            ++asked;
            askedSave = saveMode;
            dialog.FileName = chosen;
            return true;
        });
    }
    void openBook() {
        const QString book = path(QStringLiteral("book.kvdb"));
        ASSERT_EQ(mAccess::CreateDB(book, false), 1);
        mMain::Closing();
        open();
        chooseFile(book);
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileOpen));
    }
    QString writeCards() {
        const QString file = path(QStringLiteral("in.vcf"));
        QFile f(file);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        for (const char* name : {"Ada Lovelace", "Alan Turing", "Grace Hopper"})
            f.write(QByteArray("BEGIN:VCARD\r\nVERSION:4.0\r\nFN:") + name + "\r\nTEL:+1 555 " +
                    QByteArray::number(qstrlen(name)) + "\r\nEND:VCARD\r\n");
        return file;
    }
    int contacts() {
        dao::Recordset rs =
            gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot);
        return int(rs.LongAt(0));
    }
    QByteArray exported(int id) {
        const QString out = path(QStringLiteral("out%1.vcf").arg(id));
        chooseFile(out);
        fixture::MsgBoxRecorder boxes;
        EXPECT_TRUE(window().CommandBars1->ExecuteId(id));
        EXPECT_TRUE(askedSave);
        QFile f(out);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // The main window, opened by the test or started as the program starts.
    Form1& window() const { return form ? *form : *gForm1; }
    // Imports the three cards of writeCards through the File menu.
    void importCards() {
        chooseFile(writeCards());
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
    }
    ListItem* row(const QString& fullName) {
        ListItemCollection& rows = window().ListView2->ListItems;
        for (int n = 1; n <= rows.Count(); ++n)
            if (rows(n)->CellText(0) == fullName) return rows(n);
        ADD_FAILURE() << "no row " << fullName.toStdString();
        return nullptr;
    }
    int asked = 0;
    bool askedSave = false;
};

} // namespace

TEST_F(ExchangeCommands, ImportAsksAboutDuplicatesAndSumsUp) {
    openBook();
    const QString file = writeCards();
    chooseFile(file);
    {
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(boxes.boxes[0].text.startsWith(QStringLiteral("3 imported, 0 merged, 0 skipped")));
    }
    EXPECT_EQ(contacts(), 3);

    DuplicateWarning = true;
    {
        fixture::MsgBoxRecorder boxes(vb::vbCancel); // Cancel leaves the repeated contacts out
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
        ASSERT_EQ(boxes.boxes.size(), 2);
        EXPECT_EQ(boxes.boxes[0].buttons, vb::vbYesNoCancel);
        EXPECT_TRUE(boxes.boxes[1].text.startsWith(QStringLiteral("0 imported, 0 merged, 3 skipped")));
    }
    DuplicateWarning = false;
    {
        fixture::MsgBoxRecorder boxes; // no warning wanted: no question, the contacts come again
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
        ASSERT_EQ(boxes.boxes.size(), 1);
    }
    EXPECT_EQ(contacts(), 6);
}

TEST_F(ExchangeCommands, ExportTakesAllTheListOrTheSelection) {
    openBook();
    chooseFile(writeCards());
    {
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
    }
    EXPECT_EQ(exported(cmd::FileExportAll).count("BEGIN:VCARD"), 3);

    ListItemCollection& rows = form->ListView2->ListItems;
    ASSERT_GT(rows.Count(), 0);
    EXPECT_EQ(exported(cmd::FileExportList).count("BEGIN:VCARD"), rows.Count());
    // Without a selection there is nothing to choose a file for.
    form->ListView2->SetSelectedItem(nullptr);
    chooseFile(path(QStringLiteral("none.vcf")));
    fixture::MsgBoxRecorder boxes;
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileExportSelected));
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(boxes.texts(), QStringList{mLanguageGobals::msgExNothingToExport});
}

TEST_F(ExchangeCommands, ARestrictedSessionNeitherImportsNorExports) {
    openBook();
    gRestricted = true;
    chooseFile(writeCards());
    fixture::MsgBoxRecorder boxes;
    form->CommandBars1->ExecuteId(cmd::FileImport);
    form->CommandBars1->ExecuteId(cmd::FileExportAll);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(contacts(), 0);
}

// The program started on a phonebook as a user starts it, so that the list has its columns and
// rows can be selected.
class ExportSelection : public ExchangeCommands {
  protected:
    void SetUp() override {
        ExchangeCommands::SetUp();
        const QString book = path(QStringLiteral("book.kvdb"));
        ASSERT_EQ(mAccess::CreateDB(book, false), 1);
        QList<exchange::ContactRecord> people;
        for (const char* name : {"Ada Lovelace", "Alan Turing", "Grace Hopper"}) {
            exchange::ContactRecord r;
            r.FullName = QString::fromLatin1(name);
            r.Numbers = {
                {QStringLiteral("Email"), r.FullName.section(QLatin1Char(' '), 0, 0) + "@example.org"}};
            people << r;
        }
        mExchange::ImportRecords(people);
        mMain::Closing();
        mMain::SetCommandLine(book);
        mMain::Main();
        ASSERT_FALSE(gNotConnected);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(gForm1));
    }
    void TearDown() override {
        delete gForm1;
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        ExchangeCommands::TearDown();
    }
};

TEST_F(ExportSelection, WritesExactlyTheSelectedContacts) {
    ListView& list = *gForm1->ListView2;
    ASSERT_EQ(list.ListItems.Count(), 3);

    // The list as it stands chooses one row at a time.
    list.SetSelectedItem(row(QStringLiteral("Alan Turing")));
    ASSERT_EQ(list.SelectedItems().size(), 1u);
    QByteArray file = exported(cmd::FileExportSelected);
    EXPECT_EQ(file.count("BEGIN:VCARD"), 1);
    EXPECT_TRUE(file.contains("FN:Alan Turing\r\n"));

    // Two rows chosen together, the first and the last of the list.
    list.SetMultiSelect(true);
    list.SetSelectedItem(row(QStringLiteral("Ada Lovelace")));
    row(QStringLiteral("Grace Hopper"))->SetSelected(true);
    ASSERT_EQ(list.SelectedItems().size(), 2u);
    file = exported(cmd::FileExportSelected);
    EXPECT_EQ(file.count("BEGIN:VCARD"), 2);
    EXPECT_TRUE(file.contains("FN:Ada Lovelace\r\n"));
    EXPECT_TRUE(file.contains("FN:Grace Hopper\r\n"));
    EXPECT_FALSE(file.contains("Alan Turing"));
}

TEST_F(ExchangeCommands, ACsvFileIsImportedAsItsColumnWindowSays) {
    openBook();
    const QString file = path(QStringLiteral("in.csv"));
    {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("Name,Firm,Mobile\nAda Lovelace,Analytical Engines,+44 1\nAlan Turing,Bletchley,+44 2\n");
    }
    chooseFile(file);
    {
        // Cancel in the column window: nothing is read, nothing is asked.
        fixture::ModalRecorder window([](QDialog*) { return int(QDialog::Rejected); });
        fixture::MsgBoxRecorder boxes;
        EXPECT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
        EXPECT_EQ(window.shown, 1);
        EXPECT_TRUE(boxes.boxes.isEmpty());
    }
    EXPECT_EQ(contacts(), 0);
    {
        fixture::ModalRecorder window([](QDialog* form) {
            auto* mapping = qobject_cast<mExchange::CsvMappingDialog*>(form);
            EXPECT_NE(mapping, nullptr);
            if (!mapping) return int(QDialog::Rejected);
            EXPECT_TRUE(mapping->mapColumn(1, mLanguageGobals::msgExFieldCompany));
            return int(QDialog::Accepted);
        });
        fixture::MsgBoxRecorder boxes;
        EXPECT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(boxes.boxes[0].text.startsWith(QStringLiteral("2 imported")));
    }
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Company, Comment FROM CDs WHERE FullName = 'Ada Lovelace'"),
                          dao::dbOpenSnapshot);
    ASSERT_FALSE(rs.AtEOF());
    EXPECT_EQ(rs.Text(0), QStringLiteral("Analytical Engines"));
    EXPECT_TRUE(rs.Text(1).isEmpty());
}

// Pictures of the column window with an export of a web mail account and of the summary at the
// end, for the documentation. Runs only when KELVARIN_SCREENSHOTS names the folder to write them
// to, on a real display:
//   KELVARIN_SCREENSHOTS=docs xvfb-run -a -s '-screen 0 1280x860x24'
//       build/test_mainwindow --gtest_filter='ExchangeCommands.Screenshots'
TEST_F(ExchangeCommands, Screenshots) {
    const QString out = qEnvironmentVariable("KELVARIN_SCREENSHOTS");
    if (out.isEmpty() || QGuiApplication::platformName() == QLatin1String("offscreen"))
        GTEST_SKIP() << "KELVARIN_SCREENSHOTS is not set, or there is no display";
    openBook();
    importCards();
    DuplicateWarning = true;
    const QString file = path(QStringLiteral("contacts.csv"));
    {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(
            "Name,Given Name,Family Name,Nickname,Birthday,Notes,Group Membership,E-mail 1 - Type,"
            "E-mail 1 - Value,Phone 1 - Type,Phone 1 - Value,Phone 2 - Type,Phone 2 - Value,"
            "Address 1 - Street,Address 1 - City,Address 1 - Postal Code,Address 1 - Country,"
            "Organization 1 - Name,Organization 1 - Title,Website 1 - Value\n"
            "Chlo\xC3\xA9 Durand,Chlo\xC3\xA9,Durand,Clo,1990-02-03,\"Met at the fair\nprefers mornings\","
            "* myContacts ::: Business,* Work,chloe@durand.example,Mobile,+33 6 12 34 56 78,Work,"
            "+33 4 72 00 00 00,8 rue Victor Hugo,Lyon,69002,France,\"Durand & Fils, SARL\",Directrice,"
            "https://durand.example\n"
            "Grace Hopper,Grace,Hopper,Amazing Grace,1906-12-09,,* myContacts,* Home,grace@navy.example,"
            "Mobile,+1 555 12,,,,Arlington,22201,USA,US Navy,Rear Admiral,\n"
            "Jonas Berg,Jonas,Berg,,,Sails on Sundays,* myContacts ::: Friends,* Home,jonas@berg.example,"
            "Home,+47 22 00 00 00,Mobile,+47 900 00 000,Storgata 1,Oslo,0155,Norway,,,\n"
            "Mei Tanaka,Mei,Tanaka,,1988-07-21,,* myContacts ::: Business,* Work,mei@tanaka.example,"
            "Work,+81 3 0000 0000,,,,Tokyo,100-0001,Japan,Tanaka Design,Partner,https://tanaka.example\n");
    }
    chooseFile(file);
    const auto save = [&out](QWidget* w, const char* name) {
        const QString shot = QDir(out).filePath(QLatin1String(name));
        EXPECT_TRUE(w->grab().save(shot)) << shot.toStdString();
    };
    fixture::ModalRecorder window([&](QDialog* form) {
        auto* mapping = qobject_cast<mExchange::CsvMappingDialog*>(form);
        if (!mapping) return int(QDialog::Rejected);
        mapping->resize(900, 560);
        mapping->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(mapping));
        // The birthday is left out, to show a column mapped by hand.
        EXPECT_TRUE(mapping->mapColumn(4, mLanguageGobals::msgExMapIgnore));
        QTest::qWait(200);
        save(mapping, "import-csv-columns.png");
        mapping->hide();
        return int(QDialog::Accepted);
    });
    // The real message boxes: the question about Grace Hopper, who is there already, and the summary.
    SetMsgBoxHandler({});
    QStringList seen;
    QTimer answer;
    answer.setInterval(100);
    QObject::connect(&answer, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || seen.contains(box->text())) return;
        seen << box->text();
        if (box->button(QMessageBox::Yes)) {
            box->button(QMessageBox::Yes)->click();
            return;
        }
        QTest::qWait(200);
        save(box, "import-summary.png");
        box->button(QMessageBox::Ok)->click();
    });
    answer.start();
    EXPECT_TRUE(form->CommandBars1->ExecuteId(cmd::FileImport));
    answer.stop();
    EXPECT_EQ(window.shown, 1);
    EXPECT_EQ(seen.size(), 2);
}
