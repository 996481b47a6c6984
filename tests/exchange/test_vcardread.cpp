// Reading vCard files written the way phones, web mail and desktop address books write them,
// and broken ones: every field of the contacts they describe, and the problems reported.
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchangetest.h"

#include <QBuffer>
#include <QStringDecoder>
#include <gtest/gtest.h>

using namespace exchange;
using exchangetest::DataFile;

namespace {

QList<NumberRow> rows(std::initializer_list<std::pair<const char*, const char*>> list) {
    QList<NumberRow> out;
    for (const auto& [type, value] : list)
        out.append({QString::fromUtf8(type), QString::fromUtf8(value)});
    return out;
}

ContactRecord only(const QByteArray& file) {
    QList<VCardProblem> outside;
    const QList<VCardContact> cards = ReadVCards(file, &outside);
    EXPECT_EQ(cards.size(), 1);
    EXPECT_TRUE(outside.isEmpty());
    return cards.isEmpty() ? ContactRecord() : RecordFromVCard(cards.first());
}

} // namespace

TEST(VCardRead, PhoneVersion21WithQuotedPrintableAndPhoto) {
    QList<VCardProblem> outside;
    const QList<VCardContact> cards = ReadVCards(DataFile("phone21.vcf"), &outside);
    ASSERT_EQ(cards.size(), 2);
    EXPECT_TRUE(outside.isEmpty());
    EXPECT_TRUE(cards[0].problems.isEmpty());
    EXPECT_EQ(cards[0].version, QStringLiteral("2.1"));

    const ContactRecord a = RecordFromVCard(cards[0]);
    EXPECT_EQ(a.FullName, QStringLiteral("Jürgen Müller"));
    EXPECT_EQ(a.Numbers, rows({{"Mobile phone", "+49 170 1234567"},
                               {"Fax", "+49 30 7654321"},
                               {"Work phone", "+49 30 111222"},
                               {"Email", "juergen@example.de"}}));
    EXPECT_EQ(a.Address, QStringLiteral("Hauptstraße 5"));
    EXPECT_EQ(a.City, QStringLiteral("Berlin"));
    EXPECT_EQ(a.State, QString());
    EXPECT_EQ(a.Zip, QStringLiteral("10115"));
    // A quoted-printable CRLF and a soft line break; the country has no field of its own.
    EXPECT_EQ(a.Comment,
              QStringLiteral("Erste Zeile\nZweite Zeile mit einem sehr langen Text, der umgebrochen "
                             "wird\nCountry: Germany"));
    EXPECT_EQ(a.Photo, DataFile("photo.jpg"));
    EXPECT_EQ(a.PhotoExt, QStringLiteral("jpg"));
    EXPECT_TRUE(a.CategoryPath.isEmpty());
    EXPECT_FALSE(a.Favorite);

    // No FN: the name is assembled from N, in the card's Latin-1.
    const ContactRecord b = RecordFromVCard(cards[1]);
    EXPECT_EQ(b.FullName, QStringLiteral("René François"));
    EXPECT_EQ(b.Numbers, rows({{"Phone", "555-0100"}}));
    EXPECT_EQ(b.Comment, QStringLiteral("Birthday: 1970-01-31"));
}

TEST(VCardRead, WebMailVersion30WithGroupsAndEscapes) {
    const ContactRecord r = only(DataFile("webmail30.vcf"));
    EXPECT_EQ(r.FullName, QStringLiteral("Anna Łukasiewicz"));
    EXPECT_EQ(r.Company, QStringLiteral("Acme, Inc."));
    EXPECT_EQ(r.Title, QStringLiteral("Head of Sales"));
    // A custom label names the type; a system label leaves it to the property.
    EXPECT_EQ(r.Numbers, rows({{"Kid's phone", "+48 600 100 200"},
                               {"Email", "anna@example.com"},
                               {"Mobile phone", "+48 600 000 001"},
                               {"Home phone", "+48 22 000 002"},
                               {"Email", "anna@acme.example"},
                               {"Skype", "anna.l"}}));
    // The preferred address wins over the first one.
    EXPECT_EQ(r.Address, QStringLiteral("Rue de la Loi 200, Floor 3"));
    EXPECT_EQ(r.City, QStringLiteral("Bruxelles"));
    EXPECT_EQ(r.State, QStringLiteral("Brussels"));
    EXPECT_EQ(r.Zip, QStringLiteral("1040"));
    EXPECT_EQ(r.CategoryPath, QStringList({QStringLiteral("Business"), QStringLiteral("Customers")}));
    EXPECT_EQ(r.Photo, DataFile("photo.png"));
    EXPECT_EQ(r.PhotoExt, QStringLiteral("png"));
    const QStringList comment = r.Comment.split(QLatin1Char('\n'));
    ASSERT_GE(comment.size(), 2);
    EXPECT_EQ(comment[0], QStringLiteral("Met at the fair, booth 12; ask about"));
    EXPECT_EQ(comment[1], QStringLiteral("the offer. Path C:\\temp"));
    for (const char* kept : {"Department: Sales", "Address: ul. Długa 1, 00-001 Warszawa, Poland",
                             "Country: Belgium", "Nickname: Ania, Anka", "Birthday: 1985-04-12",
                             "Categories: myContacts", "X-SOCIALPROFILE: https://twitter.example/anna"})
        EXPECT_TRUE(comment.contains(QString::fromUtf8(kept))) << kept;
    EXPECT_EQ(comment.size(), 9);
}

