#include "core/datafiles.h"

#include "core/error.h"
#include "core/language.h"
#include "core/seams.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace mCommon {

namespace {
QString programFolder() {
    if (QCoreApplication::instance()) return QCoreApplication::applicationDirPath();
    // Before the application object exists (answers to the command line), the kernel knows.
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath().section(QLatin1Char('/'), 0, -2);
}
} // namespace

QString ProgramDataPath(const QString& name) {
    const QString folder = programFolder();
    const QString beside = folder + QLatin1Char('/') + name;
    if (QFileInfo::exists(beside)) return beside;
    return QDir::cleanPath(folder + QStringLiteral("/../share/kelvarin/") + name);
}

void CallHelp() {
    HUNT_PLACE("mCommon.CallHelp");
    const QString index = ProgramDataPath(QStringLiteral("help/index.html"));
    if (!QFileInfo::exists(index)) {
        MsgBox(mLanguageGobals::msgHelpNotFound + QLatin1Char('\n') + index, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    ShellOpen(QUrl::fromLocalFile(index).toString());
}

} // namespace mCommon
