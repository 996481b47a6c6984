#include "app/nophonebook.h"

#include "core/language.h"

#include <QFileInfo>

using namespace mLanguageGobals;

namespace mMain {

QString WhyNotOpened(const QString& path, const QStringList& reported) {
    const QFileInfo file(path);
    if (file.isDir()) return msgPhonebookIsFolder.arg(path);
    if (!QFileInfo(file.absolutePath()).isDir()) return msgPhonebookFolderMissing.arg(path);
    if (!file.exists()) return msgPhonebookFileMissing.arg(path);
    QString text = msgPhonebookNotOpened.arg(path);
    for (const QString& r : reported)
        text += QStringLiteral("\n\n") + r;
    return text;
}

} // namespace mMain
