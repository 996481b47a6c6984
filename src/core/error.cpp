#include "core/error.h"

namespace HuntERR {

namespace {
QStringList& stack() {
    static QStringList s;
    return s;
}
} // namespace

Error::Error(qint32 number, const QString& description, const QString& source)
    : m_number(number), m_description(description), m_source(source),
      m_what(QStringLiteral("%1 (%2)").arg(description).arg(number).toUtf8()) {
    ClearPendingStack();
}

const QStringList& PendingStack() { return stack(); }
void ClearPendingStack() { stack().clear(); }
void AppendPlace(const QString& line) { stack().append(line); }

QString ArgText(const QVariant& v) {
    if (v.isNull()) return QStringLiteral("{Null}");
    switch (v.typeId()) {
    case QMetaType::QString: return v.toString();
    case QMetaType::QByteArray: return QStringLiteral("{Array}");
    case QMetaType::QStringList:
    case QMetaType::QVariantList: return QStringLiteral("{Array}");
    case QMetaType::Bool: return ArgText(v.toBool());
    default: return v.canConvert<QString>() ? v.toString() : QStringLiteral("{?}");
    }
}

} // namespace HuntERR
