#include "preferences/settings.h"

#include "core/globals.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

namespace {

// Organisation and application give the file; the application title is the organisation.
QSettings store(const QString& AppName) {
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, AppTitle(), AppName);
}

QString group(const QString& Section) {
    QString g = Section;
    g.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (g.endsWith(QLatin1Char('/')))
        g.chop(1);
    return g;
}

QString path(const QString& Section, const QString& Key) {
    return group(Section) + QLatin1Char('/') + Key;
}

// A value written by hand without quotes may come back as a list when it holds a comma.
QString text(const QVariant& v) {
    if (v.typeId() == QMetaType::QStringList) return v.toStringList().join(QStringLiteral(", "));
    return v.toString();
}

} // namespace

QString GetSetting(const QString& AppName, const QString& Section, const QString& Key,
                   const QString& Default) {
    const QSettings s = store(AppName);
    const QString k = path(Section, Key);
    return s.contains(k) ? text(s.value(k)) : Default;
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, const QString& Setting) {
    QSettings s = store(AppName);
    s.setValue(path(Section, Key), Setting);
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, const char* Setting) {
    SaveSetting(AppName, Section, Key, QString::fromUtf8(Setting));
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, bool Setting) {
    SaveSetting(AppName, Section, Key, Setting ? QStringLiteral("1") : QStringLiteral("0"));
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, int Setting) {
    SaveSetting(AppName, Section, Key, QString::number(Setting));
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, qint64 Setting) {
    SaveSetting(AppName, Section, Key, QString::number(Setting));
}

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, double Setting) {
    SaveSetting(AppName, Section, Key, QString::number(Setting, 'g', 15));
}

void DeleteSetting(const QString& AppName, const QString& Section, const QString& Key) {
    QSettings s = store(AppName);
    s.remove(Key.isEmpty() ? group(Section) : path(Section, Key));
}

QList<QPair<QString, QString>> GetAllSettings(const QString& AppName, const QString& Section) {
    QSettings s = store(AppName);
    s.beginGroup(group(Section));
    QList<QPair<QString, QString>> all;
    const QStringList keys = s.childKeys();
    for (const QString& k : keys)
        all.append({k, text(s.value(k))});
    return all;
}

QString SettingsFileName(const QString& AppName) {
    return store(AppName).fileName();
}