TEST(VCardRead, DesktopVersion40WithDataPhotoAndImpp) {
    const QByteArray file = DataFile("desktop40.vcf");
    const QList<VCardContact> cards = ReadVCards(file);
    ASSERT_EQ(cards.size(), 1);
    EXPECT_TRUE(cards[0].problems.isEmpty());
    const VCardProperty* adr = cards[0].first(QStringLiteral("ADR"));
    ASSERT_TRUE(adr);
    EXPECT_EQ(adr->parameter(QStringLiteral("LABEL")),
              QStringList{QStringLiteral("12 Elm St.\nSpringfield")});

    const ContactRecord r = RecordFromVCard(cards[0]);
    EXPECT_EQ(r.FullName, QStringLiteral("Zoë O'Brien"));
    EXPECT_EQ(r.Numbers, rows({{"Mobile phone", "+1-555-555-0101"},
                               {"Work phone", "+1-555-555-0102"},
                               {"Email", "zoe@example.org"},
                               {"XMPP", "zoe@chat.example.org"},
                               {"Skype", "zoe.obrien"},
                               {"Web page", "https://zoe.example.org/"}}));
    EXPECT_EQ(r.Address, QStringLiteral("12 Elm St."));
    EXPECT_EQ(r.City, QStringLiteral("Springfield"));
    EXPECT_EQ(r.State, QStringLiteral("IL"));
    EXPECT_EQ(r.Zip, QStringLiteral("62701"));
    EXPECT_EQ(r.Comment, QStringLiteral("Prefers e-mail.\nCountry: USA"));
    EXPECT_EQ(r.GroupPath, QStringList({QStringLiteral("Clubs"), QStringLiteral("Chess")}));
    EXPECT_EQ(r.Photo, DataFile("photo.jpg"));
    EXPECT_EQ(r.PhotoExt, QStringLiteral("jpg"));

    // The same file in UTF-16 with its byte-order mark reads the same.
    const QString text = QString::fromUtf8(file.mid(3));
    QByteArray utf16("\xFF\xFE", 2);
    utf16 += QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(only(utf16), r);
}

TEST(VCardRead, BrokenFileReadsWhatIsSoundAndReportsTheRest) {
    QList<VCardProblem> outside;
    const QList<VCardContact> cards = ReadVCards(DataFile("broken.vcf"), &outside);
    ASSERT_EQ(cards.size(), 4);

    ASSERT_EQ(outside.size(), 2);
    EXPECT_EQ(outside[0].kind, VCardProblem::NotVCard);
    EXPECT_EQ(outside[0].line, 1);
    EXPECT_EQ(outside[0].lastLine, 2);
    EXPECT_EQ(outside[1].kind, VCardProblem::NotVCard);
    EXPECT_EQ(outside[1].line, 13);
    EXPECT_EQ(outside[1].lastLine, 14);
    EXPECT_EQ(ProblemText(outside[0]), QStringLiteral("Lines 1 to 2 are not vCard and were skipped."));

    EXPECT_EQ(RecordFromVCard(cards[0]).FullName, QStringLiteral("No End"));
    EXPECT_EQ(RecordFromVCard(cards[0]).Numbers, rows({{"Phone", "111"}}));
    ASSERT_EQ(cards[0].problems.size(), 1);
    EXPECT_EQ(cards[0].problems[0].kind, VCardProblem::MissingEnd);
    EXPECT_EQ(cards[0].problems[0].line, 3);

    const ContactRecord badPhoto = RecordFromVCard(cards[1]);
    EXPECT_EQ(badPhoto.FullName, QStringLiteral("Bad Photo"));
    EXPECT_TRUE(badPhoto.Photo.isEmpty());
    EXPECT_EQ(badPhoto.Numbers, rows({{"Phone", "222"}}));
    ASSERT_EQ(cards[1].problems.size(), 1);
    EXPECT_EQ(cards[1].problems[0].kind, VCardProblem::BadBase64);
    EXPECT_EQ(cards[1].problems[0].line, 10);
    EXPECT_EQ(ProblemText(cards[1].problems[0]),
              QStringLiteral("Line 10: the PHOTO value is not valid base64 and was left out."));

    EXPECT_EQ(RecordFromVCard(cards[2]).Numbers, rows({{"Email", "sound@example.com"}}));
    ASSERT_EQ(cards[2].problems.size(), 1);
    EXPECT_EQ(cards[2].problems[0].kind, VCardProblem::NotVCard);
    EXPECT_EQ(cards[2].problems[0].line, 19);

    EXPECT_EQ(RecordFromVCard(cards[3]).FullName, QStringLiteral("Cut short"));
    ASSERT_EQ(cards[3].problems.size(), 1);
    EXPECT_EQ(cards[3].problems[0].kind, VCardProblem::MissingEnd);
}

