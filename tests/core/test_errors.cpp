// An error on its way up: the places it passes, the report file and the window, and the program
// going on afterwards.
#include "core/errorreport.h"
#include "core/globals.h"
#include "support/fixture.h"

#include <QDialog>
#include <QFile>
#include <QPlainTextEdit>

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

QString readReport() {
    QFile f(HuntERR::ReportFilePath());
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

class ErrorTrap : public TempDirTest {
protected:
    void SetUp() override {
        TempDirTest::SetUp();
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
    for (const char* line : {"Program path: ", "Database path: ", "Error report path: ", "Free space (Program): ",
                             "Free space (Database): ", "Free space (Error): ", "File name : book.kvdb", "File size : ",
                             "Database size : ", "SegmentID: ", "Manifest: ", "VM: ", "MO: ", "OS: "}) {
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
    EXPECT_TRUE(HuntERR::PendingStack().isEmpty() || !HuntERR::PendingStack().join(QString()).contains(QStringLiteral("Outer")));
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
