#include "app/commandline.h"

#include "core/datafiles.h"
#include "core/language.h"

#include <QDir>
#include <QFileInfo>

using namespace mLanguageGobals;

namespace mMain {

CommandLine ReadCommandLine(const QStringList& arguments) {
    CommandLine line;
    QStringList names;
    bool optionsEnded = false;
    for (const QString& arg : arguments) {
        if (optionsEnded || !arg.startsWith(QLatin1Char('-')) || arg == QLatin1String("-")) {
            names << arg;
        } else if (arg == QLatin1String("--")) {
            optionsEnded = true;
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            line.action = CommandLine::Help;
        } else if (arg == QLatin1String("--version") || arg == QLatin1String("-v")) {
            if (line.action != CommandLine::Help) line.action = CommandLine::Version;
        } else if (line.option.isEmpty()) {
            line.option = arg;
        }
    }
    // Help and version are answered whatever else stands there.
    if (line.action == CommandLine::Start && !line.option.isEmpty()) line.action = CommandLine::UnknownOption;
    line.phonebook = names.join(QLatin1Char(' '));
    return line;
}

QString PhonebookFromCommandLine(const QString& commandLine) {
    const QString path = QString(commandLine).remove(QLatin1Char('"'));
    if (path.isEmpty()) return path;
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QStringList UsageLines() {
    return {msgUsage, msgUsageDetails,
            msgHelpPages.arg(mCommon::ProgramDataPath(QStringLiteral("help/index.html")))};
}

} // namespace mMain
