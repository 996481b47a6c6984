#pragma once
// A phonebook of the Windows version, a Jet database, read through libmdb: its tables, their
// columns and their live rows. The file is opened for reading only and never written.

#include "core/error.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

namespace mLegacy {

// The Jet types a phonebook uses; Other stands for any type a phonebook never has.
enum class JetType { Boolean, Long, Double, Date, Text, Memo, LongBinary, Other };

struct JetColumn {
    QString Name;
    JetType Type = JetType::Other;
    int Size = 0; // characters, for Text
};

// Why a conversion did not happen. The number of the error is dao::errNotDatabase for an
// unreadable file, so that the file error families still answer it.
class ConversionError : public HuntERR::Error {
  public:
    enum Kind {
        Unreadable,  // no Jet file, or one that cannot be read whole
        OtherSchema, // a Jet file, but not a phonebook
        Cancelled,   // the user stopped it
        Target       // the new phonebook could not be written
    };
    ConversionError(Kind kind, qint32 number, const QString& description);
    Kind kind() const { return m_kind; }

  private:
    Kind m_kind;
};

// True when the file begins as a Jet database does ("Standard Jet DB" in its first page).
bool IsJetFile(const QString& path);

class JetFile {
  public:
    // Opens the file and reads its catalogue; throws ConversionError(Unreadable).
    explicit JetFile(const QString& path);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    // The user tables, in the catalogue's order.
    QStringList Tables() const;
    bool HasTable(const QString& table) const;
    std::vector<JetColumn> Columns(const QString& table) const;
    // The number of live rows the table's definition records.
    qint64 RowCount(const QString& table) const;

    // Calls `row` with the values of every live row of `table`, in the order of the file, one
    // value per column of Columns(table): a null QVariant for Null; bool; qint32; double; the
    // stored wall time as a QDateTime without zone rules (Qt::UTC), so that an hour the local
    // zone skips stays as written; QString (UTF-8 from the file's UTF-16); QByteArray, the
    // stored bytes of a long binary field. Deleted rows are not read. Throws ConversionError
    // (Unreadable) when the table cannot be read whole.
    void ReadRows(const QString& table, const std::function<void(const QVariantList& values)>& row) const;

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace mLegacy
