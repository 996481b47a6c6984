#pragma once
// Columns of a CSV file mapped onto the fields of a contact. A mapping is one CsvColumn a column
// of the file. Presets give the mapping for the CSV exports of the common mail programs and for
// Kelvarin's own; the preset is told by the header line. A column mapped to nothing known keeps
// its values in the comment as "header: value" lines.

#include "exchange/contactrecord.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace exchange {

enum class CsvField {
    Ignore,
    FullName,
    Prefix,
    FirstName,
    MiddleName,
    LastName,
    Suffix,
    Title, // job title
    Company,
    Department,
    Street, // of the address `slot`; the first address with any part filled is the contact's
    Street2,
    City,
    State,
    Zip,
    Country,
    Comment,
    Category, // a path, names joined by "/"
    Group,
    Favorite,   // a path; "/" alone is the root
    Number,     // a number of the type `typeName`, or of the type in the NumberType column of `slot`
    NumberType, // the type of the Number columns of the same `slot`
    Extra,      // kept in the comment under the column's header
};

struct CsvColumn {
    CsvField field = CsvField::Ignore;
    QString typeName;      // Number: the type when no NumberType column says one
    int slot = 0;          // pairs Number with NumberType, and the parts of one address
    QString listSeparator; // Category: the separator of several categories in one cell, if any

    bool operator==(const CsvColumn& o) const {
        return field == o.field && typeName == o.typeName && slot == o.slot &&
               listSeparator == o.listSeparator;
    }
};

enum class CsvPreset {
    Generic,     // column names guessed one by one
    WebMail,     // Google-style export
    DesktopMail, // Outlook-style export
    Thunderbird, // Thunderbird-style export
    Kelvarin,    // Kelvarin's own export
};

// The preset whose header names the line matches best; Generic when none matches well.
CsvPreset DetectCsvPreset(const QStringList& header);
// The preset's name for the user.
QString CsvPresetName(CsvPreset preset);
// The mapping of each column of the header under a preset.
QList<CsvColumn> CsvMapping(CsvPreset preset, const QStringList& header);
// The contact of one row.
ContactRecord RecordFromCsv(const QList<CsvColumn>& mapping, const QStringList& header,
                            const QStringList& row);

// Kelvarin's own columns, every field of a contact: names, address, comment, the three paths
// and twelve pairs of number type and number.
QList<CsvColumn> KelvarinCsvColumns();
// The header name of one of those columns ("Full name", "Number 3 type").
QString KelvarinCsvHeader(const CsvColumn& column);
// The values of a contact under chosen columns.
QStringList CsvValues(const QList<CsvColumn>& columns, const ContactRecord& contact);

} // namespace exchange
