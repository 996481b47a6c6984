// Compact, clear and move of the phonebook file: the backups beside it, what survives, the
// messages, and a compact that fails or is killed at any moment never costs the phonebook.
#include "access/blowfish.h"
#include "access/compactfile.h"
#include "access/form5.h"
#include "access/form6.h"
#include "access/maintenance.h"
#include "core/cfiledialog.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "support/fixture.h"

#include <QCheckBox>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace mLanguageGobals;

namespace {

class Maintenance : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        gRestricted = gReadOnlyMode = false;
        addContact(u"Ann Archer"_s, 3, 1, 1);
        addContact(u"Bob Brown"_s, 4);
        gDB.Execute(
            u"UPDATE CDs SET Photo = X'89504E470D0A1A0A', PhotoExt = 'png', PhotoSize = 8 WHERE IDCD = 1"_s);
        gDB.Execute(u"INSERT INTO Paths (IDPATH, IDCD, Path) VALUES (1, 1, '/a')"_s);
        gDB.Execute(
            u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree) VALUES (13, 'Key', 4, 'ID0EID3EID4EID13E')"_s);
        gDB.Execute(u"UPDATE AccessMode SET FullPW = '%1'"_s.arg(
            clsBlowfish().EncryptString(u"pw"_s, mAccess::PasswordKey())));
    }
    void TearDown() override {
        mAccess::CompactTestHooks() = mAccess::CompactHooks();
        PhonebookTest::TearDown();
    }
    static QByteArray bytes(const QString& file) {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // What a user would miss: contacts with photos and dependants, trees, passwords.
    QStringList content() {
        QStringList out;
        for (const char* sql :
             {"SELECT Count(*) FROM CDs", "SELECT Count(*) FROM CDs WHERE Photo Is Not Null",
              "SELECT Count(*) FROM Paths", "SELECT Count(*) FROM Categories", "SELECT Count(*) FROM Boxes",
              "SELECT Count(*) FROM Borrows", "SELECT FullPW FROM AccessMode"})
            out << scalar(QString::fromLatin1(sql)).toString();
        return out;
    }
};

} // namespace

TEST_F(Maintenance, BackupsGetNumberedNamesUnlessTheOldOneIsReplaced) {
    mMain::Closing();
    EXPECT_EQ(mAccess::TempName(m_path), path(u"book_Temp.kvdb"_s));
    EXPECT_EQ(mAccess::FreeBackupName(m_path, false), path(u"book_Backup.kvdb"_s));
    ASSERT_TRUE(mAccess::CompactDB(m_path, true, false));
    ASSERT_TRUE(mAccess::CompactDB(m_path, true, false));
    EXPECT_TRUE(QFile::exists(path(u"book_Backup.kvdb"_s)));
    EXPECT_TRUE(QFile::exists(path(u"book_Backup(1).kvdb"_s)));
    EXPECT_FALSE(QFile::exists(path(u"book_Temp.kvdb"_s)));
    // Replacing the plain backup: it becomes a copy of the phonebook as it stood.
    const QByteArray before = bytes(m_path);
    ASSERT_TRUE(mAccess::CompactDB(m_path, true, true));
    EXPECT_EQ(bytes(path(u"book_Backup.kvdb"_s)), before);
    EXPECT_FALSE(QFile::exists(path(u"book_Backup(2).kvdb"_s)));
    // A name without the five-character extension is cut all the same.
    EXPECT_EQ(mAccess::TempName(u"/x/book.db"_s), u"/x/bo_Tempok.db"_s);
}

