// Opening a phonebook: older formats brought up to date, files that are not phonebooks, the
// read-only fallback and a file another program is writing.
#include "app/mmain.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "phonebook/upgrade.h"
#include "support/fixture.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

using fixture::TempDirTest;
using namespace mLanguageGobals;

namespace {

void sql(const QString& file, const char* text) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &db), SQLITE_OK);
    char* err = nullptr;
    const int rc = sqlite3_exec(db, text, nullptr, nullptr, &err);
    EXPECT_EQ(rc, SQLITE_OK) << (err ? err : "") << " in " << text;
    sqlite3_free(err);
    sqlite3_close(db);
}

QStringList column(const QString& jet) {
    QStringList out;
    dao::Recordset rs = gDB.OpenRecordset(jet, dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext())
        out << (rs.Value(0).isNull() ? QStringLiteral("<null>") : rs.Text(0));
    return out;
}

enum Format { NoCategories, NoAccessMode, NoBoxes, NoPhoto, Current };

// A phonebook as an older version left it, made from a new one with plain SQL.
QString olderPhonebook(const QString& file, Format format) {
    EXPECT_EQ(mAccess::CreateDB(file, false), 1);
    mMain::Closing();
    if (format <= NoPhoto)
        sql(file, "ALTER TABLE CDs DROP COLUMN Photo; ALTER TABLE CDs DROP COLUMN PhotoExt; "
                  "ALTER TABLE CDs DROP COLUMN PhotoSize;");
    if (format <= NoBoxes)
        sql(file, "DROP TABLE Boxes; ALTER TABLE CDs DROP COLUMN IDX; "
                  "ALTER TABLE Categories DROP COLUMN Catpath; ALTER TABLE Borrows DROP COLUMN Catpath;");
    if (format <= NoAccessMode) sql(file, "DROP TABLE AccessMode;");
    if (format <= NoCategories)
        sql(file, "DROP TABLE Categories; DROP TABLE Borrows; DROP TABLE LoanHistory; ALTER TABLE CDs DROP "
                  "COLUMN IDC; "
                  "ALTER TABLE CDs DROP COLUMN IDB; ALTER TABLE CDs DROP COLUMN IsLend; "
                  "ALTER TABLE CDs DROP COLUMN LoanStart; ALTER TABLE CDs DROP COLUMN LoanComment;");
    sql(file,
        "VACUUM; INSERT INTO CDs (IDCD, FullName, Label) VALUES (1, 'Ann Old', 'A'), (2, 'Bob Old', 'B');");
    if (format >= NoCategories + 1) sql(file, "UPDATE CDs SET IDC = 3, IDB = 1 WHERE IDCD = 2;");
    if (format >= NoPhoto) sql(file, "UPDATE CDs SET IDC = 1 WHERE IDC IS NULL; UPDATE CDs SET IDX = 1;");
    return file;
}

class Login : public TempDirTest {
  protected:
    void TearDown() override {
        mMain::Closing();
        TempDirTest::TearDown();
    }
    bool login(const QString& file) {
        gDBPath = file;
        return mLogin::LoginCnn(false);
    }
};

} // namespace

TEST_F(Login, TheOldestFormatGainsEveryTableAndItsOldDefaults) {
    ASSERT_TRUE(login(olderPhonebook(path(QStringLiteral("v1.kvdb")), NoCategories)));
    EXPECT_EQ(
        column(QStringLiteral("SELECT Name FROM Categories ORDER BY ID")),
        (QStringList{msgAllCategories, msgOthers, msgMusic, msgMovies, msgPhotos, msgSoftware, msgGames}));
    EXPECT_EQ(column(QStringLiteral("SELECT Pedigree FROM Categories WHERE ID = 6")),
              QStringList{"ID0EID6E"});
    EXPECT_EQ(column(QStringLiteral("SELECT Name FROM Borrows ORDER BY ID")),
              (QStringList{msgAllFavorites, "John Smith"}));
    EXPECT_EQ(column(QStringLiteral("SELECT Name FROM Boxes ORDER BY ID")),
              (QStringList{msgAllGroups, msgOthers}));
    // Every contact lands in "Others" with no favorite, and in the group "Others".
    EXPECT_EQ(column(QStringLiteral("SELECT IDC & '/' & IDB & '/' & IDX FROM CDs ORDER BY IDCD")),
              (QStringList{"1/-1/1", "1/-1/1"}));
    EXPECT_EQ(column(QStringLiteral("SELECT Catpath FROM Categories WHERE ID = 4")), QStringList{msgPhotos});
    EXPECT_EQ(
        column(QStringLiteral("SELECT Count(*) FROM AccessMode WHERE IsNull(FullPW) AND IsNull(ReadOnlyPW)")),
        QStringList{"1"});
    EXPECT_TRUE(mAccess::CheckTableField(QStringLiteral("CDs"), QStringLiteral("Photo")));
    EXPECT_TRUE(mAccess::CheckTable(QStringLiteral("LoanHistory")));
    // The list query of the contact list finds them through the new trees.
    EXPECT_EQ(column(QStringLiteral(
                  "SELECT CDs.FullName FROM (CDs INNER JOIN Categories ON CDs.IDC = Categories.ID) "
                  "INNER JOIN Boxes ON CDs.IDX = Boxes.ID ORDER BY CDs.IDCD")),
              (QStringList{"Ann Old", "Bob Old"}));
}

