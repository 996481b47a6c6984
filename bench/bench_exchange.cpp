// vCard export and import. The phonebook's contacts are exported one card at a time to a file,
// and a file of 10,000 cards is read and imported into the phonebook in one transaction. Each
// figure stands beside its floor: for the export, the bare SQLite read of the same rows plus the
// bare write of the same bytes; for the import, the bare read of the file's lines plus the bare
// SQLite insert of the same rows. The resident memory is sampled during the work: it must not
// grow with the size of the phonebook. The pure writer and reader, with no phonebook, run too.
#include "bench/bench.h"
#include "bench/generate.h"
#include "core/globals.h"
#include "exchange/book/bookexchange.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"
#include "phonebook/store/dao.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <sqlite3.h>
#include <unistd.h>

using namespace exchange;

namespace {

constexpr int kImported = 10000;

// Resident memory now, in MB.
double residentMb() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0)
                             : 0;
}

// Heap in use outside SQLite, in MB: what the program itself holds. SQLite's share is its page
// cache, which the store caps (PRAGMA cache_size), and the pages of an open transaction.
double programHeapMb() {
    const struct mallinfo2 m = mallinfo2();
    return (double(m.uordblks) + double(m.hblkhd) - double(sqlite3_memory_used())) / (1024.0 * 1024.0);
}

// The highest resident memory and program heap seen while a piece of work runs.
struct MemoryWatch {
    double before = residentMb();
    double highest = before;
    double heapBefore = programHeapMb();
    double heapHighest = heapBefore;
    void sample() {
        highest = std::max(highest, residentMb());
        heapHighest = std::max(heapHighest, programHeapMb());
    }
    void print(const char* what) const {
        std::printf("    %s: resident memory %.0f MB before, at most %.0f MB during (+%.0f MB); heap outside "
                    "SQLite +%.1f MB; SQLite now %.1f MB\n",
                    what, before, highest, highest - before, heapHighest - heapBefore,
                    sqlite3_memory_used() / 1048576.0);
    }
};

// Writes `bytes` bytes to a file in pieces of the size of one card: the floor of any writer.
double bareWriteMs(const QString& path, qint64 bytes, const QByteArray& piece) {
    return bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        for (qint64 written = 0; written < bytes; written += piece.size())
            file.write(piece);
    });
}

// Reads the lines of a vCard file up to its `cards`th card, parsing nothing.
double bareReadLinesMs(const QString& path, int cards) {
    return bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        int seen = 0;
        while (seen < cards && !file.atEnd())
            if (file.readLine().startsWith("END:VCARD")) ++seen;
    });
}

sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(gDB.handle(), sql, -1, &s, nullptr);
    return s;
}

qint64 scalar(const char* sql) {
    sqlite3_stmt* s = prepare(sql);
    const qint64 v = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int64(s, 0) : 0;
    sqlite3_finalize(s);
    return v;
}

// Every column of every contact stepped and fetched, in IDCD order, with no work per row.
double bareSelectMs() {
    return bench::MedianMs(3, [] {
        sqlite3_stmt* s = prepare("SELECT * FROM CDs ORDER BY IDCD");
        const int n = sqlite3_column_count(s);
        while (sqlite3_step(s) == SQLITE_ROW)
            for (int i = 0; i < n; ++i)
                sqlite3_column_type(s, i) == SQLITE_BLOB ? (void)sqlite3_column_blob(s, i)
                                                         : (void)sqlite3_column_text(s, i);
        sqlite3_finalize(s);
    });
}

