// Compacting the phonebook: CompactDB (the copy, its sync and the rename over the phonebook)
// beside a bare VACUUM INTO of the same file into a fresh one.
#include "access/compactfile.h"
#include "access/maintenance.h"
#include "bench/bench.h"
#include "core/globals.h"
#include "phonebook/login.h"

#include <QFile>
#include <sqlite3.h>

namespace {

void run(const bench::Context& ctx) {
    mMain::Closing();
    const QString book = ctx.phonebook;
    const double ours = bench::MedianMs(3, [&] { mAccess::CompactDB(book, false, false); });
    const QString copy = book + QStringLiteral(".bare");
    const double bare = bench::MedianMs(3, [&] {
        QFile::remove(copy);
        sqlite3* db = nullptr;
        sqlite3_open_v2(QFile::encodeName(book).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        const QByteArray sql = "VACUUM INTO '" + QFile::encodeName(copy) + "'";
        sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
        sqlite3_close(db);
    });
    QFile::remove(copy);
    bench::Report(QStringLiteral("compact (CompactDB, no backup)"), ctx.contacts, ours, bare);
    gDBPath = book;
    mLogin::LoginCnn(false);
}

bench::Register reg("compact", 90, run);

} // namespace
