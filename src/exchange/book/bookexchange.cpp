#include "exchange/book/bookexchange.h"

#include "card/cardrecord.h"
#include "card/cardtext.h"
#include "card/form19.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "exchange/csvmap.h"
#include "exchange/csvreader.h"
#include "exchange/csvwriter.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "phonebook/catpath.h"
#include "phonebook/lookups.h"
#include "phonebook/store/dao.h"
#include "phonebook/storedphoto.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <array>

using exchange::ContactRecord;
using exchange::NumberRow;
using namespace mLanguageGobals;

namespace mExchange {

namespace {

const char* const kTextFields[] = {"FullName", "Title", "Company", "Address",
                                   "City",     "State", "Zip",     "Comment"};

QString ContactRecord::*const kTextMembers[] = {
    &ContactRecord::FullName, &ContactRecord::Title, &ContactRecord::Company, &ContactRecord::Address,
    &ContactRecord::City,     &ContactRecord::State, &ContactRecord::Zip,     &ContactRecord::Comment};

QString* TextOf(ContactRecord& r, int i) {
    QString* fields[] = {&r.FullName, &r.Title, &r.Company, &r.Address,
                         &r.City,     &r.State, &r.Zip,     &r.Comment};
    return fields[i];
}

QString Col(const char* name, int n) {
    return QString::fromLatin1(name) + QString::number(n);
}

// "Type1" to "Type12" and "Number1" to "Number12".
QStringList Columns(const char* name) {
    QStringList names;
    for (int n = 1; n <= exchange::kNumberRows; ++n)
        names << Col(name, n);
    return names;
}
const QStringList kTypeColumns = Columns("Type");
const QStringList kNumberColumns = Columns("Number");

// Number types by name and by id, made on demand.
class TypeTable {
  public:
    TypeTable() {
        dao::Recordset rs =
            gDB.OpenRecordset(QStringLiteral("SELECT IDTYPE, Type FROM Types"), dao::dbOpenSnapshot);
        for (; !rs.AtEOF(); rs.MoveNext()) {
            const qint32 id = qint32(rs.LongAt(0));
            const QString name = rs.Text(1);
            m_byId.insert(id, name);
            if (!m_byName.contains(name.toLower())) m_byName.insert(name.toLower(), id);
        }
        rs.Close();
    }
    QString name(qint32 id) const { return m_byId.value(id); }
    qint32 id(const QString& name) {
        const auto found = m_byName.constFind(name.toLower());
        if (found != m_byName.constEnd()) return found.value();
        const qint32 id = Form19::CreateType(name);
        m_byId.insert(id, name);
        m_byName.insert(name.toLower(), id);
        return id;
    }

  private:
    QHash<qint32, QString> m_byId;
    QHash<QString, qint32> m_byName;
};

// The nodes of one tree: paths of names below the root, and nodes made on demand.
class TreeTable {
  public:
    explicit TreeTable(qint16 mode) : m_mode(mode) {
        dao::Recordset rs = gDB.OpenRecordset(
            QStringLiteral("SELECT ID, Name, IDPARENT, Pedigree FROM %1").arg(mTV::TreeTable(mode)),
            dao::dbOpenSnapshot);
        for (; !rs.AtEOF(); rs.MoveNext()) {
            Node n{rs.Text(1), qint32(rs.LongAt(2)), rs.Text(3)};
            const qint32 id = qint32(rs.LongAt(0));
            m_nodes.insert(id, n);
            m_children.insert(key(n.parent, n.name), id);
            m_max = qMax(m_max, id);
        }
        rs.Close();
    }
    // Names below the root; empty for the root or an unknown node. Each path is spelled once.
    QStringList path(qint32 id) {
        const auto cached = m_paths.constFind(id);
        if (cached != m_paths.constEnd()) return cached.value();
        QStringList names;
        for (qint32 at = id, guard = 0; at > 0 && guard < 1000; ++guard) {
            const auto it = m_nodes.constFind(at);
            if (it == m_nodes.constEnd()) {
                names.clear();
                break;
            }
            names.prepend(it->name);
            at = it->parent;
        }
        m_paths.insert(id, names);
        return names;
    }
    qint32 node(const QStringList& path) {
        qint32 id = 0;
        for (const QString& name : path) {
            const auto found = m_children.constFind(key(id, name));
            id = found != m_children.constEnd() ? found.value() : add(id, name);
        }
        return id;
    }

