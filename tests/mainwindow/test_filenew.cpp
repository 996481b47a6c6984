// File > New: the name it proposes, and what it does when the chosen file exists: the open
// phonebook is refused, another is replaced only when the user agrees to a question naming it.
#include "formtest.h"

#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"

#include <QDir>
#include <QFile>

using namespace mLanguageGobals;

namespace {

class FileNew : public FormTest {
  protected:
    void SetUp() override {
        FormTest::SetUp();
        book = path(QStringLiteral("phonebook.kvdb"));
        makePhonebook(book, 13);
        gDBPath = book;
        ASSERT_TRUE(mLogin::LoginCnn(false));
        mMru::AddToMRUList(book);
        open();
        gNotConnected = false;
    }
    void TearDown() override {
        CFileDialog::SetHandler({});
        FormTest::TearDown();
        mMain::Closing();
        mMru::ClearMRUList();
        gDBPath.clear();
        gNotConnected = true;
    }
    void makePhonebook(const QString& file, int contacts) {
        ASSERT_EQ(mAccess::CreateDB(file, false), 1);
        gWS.BeginTrans();
        for (int i = 1; i <= contacts; ++i)
            gDB.Execute(
                QStringLiteral("INSERT INTO CDs (IDCD, FullName, IDC, IDX) VALUES (%1, 'C%1', 1, 1)").arg(i));
        gWS.CommitTrans();
        mMain::Closing();
    }
    int contacts() {
        dao::Recordset rs =
            gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot);
        const int n = rs.Value(0).toInt();
        rs.Close();
        return n;
    }
    // Runs File > New; the dialog answers `chosen` (a name in its folder) and keeps what it proposed.
    void fileNew(const QString& chosen) {
        CFileDialog::SetHandler([this, chosen](CFileDialog& dialog, bool) {
            proposed = dialog.FileName;
            proposedIn = dialog.InitDir;
            dialogAsks = dialog.ConfirmOverwrite;
            dialog.FileName = QDir(dialog.InitDir).filePath(chosen);
            return true;
        });
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileNew));
    }
    QString book;
    QString proposed, proposedIn;
    bool dialogAsks = true;
};

} // namespace

TEST_F(FileNew, ProposesANameThatIsNotTakenYet) {
    fileNew(QStringLiteral("phonebook 2.kvdb"));
    EXPECT_EQ(proposedIn, m_dir.path());
    EXPECT_EQ(proposed, QStringLiteral("phonebook 2.kvdb"));
    EXPECT_EQ(gDBPath, path(QStringLiteral("phonebook 2.kvdb")));
    EXPECT_EQ(contacts(), 0);

    // Both taken now: the next number.
    fileNew(QStringLiteral("x.kvdb"));
    EXPECT_EQ(proposed, QStringLiteral("phonebook 3.kvdb"));
}

TEST_F(FileNew, TheOpenPhonebookIsNeverReplaced) {
    fixture::MsgBoxRecorder boxes(vb::vbYes);
    // Chosen by its own name, and by a name that the doubled extension turns into it.
    for (const QString& chosen : {QStringLiteral("phonebook.kvdb"), QStringLiteral("phonebook.kvdb.kvdb")}) {
        boxes.boxes.clear();
        fileNew(chosen);
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_EQ(boxes.boxes[0].text, msgNewIsOpenPhonebook.arg(book));
        EXPECT_EQ(boxes.boxes[0].buttons, int(vb::vbOKOnly));
        EXPECT_TRUE(gDBOpen);
        EXPECT_FALSE(gNotConnected);
        EXPECT_EQ(gDBPath, book);
        EXPECT_EQ(contacts(), 13);
    }
    // The file dialog's own question would come before ours, about a name not yet mended.
    EXPECT_FALSE(dialogAsks);
}

TEST_F(FileNew, AnotherExistingFileIsReplacedOnlyWhenTheUserAgreesToAQuestionNamingIt) {
    const QString other = path(QStringLiteral("work.kvdb"));
    const QString single = path(QStringLiteral("single.kvdb"));
    const QString letter = path(QStringLiteral("letter.kvdb"));
    makePhonebook(other, 7);
    makePhonebook(single, 1);
    QFile f(letter);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("Dear Ann,\n");
    f.close();
    ASSERT_TRUE(mLogin::LoginCnn(false)); // the open phonebook again

    {
        fixture::MsgBoxRecorder boxes(vb::vbNo);
        fileNew(QStringLiteral("work.kvdb"));
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_EQ(boxes.boxes[0].text, msgReplacePhonebook.arg(other).arg(7));
        EXPECT_EQ(boxes.boxes[0].buttons, int(vb::vbYesNo | vb::vbDefaultButton2));
        fileNew(QStringLiteral("single.kvdb"));
        EXPECT_EQ(boxes.boxes[1].text, msgReplacePhonebookOneContact.arg(single));
        fileNew(QStringLiteral("letter.kvdb"));
        EXPECT_EQ(boxes.boxes[2].text, msgReplaceFile.arg(letter));
    }
    // Declined: everything as it was.
    EXPECT_EQ(gDBPath, book);
    EXPECT_EQ(contacts(), 13);
    EXPECT_EQ(mMru::MRUFiles, QStringList{book});
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("Dear Ann,\n"));
    f.close();

    // Agreed: the other phonebook starts afresh and is the open one.
    {
        fixture::MsgBoxRecorder boxes(vb::vbYes);
        fileNew(QStringLiteral("work.kvdb"));
        EXPECT_EQ(boxes.boxes.size(), 1);
    }
    EXPECT_EQ(gDBPath, other);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(contacts(), 0);
    EXPECT_EQ(mMru::MRUFiles.value(0), other);
}