TEST_F(Maintenance, ACompactKeepsEverythingAndTheFileShrinks) {
    // Something to reclaim: many rows written and deleted again.
    gDB.Execute(u"UPDATE CDs SET Comment = '%1' WHERE IDCD = 2"_s.arg(QString(20000, u'x')));
    gDB.Execute(u"UPDATE CDs SET Comment = Null WHERE IDCD = 2"_s);
    const QStringList before = content();
    mMain::Closing();
    const qint64 size = QFileInfo(m_path).size();
    fixture::MsgBoxRecorder boxes;
    fixture::ModalRecorder dialog([](QDialog* d) {
        auto* f = qobject_cast<Form5*>(d);
        EXPECT_TRUE(f->flgEraseOld->isEnabled());
        f->flgMakeBackup->setChecked(false);
        EXPECT_FALSE(f->flgEraseOld->isEnabled());
        f->bnCompact->click();
        return f->result();
    });
    mAccess::CompactCommand(nullptr);
    EXPECT_EQ(boxes.texts(), QStringList{msgDatabaseCompacted});
    ASSERT_TRUE(gDBOpen); // opened again
    EXPECT_EQ(content(), before);
    EXPECT_LT(QFileInfo(m_path).size(), size);
    EXPECT_FALSE(QFile::exists(path(u"book_Backup.kvdb"_s)));
}

TEST_F(Maintenance, AClearKeepsTreesAndPasswordsAndTakesContactsWithTheirDependants) {
    QStringList before = content();
    fixture::MsgBoxRecorder boxes(vb::vbYes);
    mAccess::ClearAndCompactDB(nullptr);
    EXPECT_EQ(boxes.texts(), (QStringList{msgReallyDeleteAllData, msgPhonebookCleared}));
    EXPECT_EQ(boxes.boxes[0].buttons, vb::vbYesNo | vb::vbDefaultButton2);
    ASSERT_TRUE(gDBOpen);
    before[0] = before[1] = before[2] = u"0"_s;
    EXPECT_EQ(content(), before);
}

TEST_F(Maintenance, ACompactThatFailsHalfWayLeavesThePhonebookUnchanged) {
    // Enough rows for a copy of some length.
    gDB.ExecuteNative(u"WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                      "INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, Label) "
                      "SELECT i, i, 'Name ' || i, 1, 1, 'N' FROM n"_s);
    mMain::Closing();
    const QByteArray original = bytes(m_path);
    mAccess::CompactTestHooks().failAfterSteps = 50;
    fixture::MsgBoxRecorder boxes;
    EXPECT_FALSE(mAccess::CompactDB(m_path, false, false));
    ASSERT_EQ(boxes.boxes.size(), 1); // the full-disk message, with the free space
    EXPECT_TRUE(boxes.boxes[0].text.startsWith(msgCannotCompactNoSpace + u'\n' + msgFreeSpace));
    EXPECT_EQ(bytes(m_path), original);
    EXPECT_FALSE(QFile::exists(path(u"book_Temp.kvdb"_s)));
    ASSERT_TRUE(mLogin::LoginCnn(false));
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 2993);
}

TEST_F(Maintenance, AMoveOntoItsOwnFolderIsRefusedAndAMoveElsewhereFollowsTheFile) {
    fixture::MsgBoxRecorder boxes;
    QString chosen = m_dir.path();
    const FolderHandler old = SetFolderHandler([&](const QString&, const QString&) { return chosen; });
    mAccess::MoveDatabase(nullptr);
    EXPECT_EQ(boxes.texts(), QStringList{msgDatabaseNotMovedFileExists});
    EXPECT_TRUE(gDBOpen);

    ASSERT_TRUE(QDir(m_dir.path()).mkdir(u"elsewhere"_s));
    chosen = path(u"elsewhere/"_s);
    QString shown;
    mAccess::MoveDatabase(nullptr, [&](const QString& p) { shown = p; });
    SetFolderHandler(old);
    EXPECT_EQ(gDBPath, path(u"elsewhere/book.kvdb"_s));
    EXPECT_EQ(shown, gDBPath);
    EXPECT_FALSE(QFile::exists(m_path));
    ASSERT_TRUE(gDBOpen);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 2);

    // The info window names the new place.
    Form6 info;
    EXPECT_EQ(info.fdDatabasePath->text(), gDBPath);
    EXPECT_TRUE(info.lblSize->text().startsWith(msgDatabaseSize));
}

