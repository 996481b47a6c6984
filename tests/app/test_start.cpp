// The start: which phonebook is chosen and opened, what the user is told when none can be, how
// the window comes up, and what a second start does.
#include "app/mmain.h"
#include "app/nophonebook.h"
#include "app/previnstance.h"
#include "core/cfiledialog.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "mainwindow/form7.h"
#include "mainwindow/form9.h"
#include "mainwindow/statusbar.h"
#include "phonebook/createdb.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/controls/listview.h"
#include "support/fixture.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QTest>

using fixture::TempDirTest;
using namespace mLanguageGobals;

class Start : public TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        m_folder = QDir::currentPath();
    }
    void TearDown() override {
        CFileDialog::SetHandler({});
        endRun();
        mMain::SetCommandLine(QString());
        QDir::setCurrent(m_folder);
        QFile::remove(DefaultPhonebook());
        TempDirTest::TearDown();
    }
    // What the process does when it ends.
    void endRun() {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
    }
    QString recent(int n) { return GetSetting(AppTitle(), QStringLiteral("Recent"), QString::number(n)); }
    void makePhonebook(const QString& file, int contacts = 0) {
        ASSERT_EQ(mAccess::CreateDB(file, false), 1);
        gWS.BeginTrans();
        for (int i = 1; i <= contacts; ++i)
            gDB.Execute(
                QStringLiteral("INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) "
                               "VALUES (%1, %1, 'Contact %1', 1, 1, -1, 'C')")
                    .arg(i));
        gWS.CommitTrans();
        mMain::Closing();
    }
    // What the user does on the preferences a start without a phonebook opens on.
    enum Choice { ChoiceClose, ChoiceOpen };
    // Main with that dialog answered by `choice`; the reasons its Database page gave are kept,
    // one per showing.
    void runMain(Choice choice = ChoiceClose) {
        fixture::ModalRecorder dialogs([this, choice](QDialog* d) {
            if (qobject_cast<Form9*>(d)) {
                ++tips;
                return 0;
            }
            auto* window = qobject_cast<Form7*>(d);
            EXPECT_NE(window, nullptr);
            if (!window) return 0;
            EXPECT_TRUE(window->NoPhonebook);
            EXPECT_EQ(window->Pages->currentIndex(), Form7::PageDatabase);
            EXPECT_TRUE(window->lbNoPhonebook->text().endsWith(window->Reason()));
            reasons << window->Reason();
            if (choice == ChoiceOpen) window->bnDatabasePath->click();
            return window->result();
        });
        mMain::Main();
    }
    QStringList reasons;
    int tips = 0; // tip windows shown
    QString m_folder;
};