  private:
    struct Node {
        QString name;
        qint32 parent;
        QString pedigree;
    };
    static QString key(qint32 parent, const QString& name) {
        return QString::number(parent) + QLatin1Char('/') + name;
    }
    qint32 add(qint32 parent, const QString& name) {
        const qint32 id = ++m_max;
        const QString pedigree = m_nodes.value(parent).pedigree + QStringLiteral("ID%1E").arg(id);
        dao::Recordset rs =
            gDB.OpenRecordset(QStringLiteral("SELECT * FROM %1 WHERE ID = -1").arg(mTV::TreeTable(m_mode)));
        rs.AddNew();
        rs.SetValue(QStringLiteral("ID"), id);
        rs.SetValue(QStringLiteral("Name"), name);
        rs.SetValue(QStringLiteral("IDPARENT"), parent);
        rs.SetValue(QStringLiteral("Pedigree"), pedigree);
        rs.Update();
        rs.Close();
        m_nodes.insert(id, {name, parent, pedigree});
        m_children.insert(key(parent, name), id);
        // The readable path is spelled from the pedigree once the row stands.
        gDB.Execute(QStringLiteral("UPDATE %1 SET Catpath = '%2' WHERE ID = %3")
                        .arg(mTV::TreeTable(m_mode), QString(mLV::UpdateCatPath(pedigree, m_mode))
                                                         .replace(QLatin1Char('\''), QStringLiteral("''")))
                        .arg(id));
        return id;
    }
    qint16 m_mode;
    QHash<qint32, Node> m_nodes;
    QHash<QString, qint32> m_children;
    QHash<qint32, QStringList> m_paths;
    qint32 m_max = 0;
};

QString NormalNumber(const QString& value) {
    QString out;
    for (const QChar c : value)
        if (!c.isSpace() && c != QLatin1Char('-') && c != QLatin1Char('(') && c != QLatin1Char(')') &&
            c != QLatin1Char('.'))
            out += c.toCaseFolded();
    return out;
}

// The contacts already there, by full name, with their numbers.
struct Known {
    qint32 idcd;
    QSet<QString> numbers;
};

// The names of the records as the duplicate rule compares them.
QSet<QString> NamesOf(const QList<ContactRecord>& records) {
    QSet<QString> names;
    for (const ContactRecord& r : records)
        if (const QString name = NormalName(r.FullName); !name.isEmpty()) names.insert(name);
    return names;
}

// The contacts that bear one of `names`: only they can be repeated, so memory follows the size of
// the file, not of the phonebook.
QMultiHash<QString, Known> KnownContacts(const QSet<QString>& names) {
    QMultiHash<QString, Known> known;
    QString sql = QStringLiteral("SELECT IDCD, FullName");
    for (int n = 1; n <= exchange::kNumberRows; ++n)
        sql += QStringLiteral(", Number%1").arg(n);
    dao::Recordset rs = gDB.OpenRecordset(sql + QStringLiteral(" FROM CDs"), dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        QString name = NormalName(rs.Text(1));
        if (!names.contains(name)) continue;
        Known k{qint32(rs.LongAt(0)), {}};
        for (int n = 1; n <= exchange::kNumberRows; ++n)
            if (const QString v = NormalNumber(rs.Text(n + 1)); !v.isEmpty()) k.numbers.insert(v);
        known.insert(std::move(name), k);
    }
    rs.Close();
    return known;
}

// The existing contact a record repeats, 0 when none.
qint32 DuplicateOf(const QMultiHash<QString, Known>& known, const ContactRecord& r) {
    const QString name = NormalName(r.FullName);
    if (name.isEmpty()) return 0;
    for (auto it = known.constFind(name); it != known.constEnd() && it.key() == name; ++it)
        for (const NumberRow& row : r.Numbers)
            if (it->numbers.contains(NormalNumber(row.value))) return it->idcd;
    return 0;
}

QVariant TextOrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

void WritePhoto(dao::Recordset& rs, const ContactRecord& r, QStringList& notes) {
    if (r.Photo.isEmpty()) return;
    QString ext = r.PhotoExt;
    const QByteArray file = FittedPhoto(r.Photo, &ext);
    if (file.isEmpty()) {
        notes << msgExNotePhotoUnreadable.arg(r.FullName);
        return;
    }
    if (file.size() != r.Photo.size()) notes << msgExNotePhotoScaled.arg(r.FullName);
    rs.SetValue(QStringLiteral("Photo"), mPhotoStore::StoredPhotoBytes(file));
    rs.SetValue(QStringLiteral("PhotoExt"), TextOrNull(ext.left(15)));
    rs.SetValue(QStringLiteral("PhotoSize"), double(file.size()));
}

// Writes every field of a record into a row: the tree places, the label, the texts, the number
// rows and the photo. A new row (AddNew) is Null wherever nothing is set, so only what the record
// fills is written; a row being edited has every field set, emptied where the record has none.
void WriteRecord(dao::Recordset& rs, const ContactRecord& r, TypeTable& types,
                 std::array<TreeTable, 3>& trees, QStringList& notes, bool newRow) {
    rs.SetValue(QStringLiteral("IDC"), r.CategoryPath.isEmpty() ? 1 : trees[0].node(r.CategoryPath));
    rs.SetValue(QStringLiteral("IDX"), r.GroupPath.isEmpty() ? 1 : trees[1].node(r.GroupPath));
    rs.SetValue(QStringLiteral("IDB"), r.Favorite ? trees[2].node(r.FavoritePath) : -1);
    rs.SetValue(QStringLiteral("Label"), mCard::LabelOfCaption(mCard::LetterCaption(r.FullName, r.Company)));
    for (int f = 0; f < 8; ++f)
        if (const QString& text = r.*kTextMembers[f]; !text.isEmpty() || !newRow)
            rs.SetValue(QLatin1String(kTextFields[f]), TextOrNull(text));
    for (int n = 0; n < exchange::kNumberRows; ++n) {
        const NumberRow row = r.Numbers.value(n);
        if (!row.type.isEmpty() || !newRow)
            rs.SetValue(kTypeColumns[n], row.type.isEmpty() ? QVariant() : QVariant(types.id(row.type)));
        if (!row.value.isEmpty() || !newRow) rs.SetValue(kNumberColumns[n], TextOrNull(row.value));
    }
    if (!newRow && r.Photo.isEmpty()) {
        rs.SetValue(QStringLiteral("Photo"), QVariant());
        rs.SetValue(QStringLiteral("PhotoExt"), QVariant());
        rs.SetValue(QStringLiteral("PhotoSize"), QVariant());
    }
    WritePhoto(rs, r, notes);
}

} // namespace

QString NormalName(const QString& name) {
    return name.simplified().toCaseFolded();
}

int CountDuplicates(const QList<ContactRecord>& records) {
    HUNT_PLACE("mExchange.CountDuplicates", records.size());
    const QMultiHash<QString, Known> known = KnownContacts(NamesOf(records));
    int count = 0;
    for (const ContactRecord& r : records)
        count += DuplicateOf(known, r) != 0;
    return count;
}

QString ImportSummary::text() const {
    return msgExSummary.arg(imported).arg(merged).arg(skipped);
}

QByteArray FittedPhoto(const QByteArray& file, QString* ext) {
    if (file.size() <= mPhotoStore::kMaxPhotoFile) {
        if (ext && ext->isEmpty()) *ext = exchange::PictureExtension(file);
        return file;
    }
    QImage image;
    if (!image.loadFromData(file)) return {};
    for (int quality = 85;; quality -= 5) {
        QByteArray out;
        QBuffer buffer(&out);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "JPG", qMax(quality, 50));
        if (out.size() <= mPhotoStore::kMaxPhotoFile) {
            if (ext) *ext = QStringLiteral("jpg");
            return out;
        }
        if (quality <= 50)
            image = image.scaled(image.size() * 0.8, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        if (image.width() < 8) return {};
    }
}

ImportSummary ImportRecords(const QList<ContactRecord>& records, const ImportOptions& options) {
    HUNT_PLACE("mExchange.ImportRecords", records.size());
    ImportSummary summary;
    dao::Transaction trans(gWS);
    TypeTable types;
    std::array<TreeTable, 3> trees{TreeTable(0), TreeTable(1), TreeTable(2)};
    QMultiHash<QString, Known> known =
        options.checkDuplicates ? KnownContacts(NamesOf(records)) : QMultiHash<QString, Known>();
    qint32 nextId = mCard::NextContactID();
    qint64 nextNumber = mCommon::GetMaxNumber().toLongLong();
    dao::Recordset adding;
    bool addingOpen = false;

    for (int i = 0; i < records.size(); ++i) {
        if (options.progress && !options.progress(i, int(records.size()))) {
            summary.cancelled = true;
            return summary; // the transaction rolls back
        }
        const ContactRecord& r = records[i];
        const QString who = r.FullName.isEmpty() ? msgExRecord.arg(i + 1) : r.FullName;
        const qint32 existing = options.checkDuplicates ? DuplicateOf(known, r) : 0;
        if (existing && options.duplicates == DuplicateAction::Skip) {
            ++summary.skipped;
            summary.notes << msgExNoteSkipped.arg(who);
            continue;
        }
        if (r.Numbers.size() > exchange::kNumberRows) summary.notes << msgExNoteTooManyNumbers.arg(who);

        if (existing && options.duplicates == DuplicateAction::Merge) {
            dao::Recordset rs =
                gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(existing));
            rs.Edit();
            ContactRecord copy = r;
            for (int f = 0; f < 8; ++f)
                if (rs[QLatin1String(kTextFields[f])].toString().isEmpty() && !TextOf(copy, f)->isEmpty())
                    rs.SetValue(QLatin1String(kTextFields[f]), *TextOf(copy, f));
            QSet<QString> have;
            QList<int> free;
            for (int n = 1; n <= exchange::kNumberRows; ++n) {
                const QString v = rs[Col("Number", n)].toString();
                if (v.isEmpty())
                    free << n;
                else
                    have.insert(NormalNumber(v));
            }
            for (const NumberRow& row : r.Numbers) {
                if (free.isEmpty() || row.value.isEmpty() || have.contains(NormalNumber(row.value))) continue;
                const int n = free.takeFirst();
                rs.SetValue(Col("Number", n), row.value);
                rs.SetValue(Col("Type", n), row.type.isEmpty() ? QVariant() : QVariant(types.id(row.type)));
                have.insert(NormalNumber(row.value));
            }
            if (rs[QStringLiteral("PhotoSize")].isNull()) WritePhoto(rs, r, summary.notes);
            rs.Update();
            rs.Close();
            ++summary.merged;
            summary.notes << msgExNoteMerged.arg(who);
            continue;
        }

        // One recordset takes every new row.
        if (!addingOpen) {
            adding = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = -1"));
            addingOpen = true;
        }
        dao::Recordset& rs = adding;
        rs.AddNew();
        const qint32 id = nextId++;
        rs.SetValue(QStringLiteral("IDCD"), id);
        rs.SetValue(QStringLiteral("ContactNumber"), nextNumber++);
        WriteRecord(rs, r, types, trees, summary.notes, true);
        Known entry{id, {}};
        for (const NumberRow& row : r.Numbers.mid(0, exchange::kNumberRows))
            if (!row.value.isEmpty()) entry.numbers.insert(NormalNumber(row.value));
        rs.Update();
        if (options.checkDuplicates) known.insert(NormalName(r.FullName), entry);
        ++summary.imported;
    }
    if (options.progress && !options.progress(int(records.size()), int(records.size()))) {
        summary = ImportSummary();
        summary.cancelled = true;
        return summary;
    }
    trans.Commit();
    return summary;
}

