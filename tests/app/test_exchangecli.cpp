// The exchange options of the command line, run as a user runs them: no display, a status and,
// on failure, one line on the standard error.
#include "app/commandline.h"
#include "core/globals.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "support/fixtureprogram.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using mMain::CommandLine;

namespace {

QByteArray ReadAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(ExchangeCommandLine, OptionsAreReadWithTheirFileAndPhonebook) {
    CommandLine line = mMain::ReadCommandLine({QStringLiteral("--export-vcard"), QStringLiteral("out.vcf"),
                                               QStringLiteral("book.kvdb"), QStringLiteral("--vcard3")});
    EXPECT_EQ(line.action, CommandLine::Exchange);
    EXPECT_EQ(line.exchangeOption, QStringLiteral("--export-vcard"));
    EXPECT_EQ(line.exchangeFile, QStringLiteral("out.vcf"));
    EXPECT_EQ(line.exchangePhonebook, QStringLiteral("book.kvdb"));
    EXPECT_TRUE(line.vcard3);
    line = mMain::ReadCommandLine(
        {QStringLiteral("--import-csv"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    EXPECT_EQ(line.action, CommandLine::UnknownOption);
    EXPECT_EQ(line.option, QStringLiteral("c"));
}

TEST(ExchangeCommandLine, ImportAndExportRunWithoutADisplay) {
    QTemporaryDir dir;
    const QString book = dir.filePath(QStringLiteral("book.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(book, false), 1);
    mMain::Closing();

    const QString in = dir.filePath(QStringLiteral("in.vcf"));
    QFile f(in);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:J\xc3\xbcrgen M\xc3\xbcller\r\nTEL;TYPE=cell:+49 1\r\n"
            "EMAIL:j@example.org\r\nNOTE:one\\ntwo\\; three\r\nCATEGORIES:Friends\r\nEND:VCARD\r\n"
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nTEL:+44 2\r\nEND:VCARD\r\n");
    f.close();

    fixture::ProgramRun run = fixture::RunProgram({QStringLiteral("--import-vcard"), in, book});
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("2 imported, 0 merged, 0 skipped\n"));
    // The same file again completes the contacts already there instead of doubling them.
    run = fixture::RunProgram({QStringLiteral("--import-vcard"), in, book});
    EXPECT_EQ(run.out, QStringLiteral("0 imported, 2 merged, 0 skipped\n"));

    const QString vcf = dir.filePath(QStringLiteral("out.vcf"));
    run = fixture::RunProgram({QStringLiteral("--export-vcard"), vcf, book, QStringLiteral("--vcard3")});
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    const QByteArray cards = ReadAll(vcf);
    EXPECT_EQ(cards.count("BEGIN:VCARD"), 2);
    EXPECT_TRUE(cards.contains("VERSION:3.0"));
    EXPECT_TRUE(cards.contains("FN:J\xc3\xbcrgen M\xc3\xbcller"));
    EXPECT_TRUE(cards.contains("NOTE:one\\ntwo\\; three"));

    const QString csv = dir.filePath(QStringLiteral("out.csv"));
    EXPECT_EQ(fixture::RunProgram({QStringLiteral("--export-csv"), csv, book}).code, 0);
    const QString copy = dir.filePath(QStringLiteral("copy.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(copy, false), 1);
    mMain::Closing();
    run = fixture::RunProgram({QStringLiteral("--import-csv"), csv, copy});
    EXPECT_EQ(run.out, QStringLiteral("2 imported, 0 merged, 0 skipped\n")) << run.err.toStdString();
    const QString again = dir.filePath(QStringLiteral("again.vcf"));
    EXPECT_EQ(
        fixture::RunProgram({QStringLiteral("--export-vcard"), again, copy, QStringLiteral("--vcard3")}).code,
        0);
    EXPECT_EQ(ReadAll(again), cards);
}

TEST(ExchangeCommandLine, FailuresAnswerOneLineAndAStatus) {
    QTemporaryDir dir;
    fixture::ProgramRun run = fixture::RunProgram({QStringLiteral("--export-csv")});
    EXPECT_EQ(run.code, 2);
    run = fixture::RunProgram({QStringLiteral("--export-csv"), dir.filePath(QStringLiteral("x.csv")),
                               dir.filePath(QStringLiteral("none.kvdb"))});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("kelvarin: ")));
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("x.csv"))));

    const QString book = dir.filePath(QStringLiteral("book.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(book, false), 1);
    mMain::Closing();
    run = fixture::RunProgram(
        {QStringLiteral("--import-vcard"), dir.filePath(QStringLiteral("missing.vcf")), book});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1) << run.err.toStdString();
    run = fixture::RunProgram(
        {QStringLiteral("--export-vcard"), dir.filePath(QStringLiteral("no/such/folder.vcf")), book});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1) << run.err.toStdString();
}