// The records as rows of CDs with one prepared statement in one transaction: the floor of an
// import into the phonebook.
void bareInsert(const QList<ContactRecord>& records, qint64 firstId) {
    sqlite3_exec(gDB.handle(), "SAVEPOINT bare", nullptr, nullptr, nullptr);
    QByteArray sql = "INSERT INTO CDs (IDCD, ContactNumber, FullName, Title, Company, Address, City, State, "
                     "Zip, Comment, Photo, PhotoExt, PhotoSize, IDC, IDX, IDB";
    for (int n = 1; n <= kNumberRows; ++n)
        sql += ", Type" + QByteArray::number(n) + ", Number" + QByteArray::number(n);
    sql += ") VALUES (?";
    for (int n = 1; n < 16 + 2 * kNumberRows; ++n)
        sql += ", ?";
    sql += ")";
    sqlite3_stmt* s = prepare(sql.constData());
    qint64 id = firstId;
    for (const ContactRecord& r : records) {
        const auto text = [s](int at, const QString& t) {
            if (t.isEmpty()) {
                sqlite3_bind_null(s, at);
                return;
            }
            const QByteArray u = t.toUtf8();
            sqlite3_bind_text(s, at, u.constData(), int(u.size()), SQLITE_TRANSIENT);
        };
        sqlite3_bind_int64(s, 1, id);
        sqlite3_bind_int64(s, 2, id);
        int at = 3;
        for (const QString* t :
             {&r.FullName, &r.Title, &r.Company, &r.Address, &r.City, &r.State, &r.Zip, &r.Comment})
            text(at++, *t);
        if (r.Photo.isEmpty())
            sqlite3_bind_null(s, at++);
        else
            sqlite3_bind_blob(s, at++, r.Photo.constData(), int(r.Photo.size()), SQLITE_STATIC);
        text(at++, r.PhotoExt);
        if (r.Photo.isEmpty())
            sqlite3_bind_null(s, at++);
        else
            sqlite3_bind_int64(s, at++, r.Photo.size());
        for (int k = 0; k < 3; ++k)
            sqlite3_bind_int(s, at++, 1);
        for (int n = 0; n < kNumberRows; ++n) {
            if (n < r.Numbers.size())
                sqlite3_bind_int(s, at++, 1);
            else
                sqlite3_bind_null(s, at++);
            text(at++, n < r.Numbers.size() ? r.Numbers[n].value : QString());
        }
        if (sqlite3_step(s) != SQLITE_DONE && id == firstId)
            std::fprintf(stderr, "bare insert: %s\n", sqlite3_errmsg(gDB.handle()));
        sqlite3_reset(s);
        ++id;
    }
    sqlite3_finalize(s);
    sqlite3_exec(gDB.handle(), "RELEASE bare", nullptr, nullptr, nullptr);
}

void removeFrom(qint64 firstId) {
    gDB.Execute(QStringLiteral("DELETE FROM CDs WHERE IDCD >= %1").arg(firstId));
}

// Median of three runs of `work`, each followed (outside the timing) by `after`.
template <typename Work, typename After> double medianWithCleanup(Work work, After after) {
    std::vector<double> t;
    for (int i = 0; i < 3; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        t.push_back(timer.nsecsElapsed() / 1e6);
        after();
    }
    std::sort(t.begin(), t.end());
    return t[1];
}

void phonebookExport(const bench::Context& ctx, const QTemporaryDir& dir) {
    const QString path = dir.filePath(QStringLiteral("phonebook.vcf"));
    qint64 bytes = 0;
    MemoryWatch memory;
    const double ms = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        mExchange::ExportVCard(&file, {}, VCardVersion::V40, [&memory](int done, int) {
            if (done % 5000 == 0) memory.sample();
            return true;
        });
        file.close();
        bytes = file.size();
    });
    const double select = bareSelectMs();
    QByteArray piece;
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        piece = file.read(std::max<qint64>(1, bytes / std::max(1, ctx.contacts)));
    }
    const double write = bareWriteMs(dir.filePath(QStringLiteral("floor.vcf")), bytes, piece);
    bench::Report(QStringLiteral("vCard export of the phonebook, one card at a time"), ctx.contacts, ms,
                  select + write);
    std::printf("    bare: SQLite read of every row %.1f ms + write of the same %.1f MB %.1f ms\n", select,
                bytes / 1048576.0, write);
    memory.print("export");
}