namespace {

// Where the fields of a contact stand in a row of CDs, looked up once a query.
struct RowColumns {
    explicit RowColumns(const dao::Recordset& rs) {
        for (int f = 0; f < 8; ++f)
            text[f] = rs.FieldIndex(QLatin1String(kTextFields[f]));
        for (int n = 0; n < exchange::kNumberRows; ++n) {
            number[n] = rs.FieldIndex(Col("Number", n + 1));
            type[n] = rs.FieldIndex(Col("Type", n + 1));
        }
        photo = rs.FieldIndex(QStringLiteral("Photo"));
        photoExt = rs.FieldIndex(QStringLiteral("PhotoExt"));
        photoSize = rs.FieldIndex(QStringLiteral("PhotoSize"));
        idc = rs.FieldIndex(QStringLiteral("IDC"));
        idx = rs.FieldIndex(QStringLiteral("IDX"));
        idb = rs.FieldIndex(QStringLiteral("IDB"));
    }
    int text[8];
    int number[exchange::kNumberRows];
    int type[exchange::kNumberRows];
    int photo, photoExt, photoSize, idc, idx, idb;
};

ContactRecord RecordOfRow(const dao::Recordset& rs, const RowColumns& c, const TypeTable& types,
                          std::array<TreeTable, 3>& trees) {
    ContactRecord r;
    for (int f = 0; f < 8; ++f)
        *TextOf(r, f) = rs.Text(c.text[f]);
    for (int n = 0; n < exchange::kNumberRows; ++n) {
        const bool noType = rs.IsNull(c.type[n]);
        QString value = rs.Text(c.number[n]);
        if (value.isEmpty() && noType) continue;
        r.Numbers.append({noType ? QString() : types.name(qint32(rs.LongAt(c.type[n]))), std::move(value)});
    }
    if (!rs.IsNull(c.photoSize)) {
        r.Photo = mPhotoStore::PhotoFileBytes(rs.Value(c.photo).toByteArray(), rs.Value(c.photoSize));
        r.PhotoExt = rs.Text(c.photoExt);
    }
    if (!rs.IsNull(c.idc)) r.CategoryPath = trees[0].path(qint32(rs.LongAt(c.idc)));
    if (!rs.IsNull(c.idx)) r.GroupPath = trees[1].path(qint32(rs.LongAt(c.idx)));
    if (!rs.IsNull(c.idb) && rs.LongAt(c.idb) != -1) {
        r.Favorite = true;
        r.FavoritePath = trees[2].path(qint32(rs.LongAt(c.idb)));
    }
    return r;
}

// Contacts asked for by IDCD are read this many to a query.
constexpr int kIdsPerQuery = 500;

} // namespace

