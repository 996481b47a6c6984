// File ▸ Import and File ▸ Export through the dispatcher: the file chooser, the duplicate
// question, the summary, and the contacts each export entry takes.
#include "formtest.h"

#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "preferences/mru.h"
#include "support/controls/listitem.h"
#include "support/controls/listview.h"

#include <QFile>

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
        EXPECT_TRUE(form->CommandBars1->ExecuteId(id));
        EXPECT_TRUE(askedSave);
        QFile f(out);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
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
