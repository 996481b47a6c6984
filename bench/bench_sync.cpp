// Sync with a local CardDAV server (Debian's radicale): the first sync of 1,000 contacts each way,
// and a sync with nothing to do, which must take one request when the server offers
// sync-collection. Beside each figure stands its floor: the same requests sent with the bare
// client, cards already formatted, no phonebook touched.
#include "bench/bench.h"
#include "bench/generate.h"
#include "core/globals.h"
#include "exchange/book/bookexchange.h"
#include "exchange/vcardwriter.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "support/fixtureradicale.h"
#include "sync/account.h"
#include "sync/davclient.h"
#include "sync/syncsession.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

using exchange::ContactRecord;

namespace {

constexpr int kContacts = 1000;

void open(const QString& path) {
    mMain::Closing();
    gDBPath = path;
    mLogin::LoginCnn(false);
}

void link(const QUrl& book, const fixture::RadicaleServer& server) {
    carddav::Account a;
    a.server = server.url().toString();
    a.user = server.user();
    a.book = book;
    carddav::SaveAccount(a);
}

double timed(const std::function<void()>& f) {
    QElapsedTimer t;
    t.start();
    f();
    return t.nsecsElapsed() / 1e6;
}

void run(const bench::Context& ctx) {
    static bool done = false; // the case does not depend on the size of the generated phonebook
    if (done) return;
    done = true;
    QString reason;
    if (!fixture::RadicaleServer::available(&reason)) {
        std::printf("sync: skipped, %s\n", qPrintable(reason));
        return;
    }
    QTemporaryDir dir;
    fixture::RadicaleServer server;
    if (!server.start(dir.filePath(QStringLiteral("radicale")))) {
        std::printf("sync: the server did not start\n%s\n", qPrintable(server.log()));
        return;
    }
    const QUrl book = server.createAddressBook(QStringLiteral("contacts"));
    const QUrl floorBook = server.createAddressBook(QStringLiteral("floor"));

    open(dir.filePath(QStringLiteral("a.kvdb")));
    {
        dao::Transaction trans(gWS);
        mExchange::RecordWriter writer;
        for (int i = 0; i < kContacts; ++i)
            writer.add(bench::GeneratedRecord(i), nullptr, nullptr);
        trans.Commit();
    }
    link(book, server);
    carddav::SyncSummary s;
    const double upMs = timed([&] { s = carddav::SyncNow(server.password()); });
    if (!s.completed()) std::printf("sync failed: %s\n", qPrintable(s.error));
    // Floor: the same cards sent with the bare client, one request each.
    carddav::DavClient client(floorBook, server.user(), server.password());
    const double upFloorMs = timed([&] {
        for (int i = 0; i < kContacts; ++i) {
            QByteArray etag;
            client.put(
                floorBook.resolved(QUrl(QStringLiteral("c%1.vcf").arg(i))),
                exchange::FormatVCard(bench::GeneratedRecord(i))
                    .replace("VERSION:4.0\r\n", "VERSION:4.0\r\nUID:c" + QByteArray::number(i) + "\r\n"),
                QByteArray(), &etag);
        }
    });
    bench::Report(QStringLiteral("sync: first sync, %1 contacts sent").arg(kContacts), kContacts, upMs,
                  upFloorMs);
    std::printf("    %d sent, %d requests\n", s.sent, s.requests);

    open(dir.filePath(QStringLiteral("b.kvdb")));
    link(book, server);
    const double downMs = timed([&] { s = carddav::SyncNow(server.password()); });
    if (!s.completed()) std::printf("sync failed: %s\n", qPrintable(s.error));
    const double downFloorMs = timed([&] {
        QStringList hrefs;
        for (const carddav::ResourceState& r : client.syncCollection(floorBook, QString()).changes)
            hrefs << r.href;
        client.multiget(floorBook, hrefs);
    });
    bench::Report(QStringLiteral("sync: first sync, %1 contacts received").arg(kContacts), kContacts, downMs,
                  downFloorMs);
    std::printf("    %d received, %d requests\n", s.received, s.requests);

    int requests = 0;
    const double idleMs = bench::MedianMs(5, [&] {
        s = carddav::SyncNow(server.password());
        requests = s.requests;
    });
    const QString token = carddav::LoadAccount().syncToken;
    const double idleFloorMs = bench::MedianMs(5, [&] { client.syncCollection(book, token); });
    bench::Report(QStringLiteral("sync: nothing changed"), kContacts, idleMs, idleFloorMs);
    std::printf("    %d request(s), target under 1 s\n", requests);

    open(ctx.phonebook);
}

const bench::Register reg("sync with a CardDAV server", 950, run);

} // namespace
