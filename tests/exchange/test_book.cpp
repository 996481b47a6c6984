// Contacts of a phonebook in and out of vCard and CSV: the round trip field for field, the
// duplicate rule, a cancelled or failing import, oversized photos.
#include "exchange/book/bookexchange.h"
#include "exchange/csvmap.h"
#include "exchange/csvreader.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchangetest.h"
#include "support/fixture.h"

#include "core/globals.h"
#include "phonebook/store/dao.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using exchange::ContactRecord;
using exchangetest::FullContact;

namespace {

class BookExchange : public fixture::PhonebookTest {
  protected:
    QList<ContactRecord> all() {
        QList<ContactRecord> out;
        mExchange::ForEachContact({}, [&out](const ContactRecord& r) {
            out << r;
            return true;
        });
        return out;
    }
    int contacts() { return scalar(QStringLiteral("SELECT Count(*) FROM CDs")).toInt(); }
};

QList<ContactRecord> Generated(int count) {
    QList<ContactRecord> list;
    for (int n = 1; n <= count; ++n)
        list << FullContact(n);
    return list;
}

TEST_F(BookExchange, ImportThenExportGivesTheSameContactsFieldForField) {
    const QList<ContactRecord> source = Generated(12);
    const mExchange::ImportSummary summary = mExchange::ImportRecords(source);
    EXPECT_EQ(summary.imported, 12);
    EXPECT_EQ(summary.merged + summary.skipped, 0);
    // The types and tree places were made once, not once a contact.
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM Types WHERE Type = 'Kid''s phone'")).toInt(), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM Categories WHERE Name = 'Nord/West'")).toInt(), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Catpath FROM Boxes WHERE Name = 'Schach; Köln'")).toString(),
              QStringLiteral("Clubs/Schach; Köln"));
    EXPECT_EQ(all(), source);

    // Out as vCard 4.0, 3.0 and CSV, and back into a phonebook without contacts.
    for (int format = 0; format < 3; ++format) {
        SCOPED_TRACE(format);
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        ASSERT_TRUE(format == 2 ? mExchange::ExportCsv(&out, {})
                                : mExchange::ExportVCard(&out, {},
                                                         format == 0 ? exchange::VCardVersion::V40
                                                                     : exchange::VCardVersion::V30));
        out.close();
        const QString file = path(format == 2 ? QStringLiteral("out.csv") : QStringLiteral("out.vcf"));
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
        gDB.Execute(QStringLiteral("DELETE FROM CDs"));
        const QList<ContactRecord> read =
            format == 2 ? mExchange::ReadCsvFile(file) : mExchange::ReadVCardFile(file);
        if (format == 2) {
            // CSV has no photo column, and its paths are names joined by "/".
            QList<ContactRecord> expected = source;
            for (ContactRecord& r : expected) {
                r.Photo.clear();
                r.PhotoExt.clear();
                r.CategoryPath = r.CategoryPath.join(QLatin1Char('/')).split(QLatin1Char('/'));
            }
            EXPECT_EQ(read, expected);
        } else {
            EXPECT_EQ(read, source);
        }
        EXPECT_EQ(mExchange::ImportRecords(read).imported, 12);
        EXPECT_EQ(all(), read);
    }
}

TEST_F(BookExchange, ExportOfChosenContactsKeepsTheirOrderAndSkipsUnknownIds) {
    mExchange::ImportRecords(Generated(5));
    QByteArray bytes;
    QBuffer out(&bytes);
    out.open(QIODevice::WriteOnly);
    ASSERT_TRUE(mExchange::ExportVCard(&out, {4, 999, 2}));
    const QList<exchange::VCardContact> cards = exchange::ReadVCards(bytes);
    ASSERT_EQ(cards.size(), 2);
    EXPECT_EQ(exchange::RecordFromVCard(cards[0]), FullContact(4));
    EXPECT_EQ(exchange::RecordFromVCard(cards[1]), FullContact(2));
}

