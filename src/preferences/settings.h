#pragma once
// The settings store: application, section, key. Values are text; booleans are written as "1" and
// "0", numbers as decimal text. A "\" in a section name opens a sub-group ("ColumnHeaders12\Other").
// The store is the per-user QSettings file of the organisation "Kelvarin" and the given
// application name, so it honours QSettings::setPath.

#include <QList>
#include <QPair>
#include <QString>

QString GetSetting(const QString& AppName, const QString& Section, const QString& Key,
                   const QString& Default = QString());

void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, const QString& Setting);
void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, const char* Setting);
void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, bool Setting);
void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, int Setting);
void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, qint64 Setting);
void SaveSetting(const QString& AppName, const QString& Section, const QString& Key, double Setting);

// Without a key the whole section goes, with its sub-groups.
void DeleteSetting(const QString& AppName, const QString& Section, const QString& Key = QString());

// The keys of one section (not of its sub-groups) with their values, in the store's order.
QList<QPair<QString, QString>> GetAllSettings(const QString& AppName, const QString& Section);

// Path of the file that holds the settings of `AppName`.
QString SettingsFileName(const QString& AppName);