bool ForEachContact(const QList<qint32>& ids, const std::function<bool(const ContactRecord&)>& write,
                    const Progress& progress) {
    HUNT_PLACE("mExchange.ForEachContact", ids.size());
    const TypeTable types;
    std::array<TreeTable, 3> trees{TreeTable(0), TreeTable(1), TreeTable(2)};
    int total = int(ids.size());
    if (ids.isEmpty()) {
        dao::Recordset count =
            gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot);
        total = int(count.LongAt(0));
        count.Close();
    }
    int done = 0;
    const auto give = [&](const ContactRecord& r) {
        if (progress && !progress(done, total)) return false;
        ++done;
        return write(r);
    };
    if (ids.isEmpty()) {
        // One query streams every row.
        dao::Recordset rs =
            gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs ORDER BY IDCD"), dao::dbOpenForwardOnly);
        const RowColumns columns(rs);
        for (; !rs.AtEOF(); rs.MoveNext())
            if (!give(RecordOfRow(rs, columns, types, trees))) return false;
        rs.Close();
        return !progress || progress(total, total);
    }
    // The asked contacts a slice at a time, one query a slice, written in the order asked.
    for (qsizetype at = 0; at < ids.size(); at += kIdsPerQuery) {
        const QList<qint32> slice = ids.mid(at, kIdsPerQuery);
        QStringList list;
        for (const qint32 id : slice)
            list << QString::number(id);
        dao::Recordset rs = gDB.OpenRecordset(
            QStringLiteral("SELECT * FROM CDs WHERE IDCD IN (%1)").arg(list.join(QLatin1Char(','))),
            dao::dbOpenForwardOnly);
        const RowColumns columns(rs);
        const int idcd = rs.FieldIndex(QStringLiteral("IDCD"));
        QHash<qint32, ContactRecord> found;
        for (; !rs.AtEOF(); rs.MoveNext())
            found.insert(qint32(rs.LongAt(idcd)), RecordOfRow(rs, columns, types, trees));
        rs.Close();
        for (const qint32 id : slice) {
            const auto it = found.constFind(id);
            if (it != found.constEnd() && !give(it.value())) return false;
        }
    }
    return !progress || progress(total, total);
}

