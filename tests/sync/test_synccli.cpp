// kelvarin --sync, run as a timer runs it: no display, a status, the summary or one line of error.
#include "synctest.h"

#include "app/commandline.h"
#include "phonebook/login.h"
#include "support/fixtureprogram.h"
#include "sync/account.h"

namespace synctest {
namespace {

fixture::ProgramRun Kelvarin(const QStringList& arguments, const QString& password) {
    QMap<QString, QString> env;
    if (!password.isEmpty()) env.insert(QStringLiteral("KELVARIN_SYNC_PASSWORD"), password);
    return fixture::RunProgram(arguments, env);
}

TEST(SyncCommandLine, TheOptionTakesThePhonebook) {
    mMain::CommandLine line =
        mMain::ReadCommandLine({QStringLiteral("--sync"), QStringLiteral("my book.kvdb")});
    EXPECT_EQ(line.action, mMain::CommandLine::Sync);
    EXPECT_EQ(line.phonebook, QStringLiteral("my book.kvdb"));
    line = mMain::ReadCommandLine(
        {QStringLiteral("--sync"), QStringLiteral("--export-vcard"), QStringLiteral("x")});
    EXPECT_EQ(line.action, mMain::CommandLine::Exchange);
}

using SyncCli = SyncTest;

TEST_F(SyncCli, SyncsWithoutAWindowAndSaysWhyWhenItCannot) {
    use(QStringLiteral("a.kvdb"));
    add(Named(QStringLiteral("Ana"), QStringLiteral("1")));
    add(Named(QStringLiteral("Bo"), QStringLiteral("2")));
    use(QStringLiteral("unlinked.kvdb"));
    use(QStringLiteral("a.kvdb"));
    link();
    mMain::Closing();

    fixture::ProgramRun run =
        Kelvarin({QStringLiteral("--sync"), path(QStringLiteral("a.kvdb"))}, server.password());
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out.trimmed(), QStringLiteral("Sent 2, received 0, merged 0, conflicts 0"));
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();

    // No password anywhere: the secret store is out of reach without a session bus.
    run = Kelvarin({QStringLiteral("--sync"), path(QStringLiteral("a.kvdb"))}, QString());
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("kelvarin: no password for the address book")))
        << run.err.toStdString();
    EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1);

    run = Kelvarin({QStringLiteral("--sync"), path(QStringLiteral("a.kvdb"))}, QStringLiteral("wrong"));
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("refused the user name or password")))
        << run.err.toStdString();

    run = Kelvarin({QStringLiteral("--sync"), path(QStringLiteral("unlinked.kvdb"))}, server.password());
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("is not linked to an address book")))
        << run.err.toStdString();

    server.stop();
    run = Kelvarin({QStringLiteral("--sync"), path(QStringLiteral("a.kvdb"))}, server.password());
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("cannot be reached"))) << run.err.toStdString();
}

} // namespace
} // namespace synctest