TEST_F(Start, TheFirstStartMakesTheDefaultPhonebook) {
    QSettings().clear(); // nothing stored: the program never ran
    QDir(DefaultFolder()).removeRecursively();
    runMain();
    EXPECT_TRUE(gMainFormShown);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(tips, 1); // a first start shows the tip of the day
    EXPECT_EQ(gDBPath, DefaultPhonebook());
    EXPECT_TRUE(QFile::exists(DefaultPhonebook()));
    ASSERT_NE(gForm1, nullptr);
    EXPECT_TRUE(gForm1->windowTitle().contains(DefaultPhonebook()));
    EXPECT_TRUE(recent(1).isEmpty()); // the default file is not added to the list by itself
    EXPECT_TRUE(reasons.isEmpty());
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

TEST_F(Start, ARelativePathIsKeptAbsoluteSoALaterStartElsewhereFindsIt) {
    QDir().mkpath(path(QStringLiteral("big")));
    const QString file = path(QStringLiteral("big/book.kvdb"));
    makePhonebook(file);
    QDir::setCurrent(m_dir.path());
    mMain::SetCommandLine(QStringLiteral("big/./book.kvdb"));
    runMain();
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(gDBPath, file);
    EXPECT_EQ(recent(1), file);
    EXPECT_EQ(gForm1->windowTitle(), AppTitle() + QStringLiteral(" - ") + file);
    endRun();

    // The next start, from another folder and with no file named, opens it from the recent list.
    QDir::setCurrent(QDir::rootPath());
    mMain::SetCommandLine(QString());
    runMain();
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(gDBPath, file);
    EXPECT_TRUE(reasons.isEmpty());
}

TEST_F(Start, WithoutAPhonebookTheUserIsToldWhichFileAndWhyAndNothingIsMade) {
    const QString damaged = path(QStringLiteral("letter.kvdb"));
    QFile letter(damaged);
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Dear Ann,\n");
    letter.close();
    QDir().mkpath(path(QStringLiteral("books.kvdb")));

    const QString gone = path(QStringLiteral("gone.kvdb"));
    const QString noFolder = path(QStringLiteral("no such folder/book.kvdb"));
    const QString folder = path(QStringLiteral("books.kvdb"));
    const struct {
        QString commandLine;
        QString reason;
    } cases[] = {
        {gone, msgPhonebookFileMissing.arg(gone)},
        {noFolder, msgPhonebookFolderMissing.arg(noFolder)},
        {folder, msgPhonebookIsFolder.arg(folder)},
        // What the opening found is told in the same window, not in a box of its own before it.
        {damaged,
         msgPhonebookNotOpened.arg(damaged) + QStringLiteral("\n\n") + msgNotADatabaseFileOrCorrupted},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.commandLine.toStdString());
        reasons.clear();
        mMain::SetCommandLine(c.commandLine);
        fixture::MsgBoxRecorder boxes;
        runMain();
        EXPECT_TRUE(boxes.boxes.isEmpty());
        EXPECT_EQ(reasons, QStringList{c.reason});
        EXPECT_TRUE(gMainFormShown); // the window comes up, without a phonebook
        EXPECT_TRUE(gNotConnected);
        EXPECT_EQ(gForm1->windowTitle(), AppTitle());
        endRun();
    }
    EXPECT_FALSE(QFile::exists(gone));
    EXPECT_FALSE(QDir(path(QStringLiteral("no such folder"))).exists());
    EXPECT_TRUE(QDir(folder).exists());
    ASSERT_TRUE(letter.open(QIODevice::ReadOnly));
    EXPECT_EQ(letter.readAll(), QByteArray("Dear Ann,\n"));
}

TEST_F(Start, AVanishedRecentEntryIsNamedAndStaysListed) {
    const QString file = path(QStringLiteral("last.kvdb"));
    makePhonebook(file);
    SaveSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"), file);
    runMain();
    EXPECT_EQ(gDBPath, file);
    EXPECT_FALSE(gNotConnected);
    endRun();

    QFile::remove(file);
    runMain();
    EXPECT_TRUE(gNotConnected);
    EXPECT_EQ(reasons, QStringList{msgPhonebookFileMissing.arg(file)});
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(recent(1), file);
}

TEST_F(Start, WithoutAPhonebookTheDatabasePageOpensOneAndStaysWhenNothingWasChosen) {
    const QString other = path(QStringLiteral("other.kvdb"));
    makePhonebook(other, 2);
    mMain::SetCommandLine(path(QStringLiteral("gone.kvdb")));
    bool answer = true;
    CFileDialog::SetHandler([&](CFileDialog& dialog, bool) {
        dialog.FileName = other;
        return answer;
    });

    runMain(ChoiceOpen);
    EXPECT_EQ(reasons.size(), 1);
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(gDBPath, other);
    EXPECT_EQ(gForm1->ListView2->ListItems.Count(), 2);
    endRun();

    // The chooser cancelled: the page stays, and Open can be tried again, until it is closed.
    answer = false;
    int shown = 0;
    fixture::ModalRecorder dialogs([&shown](QDialog* d) {
        auto* window = qobject_cast<Form7*>(d);
        shown += window != nullptr;
        for (int i = 0; window && i < 2; ++i) {
            window->bnDatabasePath->click();
            EXPECT_EQ(window->result(), 0);
        }
        return 0;
    });
    mMain::Main();
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(gNotConnected);
    EXPECT_TRUE(gMainFormShown);
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
    endRun();
    QFile::remove(beside);
}

// The window is drawn, with the status bar saying what happens, before the phonebook fills it.
class PaintWatch : public QObject {
  public:
    bool sawLoading = false;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && gForm1 && watched == gForm1->StatusBar1 &&
            gForm1->StatusBar1->PanelText(1) == msgLoadingContacts &&
            gForm1->ListView2->ListItems.Count() == 0)
            sawLoading = true;
        return false;
    }
};