ContactRecord RecordOfContact(qint32 idcd) {
    ContactRecord found;
    ForEachContact({idcd}, [&found](const ContactRecord& r) {
        found = r;
        return true;
    });
    return found;
}

bool ExportVCard(QIODevice* device, const QList<qint32>& ids, exchange::VCardVersion version,
                 const Progress& progress) {
    exchange::VCardWriter writer(device, version);
    return ForEachContact(
        ids, [&writer](const ContactRecord& r) { return writer.write(r); }, progress);
}

bool ExportCsv(QIODevice* device, const QList<qint32>& ids, const Progress& progress) {
    const QList<exchange::CsvColumn> columns = exchange::KelvarinCsvColumns();
    QStringList header;
    for (const exchange::CsvColumn& c : columns)
        header << exchange::KelvarinCsvHeader(c);
    exchange::CsvWriter writer(device);
    if (!writer.write(header)) return false;
    return ForEachContact(
        ids, [&](const ContactRecord& r) { return writer.write(exchange::CsvValues(columns, r)); }, progress);
}

namespace {

void OpenForReading(QFile& file) {
    if (!file.open(QIODevice::ReadOnly))
        throw HuntERR::Error(53, msgExCannotOpen.arg(file.fileName(), file.errorString()));
}

} // namespace

