// CSV: the exports of mail programs read through their presets, quoting and encodings, and
// Kelvarin's own columns written and read back.
#include "exchange/csvmap.h"
#include "exchange/csvreader.h"
#include "exchange/csvwriter.h"
#include "exchangetest.h"

#include <QBuffer>
#include <gtest/gtest.h>

using namespace exchange;
using exchangetest::DataFile;

TEST(Csv, WebMailExportIsDetectedAndMapped) {
    QChar sep;
    QString encoding;
    const QList<QStringList> records = ReadCsv(DataFile("webmail.csv"), &sep, &encoding);
    ASSERT_EQ(records.size(), 3);
    EXPECT_EQ(sep, QLatin1Char(','));
    EXPECT_EQ(encoding, QStringLiteral("UTF-8"));
    const QStringList& header = records[0];
    ASSERT_EQ(DetectCsvPreset(header), CsvPreset::WebMail);
    EXPECT_EQ(CsvPresetName(CsvPreset::WebMail), QStringLiteral("Web mail (Google-style)"));
    const QList<CsvColumn> mapping = CsvMapping(CsvPreset::WebMail, header);

    const ContactRecord r = RecordFromCsv(mapping, header, records[1]);
    EXPECT_EQ(r.FullName, QStringLiteral("Chloé Durand"));
    EXPECT_EQ(r.Company, QStringLiteral("Durand & Fils, SARL"));
    EXPECT_EQ(r.Title, QStringLiteral("Directrice"));
    EXPECT_EQ(r.Address, QStringLiteral("8 rue X"));
    EXPECT_EQ(r.City, QStringLiteral("Lyon"));
    EXPECT_EQ(r.Zip, QStringLiteral("69001"));
    EXPECT_EQ(r.CategoryPath, QStringList({QStringLiteral("Business"), QStringLiteral("Partners")}));
    const QList<NumberRow> numbers = {{QStringLiteral("Email"), QStringLiteral("chloe@durand.example")},
                                      {QStringLiteral("Email"), QStringLiteral("chloe@home.example")},
                                      {QStringLiteral("Mobile phone"), QStringLiteral("+33 6 12 34 56 78")},
                                      {QStringLiteral("Mobile phone"), QStringLiteral("+33 6 98 76 54 32")},
                                      {QStringLiteral("Fax"), QStringLiteral("+33 1 00 00 00 00")},
                                      {QStringLiteral("Web page"), QStringLiteral("https://durand.example")}};
    EXPECT_EQ(r.Numbers, numbers);
    const QStringList comment = r.Comment.split(QLatin1Char('\n'));
    ASSERT_GE(comment.size(), 2);
    EXPECT_EQ(comment.mid(0, 2), QStringList({QStringLiteral("Line one"), QStringLiteral("Line \"two\"")}));
    for (const char* kept : {"Department: Export", "Nickname: Clo", "Birthday: 1990-02-03", "Categories: VIP",
                             "Country: France"})
        EXPECT_TRUE(comment.contains(QString::fromUtf8(kept))) << kept;
    EXPECT_EQ(comment.size(), 7);

    // A label of its own names a new number type.
    const ContactRecord bob = RecordFromCsv(mapping, header, records[2]);
    EXPECT_EQ(bob.FullName, QStringLiteral("Bob Stone"));
    EXPECT_EQ(bob.Numbers, (QList<NumberRow>{{QStringLiteral("Kid's phone"), QStringLiteral("555-0199")}}));
    EXPECT_TRUE(bob.Comment.isEmpty());
}

TEST(Csv, DesktopMailExportInWindows1252WithSemicolons) {
    QBuffer file;
    file.setData(DataFile("desktop1252.csv"));
    file.open(QIODevice::ReadOnly);
    CsvReader reader(&file);
    EXPECT_EQ(reader.encoding(), QStringLiteral("Windows-1252"));
    EXPECT_EQ(reader.separator(), QLatin1Char(';'));
    QStringList header, row;
    ASSERT_TRUE(reader.next(header));
    ASSERT_TRUE(reader.next(row));
    EXPECT_EQ(reader.line(), 2);
    EXPECT_FALSE(reader.next(row = QStringList()) && !row.isEmpty());
    ASSERT_EQ(DetectCsvPreset(header), CsvPreset::DesktopMail);

    QStringList fields;
    file.seek(0);
    CsvReader again(&file);
    again.next(fields);
    again.next(fields);
    const ContactRecord r = RecordFromCsv(CsvMapping(CsvPreset::DesktopMail, header), header, fields);
    EXPECT_EQ(r.FullName, QStringLiteral("Herr Jürgen Müller"));
    EXPECT_EQ(r.Company, QStringLiteral("Müller; Söhne GmbH"));
    EXPECT_EQ(r.Title, QStringLiteral("Prokurist"));
    EXPECT_EQ(r.Address, QStringLiteral("Königsallee 1"));
    EXPECT_EQ(r.City, QStringLiteral("Düsseldorf"));
    EXPECT_EQ(r.State, QStringLiteral("NRW"));
    EXPECT_EQ(r.Zip, QStringLiteral("40212"));
    EXPECT_EQ(r.CategoryPath, QStringList{QStringLiteral("Kunden")});
    const QList<NumberRow> numbers = {{QStringLiteral("Fax"), QStringLiteral("+49 211 1")},
                                      {QStringLiteral("Work phone"), QStringLiteral("+49 211 2")},
                                      {QStringLiteral("Mobile phone"), QStringLiteral("+49 171 3")},
                                      {QStringLiteral("Email"), QStringLiteral("jm@mueller.example")}};
    EXPECT_EQ(r.Numbers, numbers);
    EXPECT_EQ(r.Comment, QStringLiteral("Preis: 5 €\n\"sehr\" gut\nDepartment: Einkauf\nSpouse: Anna\n"
                                        "Country: Deutschland"));
}