void phonebookImport(const bench::Context& ctx, const QTemporaryDir& dir) {
    const QString path = dir.filePath(QStringLiteral("import.vcf"));
    const int cards = std::min(kImported, ctx.contacts); // 10,000 but in a smaller phonebook
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        VCardWriter writer(&file);
        for (int i = 0; i < cards; ++i)
            writer.write(bench::GeneratedRecord(i));
    }
    const qint64 firstId = scalar("SELECT Max(IDCD) FROM CDs") + 1;
    int imported = 0;
    MemoryWatch memory;
    mExchange::ImportOptions options;
    options.duplicates = mExchange::DuplicateAction::Add;
    options.checkDuplicates = true;
    options.progress = [&memory](int done, int) {
        if (done % 2000 == 0) memory.sample();
        return true;
    };
    double readMs = 0;
    const double ms = medianWithCleanup(
        [&] {
            QElapsedTimer timer;
            timer.start();
            const QList<ContactRecord> records = mExchange::ReadVCardFile(path);
            readMs = timer.nsecsElapsed() / 1e6;
            memory.sample();
            imported = mExchange::ImportRecords(records, options).imported;
        },
        [&] { removeFrom(firstId); });
    if (imported != cards) std::fprintf(stderr, "imported %d of %d cards\n", imported, cards);
    const double lines = bareReadLinesMs(path, cards);
    QList<ContactRecord> records;
    for (int i = 0; i < cards; ++i)
        records << bench::GeneratedRecord(i);
    const double insert =
        medianWithCleanup([&] { bareInsert(records, firstId); }, [&] { removeFrom(firstId); });
    bench::Report(QStringLiteral("vCard import of a file of cards into the phonebook"), imported, ms,
                  lines + insert);
    std::printf("    of which reading and mapping the file %.1f ms; bare: lines of the file %.1f ms + "
                "SQLite insert of the same rows %.1f ms; phonebook of %d contacts\n",
                readMs, lines, insert, ctx.contacts);
    memory.print("import");
}

// The writer and the reader alone, without a phonebook.
void pure(const bench::Context& ctx, const QTemporaryDir& dir) {
    const QString path = dir.filePath(QStringLiteral("contacts.vcf"));
    const int contacts = ctx.contacts;
    qint64 bytes = 0;
    MemoryWatch memory;
    const double exportMs = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        VCardWriter writer(&file);
        for (int i = 0; i < contacts; ++i) {
            writer.write(bench::GeneratedRecord(i));
            if (i % 5000 == 0) memory.sample();
        }
        file.close();
        bytes = file.size();
    });
    const double writeFloorMs =
        bareWriteMs(dir.filePath(QStringLiteral("floor.vcf")), bytes, FormatVCard(bench::GeneratedRecord(1)));
    bench::Report(QStringLiteral("vCard writer alone, generated contacts to a file"), contacts, exportMs,
                  writeFloorMs);
    memory.print("writer");

    const int toRead = std::min(contacts, kImported);
    int read = 0;
    const double importMs = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        VCardReader reader(&file);
        VCardContact card;
        read = 0;
        while (read < toRead && reader.next(card)) {
            const ContactRecord r = RecordFromVCard(card);
            if (r.FullName.isEmpty()) std::fprintf(stderr, "card %d has no name\n", read);
            ++read;
        }
    });
    bench::Report(QStringLiteral("vCard reader alone: read and map onto contacts"), read, importMs,
                  bareReadLinesMs(path, toRead));
}

void run(const bench::Context& ctx) {
    QTemporaryDir dir;
    phonebookExport(ctx, dir);
    phonebookImport(ctx, dir);
    pure(ctx, dir);
}

} // namespace

bench::Register reg("vcard export and import", 900, run);
