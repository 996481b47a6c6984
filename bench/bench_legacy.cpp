// Conversion of a phonebook of the Windows version (5,000 contacts), beside the time libmdb alone
// takes to read the same tables with no work per row.
#include "bench/bench.h"
#include "legacy/convert.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <vector>

#include <glib.h> // before libmdb's header, which includes it inside extern "C"

#include <mdbtools.h>

namespace {

QString jet5000() {
    const QString given = qEnvironmentVariable("KELVARIN_JET_5000");
    if (!given.isEmpty()) return given;
    return QDir::cleanPath(QStringLiteral(KELVARIN_SOURCE_DIR "/../shared/fixtures/jet/jet-5000.mdb"));
}

void run(const bench::Context&) {
    static bool done = false; // the file is the same for every size of generated phonebook
    if (done) return;
    done = true;
    const QString jet = jet5000();
    if (!QFileInfo::exists(jet)) {
        std::fprintf(stderr, "no %s (KELVARIN_JET_5000 names another): conversion not timed\n",
                     qPrintable(jet));
        return;
    }
    QTemporaryDir dir;
    int n = 0;
    const double convert = bench::MedianMs(5, [&] {
        const QString to = dir.filePath(QStringLiteral("converted-%1.kvdb").arg(++n));
        mLegacy::ConvertJet(jet, to);
        QFile::remove(to);
    });
    // libmdb alone: every user table, every column bound, every row fetched, nothing done with it.
    const double read = bench::MedianMs(5, [&] {
        qputenv("MDBICONV", "UTF-8");
        MdbHandle* mdb = mdb_open(QFile::encodeName(jet).constData(), MDB_NOFLAGS);
        qunsetenv("MDBICONV");
        if (!mdb) return;
        mdb_set_bind_size(mdb, size_t(1) << 20);
        mdb_read_catalog(mdb, MDB_TABLE);
        for (unsigned i = 0; i < mdb->num_catalog; ++i) {
            auto* e = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
            if (e->object_type != MDB_TABLE || !mdb_is_user_table(e)) continue;
            MdbTableDef* t = mdb_read_table(e);
            mdb_read_columns(t);
            std::vector<std::vector<char>> bound(t->num_cols, std::vector<char>(size_t(1) << 20));
            std::vector<int> lengths(t->num_cols);
            for (unsigned c = 0; c < t->num_cols; ++c)
                mdb_bind_column(t, int(c) + 1, bound[c].data(), &lengths[c]);
            mdb_rewind_table(t);
            while (mdb_fetch_row(t)) {
            }
            mdb_free_tabledef(t);
        }
        mdb_close(mdb);
    });
    bench::Report(QStringLiteral("convert jet-5000.mdb (libmdb reading alone as the floor)"), 5000, convert,
                  read);
}

bench::Register reg("legacy conversion", 90, run);

} // namespace
