#pragma once
// Contacts of the open phonebook in and out of the exchange formats. An import adds a list of
// contact records in one transaction: the number types and tree places it names are made when
// the phonebook lacks them, photos are stored in the card's form (scaled down when the file is
// larger than the card takes), and a contact that is already there (same full name and a number
// or address in common) is skipped, added again or completed, as the caller chooses. Cancel or
// an error leaves the phonebook as it was. An export writes one contact at a time, so memory
// stays flat whatever the size of the phonebook.

#include "exchange/contactrecord.h"
#include "exchange/csvmap.h"
#include "exchange/vcardwriter.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QIODevice;

namespace mExchange {

// What happens to a record whose contact the phonebook already has.
enum class DuplicateAction {
    Skip,  // the record is left out
    Add,   // it is added as a contact of its own
    Merge, // the empty fields of the existing contact are filled from it
};

// Told how far the work is (records or contacts done of total); answers false to cancel.
using Progress = std::function<bool(int done, int total)>;

struct ImportOptions {
    DuplicateAction duplicates = DuplicateAction::Merge;
    // Look for duplicates at all; callers pass the user's preference (DuplicateWarning).
    bool checkDuplicates = true;
    Progress progress;
};

struct ImportSummary {
    int imported = 0;
    int merged = 0;
    int skipped = 0;
    bool cancelled = false; // nothing was kept
    QStringList notes;      // one line a record skipped or changed on the way, and why
    // One line for the user: "12 imported, 1 merged, 2 skipped".
    QString text() const;
};

// Adds the records to the open phonebook in one transaction. Nothing is kept when the progress
// callback cancels or something fails (the error is thrown on).
ImportSummary ImportRecords(const QList<exchange::ContactRecord>& records, const ImportOptions& options = {});

// How many of the records the phonebook already has (same full name and a number or address in
// common), to ask the user before an import.
int CountDuplicates(const QList<exchange::ContactRecord>& records);

// A photo file's bytes made to fit the card's limit: unchanged when small enough, else the picture
// scaled down step by step and saved as JPEG; empty when the picture cannot be read. `ext` is set
// to the extension of the bytes answered.
QByteArray FittedPhoto(const QByteArray& file, QString* ext);

// The contact IDCD of the open phonebook as a record.
exchange::ContactRecord RecordOfContact(qint32 idcd);

// The contacts of `ids` in the order given (every contact in IDCD order when `ids` is empty), one
// at a time to `write`. IDs of no contact are passed over.
// False when `write` fails or the progress callback cancels.
bool ForEachContact(const QList<qint32>& ids,
                    const std::function<bool(const exchange::ContactRecord&)>& write,
                    const Progress& progress = {});

// Exports the contacts to an open device as vCard or as Kelvarin's CSV. False when cancelled or
// when the device refused the bytes.
bool ExportVCard(QIODevice* device, const QList<qint32>& ids,
                 exchange::VCardVersion version = exchange::VCardVersion::V40, const Progress& progress = {});
bool ExportCsv(QIODevice* device, const QList<qint32>& ids, const Progress& progress = {});

// The records of a vCard or CSV file (CSV mapped by the preset its header names). Problems of
// the file go to `problems` as lines for the user. Throws when the file cannot be read.
QList<exchange::ContactRecord> ReadVCardFile(const QString& path, QStringList* problems = nullptr);
QList<exchange::ContactRecord> ReadCsvFile(const QString& path, QStringList* problems = nullptr);

// A full name as the duplicate rule compares it: spacing and case set aside.
QString NormalName(const QString& name);

// The duplicate rule of an import: the same full name (case and spacing aside) and a number or
// address in common.
bool SameContact(const exchange::ContactRecord& a, const exchange::ContactRecord& b);

// A contact of the open phonebook with its id and the moment it was added, which tells it apart
// from a later contact that was given the same id.
struct StoredContact {
    qint32 idcd = 0;
    QString added; // DateScan as "yyyy-MM-dd HH:mm:ss"
    exchange::ContactRecord record;
};

// Every contact in IDCD order, in one pass; stops when `visit` answers false.
void ForEachStoredContact(const std::function<bool(const StoredContact&)>& visit);

// Adds and rewrites contacts from records inside the caller's transaction, making the number
// types and tree places the records name.
class RecordWriter {
  public:
    RecordWriter();
    ~RecordWriter();
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    // Adds a contact; answers its IDCD, and its DateScan in `added`.
    qint32 add(const exchange::ContactRecord& r, QString* added, QStringList* notes);
    // Rewrites every field of contact `idcd`; false when there is no such contact.
    bool replace(qint32 idcd, const exchange::ContactRecord& r, QStringList* notes);

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// How to read a CSV file: its separator and encoding (null and empty: detected) and the field of
// each of its columns.
struct CsvChoice {
    QChar separator;
    QString encoding;
    QList<exchange::CsvColumn> mapping;
};
// The records of a CSV file read and mapped as chosen; the first line is the header.
QList<exchange::ContactRecord> ReadCsvFile(const QString& path, const CsvChoice& choice,
                                           QStringList* problems = nullptr);

// The names of the open phonebook's number types, in their order.
QStringList NumberTypeNames();

} // namespace mExchange