TEST_F(Login, EachLaterFormatGainsOnlyWhatItLacks) {
    ASSERT_TRUE(login(olderPhonebook(path(QStringLiteral("v2.kvdb")), NoAccessMode)));
    EXPECT_EQ(column(QStringLiteral("SELECT Count(*) FROM AccessMode")), QStringList{"1"});
    EXPECT_EQ(column(QStringLiteral("SELECT Count(*) FROM Categories")),
              QStringList{"13"}); // the new file's own rows stay
    mMain::Closing();

    ASSERT_TRUE(login(olderPhonebook(path(QStringLiteral("v3.kvdb")), NoBoxes)));
    EXPECT_EQ(column(QStringLiteral("SELECT IDC & '/' & IDB & '/' & IDX FROM CDs ORDER BY IDCD")),
              (QStringList{"/-1/1", "3/1/1"})); // the first contact had no category yet
    EXPECT_EQ(column(QStringLiteral("SELECT Catpath FROM Categories WHERE ID = 4")),
              QStringList{"Business/Customers"});
    EXPECT_EQ(column(QStringLiteral("SELECT Catpath FROM Boxes ORDER BY ID")), (QStringList{"", msgOthers}));
    mMain::Closing();

    ASSERT_TRUE(login(olderPhonebook(path(QStringLiteral("v4.kvdb")), NoPhoto)));
    EXPECT_TRUE(mAccess::CheckTableField(QStringLiteral("CDs"), QStringLiteral("PhotoSize")));
    EXPECT_FALSE(mAccess::CheckTableField(QStringLiteral("CDs"), QStringLiteral("NoSuchField")));
    EXPECT_FALSE(mAccess::CheckTable(QStringLiteral("NoSuchTable")));
}

TEST_F(Login, AContactWithoutAGroupMovesToOthersAtEveryOpen) {
    const QString file = olderPhonebook(path(QStringLiteral("cur.kvdb")), Current);
    sql(file, "UPDATE CDs SET IDX = NULL; UPDATE Boxes SET Catpath = NULL;");
    ASSERT_TRUE(login(file));
    EXPECT_EQ(column(QStringLiteral("SELECT IDX FROM CDs")), (QStringList{"1", "1"}));
    EXPECT_EQ(column(QStringLiteral("SELECT Catpath FROM Boxes WHERE ID = 1")),
              QStringList{msgOthers}); // paths redone
}

TEST_F(Login, FilesThatAreNotPhonebooksAreRefusedAndLeftAlone) {
    fixture::ModalRecorder noReport([](QDialog*) {
        ADD_FAILURE() << "an error report was shown";
        return 0;
    });
    const qint64 reportBefore = QFileInfo(HuntERR::ReportFilePath()).size();
    ASSERT_EQ(mAccess::CreateDB(path(QStringLiteral("good.kvdb")), false), 1);
    mMain::Closing();
    QFile good(path(QStringLiteral("good.kvdb")));
    good.open(QIODevice::ReadOnly);
    const QByteArray whole = good.readAll();
    sql(path(QStringLiteral("other.db")), "CREATE TABLE notes(x); INSERT INTO notes VALUES (1);");
    const QList<QPair<QString, QByteArray>> files{
        {QStringLiteral("text.kvdb"), "Dear Ann,\nthis is a letter.\n"},
        {QStringLiteral("empty.kvdb"), QByteArray()},
        {QStringLiteral("truncated.kvdb"), whole.left(whole.size() / 3)}};
    QStringList paths{path(QStringLiteral("other.db"))};
    for (const auto& f : files) {
        QFile out(path(f.first));
        out.open(QIODevice::WriteOnly);
        out.write(f.second);
        paths << out.fileName();
    }
    for (const QString& p : paths) {
        QFile in(p);
        in.open(QIODevice::ReadOnly);
        const QByteArray before = in.readAll();
        in.close();
        fixture::MsgBoxRecorder boxes;
        EXPECT_FALSE(login(p)) << p.toStdString();
        EXPECT_EQ(boxes.texts(), QStringList{msgNotADatabaseFileOrCorrupted}) << p.toStdString();
        EXPECT_EQ(boxes.boxes.value(0).icon, vb::vbCritical);
        EXPECT_FALSE(gDBOpen);
        EXPECT_FALSE(gWSOpen);
        in.open(QIODevice::ReadOnly);
        EXPECT_EQ(in.readAll(), before) << p.toStdString();
    }
    EXPECT_EQ(QFileInfo(HuntERR::ReportFilePath()).size(), reportBefore); // handled by number: no report
}

