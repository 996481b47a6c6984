// vCard export and import: contacts written one card at a time to a file, and a file of cards
// read back and mapped onto contacts. Contacts are made on the fly and never held together, so the
// resident memory must stay flat however many there are. Each figure stands beside its floor:
// writing the same number of bytes without formatting, and reading the file's lines without
// parsing them.
#include "bench/bench.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <unistd.h>

using namespace exchange;

namespace {

// Resident memory now, in MB.
double residentMb() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0)
                             : 0;
}

ContactRecord contact(int i) {
    static const char* first[] = {"Anna", "Jürgen", "Zoë", "Ólafur", "Chloé", "Bob", "Łucja", "Mateo"};
    static const char* last[] = {"Müller", "Smith", "Durand", "O'Brien", "Nowak", "García", "Rossi", "Kim"};
    ContactRecord c;
    c.FullName = QStringLiteral("%1 %2 %3")
                     .arg(QString::fromUtf8(first[i % 8]), QString::fromUtf8(last[(i / 8) % 8]))
                     .arg(i);
    c.Company = QStringLiteral("Company %1, Ltd.").arg(i % 997);
    c.Title = QStringLiteral("Manager");
    c.Address = QStringLiteral("%1 Long Street; Building B").arg(i % 500);
    c.City = QStringLiteral("Springfield");
    c.State = QStringLiteral("IL");
    c.Zip = QStringLiteral("%1").arg(10000 + i % 90000);
    if (i % 4 == 0)
        c.Comment = QStringLiteral("Met at the fair, booth %1;\nask about the offer.").arg(i % 50);
    c.Numbers = {
        {QStringLiteral("Mobile phone"), QStringLiteral("+1 555 %1").arg(i, 7, 10, QLatin1Char('0'))},
        {QStringLiteral("Work phone"), QStringLiteral("+1 555 %1").arg(i + 1, 7, 10, QLatin1Char('0'))},
        {QStringLiteral("Email"), QStringLiteral("person%1@example.com").arg(i)}};
    if (i % 10 == 0) {
        // One contact in ten has a 10 KB photo.
        QByteArray photo("\xFF\xD8\xFF\xE0", 4);
        photo.resize(10 * 1024, char(i & 0x7F));
        c.Photo = photo;
        c.PhotoExt = QStringLiteral("jpg");
    }
    c.CategoryPath = {QStringLiteral("Business"), QStringLiteral("Customers")};
    c.GroupPath = {QStringLiteral("Others")};
    return c;
}

void run(const bench::Context& ctx) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("contacts.vcf"));
    const int contacts = ctx.contacts;
    qint64 bytes = 0;
    double before = residentMb();
    double highest = before;
    const double exportMs = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        VCardWriter writer(&file);
        for (int i = 0; i < contacts; ++i) {
            writer.write(contact(i));
            if (i % 5000 == 0) highest = std::max(highest, residentMb());
        }
        file.close();
        bytes = file.size();
    });
    // The floor: as many bytes written in card-sized pieces, with nothing to format.
    const QByteArray piece = FormatVCard(contact(1));
    const double writeFloorMs = bench::MedianMs(3, [&] {
        QFile file(dir.filePath(QStringLiteral("floor.vcf")));
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        for (qint64 written = 0; written < bytes; written += piece.size())
            file.write(piece);
    });
    bench::Report(QStringLiteral("vCard export, one card at a time to a file"), contacts, exportMs,
                  writeFloorMs);
    std::printf("    %.1f MB written; resident memory %.0f MB before, at most %.0f MB during\n",
                bytes / 1048576.0, before, highest);

    // Import: the first 10,000 cards of the file (all of it for a smaller phonebook).
    const int toRead = std::min(contacts, 10000);
    int read = 0;
    before = residentMb();
    highest = before;
    const double importMs = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        VCardReader reader(&file);
        VCardContact card;
        read = 0;
        while (read < toRead && reader.next(card)) {
            const ContactRecord r = RecordFromVCard(card);
            if (r.FullName.isEmpty()) std::fprintf(stderr, "card %d has no name\n", read);
            if (++read % 2000 == 0) highest = std::max(highest, residentMb());
        }
    });
    const double readFloorMs = bench::MedianMs(3, [&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        int cards = 0;
        while (cards < toRead && !file.atEnd())
            if (file.readLine().startsWith("END:VCARD")) ++cards;
    });
    bench::Report(QStringLiteral("vCard import: read and map onto contacts"), read, importMs, readFloorMs);
    std::printf("    resident memory %.0f MB before, at most %.0f MB during\n", before, highest);
}

} // namespace

bench::Register reg("vcard export and import", 900, run);
