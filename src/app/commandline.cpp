#include "app/commandline.h"

#include "core/datafiles.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "exchange/book/bookexchange.h"
#include "legacy/convert.h"
#include "phonebook/login.h"
#include "phonebook/upgrade.h"
#include "preferences/settings.h"
#include "sync/account.h"
#include "sync/secrets.h"
#include "sync/syncsession.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace mLanguageGobals;

namespace mMain {

CommandLine ReadCommandLine(const QStringList& arguments) {
    CommandLine line;
    QStringList names;
    bool optionsEnded = false;
    bool convert = false;
    bool sync = false;
    for (const QString& arg : arguments) {
        if (optionsEnded || !arg.startsWith(QLatin1Char('-')) || arg == QLatin1String("-")) {
            names << arg;
        } else if (arg == QLatin1String("--")) {
            optionsEnded = true;
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            line.action = CommandLine::Help;
        } else if (arg == QLatin1String("--version") || arg == QLatin1String("-v")) {
            if (line.action != CommandLine::Help) line.action = CommandLine::Version;
        } else if (arg == QLatin1String("--convert")) {
            convert = true;
        } else if (arg == QLatin1String("--export-vcard") || arg == QLatin1String("--export-csv") ||
                   arg == QLatin1String("--import-vcard") || arg == QLatin1String("--import-csv")) {
            if (line.exchangeOption.isEmpty()) line.exchangeOption = arg;
        } else if (arg == QLatin1String("--sync")) {
            sync = true;
        } else if (arg == QLatin1String("--vcard3")) {
            line.vcard3 = true;
        } else if (line.option.isEmpty()) {
            line.option = arg;
        }
    }
    // Help and version are answered whatever else stands there.
    if (line.action == CommandLine::Start && !line.option.isEmpty()) line.action = CommandLine::UnknownOption;
    line.phonebook = names.join(QLatin1Char(' '));
    if (convert && line.action == CommandLine::Start) {
        // The names are OLD and NEW here: a path with blanks is quoted, as for any script.
        line.action = CommandLine::Convert;
        line.convertFrom = names.value(0);
        line.convertTo = names.value(1);
        if (names.size() > 2) {
            line.action = CommandLine::UnknownOption;
            line.option = names[2];
        }
    }
    if (!line.exchangeOption.isEmpty() && line.action == CommandLine::Start && !convert) {
        line.action = CommandLine::Exchange;
        line.exchangeFile = names.value(0);
        line.exchangePhonebook = names.value(1);
        if (names.size() > 2) {
            line.action = CommandLine::UnknownOption;
            line.option = names[2];
        }
    }
    if (sync && line.action == CommandLine::Start && !convert && line.exchangeOption.isEmpty())
        line.action = CommandLine::Sync;
    return line;
}

QString PhonebookFromCommandLine(const QString& commandLine) {
    const QString path = QString(commandLine).remove(QLatin1Char('"'));
    if (path.isEmpty()) return path;
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QStringList UsageLines() {
    return {msgUsage,        msgUsageDetails,
            msgUsageConvert, msgUsageExchange,
            msgUsageSync,    msgHelpPages.arg(mCommon::ProgramDataPath(QStringLiteral("help/index.html")))};
}

namespace {

void printLine(std::FILE* to, const QString& line) {
    std::fprintf(to, "%s\n",
                 QString(line).replace(QLatin1Char('\n'), QLatin1Char(' ')).toLocal8Bit().constData());
    std::fflush(to);
}

// The phonebook a command works on: the one named, else the last one opened, else the default.
QString PhonebookOrLast(QString book) {
    if (book.isEmpty()) {
        const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
        book = recent.isEmpty() ? DefaultPhonebook() : recent;
    }
    return PhonebookFromCommandLine(book);
}

const QString kError = QStringLiteral("kelvarin: ");

// Closes the phonebook and says on the standard error, in one line, why the command failed.
int Failed(const QString& why) {
    mMain::Closing();
    HuntERR::ClearPendingStack();
    printLine(stderr, kError + why);
    return 1;
}

// Opens the phonebook of a command; one opened for writing is brought up to date first.
void OpenForCommand(const QString& book, bool readOnly) {
    gDBPath = book;
    gWS = dao::Workspace();
    gWSOpen = true;
    gDB = gWS.OpenDatabase(book, false, readOnly, QStringLiteral(";pwd=vorla"));
    gDBOpen = true;
    if (!readOnly) mAccess::UpgradeChain();
}

} // namespace

int RunConvert(const CommandLine& line) {
    if (line.convertFrom.isEmpty()) {
        printLine(stderr, QStringLiteral("kelvarin: ") + msgConvertNeedsFile);
        return 2;
    }
    const QString from = PhonebookFromCommandLine(line.convertFrom);
    const QString to =
        line.convertTo.isEmpty() ? mLegacy::ConvertedName(from) : PhonebookFromCommandLine(line.convertTo);
    // libmdb writes its own notes on a damaged file to the standard error: the one line below
    // says what a script needs to know.
    std::fflush(stderr);
    const int saved = ::dup(STDERR_FILENO);
    const int null = ::open("/dev/null", O_WRONLY);
    if (null >= 0) ::dup2(null, STDERR_FILENO);
    const auto restore = [&] {
        std::fflush(stderr);
        if (saved >= 0) ::dup2(saved, STDERR_FILENO);
        if (saved >= 0) ::close(saved);
        if (null >= 0) ::close(null);
    };
    try {
        mLegacy::ConvertJet(from, to);
    } catch (const mLegacy::ConversionError& e) {
        restore();
        printLine(stderr, QStringLiteral("kelvarin: ") + mLegacy::ConversionMessage(e, from));
        return 1;
    }
    restore();
    printLine(stdout, to);
    return 0;
}

int RunExchange(const CommandLine& line) {
    if (line.exchangeFile.isEmpty()) {
        printLine(stderr, kError + msgExNeedsFile.arg(line.exchangeOption));
        return 2;
    }
    const QString file = PhonebookFromCommandLine(line.exchangeFile);
    const QString book = PhonebookOrLast(line.exchangePhonebook);
    if (!QFileInfo(book).isFile()) return Failed(msgExNoPhonebook.arg(book));
    const bool import = line.exchangeOption.startsWith(QLatin1String("--import"));
    const bool vcard = line.exchangeOption.endsWith(QLatin1String("vcard"));
    try {
        OpenForCommand(book, !import);
        if (import) {
            const QList<exchange::ContactRecord> records =
                vcard ? mExchange::ReadVCardFile(file) : mExchange::ReadCsvFile(file);
            mExchange::ImportOptions options;
            options.duplicates = mExchange::DuplicateAction::Merge;
            const mExchange::ImportSummary summary = mExchange::ImportRecords(records, options);
            printLine(stdout, summary.text());
        } else {
            QSaveFile out(file);
            bool written = out.open(QIODevice::WriteOnly);
            if (written)
                written = vcard ? mExchange::ExportVCard(&out, {},
                                                         line.vcard3 ? exchange::VCardVersion::V30
                                                                     : exchange::VCardVersion::V40)
                                : mExchange::ExportCsv(&out, {});
            if (!written || !out.commit()) return Failed(msgExCannotWrite.arg(file));
        }
    } catch (const HuntERR::Error& e) {
        return Failed(e.Description());
    }
    mMain::Closing();
    return 0;
}

int RunSync(const CommandLine& line) {
    const QString book = PhonebookOrLast(line.phonebook);
    if (!QFileInfo(book).isFile()) return Failed(msgExNoPhonebook.arg(book));
    try {
        OpenForCommand(book, false);
        const carddav::Account account = carddav::LoadAccount();
        if (!account.linked()) return Failed(msgSyncNotLinked.arg(book));
        // For timers on machines without a secret store, the password may come from the
        // environment instead.
        QString why;
        QString password = qEnvironmentVariable("KELVARIN_SYNC_PASSWORD");
        if (password.isEmpty()) password = carddav::ReadPassword(account, &why);
        if (password.isEmpty()) return Failed(msgSyncNoPassword.arg(why));
        const carddav::SyncSummary summary = carddav::SyncNow(password);
        mMain::Closing();
        printLine(stdout, summary.text());
        for (const QString& note : summary.notes)
            printLine(stdout, note);
        if (!summary.completed()) return Failed(summary.error);
    } catch (const HuntERR::Error& e) {
        return Failed(e.Description());
    }
    return 0;
}

} // namespace mMain