QList<ContactRecord> ReadVCardFile(const QString& path, QStringList* problems) {
    HUNT_PLACE("mExchange.ReadVCardFile", path);
    QFile file(path);
    OpenForReading(file);
    exchange::VCardReader reader(&file);
    QList<ContactRecord> records;
    exchange::VCardContact card;
    while (reader.next(card)) {
        if (problems)
            for (const exchange::VCardProblem& p : card.problems)
                *problems << exchange::ProblemText(p);
        if (!card.properties.isEmpty()) records << exchange::RecordFromVCard(card);
    }
    if (problems)
        for (const exchange::VCardProblem& p : reader.problems())
            *problems << exchange::ProblemText(p);
    return records;
}

QList<ContactRecord> ReadCsvFile(const QString& path, QStringList* problems) {
    HUNT_PLACE("mExchange.ReadCsvFile", path);
    QFile file(path);
    OpenForReading(file);
    exchange::CsvReader reader(&file);
    QStringList header;
    if (!reader.next(header)) return {};
    CsvChoice choice;
    choice.separator = reader.separator();
    choice.encoding = reader.encoding();
    choice.mapping = exchange::CsvMapping(exchange::DetectCsvPreset(header), header);
    file.close();
    return ReadCsvFile(path, choice, problems);
}

