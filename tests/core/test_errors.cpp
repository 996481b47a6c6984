// An error on its way up: the places it passes, the report file and the window, and the program
// going on afterwards.
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "support/fixture.h"

#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cerrno>
#include <stdexcept>

using fixture::TempDirTest;

namespace {

int innermost(int depth, const QString& name) {
    HUNT_PLACE("mTest.Innermost(depth,name)", depth, name);
    throw HuntERR::Error(5, QStringLiteral("Invalid procedure call or argument"), QStringLiteral("Kelvarin"));
}
int middle(bool flag, const QVariant& value) {
    HUNT_PLACE("mTest.Middle(flag,value)", flag, value);
    return innermost(3, QStringLiteral("Ann"));
}
void outer(double size) {
    HUNT_PLACE("mTest.Outer(size)", size);
    middle(true, QVariant());
}
int handledInside() {
    HUNT_PLACE("mTest.HandledInside");
    try {
        innermost(1, QStringLiteral("x"));
    } catch (const HuntERR::Error& e) {
        return e.Number(); // answered by number: no report
    }
    return 0;
}

void parse(const QString& text) {
    HUNT_PLACE("mTest.Parse(text)", text);
    throw std::runtime_error("stoi");
}
void quiet() {
    HUNT_PLACE("mTest.Quiet");
}

// A cleanup that fails on the way out, as a rollback can when the connection is gone.
void failingRollback() {
    HUNT_PLACE("mTest.Rollback");
    throw HuntERR::Error(3034, QStringLiteral("Commit or Rollback without BeginTrans."),
                         QStringLiteral("DAO"));
}
struct RollbackOnUnwind {
    ~RollbackOnUnwind() {
        if (std::uncaught_exceptions() == 0) return;
        try {
            failingRollback();
        } catch (...) {
        }
    }
};
void saveInTransaction(const QString& name) {
    HUNT_PLACE("mTest.Save(name)", name);
    RollbackOnUnwind trans;
    innermost(2, name);
}
void saveRollingBackInHandler(const QString& name) {
    HUNT_PLACE("mTest.Save(name)", name);
    try {
        innermost(2, name);
    } catch (...) {
        try {
            failingRollback();
        } catch (...) {
        }
        throw;
    }
}
void parseInTransaction(const QString& text) {
    HUNT_PLACE("mTest.Save(name)", text);
    RollbackOnUnwind trans;
    parse(text);
}

// The text of every error window shown while it lives, and the sentence above it.
struct Windows {
    QStringList texts, sentences;
    fixture::ModalRecorder recorder{[this](QDialog* form) {
        texts << form->findChild<QPlainTextEdit*>(QStringLiteral("txtError"))->toPlainText();
        auto* label = form->findChild<QLabel*>(QStringLiteral("lblSummary"));
        sentences << (label ? label->text() : QString());
        return 0;
    }};
};

std::string methodOf(const QString& text) {
    const qsizetype at = text.indexOf(QStringLiteral("  Method: "));
    if (at < 0) return std::string();
    return text.mid(at + 10, text.indexOf(QLatin1Char('\n'), at) - at - 10).trimmed().toStdString();
}

QString savedSentence(const QString& what) {
    return mLanguageGobals::msgErrorReportSaved.arg(what,
                                                    QDir::toNativeSeparators(HuntERR::ReportFilePath()));
}

QString readReport() {
    QFile f(HuntERR::ReportFilePath());
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

class ErrorTrap : public TempDirTest {
  protected:
    void TearDown() override {
        QDir(HuntERR::ReportFilePath()).removeRecursively();
        TempDirTest::TearDown();
    }
    void SetUp() override {
        TempDirTest::SetUp();
        QDir(HuntERR::ReportFilePath()).removeRecursively();
        QFile::remove(HuntERR::ReportFilePath());
        gDBPath = path(QStringLiteral("book.kvdb"));
    }
};

TEST_F(ErrorTrap, AnErrorThreeCallsDownGivesOneReportWithEveryPlace) {
    QStringList shown;
    QWidget* owner = reinterpret_cast<QWidget*>(1);
    fixture::ModalRecorder windows([&](QDialog* form) {
        auto* box = form->findChild<QPlainTextEdit*>(QStringLiteral("txtError"));
        shown << (box ? box->toPlainText() : QString());
        owner = form->parentWidget();
        return 0;
    });
    bool wentOn = false;
    RunEvent("Form1.mnuTest_Click", [] { outer(1.5); });
    wentOn = true;
    ASSERT_EQ(windows.shown, 1);
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(owner, nullptr); // no main window yet: the window has no owner
    const QString text = shown.first();
    const int a = text.indexOf(QStringLiteral("mTest.Innermost(depth,name) {3, Ann}"));
    const int b = text.indexOf(QStringLiteral("mTest.Middle(flag,value) {True, {Null}}"));
    const int c = text.indexOf(QStringLiteral("mTest.Outer(size) {1.5}"));
    const int d = text.indexOf(QStringLiteral("Form1.mnuTest_Click"));
    EXPECT_TRUE(a > 0 && a < b && b < c && c < d) << text.toStdString(); // innermost first
    EXPECT_TRUE(text.startsWith(QStringLiteral("Invalid procedure call or argument \n  Time='")));
    EXPECT_TRUE(text.contains(QStringLiteral("  Number: 5 = &H5 = vbObjectError ")));
    EXPECT_TRUE(text.contains(QStringLiteral("  Source: Kelvarin \n")));
    EXPECT_TRUE(text.contains(QStringLiteral("  Call Stack: \n")));

    const QString file = readReport();
    EXPECT_TRUE(file.startsWith(QStringLiteral("Please send this file to")));
    EXPECT_TRUE(file.contains(text));
    int at = 0;
    for (const char* line :
         {"Program path: ", "Database path: ", "Error report path: ", "Free space (Program): ",
          "Free space (Database): ", "Free space (Error): ", "File name : book.kvdb",
          "File size : ", "Database size : ", "SegmentID: ", "Manifest: ", "VM: ", "MO: ", "OS: "}) {
        const int next = file.indexOf(QString::fromLatin1(line), at);
        EXPECT_GT(next, at) << line; // each line once, in this order
        at = next;
    }
    EXPECT_TRUE(file.contains(QStringLiteral("Database path: ") + gDBPath + QLatin1Char('\n')));

    // A second error appends its own block; the stack starts afresh.
    RunEvent("Form1.mnuOther_Click", [] { middle(false, QStringLiteral("b")); });
    ASSERT_EQ(shown.size(), 2);
    EXPECT_FALSE(shown[1].contains(QStringLiteral("mTest.Outer")));
    EXPECT_EQ(readReport().count(QStringLiteral("Please send this file to")), 2);
}

TEST_F(ErrorTrap, AnErrorHandledByNumberLeavesNoReport) {
    fixture::ModalRecorder windows([](QDialog*) { return 0; });
    int number = 0;
    RunEvent("Form1.mnuTest_Click", [&] { number = handledInside(); });
    EXPECT_EQ(number, 5);
    EXPECT_EQ(windows.shown, 0);
    EXPECT_FALSE(QFile::exists(HuntERR::ReportFilePath()));
}

TEST_F(ErrorTrap, AHandledErrorLeavesNoPlacesForTheNextException) {
    Windows windows;
    // A handled error of ours, then an exception of another kind.
    RunEvent("Form1.mnuTest_Click", [] {
        handledInside();
        parse(QStringLiteral("abc"));
    });
    // One of another kind swallowed, other work, then a second one.
    RunEvent("Form1.mnuTest_Click", [] {
        try {
            parse(QStringLiteral("first"));
        } catch (const std::exception&) {
        }
        quiet();
        HUNT_PLACE("mTest.Second");
        throw std::runtime_error("second");
    });
    // One of another kind raised while a handler deals with one of ours.
    RunEvent("Form1.mnuTest_Click", [] {
        try {
            innermost(1, QStringLiteral("x"));
        } catch (const HuntERR::Error&) {
            parse(QStringLiteral("in handler"));
        }
    });
    ASSERT_EQ(windows.texts.size(), 3);
    EXPECT_EQ(methodOf(windows.texts[0]), "mTest.Parse(text) {abc}");
    EXPECT_FALSE(windows.texts[0].contains(QStringLiteral("mTest.Innermost")))
        << windows.texts[0].toStdString();
    EXPECT_EQ(methodOf(windows.texts[1]), "mTest.Second");
    EXPECT_FALSE(windows.texts[1].contains(QStringLiteral("{first}"))) << windows.texts[1].toStdString();
    EXPECT_EQ(methodOf(windows.texts[2]), "mTest.Parse(text) {in handler}");
    EXPECT_TRUE(windows.texts[2].contains(
        QStringLiteral("mTest.Parse(text) {in handler}\n    Form1.mnuTest_Click\n")));
}

TEST_F(ErrorTrap, AnErrorRaisedWhileAnotherUnwindsIsReportedAfterIt) {
    Windows windows;
    RunEvent("Form1.bnSave_Click", [] { saveInTransaction(QStringLiteral("Bob")); });
    RunEvent("Form1.bnSave_Click", [] { saveRollingBackInHandler(QStringLiteral("Bob")); });
    RunEvent("Form1.bnSave_Click", [] { parseInTransaction(QStringLiteral("Bob")); });
    ASSERT_EQ(windows.texts.size(), 3);
    for (int i = 0; i < 3; ++i) {
        const QString& text = windows.texts[i];
        SCOPED_TRACE(text.toStdString());
        // The first error keeps every place it passed, and leads.
        const qsizetype inner = text.indexOf(i == 2 ? QStringLiteral("mTest.Parse(text) {Bob}")
                                                    : QStringLiteral("mTest.Innermost(depth,name) {2, Bob}"));
        const qsizetype save = text.indexOf(QStringLiteral("mTest.Save(name) {Bob}"));
        const qsizetype event = text.indexOf(QStringLiteral("    Form1.bnSave_Click\n"));
        const qsizetype second = text.indexOf(QStringLiteral("Commit or Rollback without BeginTrans. \n"));
        EXPECT_TRUE(inner > 0 && inner < save && save < event && event < second);
        EXPECT_TRUE(
            text.startsWith(i == 2 ? QStringLiteral("stoi") : QStringLiteral("Invalid procedure call")));
        // The second one follows with its own places, ending in the procedure it was raised in.
        const QString rest = text.mid(second);
        EXPECT_EQ(methodOf(rest), "mTest.Rollback");
        EXPECT_TRUE(rest.contains(QStringLiteral("  Number: 3034 = ")));
        EXPECT_TRUE(rest.contains(
            QStringLiteral("  Call Stack: \n    mTest.Rollback\n    mTest.Save(name) {Bob}\n")));
    }
    EXPECT_TRUE(readReport().contains(windows.texts[0]));
}

TEST_F(ErrorTrap, TextsAreWrittenAsTheyStandAndTheSystemErrorIsTheOneAtTheRaise) {
    const QString description = QStringLiteral("Cannot find '%1' in %nl% at 100%");
    HuntERR::Error e(5, description, QStringLiteral("Kelvarin %Descr%"));
    EXPECT_STREQ(e.what(), "Cannot find '%1' in %nl% at 100% (5)");

    Windows windows;
    RunEvent("Form1.mnuTest_Click", [&] {
        struct Later {
            ~Later() { errno = EACCES; } // work on the way up changes errno
        } later;
        errno = ENOENT;
        throw HuntERR::Error(5, description, QStringLiteral("Kelvarin %Descr%"));
    });
    ASSERT_EQ(windows.texts.size(), 1);
    const QString& text = windows.texts[0];
    EXPECT_TRUE(text.startsWith(description + QStringLiteral(" \n  Time='"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("  Source: Kelvarin %Descr% \n  Description: ") + description +
                              QLatin1Char('\n')));
    EXPECT_TRUE(text.contains(QStringLiteral("  API Error: (") + QString::number(ENOENT) +
                              QStringLiteral(") ") + QString::fromLocal8Bit(strerror(ENOENT))))
        << text.toStdString();
    EXPECT_EQ(windows.sentences[0], savedSentence(description));
}

TEST_F(ErrorTrap, TheWindowSaysWhatFailedAndEnterEscAndCloseCloseIt) {
    int closedBy = 0;
    fixture::ModalRecorder windows([&](QDialog* form) {
        auto* summary = form->findChild<QLabel*>(QStringLiteral("lblSummary"));
        auto* report = form->findChild<QPlainTextEdit*>(QStringLiteral("txtError"));
        auto* close = form->findChild<QPushButton*>(QStringLiteral("bnClose"));
        if (!summary || !report || !close) {
            ADD_FAILURE() << "the window has no sentence or no Close button";
            return 0;
        }
        form->show();
        EXPECT_TRUE(summary->isVisible());
        EXPECT_EQ(summary->text(), savedSentence(QStringLiteral("Invalid procedure call or argument")));
        EXPECT_TRUE(
            report->toPlainText().startsWith(QStringLiteral("Invalid procedure call or argument \n")));
        EXPECT_EQ(report->font(),
                  QFontDatabase::systemFont(QFontDatabase::FixedFont)); // what the machine has
        EXPECT_EQ(close->text(), mLanguageGobals::msgClose);
        EXPECT_EQ(form->windowTitle(), mLanguageGobals::msgProgramError);

        const std::vector<std::function<void()>> ways = {
            [&] { QTest::keyClick(report, Qt::Key_Return); }, // Enter while reading the report
            [&] { QTest::keyClick(close, Qt::Key_Enter); },
            [&] { QTest::keyClick(report, Qt::Key_Escape); },
            [&] { QTest::mouseClick(close, Qt::LeftButton); },
        };
        for (const auto& way : ways) {
            form->show();
            way();
            if (!form->isVisible()) ++closedBy;
        }
        return 0;
    });
    RunEvent("Form1.mnuTest_Click", [] { outer(1.5); });
    EXPECT_EQ(windows.shown, 1);
    EXPECT_EQ(closedBy, 4);
}

TEST_F(ErrorTrap, AReportFileThatWillNotOpenIsRetriedWithoutStoppingTheEventLoop) {
    // A folder where the file should be: it cannot be opened for as long as it is there.
    ASSERT_TRUE(QDir().mkpath(HuntERR::ReportFilePath()));
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(20);
    Windows windows;
    QElapsedTimer clock;
    clock.start();
    RunEvent("Form1.mnuTest_Click", [] { outer(1.5); });
    const qint64 spent = clock.elapsed();
    ASSERT_EQ(windows.texts.size(), 1);
    EXPECT_GE(spent, 900); // tried for a second
    EXPECT_LT(spent, 3000);
    EXPECT_GE(ticks, 10) << "the event loop stood still while the report waited";
    EXPECT_EQ(windows.sentences[0], mLanguageGobals::msgErrorReportNotSaved.arg(
                                        QStringLiteral("Invalid procedure call or argument"),
                                        QDir::toNativeSeparators(HuntERR::ReportFilePath())));

    // Freed while a second report, raised by a timer, also waits: both are written, in order.
    QTimer::singleShot(
        100, [] { RunEvent("Form1.Timer1_Timer", [] { middle(false, QStringLiteral("timer")); }); });
    QTimer::singleShot(300, [] { QDir(HuntERR::ReportFilePath()).removeRecursively(); });
    RunEvent("Form1.mnuTest_Click", [] { outer(2.5); });
    ASSERT_EQ(windows.texts.size(), 3);
    const QString file = readReport();
    const qsizetype first = file.indexOf(QStringLiteral("mTest.Outer(size) {2.5}"));
    const qsizetype second = file.indexOf(QStringLiteral("Form1.Timer1_Timer"));
    EXPECT_TRUE(first > 0 && first < second) << file.toStdString();
    EXPECT_EQ(file.count(QStringLiteral("Please send this file to")), 2);
    EXPECT_EQ(windows.sentences[1], savedSentence(QStringLiteral("Invalid procedure call or argument")));
    EXPECT_EQ(windows.sentences[2], savedSentence(QStringLiteral("Invalid procedure call or argument")));
}

TEST_F(ErrorTrap, AForeignExceptionIsReportedToo) {
    QString shown;
    fixture::ModalRecorder windows([&](QDialog* form) {
        shown = form->findChild<QPlainTextEdit*>(QStringLiteral("txtError"))->toPlainText();
        return 0;
    });
    RunEvent("Form1.mnuTest_Click", [] {
        HUNT_PLACE("mTest.Parse(text)", QStringLiteral("abc"));
        throw std::runtime_error("stoi");
    });
    EXPECT_EQ(windows.shown, 1);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("stoi")));
    EXPECT_TRUE(shown.contains(QStringLiteral("mTest.Parse(text) {abc}")));
}
