#include "support/helpers/files.h"

#include "core/error.h"
#include "support/helpers/values.h"

#include <QFileInfo>

namespace mScanCD {

bool FolderExist(const QString& folderPath) {
    return !folderPath.isEmpty() && QFileInfo(folderPath).isDir();
}

bool FileExist(const QString& FilePath) {
    return !FilePath.isEmpty() && QFileInfo::exists(FilePath);
}

double GetFileSize(const QString& FullPath) {
    if (FullPath.isEmpty()) return 0;
    const QFileInfo info(FullPath);
    return info.isFile() ? double(info.size()) : 0.0;
}

double FileSizeWFD(qint32 plngFileSizeHigh, qint32 plngFileSizeLow) {
    return double(quint32(plngFileSizeHigh)) * 4294967296.0 + double(quint32(plngFileSizeLow));
}

QString GetFileDBSize(bool Full, const QString& sDBPath) {
    HUNT_PLACE("mScanCD.GetFileDBSize(Full,sDBPath)", Full, sDBPath);
    const double size = GetFileSize(sDBPath);
    QString text = mCommon::SizeCorrectView(size, 1);
    if (Full) text += QStringLiteral(" (") + mCommon::RoundEx(size) + QLatin1Char(')');
    return text;
}

} // namespace mScanCD
