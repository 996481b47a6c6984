#include "trees/treelabels.h"

namespace mTV {

QString NodeLabel(const QString& name, qint64 count) {
    return name + QStringLiteral(" (") + QString::number(count) + QLatin1Char(')');
}

QString CountTag(qint64 count) {
    return QStringLiteral("%1").arg(count, 12, 10, QLatin1Char('0'));
}

qint64 TagCount(const QString& tag) {
    qint64 n = 0;
    for (const QChar c : tag.trimmed()) {
        if (!c.isDigit()) break;
        n = n * 10 + c.digitValue();
    }
    return n;
}

QString NodeName(const QString& label) {
    const qsizetype blank = label.lastIndexOf(QLatin1Char(' '));
    return blank < 0 ? label : label.left(blank);
}

QString LetterPattern(const QString& letter) {
    return letter == QLatin1String("ALL") ? QStringLiteral("*") : letter;
}

QString NodeImage(qint16 mode) {
    return mode == 0 ? QStringLiteral("CAT") : mode == 1 ? QStringLiteral("BOX") : QStringLiteral("STAR");
}

QString NodeSelectedImage(qint16 mode) {
    return mode == 0   ? QStringLiteral("CATSEL")
           : mode == 1 ? QStringLiteral("BOXSEL")
                       : QStringLiteral("STAR");
}

QString RootImage(qint16 mode) {
    return mode == 0 ? QStringLiteral("CATS") : mode == 1 ? QStringLiteral("BOXS") : QStringLiteral("STARS");
}

QString RootSelectedImage(qint16 mode) {
    return mode == 0   ? QStringLiteral("CATSSEL")
           : mode == 1 ? QStringLiteral("BOXSSEL")
                       : QStringLiteral("STARS");
}

} // namespace mTV