TEST_F(BookExchange, DuplicatesAreSkippedAddedOrCompleted) {
    ContactRecord first;
    first.FullName = QStringLiteral("Ada Lovelace");
    first.Numbers = {{QStringLiteral("Mobile phone"), QStringLiteral("+44 20 1234")}};
    mExchange::ImportRecords({first});

    ContactRecord again = first;
    again.FullName = QStringLiteral("ada  lovelace"); // the same name, spelled loosely
    again.Numbers = {{QStringLiteral("Email"), QStringLiteral("ada@example.org")},
                     {QStringLiteral("Mobile phone"), QStringLiteral("+44-20-1234")}};
    again.City = QStringLiteral("London");
    ContactRecord namesake = first; // same name, nothing in common: another person
    namesake.Numbers = {{QStringLiteral("Mobile phone"), QStringLiteral("+1 555 0100")}};

    mExchange::ImportOptions skip;
    skip.duplicates = mExchange::DuplicateAction::Skip;
    mExchange::ImportSummary s = mExchange::ImportRecords({again, namesake}, skip);
    EXPECT_EQ(s.skipped, 1);
    EXPECT_EQ(s.imported, 1);
    EXPECT_EQ(contacts(), 2);
    EXPECT_TRUE(s.notes.join(QLatin1Char('\n')).contains(QStringLiteral("ada  lovelace")));

    mExchange::ImportOptions merge;
    s = mExchange::ImportRecords({again}, merge);
    EXPECT_EQ(s.merged, 1);
    EXPECT_EQ(contacts(), 2);
    const ContactRecord merged = mExchange::RecordOfContact(1);
    EXPECT_EQ(merged.FullName, first.FullName); // a filled field keeps its value
    EXPECT_EQ(merged.City, QStringLiteral("London"));
    ASSERT_EQ(merged.Numbers.size(), 2);
    EXPECT_EQ(merged.Numbers[1].value, QStringLiteral("ada@example.org"));

    mExchange::ImportOptions add;
    add.duplicates = mExchange::DuplicateAction::Add;
    EXPECT_EQ(mExchange::ImportRecords({again}, add).imported, 1);
    mExchange::ImportOptions unchecked = skip; // the warning turned off: nothing is looked for
    unchecked.checkDuplicates = false;
    EXPECT_EQ(mExchange::ImportRecords({again}, unchecked).imported, 1);
    EXPECT_EQ(contacts(), 4);
    // Duplicates within one file count too.
    EXPECT_EQ(mExchange::ImportRecords({namesake, namesake}, skip).skipped, 2);
}

TEST_F(BookExchange, CancelOrFailureLeavesThePhonebookAsItWas) {
    const int types = scalar(QStringLiteral("SELECT Count(*) FROM Types")).toInt();
    const int categories = scalar(QStringLiteral("SELECT Count(*) FROM Categories")).toInt();
    mExchange::ImportOptions options;
    options.progress = [](int done, int) { return done < 7; };
    const mExchange::ImportSummary s = mExchange::ImportRecords(Generated(10), options);
    EXPECT_TRUE(s.cancelled);
    EXPECT_EQ(contacts(), 0);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM Types")).toInt(), types);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Count(*) FROM Categories")).toInt(), categories);

    // A failure half-way (a name longer than its column) rolls back too.
    QList<ContactRecord> bad = Generated(3);
    bad[2].Numbers[0].type = QString(300, QLatin1Char('x'));
    try {
        mExchange::ImportRecords(bad);
    } catch (...) {
    }
    EXPECT_EQ(contacts(), 0);

    // Export stops when told to.
    mExchange::ImportRecords(Generated(4));
    QByteArray bytes;
    QBuffer out(&bytes);
    out.open(QIODevice::WriteOnly);
    EXPECT_FALSE(mExchange::ExportVCard(&out, {}, exchange::VCardVersion::V40,
                                        [](int done, int) { return done < 2; }));
    EXPECT_EQ(exchange::ReadVCards(bytes).size(), 2);
}

TEST_F(BookExchange, APhotoOverTheCardLimitIsScaledDownToFit) {
    QImage image(1600, 1200, QImage::Format_RGB32);
    QRandomGenerator rng(7);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, rng.generate());
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    ASSERT_GT(png.size(), 512000);

    ContactRecord r;
    r.FullName = QStringLiteral("Big Photo");
    r.Photo = png;
    r.PhotoExt = QStringLiteral("png");
    ContactRecord broken = r;
    broken.FullName = QStringLiteral("Broken Photo");
    broken.Photo = QByteArray(600000, 'x');
    const mExchange::ImportSummary s = mExchange::ImportRecords({r, broken});
    EXPECT_EQ(s.imported, 2);
    EXPECT_EQ(s.notes.size(), 2);
    const ContactRecord stored = mExchange::RecordOfContact(1);
    EXPECT_LE(stored.Photo.size(), 512000);
    EXPECT_EQ(stored.PhotoExt, QStringLiteral("jpg"));
    QImage back;
    EXPECT_TRUE(back.loadFromData(stored.Photo));
    EXPECT_TRUE(mExchange::RecordOfContact(2).Photo.isEmpty());
}

} // namespace