TEST(Csv, QuotedFieldsSeparatorsAndLineEnds) {
    const QByteArray file = "a\tb\tc\r\n"
                            "\"x\ty\"\t\"say \"\"hi\"\"\"\t\"two\r\nlines\"\n"
                            "\n"
                            "plain \"quote\"\t\t\r"
                            "last\t\"never closed\n...";
    QChar sep;
    const QList<QStringList> records = ReadCsv(file, &sep);
    EXPECT_EQ(sep, QLatin1Char('\t'));
    ASSERT_EQ(records.size(), 4);
    EXPECT_EQ(records[1], QStringList({QStringLiteral("x\ty"), QStringLiteral("say \"hi\""),
                                       QStringLiteral("two\nlines")}));
    EXPECT_EQ(records[2], QStringList({QStringLiteral("plain \"quote\""), QString(), QString()}));
    EXPECT_EQ(records[3], QStringList({QStringLiteral("last"), QStringLiteral("never closed\n...")}));

    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    CsvReader reader(&buffer);
    QStringList fields;
    while (reader.next(fields)) {
    }
    ASSERT_EQ(reader.problems().size(), 1);
    EXPECT_EQ(ProblemText(reader.problems()[0]),
              QStringLiteral("Line 6: a quoted field is never closed; it was read to the end of the file."));

    // A byte-order mark decides the encoding: UTF-16 and UTF-8 alike.
    const QString text = QStringLiteral("Name;Notiz\r\nÅsa;\"a;b\"\r\n");
    QByteArray utf16("\xFF\xFE", 2);
    utf16 += QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    QString encoding;
    const QList<QStringList> wide = ReadCsv(utf16, &sep, &encoding);
    EXPECT_EQ(encoding, QStringLiteral("UTF-16LE"));
    EXPECT_EQ(sep, QLatin1Char(';'));
    ASSERT_EQ(wide.size(), 2);
    EXPECT_EQ(wide[1], QStringList({QStringLiteral("Åsa"), QStringLiteral("a;b")}));
    EXPECT_EQ(ReadCsv("\xEF\xBB\xBF" + text.toUtf8()), wide);
}

TEST(Csv, WriterQuotesAsRfc4180Says) {
    EXPECT_EQ(CsvRecord({QStringLiteral("plain"), QStringLiteral("a,b"), QStringLiteral("say \"hi\""),
                         QStringLiteral("two\nlines"), QString(), QStringLiteral(" padded")}),
              QStringLiteral("plain,\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\",,\" padded\"\r\n"));
    EXPECT_EQ(CsvRecord({QStringLiteral("a,b"), QStringLiteral("c;d")}, QLatin1Char(';')),
              QStringLiteral("a,b;\"c;d\"\r\n"));
}

TEST(Csv, KelvarinColumnsComeBackFieldForField) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    const QList<CsvColumn> columns = KelvarinCsvColumns();
    ASSERT_EQ(columns.size(), 11 + 2 * kNumberRows);
    QStringList header;
    for (const CsvColumn& c : columns)
        header.append(KelvarinCsvHeader(c));
    EXPECT_EQ(header.mid(0, 3),
              QStringList({QStringLiteral("Full name"), QStringLiteral("Title"), QStringLiteral("Company")}));
    EXPECT_EQ(header.last(), QStringLiteral("Number 12"));
    CsvWriter writer(&file);
    ASSERT_TRUE(writer.write(header));
    QList<ContactRecord> contacts;
    for (int n = 0; n < 6; ++n) {
        ContactRecord c = exchangetest::FullContact(n);
        c.Photo.clear(); // pictures do not go into CSV
        c.PhotoExt.clear();
        c.CategoryPath = {QStringLiteral("Business"), QStringLiteral("Customers")};
        contacts.append(c);
        ASSERT_TRUE(writer.write(CsvValues(columns, c)));
    }
    file.close();
    EXPECT_TRUE(file.data().startsWith("\xEF\xBB\xBF"));

    const QList<QStringList> records = ReadCsv(file.data());
    ASSERT_EQ(records.size(), contacts.size() + 1);
    ASSERT_EQ(DetectCsvPreset(records[0]), CsvPreset::Kelvarin);
    const QList<CsvColumn> mapping = CsvMapping(CsvPreset::Kelvarin, records[0]);
    for (int i = 0; i < contacts.size(); ++i)
        EXPECT_EQ(RecordFromCsv(mapping, records[0], records[i + 1]), contacts[i]) << i;
}
