#pragma once
// Why the phonebook of a start could not be opened, in words for the preferences' Database page.

#include <QString>
#include <QStringList>

namespace mMain {
// One plain sentence on why `path` could not be opened: a folder, a missing folder, a missing
// file; otherwise that it could not be opened, followed by what the opening itself reported.
QString WhyNotOpened(const QString& path, const QStringList& reported);
} // namespace mMain
