#include "core/cfiledialog.h"

#include <QFileDialog>
#include <QStringList>

namespace {
CFileDialog::Handler& handler() {
    static CFileDialog::Handler h;
    return h;
}
FolderHandler& folderHandler() {
    static FolderHandler h;
    return h;
}
} // namespace

CFileDialog::Handler CFileDialog::SetHandler(Handler h) {
    Handler old = std::move(handler());
    handler() = std::move(h);
    return old;
}

QString CFileDialog::QtFilter() const {
    const QStringList parts = Mask.split(QLatin1Char('|'));
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i];
        const QString patterns = QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' '));
        if (!caption.contains(QLatin1Char('(')))
            caption += QStringLiteral(" (") + patterns + QLatin1Char(')');
        filters << caption;
    }
    return filters.join(QStringLiteral(";;"));
}

bool CFileDialog::Show(bool saveMode) {
    if (handler()) return handler()(*this, saveMode);
    QFileDialog dlg(Owner, Title, InitDir, QtFilter());
    dlg.setAcceptMode(saveMode ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dlg.setFileMode(saveMode ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!Extension.isEmpty()) dlg.setDefaultSuffix(Extension);
    dlg.setOption(QFileDialog::DontConfirmOverwrite, !ConfirmOverwrite);
    if (!FileName.isEmpty()) dlg.selectFile(FileName);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return false;
    FileName = dlg.selectedFiles().first();
    return true;
}

QString BrowseForFolder(const QString& title, const QString& start, QWidget* owner) {
    if (folderHandler()) return folderHandler()(title, start);
    return QFileDialog::getExistingDirectory(owner, title, start);
}

FolderHandler SetFolderHandler(FolderHandler h) {
    FolderHandler old = std::move(folderHandler());
    folderHandler() = std::move(h);
    return old;
}