TEST_F(Login, AFileThatCannotBeWrittenOpensReadOnly) {
    const QString file = olderPhonebook(path(QStringLiteral("ro.kvdb")), Current);
    const QString old = olderPhonebook(path(QStringLiteral("ro-old.kvdb")), NoPhoto);
    // Root may write any file, so the refusal comes through the store's hook.
    dao::ScopedHooks refusal;
    refusal->refuseOpen = [](const QString&, bool readOnly) {
        return readOnly ? 0 : qint32(dao::errPermission);
    };
    ASSERT_TRUE(login(file));
    EXPECT_TRUE(gFileReadOnly);
    EXPECT_TRUE(gDB.ReadOnly());
    EXPECT_EQ(column(QStringLiteral("SELECT FullName FROM CDs ORDER BY IDCD")),
              (QStringList{"Ann Old", "Bob Old"}));
    mMain::Closing();
    // An older file that needs a step cannot take it read-only.
    fixture::MsgBoxRecorder boxes;
    EXPECT_FALSE(login(old));
    EXPECT_EQ(boxes.texts(), QStringList{msgAccessDenied});
    EXPECT_FALSE(gDBOpen);
}

TEST_F(Login, APhonebookAnotherProgramWritesIsDenied) {
    const QString file = olderPhonebook(path(QStringLiteral("busy.kvdb")), Current);
    dao::Workspace otherWs;
    dao::Database other = otherWs.OpenDatabase(file, false, false);
    fixture::MsgBoxRecorder boxes;
    EXPECT_FALSE(login(file));
    EXPECT_EQ(boxes.texts(), QStringList{msgAccessDenied});
    other.Execute(QStringLiteral("INSERT INTO CDs (IDCD, FullName) VALUES (3, 'Cy')"));
    other.Close();
    ASSERT_TRUE(login(file));
    EXPECT_EQ(column(QStringLiteral("SELECT Count(*) FROM CDs")), QStringList{"3"});
}

TEST_F(Login, AFullDiskAtOpenSaysHowMuchIsFree) {
    const QString file = olderPhonebook(path(QStringLiteral("full.kvdb")), NoCategories);
    {
        dao::ScopedHooks full;
        full->growthPages = 1;
        fixture::MsgBoxRecorder boxes;
        EXPECT_FALSE(login(file));
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(boxes.boxes[0].text.startsWith(msgCannotOpenPhonebookNoSpace + QStringLiteral("\n") +
                                                   msgFreeSpace));
    }
    ASSERT_TRUE(login(file)); // the failed upgrade left nothing half made
    EXPECT_EQ(column(QStringLiteral("SELECT Count(*) FROM Categories")), QStringList{"7"});
}

TEST_F(Login, AnyOtherFailureGoesToTheErrorReport) {
    const QString file = olderPhonebook(path(QStringLiteral("odd.kvdb")), Current);
    dao::ScopedHooks refusal;
    refusal->refuseOpen = [](const QString&, bool) { return qint32(dao::errGeneral); };
    QString report;
    fixture::ModalRecorder windows([&](QDialog* form) {
        report = form->windowTitle();
        return 0;
    });
    EXPECT_FALSE(login(file));
    EXPECT_EQ(windows.shown, 1);
    EXPECT_FALSE(gDBOpen);
    EXPECT_FALSE(gWSOpen);
    EXPECT_TRUE(QFile::exists(HuntERR::ReportFilePath()));
    QFile f(HuntERR::ReportFilePath());
    f.open(QIODevice::ReadOnly);
    EXPECT_TRUE(f.readAll().contains("mLogin.LoginCnn(FromStart)"));
}
