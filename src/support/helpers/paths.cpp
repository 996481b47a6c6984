#include "support/helpers/paths.h"

#include <QStringList>

namespace mDrive {

QString GetPathWithNoSlash(const QString& sBrowse) {
    if (sBrowse.endsWith(QLatin1Char('/')) || sBrowse.endsWith(QLatin1Char('\\'))) return sBrowse.chopped(1);
    return sBrowse;
}

} // namespace mDrive

namespace mCommon {

namespace {

QString element(const QString& text, QChar separator, int point) {
    const QStringList parts = text.split(separator);
    const int index = point < 0 ? int(parts.size()) + point : point;
    return index >= 0 && index < parts.size() ? parts.at(index) : QString();
}

} // namespace

QString Spliting2(const QString& sFullPath, int point) {
    return element(sFullPath, QLatin1Char('.'), point);
}

QString SplitingFolder(const QString& sFullPath, int point) {
    return element(sFullPath, QLatin1Char('/'), point);
}

QString SplitingParentFolder(const QString& sFullPath) {
    const qsizetype slash = sFullPath.lastIndexOf(QLatin1Char('/'));
    if (slash < 0) return QString();
    if (slash == 0) return QStringLiteral("/");
    return sFullPath.left(slash);
}

} // namespace mCommon
