// The start: which phonebook is chosen and opened, and what is left when it cannot be.
#include "core/globals.h"
#include "core/language.h"
#include "app/mmain.h"
#include "app/previnstance.h"
#include "mainwindow/form1.h"
#include "phonebook/createdb.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/fixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using fixture::TempDirTest;

class Start : public TempDirTest {
protected:
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        QFile::remove(DefaultPhonebook());
        TempDirTest::TearDown();
    }
    QString recent(int n) { return GetSetting(AppTitle(), QStringLiteral("Recent"), QString::number(n)); }
    void makePhonebook(const QString& file) {
        ASSERT_EQ(mAccess::CreateDB(file, false), 1);
        mMain::Closing();
    }
    // Main with the windows it would open answered: the preferences window a failed start shows.
    void runMain() {
        fixture::ModalRecorder dialogs([](QDialog*) { return 0; });
        mMain::Main();
    }
};

TEST_F(Start, TheFirstStartMakesTheDefaultPhonebook) {
    QDir(DefaultFolder()).removeRecursively();
    runMain();
    EXPECT_TRUE(gMainFormShown);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(gDBPath, DefaultPhonebook());
    EXPECT_TRUE(QFile::exists(DefaultPhonebook()));
    ASSERT_NE(gForm1, nullptr);
    EXPECT_TRUE(gForm1->windowTitle().contains(DefaultPhonebook()));
    EXPECT_TRUE(recent(1).isEmpty()); // the default file is not added to the list by itself
}

TEST_F(Start, AQuotedPathWithBlanksOnTheCommandLineOpensThatFile) {
    QDir().mkpath(path(QStringLiteral("my books")));
    const QString file = path(QStringLiteral("my books/work book.kvdb"));
    makePhonebook(file);
    // Every quote goes, the one in the middle too.
    mMain::SetCommandLine(QStringLiteral("\"") + path(QStringLiteral("my books/work \"book.kvdb\"")));
    runMain();
    EXPECT_EQ(gDBPath, file);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(recent(1), file); // a file given to the program enters the list at once
    EXPECT_FALSE(QFile::exists(DefaultPhonebook()));
}

TEST_F(Start, AMissingFileNamedOnTheCommandLineIsNotMade) {
    mMain::SetCommandLine(path(QStringLiteral("gone.kvdb")));
    runMain();
    EXPECT_TRUE(gNotConnected);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("gone.kvdb"))));
    EXPECT_TRUE(gMainFormShown); // the window comes up, not connected
}

TEST_F(Start, TheNewestRecentEntryOpensAndAVanishedOneStaysListed) {
    const QString file = path(QStringLiteral("last.kvdb"));
    makePhonebook(file);
    SaveSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"), file);
    runMain();
    EXPECT_EQ(gDBPath, file);
    EXPECT_FALSE(gNotConnected);
    delete gForm1;
    mMain::Closing();
    mPrevInstance::StopListening();

    QFile::remove(file);
    fixture::MsgBoxRecorder boxes;
    runMain();
    EXPECT_TRUE(gNotConnected);
    EXPECT_TRUE(boxes.boxes.isEmpty()); // a missing file at start is no failure
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(recent(1), file);
}

TEST_F(Start, APhonebookBesideTheProgramWinsOverTheDefault) {
    const QString beside = ProgramFolderPhonebook();
    ASSERT_FALSE(QFile::exists(beside)) << "leftover " << beside.toStdString();
    makePhonebook(beside);
    QDir(DefaultFolder()).removeRecursively();
    runMain();
    EXPECT_EQ(gDBPath, beside);
    EXPECT_TRUE(QDir(DefaultFolder()).exists()); // made all the same, empty
    EXPECT_FALSE(QFile::exists(DefaultPhonebook()));
    delete gForm1;
    mMain::Closing();
    QFile::remove(beside);
}

TEST_F(Start, ASecondStartOnlyRaisesTheFirst) {
    runMain();
    ASSERT_TRUE(gMainFormShown);
    Form1* first = gForm1;
    gMainFormShown = false;
    mMain::SetCommandLine(path(QStringLiteral("other.kvdb")));
    mMain::Main(); // the first instance answers, so this one leaves at once
    EXPECT_EQ(gForm1, first);
    EXPECT_EQ(gDBPath, DefaultPhonebook());
    EXPECT_FALSE(gMainFormShown);
}