// A phonebook of 100,000 contacts compacted by a child process that is killed at several
// moments: the phonebook always opens and holds every contact.
TEST(CompactCrash, AKilledCompactLeavesTheOldOrTheNewPhonebook) {
    QTemporaryDir dir;
    const QString book = dir.filePath(u"big.kvdb"_s);
    constexpr int kContacts = 100000;
    {
        ASSERT_EQ(mAccess::CreateDB(book, false), 1);
        gDB.ExecuteNative(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
            "INSERT INTO CDs (IDCD, ContactNumber, FullName, Company, City, IDC, IDX, Label) "
            "SELECT i, i, 'Contact ' || i, 'Company ' || (i % 97), 'City ' || (i % 13), 1, 1, 'C' "
            "FROM n"_s.arg(kContacts));
        // Free pages for the compact to reclaim.
        gDB.Execute(u"DELETE FROM CDs WHERE IDCD > %1"_s.arg(kContacts - 5000));
        gDB.Execute(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, Label) "
                    "SELECT IDCD + 5000, IDCD + 5000, FullName, 1, 1, 'C' FROM CDs WHERE IDCD > %1"_s.arg(
                        kContacts - 10000));
        mMain::Closing();
    }
    auto holdsEveryContact = [&](const char* when) {
        dao::Workspace ws;
        dao::Database db = ws.OpenDatabase(book, false, true);
        dao::Recordset rs = db.OpenRecordset(u"SELECT Count(*), Sum(IDCD) FROM CDs"_s, dao::dbOpenSnapshot);
        EXPECT_EQ(rs.Value(0).toInt(), kContacts) << when;
        EXPECT_EQ(rs.Value(1).toLongLong(), qint64(kContacts) * (kContacts + 1) / 2) << when;
        rs.Close();
        db.Close();
        ws.Close();
    };
    // The child compacts and ends; `stop` makes it wait at one moment until it is killed.
    auto runChild = [&](std::function<void(mAccess::CompactHooks&, int fd)> stop, int killAfterMs) {
        int pipefd[2];
        ASSERT_EQ(pipe(pipefd), 0);
        const pid_t pid = fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            close(pipefd[0]);
            mAccess::CompactHooks& hooks = mAccess::CompactTestHooks();
            if (stop) stop(hooks, pipefd[1]);
            try {
                if (QFile::exists(mAccess::TempName(book))) QFile::remove(mAccess::TempName(book));
                mAccess::CompactFile(book, mAccess::TempName(book));
            } catch (...) {
                _exit(2);
            }
            _exit(0);
        }
        close(pipefd[1]);
        if (stop) {
            char c;
            ASSERT_EQ(read(pipefd[0], &c, 1), 1); // the child stands at its moment
        } else {
            QThread::msleep(killAfterMs);
        }
        close(pipefd[0]);
        kill(pid, SIGKILL);
        int status = 0;
        waitpid(pid, &status, 0);
    };
    auto waitAt = [](std::function<void()> mAccess::CompactHooks::*moment) {
        return [moment](mAccess::CompactHooks& hooks, int fd) {
            hooks.*moment = [fd] {
                const char c = 'x';
                (void)!write(fd, &c, 1);
                pause();
            };
        };
    };

    // How long a whole compact takes here, to spread the kills over it.
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(mAccess::CompactFile(book, mAccess::TempName(book)));
    const int whole = int(clock.elapsed());
    holdsEveryContact("after a whole compact");

    for (int percent : {0, 15, 35, 55, 75, 95}) {
        runChild(nullptr, whole * percent / 100);
        holdsEveryContact("killed during the copy");
    }
    runChild(waitAt(&mAccess::CompactHooks::beforeRename), 0);
    holdsEveryContact("killed before the rename");
    runChild(waitAt(&mAccess::CompactHooks::afterRename), 0);
    holdsEveryContact("killed after the rename");
    // A later compact clears what a killed one left behind.
    ASSERT_TRUE(mAccess::CompactDB(book, false, false));
    EXPECT_FALSE(QFile::exists(mAccess::TempName(book)));
    holdsEveryContact("after a compact that follows");
}
