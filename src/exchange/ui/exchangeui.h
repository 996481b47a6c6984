#pragma once
// File ▸ Import and File ▸ Export of the main window: the file chooser, a progress window with
// Cancel, the question about contacts already there, and the summary at the end.

#include <QList>

class QWidget;

namespace mExchange {

// Chooses a vCard or CSV file and imports it. True when the phonebook changed.
bool ImportWithDialogs(QWidget* owner);

// Chooses a file and exports the contacts `ids` (every contact when empty) as vCard 4.0 or CSV,
// by the file's extension. True when the file was written.
bool ExportWithDialogs(QWidget* owner, const QList<qint32>& ids, bool all);

} // namespace mExchange