TEST_F(Start, TheWindowIsDrawnBeforeItFillsAndCarriesAnIconOfEveryUsualSize) {
    const QString file = path(QStringLiteral("book.kvdb"));
    makePhonebook(file, 40);
    mMain::SetCommandLine(file);
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    runMain();
    qApp->removeEventFilter(&watch);
    EXPECT_TRUE(watch.sawLoading);
    EXPECT_EQ(gForm1->ListView2->ListItems.Count(), 40);
    EXPECT_TRUE(gForm1->StatusBar1->PanelText(1).startsWith(msgTodayColon));
    EXPECT_FALSE(QApplication::overrideCursor());

    const QList<QSize> sizes = gForm1->windowIcon().availableSizes();
    for (int side : {16, 24, 32, 48, 64, 128, 256})
        EXPECT_TRUE(sizes.contains(QSize(side, side))) << side;
    EXPECT_EQ(gForm1->windowIcon().pixmap(QSize(256, 256), 1.0).size(), QSize(256, 256));
}

class SecondStart : public Start {
  protected:
    // The first instance is up on the default phonebook; `other` waits beside it.
    void SetUp() override {
        Start::SetUp();
        other = path(QStringLiteral("other.kvdb"));
        makePhonebook(other, 3);
        runMain();
        ASSERT_TRUE(gMainFormShown);
        first = gForm1;
    }
    // A second start with `commandLine` in this process: the first instance answers it.
    void startAgain(const QString& commandLine) {
        gMainFormShown = false;
        mMain::SetCommandLine(commandLine);
        mMain::Main();
        EXPECT_EQ(gForm1, first); // the second leaves at once, with no window of its own
        gMainFormShown = true;
    }
    bool waitForOther() {
        return QTest::qWaitFor([this] { return gDBPath == other && gDBOpen; }, 3000);
    }
    QString other;
    Form1* first = nullptr;
};

TEST_F(SecondStart, BringsTheFirstForwardAndHandsItsPhonebookOver) {
    first->hide();
    startAgain(QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return first->isVisible(); }, 3000));
    EXPECT_EQ(gDBPath, DefaultPhonebook());

    first->showMinimized();
    QDir::setCurrent(m_dir.path()); // named as the second start's own folder sees it
    startAgain(QStringLiteral("other.kvdb"));
    ASSERT_TRUE(waitForOther());
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(recent(1), other); // as File > Open would
    EXPECT_EQ(first->ListView2->ListItems.Count(), 3);
    EXPECT_FALSE(first->isMinimized());
}

TEST_F(SecondStart, APhonebookHandedOverWaitsForAnOpenDialogToClose) {
    QDialog busy(first);
    busy.setWindowModality(Qt::ApplicationModal);
    busy.show();
    startAgain(other);
    QTest::qWait(400);
    EXPECT_EQ(gDBPath, DefaultPhonebook()); // nothing closes under the user's dialog
    busy.close();
    ASSERT_TRUE(waitForOther());
    EXPECT_FALSE(gNotConnected);
}

TEST_F(Start, APhonebookOfTheWindowsVersionOnTheCommandLineOpensConvertedOrIsExplained) {
    const QString jet = path(QStringLiteral("old book.kvdb"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/legacy/data/jet-small.mdb"), jet));
    const QString converted = path(QStringLiteral("old book (converted).kvdb"));
    {
        // Declined: nothing is made, and the window without a phonebook says why.
        fixture::MsgBoxRecorder boxes(vb::vbNo);
        mMain::SetCommandLine(jet);
        runMain();
        EXPECT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(gNotConnected);
        EXPECT_EQ(reasons,
                  QStringList{msgPhonebookNotOpened.arg(jet) + QStringLiteral("\n\n") + msgJetNotConverted});
        EXPECT_FALSE(QFile::exists(converted));
        endRun();
    }
    reasons.clear();
    fixture::MsgBoxRecorder boxes(vb::vbYes);
    runMain();
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_EQ(boxes.boxes[0].text,
              msgJetConvertQuestion + QStringLiteral("\n\n") + msgJetNewFile.arg(converted));
    EXPECT_FALSE(gNotConnected);
    EXPECT_EQ(gDBPath, converted);
    EXPECT_EQ(recent(1), converted);
    EXPECT_TRUE(reasons.isEmpty());
}
