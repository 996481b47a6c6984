// The program's arguments, and what the program itself answers before any window: help, version,
// an unknown option, and a machine without a display.
#include "app/commandline.h"
#include "core/globals.h"
#include "core/language.h"
#include "preferences/regsettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace mLanguageGobals;
using mMain::CommandLine;

TEST(CommandLineTest, NamesJoinAndOptionsAreReadWhereverTheyStand) {
    // An unquoted path with blanks still names one file.
    CommandLine line = mMain::ReadCommandLine({QStringLiteral("my"), QStringLiteral("book.kvdb")});
    EXPECT_EQ(line.action, CommandLine::Start);
    EXPECT_EQ(line.phonebook, QStringLiteral("my book.kvdb"));

    EXPECT_EQ(mMain::ReadCommandLine({QStringLiteral("-v")}).action, CommandLine::Version);
    // Help wins over anything else on the line.
    EXPECT_EQ(mMain::ReadCommandLine({QStringLiteral("--colour"), QStringLiteral("-h")}).action,
              CommandLine::Help);

    line = mMain::ReadCommandLine({QStringLiteral("--colour"), QStringLiteral("book.kvdb")});
    EXPECT_EQ(line.action, CommandLine::UnknownOption);
    EXPECT_EQ(line.option, QStringLiteral("--colour"));

    // After "--" a name may start with a dash.
    line = mMain::ReadCommandLine({QStringLiteral("--"), QStringLiteral("--help.kvdb")});
    EXPECT_EQ(line.action, CommandLine::Start);
    EXPECT_EQ(line.phonebook, QStringLiteral("--help.kvdb"));
}

namespace {

// The program as a user runs it from a terminal, with `environment` changed as given (an empty
// value removes the variable).
struct Ran {
    int code = -1;
    bool crashed = true;
    QString out, err;
};

Ran runProgram(const QStringList& arguments, const QList<QPair<QString, QString>>& environment) {
    Ran ran;
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/kelvarin");
    if (!QFileInfo(program).isExecutable()) {
        ADD_FAILURE() << "the program is not built beside the tests: " << program.toStdString();
        return ran;
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment)
        value.isEmpty() ? env.remove(name) : env.insert(name, value);
    QProcess p;
    p.setProcessEnvironment(env);
    p.start(program, arguments);
    if (!p.waitForFinished(20000)) {
        p.kill();
        p.waitForFinished();
        ADD_FAILURE() << "the program did not end";
        return ran;
    }
    ran.code = p.exitCode();
    ran.crashed = p.exitStatus() != QProcess::NormalExit;
    ran.out = QString::fromLocal8Bit(p.readAllStandardOutput());
    ran.err = QString::fromLocal8Bit(p.readAllStandardError());
    return ran;
}

const QList<QPair<QString, QString>> kNoDisplay = {{QStringLiteral("DISPLAY"), QString()},
                                                   {QStringLiteral("WAYLAND_DISPLAY"), QString()},
                                                   {QStringLiteral("QT_QPA_PLATFORM"), QString()}};

} // namespace

TEST(ProgramTest, HelpAndVersionAnswerWithoutAWindowOrADisplay) {
    Ran help = runProgram({QStringLiteral("--help")}, kNoDisplay);
    EXPECT_FALSE(help.crashed);
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(help.out, mMain::UsageLines().join(QLatin1Char('\n')) + QLatin1Char('\n'));
    EXPECT_EQ(help.err, QString());

    Ran version = runProgram({QStringLiteral("--version")}, kNoDisplay);
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out,
              AppTitle() + QLatin1Char(' ') + mRegSettings::ProgramVersion() + QLatin1Char('\n'));
}

TEST(ProgramTest, WithoutADisplayOneLineSaysSoAndTheProgramEnds) {
    for (const auto& display : {QString(), QStringLiteral(":73")}) { // none named; one that is not there
        SCOPED_TRACE(display.toStdString());
        auto env = kNoDisplay;
        env[0].second = display;
        const Ran ran = runProgram({}, env);
        EXPECT_FALSE(ran.crashed);
        EXPECT_EQ(ran.code, 1);
        EXPECT_EQ(ran.err, msgNoDisplay + QLatin1Char('\n'));
        EXPECT_EQ(ran.out, QString());
    }
}

TEST(ProgramTest, AnUnknownOptionIsNamedWithTheUsage) {
    const Ran ran = runProgram({QStringLiteral("--colour")},
                               {{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}});
    EXPECT_EQ(ran.code, 2);
    EXPECT_TRUE(
        ran.err.contains(msgUnknownOption.arg(QStringLiteral("--colour")) + QLatin1Char('\n') + msgUsage))
        << ran.err.toStdString();
}

TEST(ProgramTest, ConvertTurnsAWindowsPhonebookIntoANewOneWithoutADisplay) {
    QTemporaryDir dir;
    const QString jet = dir.filePath(QStringLiteral("book.kvdb"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(KELVARIN_SOURCE_DIR "/tests/legacy/data/jet-small.mdb"), jet));
    Ran ran = runProgram({QStringLiteral("--convert"), jet}, kNoDisplay);
    const QString converted = dir.filePath(QStringLiteral("book (converted).kvdb"));
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    EXPECT_EQ(ran.out, converted + QLatin1Char('\n'));
    EXPECT_TRUE(QFile::exists(converted));

    // A damaged file: one line on the standard error, no new file, status 1.
    const QString cut = dir.filePath(QStringLiteral("cut.kvdb"));
    QFile in(jet), out(cut);
    ASSERT_TRUE(in.open(QIODevice::ReadOnly) && out.open(QIODevice::WriteOnly));
    out.write(in.read(8192));
    out.close();
    ran =
        runProgram({QStringLiteral("--convert"), cut, dir.filePath(QStringLiteral("new.kvdb"))}, kNoDisplay);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.err.count(QLatin1Char('\n')), 1) << ran.err.toStdString();
    EXPECT_TRUE(ran.err.startsWith(QStringLiteral("kelvarin: ")));
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("new.kvdb"))));

    const CommandLine line = mMain::ReadCommandLine(
        {QStringLiteral("--convert"), QStringLiteral("old.kvdb"), QStringLiteral("new.kvdb")});
    EXPECT_EQ(line.action, CommandLine::Convert);
    EXPECT_EQ(line.convertFrom, QStringLiteral("old.kvdb"));
    EXPECT_EQ(line.convertTo, QStringLiteral("new.kvdb"));
}