QList<ContactRecord> ReadCsvFile(const QString& path, const CsvChoice& choice, QStringList* problems) {
    HUNT_PLACE("mExchange.ReadCsvFile", path);
    QFile file(path);
    OpenForReading(file);
    exchange::CsvReader reader(&file, choice.separator, choice.encoding);
    QStringList header, row;
    QList<ContactRecord> records;
    if (!reader.next(header)) return records;
    while (reader.next(row))
        records << exchange::RecordFromCsv(choice.mapping, header, row);
    if (problems)
        for (const exchange::CsvProblem& p : reader.problems())
            *problems << exchange::ProblemText(p);
    return records;
}

bool SameContact(const ContactRecord& a, const ContactRecord& b) {
    const QString name = NormalName(a.FullName);
    if (name.isEmpty() || name != NormalName(b.FullName)) return false;
    QSet<QString> numbers;
    for (const NumberRow& row : a.Numbers)
        if (const QString v = NormalNumber(row.value); !v.isEmpty()) numbers.insert(v);
    for (const NumberRow& row : b.Numbers)
        if (numbers.contains(NormalNumber(row.value))) return true;
    return false;
}

namespace {

// The moment a contact was added as its digits, the same whichever way the date came.
QString AddedText(const QVariant& dateScan) {
    return dateScan.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace

void ForEachStoredContact(const std::function<bool(const StoredContact&)>& visit) {
    HUNT_PLACE("mExchange.ForEachStoredContact");
    const TypeTable types;
    std::array<TreeTable, 3> trees{TreeTable(0), TreeTable(1), TreeTable(2)};
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs ORDER BY IDCD"), dao::dbOpenForwardOnly);
    const RowColumns columns(rs);
    const int idcd = rs.FieldIndex(QStringLiteral("IDCD"));
    const int dateScan = rs.FieldIndex(QStringLiteral("DateScan"));
    StoredContact c;
    for (; !rs.AtEOF(); rs.MoveNext()) {
        c.idcd = qint32(rs.LongAt(idcd));
        c.added = AddedText(rs.Value(dateScan));
        c.record = RecordOfRow(rs, columns, types, trees);
        if (!visit(c)) break;
    }
    rs.Close();
}

struct RecordWriter::Impl {
    TypeTable types;
    std::array<TreeTable, 3> trees{TreeTable(0), TreeTable(1), TreeTable(2)};
    qint32 nextId = mCard::NextContactID();
    qint64 nextNumber = mCommon::GetMaxNumber().toLongLong();
};

RecordWriter::RecordWriter() : d(std::make_unique<Impl>()) {}

RecordWriter::~RecordWriter() = default;

qint32 RecordWriter::add(const ContactRecord& r, QString* added, QStringList* notes) {
    HUNT_PLACE("mExchange.RecordWriter.add", r.FullName);
    QStringList ignored;
    const qint32 id = d->nextId++;
    const QDateTime now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = -1"));
    rs.AddNew();
    rs.SetValue(QStringLiteral("IDCD"), id);
    rs.SetValue(QStringLiteral("ContactNumber"), d->nextNumber++);
    rs.SetValue(QStringLiteral("DateScan"), now);
    WriteRecord(rs, r, d->types, d->trees, notes ? *notes : ignored, true);
    rs.Update();
    rs.Close();
    if (added) *added = AddedText(now);
    return id;
}

bool RecordWriter::replace(qint32 idcd, const ContactRecord& r, QStringList* notes) {
    HUNT_PLACE("mExchange.RecordWriter.replace", idcd);
    QStringList ignored;
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(idcd));
    if (rs.AtEOF()) return false;
    rs.Edit();
    WriteRecord(rs, r, d->types, d->trees, notes ? *notes : ignored, false);
    rs.Update();
    rs.Close();
    return true;
}

QStringList NumberTypeNames() {
    QStringList names;
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Type FROM Types ORDER BY IDTYPE"), dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext())
        if (const QString name = rs.Text(0); !name.isEmpty() && !names.contains(name)) names << name;
    rs.Close();
    return names;
}

} // namespace mExchange