TEST(VCardRead, TypeParametersInEverySpelling) {
    const QByteArray file = "BEGIN:VCARD\nVERSION:3.0\nFN:T\n"
                            "TEL;TYPE=CELL,VOICE:1\n"
                            "TEL;TYPE=cell;TYPE=voice:2\n"
                            "TEL;CELL:3\n"
                            "tel;type=cell:4\n"
                            "TEL;TYPE=\"cell,voice\":5\n"
                            "TEL;TYPE=work;PREF=1:6\n"
                            "TEL;TYPE=work,pref:7\n"
                            "TEL;WORK;PREF:8\n"
                            "END:VCARD\n";
    const QList<VCardContact> cards = ReadVCards(file);
    ASSERT_EQ(cards.size(), 1);
    const QList<const VCardProperty*> tels = cards[0].all(QStringLiteral("TEL"));
    ASSERT_EQ(tels.size(), 8);
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(tels[i]->hasType(QStringLiteral("cell"))) << i;
        EXPECT_FALSE(tels[i]->preferred()) << i;
    }
    for (int i = 5; i < 8; ++i) {
        EXPECT_TRUE(tels[i]->hasType(QStringLiteral("work"))) << i;
        EXPECT_TRUE(tels[i]->preferred()) << i;
    }
    const ContactRecord r = RecordFromVCard(cards[0]);
    ASSERT_EQ(r.Numbers.size(), 8);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(r.Numbers[i].type, QLatin1String(i < 5 ? "Mobile phone" : "Work phone")) << i;
}

TEST(VCardRead, WhatHasNoPlaceIsKeptInTheComment) {
    QByteArray file = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Many\r\nNOTE:Own note\r\n";
    for (int i = 1; i <= 14; ++i)
        file += "TEL:" + QByteArray::number(i) + "\r\n";
    file +=
        "TITLE:First title\r\nTITLE:Second title\r\nORG:One\r\nORG:Two;Lab\r\nX-FOO;X-BAR=1:bar\\, baz\r\n"
        "PHOTO:https://example.com/me.jpg\r\nEND:VCARD\r\n";
    const ContactRecord r = only(file);
    ASSERT_EQ(r.Numbers.size(), kNumberRows);
    EXPECT_EQ(r.Numbers.last().value, QStringLiteral("12"));
    EXPECT_EQ(r.Title, QStringLiteral("First title"));
    EXPECT_EQ(r.Company, QStringLiteral("One"));
    EXPECT_EQ(r.Comment,
              QStringLiteral("Own note\nPhone: 13\nPhone: 14\nTitle: Second title\nCompany: Two, Lab\n"
                             "X-FOO: bar, baz\nPhoto: https://example.com/me.jpg"));
}

