#pragma once
// The window that comes before a CSV import: the separator and the encoding found in the file,
// the program whose export the header looks like, and one row a column of the file with its
// header, a few of its values and what it becomes in the contact. A change of separator or
// encoding reads the start of the file again; a change of preset maps every column anew.

#include "exchange/book/bookexchange.h"
#include "exchange/csvmap.h"

#include <QDialog>
#include <QList>
#include <QStringList>

class QComboBox;
class QTableWidget;

namespace mExchange {

class CsvMappingDialog : public QDialog {
    Q_OBJECT
  public:
    // `typeNames` are the number types offered for number columns (the phonebook's own).
    CsvMappingDialog(const QString& path, const QStringList& typeNames, QWidget* parent = nullptr);

    // The separator, encoding and mapping to import with.
    CsvChoice choice() const;
    // The header of the file as last read.
    const QStringList& header() const { return m_header; }
    // The box that chooses what column `column` (from 0) becomes.
    QComboBox* fieldBox(int column) const;
    // Chooses the entry of a column's box by its text; false when the box has no such entry.
    bool mapColumn(int column, const QString& entry);

    QComboBox* Separator;
    QComboBox* Encoding;
    QComboBox* Preset;
    QTableWidget* Columns;

  private:
    struct Entry {
        exchange::CsvField field;
        QString typeName;
        QString text;
    };
    void reread();
    void applyPreset();
    void fillBox(QComboBox* box, const exchange::CsvColumn& column);
    int entryOf(const exchange::CsvColumn& column);

    QString m_path;
    bool m_read = false; // read once: the boxes say the separator and the encoding from now on
    QStringList m_typeNames;
    QList<Entry> m_entries;
    QStringList m_header;
    QList<QStringList> m_samples;           // a few values of each column
    QList<exchange::CsvColumn> m_presetMap; // the preset's mapping, kept where the user leaves it
};

} // namespace mExchange