TEST(VCardRead, NumbersKeepTheOrderOfTheirGroups) {
    // As a server that sorts a card's lines by name hands back what Kelvarin wrote.
    const QByteArray sorted = "BEGIN:VCARD\r\nVERSION:3.0\r\nitem2.EMAIL;TYPE=INTERNET:a@b.c\r\nFN:Ann\r\n"
                              "item10.TEL:10\r\nitem1.TEL;TYPE=CELL:1\r\nitem3.TEL:3\r\n"
                              "item3.X-ABLABEL:Kid's phone\r\nEND:VCARD\r\n";
    ContactRecord r = RecordFromVCard(ReadVCards(sorted).value(0));
    ASSERT_EQ(r.Numbers.size(), 4);
    EXPECT_EQ(r.Numbers[0].value, QStringLiteral("1"));
    EXPECT_EQ(r.Numbers[1].value, QStringLiteral("a@b.c"));
    EXPECT_EQ(r.Numbers[2], (NumberRow{QStringLiteral("Kid's phone"), QStringLiteral("3")}));
    EXPECT_EQ(r.Numbers[3].value, QStringLiteral("10"));
    // One number without a group: the order of the file stands.
    const QByteArray mixed = "BEGIN:VCARD\r\nVERSION:3.0\r\nitem2.EMAIL:a@b.c\r\nFN:Ann\r\nTEL:9\r\n"
                             "item1.TEL:1\r\nEND:VCARD\r\n";
    r = RecordFromVCard(ReadVCards(mixed).value(0));
    ASSERT_EQ(r.Numbers.size(), 3);
    EXPECT_EQ(r.Numbers[0].value, QStringLiteral("a@b.c"));
    EXPECT_EQ(r.Numbers[2].value, QStringLiteral("1"));
}

TEST(VCardRead, TreePathsSurviveAServerThatRewritesSeparators) {
    // A server that escapes every ";" of a property it does not know hands this back.
    const QByteArray card =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\n"
        "X-KELVARIN-GROUP:Clubs/Schach\\; K%2Fln %25\r\nX-KELVARIN-FAVORITE:\r\nEND:VCARD\r\n";
    const ContactRecord r = RecordFromVCard(ReadVCards(card).value(0));
    EXPECT_EQ(r.GroupPath, (QStringList{QStringLiteral("Clubs"), QStringLiteral("Schach; K/ln %")}));
    EXPECT_TRUE(r.Favorite);
    EXPECT_TRUE(r.FavoritePath.isEmpty());
}

TEST(VCardRead, ManyCardsLineEndsAndFolding) {
    // LF, CRLF and a tab fold; one card written on many lines of a single property.
    const QByteArray file = "\xEF\xBB\xBF"
                            "BEGIN:VCARD\nVERSION:3.0\nFN:Al\n END\nEND:VCARD\n"
                            "\n\nBEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bea\r\nNOTE:one\r\n\ttwo\r\nEND:VCARD\r\n"
                            "begin:vcard\nversion:4.0\nfn:Cy\nend:vcard";
    QList<VCardProblem> outside;
    const QList<VCardContact> cards = ReadVCards(file, &outside);
    EXPECT_TRUE(outside.isEmpty());
    ASSERT_EQ(cards.size(), 3);
    EXPECT_EQ(RecordFromVCard(cards[0]).FullName, QStringLiteral("AlEND"));
    EXPECT_EQ(RecordFromVCard(cards[1]).Comment, QStringLiteral("onetwo"));
    EXPECT_EQ(RecordFromVCard(cards[2]).FullName, QStringLiteral("Cy"));
    for (const VCardContact& c : cards)
        EXPECT_TRUE(c.problems.isEmpty());
}

TEST(VCardRead, MangledInputGivesCardsOrProblemsNeverACrash) {
    // Cut, doubled and flipped bytes of the hand-written files; each must read to the end.
    const QByteArray sources[] = {DataFile("phone21.vcf"), DataFile("webmail30.vcf"),
                                  DataFile("desktop40.vcf"), DataFile("broken.vcf")};
    quint32 seed = 12345;
    const auto next = [&seed] {
        seed = seed * 1103515245u + 12345u;
        return seed >> 8;
    };
    int cards = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray b = sources[round % 4];
        for (int k = 0, n = 1 + int(next() % 6); k < n && !b.isEmpty(); ++k) {
            const qsizetype at = qsizetype(next() % quint32(b.size()));
            switch (next() % 4) {
            case 0:
                b[at] = char(next());
                break;
            case 1:
                b.remove(at, qsizetype(next() % 40));
                break;
            case 2:
                b.insert(at, b.mid(qsizetype(next() % quint32(b.size())), 30));
                break;
            default:
                b.truncate(at);
            }
        }
        for (const VCardContact& c : ReadVCards(b)) {
            (void)RecordFromVCard(c);
            ++cards;
        }
    }
    EXPECT_GT(cards, 2000);
}
