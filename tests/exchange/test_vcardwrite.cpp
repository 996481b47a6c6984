// Writing vCard: the lines as other programs expect them (folding, escaping, versions), and
// contacts that come back from their own file field for field.
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"
#include "exchangetest.h"

#include <QBuffer>
#include <gtest/gtest.h>

using namespace exchange;

namespace {

QList<QByteArray> physicalLines(const QByteArray& bytes) {
    QList<QByteArray> lines = bytes.split('\n');
    EXPECT_TRUE(lines.last().isEmpty());
    lines.removeLast();
    for (QByteArray& l : lines) {
        EXPECT_TRUE(l.endsWith('\r'));
        l.chop(1);
    }
    return lines;
}

QList<ContactRecord> roundTrip(const QList<ContactRecord>& contacts, VCardVersion version) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    VCardWriter writer(&file, version);
    for (const ContactRecord& c : contacts)
        EXPECT_TRUE(writer.write(c));
    EXPECT_EQ(writer.written(), contacts.size());
    file.close();
    QList<VCardProblem> outside;
    QList<ContactRecord> back;
    for (const VCardContact& card : ReadVCards(file.data(), &outside)) {
        EXPECT_TRUE(card.problems.isEmpty());
        back.append(RecordFromVCard(card));
    }
    EXPECT_TRUE(outside.isEmpty());
    return back;
}

} // namespace

TEST(VCardWrite, EveryFieldComesBackInBothVersions) {
    QList<ContactRecord> contacts;
    for (int n = 0; n < 12; ++n)
        contacts.append(exchangetest::FullContact(n));
    // A contact with almost nothing, and one whose photo type says nothing of itself.
    ContactRecord bare;
    bare.FullName = QStringLiteral("Bare");
    contacts.append(bare);
    ContactRecord odd = exchangetest::FullContact(20);
    odd.Photo = QByteArray("\x00\x01not a known picture", 21);
    odd.PhotoExt = QStringLiteral("JPEG");
    odd.Numbers = {{QStringLiteral("Pager"), QStringLiteral("12")},
                   {QStringLiteral("Instant messaging"), QStringLiteral("irc:nick")},
                   {QStringLiteral("Fan mail"), QStringLiteral("fan@example.org")},
                   {QString(), QStringLiteral("no type")}};
    odd.CategoryPath = {QStringLiteral("Family")};
    odd.GroupPath.clear();
    contacts.append(odd);

    for (const VCardVersion version : {VCardVersion::V40, VCardVersion::V30}) {
        const QList<ContactRecord> back = roundTrip(contacts, version);
        ASSERT_EQ(back.size(), contacts.size());
        for (int i = 0; i < contacts.size(); ++i)
            EXPECT_EQ(back[i], contacts[i])
                << "contact " << i << (version == VCardVersion::V40 ? " 4.0" : " 3.0");
    }
}

TEST(VCardWrite, LinesAreFoldedAt75OctetsBetweenCharacters) {
    ContactRecord c;
    c.FullName = QString(60, QChar(0x00E9)) + QString(40, QChar(0x6F22)) + QStringLiteral("😀😀😀😀😀");
    c.Comment = QString(300, QLatin1Char('x'));
    c.Photo = QByteArray(5000, '\x42');
    c.PhotoExt = QStringLiteral("gif");
    const QByteArray bytes = FormatVCard(c);
    QByteArray unfolded;
    for (const QByteArray& line : physicalLines(bytes)) {
        EXPECT_LE(line.size(), 75);
        if (line.startsWith(' ')) {
            // A continuation never begins inside a character.
            ASSERT_GT(line.size(), 1);
            EXPECT_NE(static_cast<unsigned char>(line.at(1)) & 0xC0, 0x80);
            unfolded += line.mid(1);
        } else {
            unfolded += '\n' + line;
        }
    }
    EXPECT_TRUE(unfolded.contains("\nFN:" + c.FullName.toUtf8() + '\n'));
    EXPECT_TRUE(
        unfolded.contains("\nPHOTO;X-KELVARIN-EXT=gif:data:image/gif;base64," + c.Photo.toBase64() + '\n') ||
        unfolded.contains("\nPHOTO:data:image/gif;base64," + c.Photo.toBase64() + '\n'));
}

TEST(VCardWrite, EachVersionEscapesAndNamesItsOwnWay) {
    ContactRecord c;
    c.FullName = QStringLiteral("Ann; Bee, \\ Cee");
    c.Comment = QStringLiteral("a;b,c\r\nd");
    c.Numbers = {{QStringLiteral("Mobile phone"), QStringLiteral("1")},
                 {QStringLiteral("Email"), QStringLiteral("a@b.c")},
                 {QStringLiteral("Skype"), QStringLiteral("ann")},
                 {QStringLiteral("Kid's phone"), QStringLiteral("2")}};
    c.Photo = QByteArray("\xFF\xD8\xFF\xE0rest", 8);
    c.PhotoExt = QStringLiteral("jpg");
    c.Favorite = true;

    const QList<QByteArray> v4 = physicalLines(FormatVCard(c, VCardVersion::V40));
    EXPECT_EQ(v4.mid(0, 2), (QList<QByteArray>{"BEGIN:VCARD", "VERSION:4.0"}));
    EXPECT_EQ(v4.last(), QByteArray("END:VCARD"));
    EXPECT_TRUE(v4.contains("FN:Ann; Bee\\, \\\\ Cee"));
    EXPECT_TRUE(v4.contains("N:Cee;Ann\\; Bee\\, \\\\;;;"));
    EXPECT_TRUE(v4.contains("NOTE:a;b\\,c\\nd"));
    // Each number in a group of its own, in the card's order.
    EXPECT_TRUE(v4.contains("item1.TEL;TYPE=cell:1"));
    EXPECT_TRUE(v4.contains("item2.EMAIL:a@b.c"));
    EXPECT_TRUE(v4.contains("item3.IMPP:skype:ann"));
    EXPECT_TRUE(v4.contains("item4.TEL:2"));
    EXPECT_TRUE(v4.contains("item4.X-ABLabel:Kid's phone"));
    EXPECT_TRUE(v4.contains("X-KELVARIN-FAVORITE:"));
    EXPECT_TRUE(v4.contains("PHOTO:data:image/jpeg;base64,/9j/4HJlc3Q="));

    const QList<QByteArray> v3 = physicalLines(FormatVCard(c, VCardVersion::V30));
    EXPECT_TRUE(v3.contains("VERSION:3.0"));
    EXPECT_TRUE(v3.contains("FN:Ann\\; Bee\\, \\\\ Cee"));
    EXPECT_TRUE(v3.contains("NOTE:a\\;b\\,c\\nd"));
    EXPECT_TRUE(v3.contains("item1.TEL;TYPE=CELL:1"));
    EXPECT_TRUE(v3.contains("item2.EMAIL;TYPE=INTERNET:a@b.c"));
    EXPECT_TRUE(v3.contains("PHOTO;ENCODING=b;TYPE=JPEG:/9j/4HJlc3Q="));
}

TEST(VCardWrite, TheMappingTableWritesEveryTypeItReads) {
    // Each type a row writes reads back as that type, so the table is one for both ways.
    for (const VCardMapping& row : VCardMappingTable()) {
        if (row.target != VCardTarget::Number || !row.writeAs) continue;
        ContactRecord c;
        c.FullName = QStringLiteral("T");
        c.Numbers = {{QString::fromUtf8(row.typeName), QStringLiteral("value")}};
        const QList<VCardContact> cards = ReadVCards(FormatVCard(c));
        ASSERT_EQ(cards.size(), 1);
        const ContactRecord back = RecordFromVCard(cards[0]);
        EXPECT_EQ(back.Numbers, c.Numbers) << row.typeName;
        EXPECT_FALSE(FormatVCard(c).contains("X-ABLabel")) << row.typeName;
    }
}

TEST(VCardWrite, PropertiesWithoutAFieldWriteBackAsTheyWereRead) {
    const QByteArray card =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\nBDAY:1980-02-29\r\nNICKNAME:Annie,A\\, B\r\n"
        "X-FOO;TYPE=a,b:bar\\;baz\\nqux\r\nitem5.X-SHOE:42\r\nitem5.X-ABLabel:Shoe size\r\n"
        "LOGO;ENCODING=b;TYPE=PNG:iVBORw0KGgo=\r\nTEL;TYPE=CELL:1\r\nEND:VCARD\r\n";
    const QList<UnplacedProperty> first = UnplacedProperties(ReadVCards(card).value(0));
    QStringList lines;
    for (const UnplacedProperty& u : first)
        if (!u.commentLine.isEmpty()) lines << u.commentLine;
    EXPECT_EQ(lines,
              (QStringList{QStringLiteral("Birthday: 1980-02-29"), QStringLiteral("Nickname: Annie, A, B"),
                           QStringLiteral("X-FOO: bar;baz\nqux"), QStringLiteral("Shoe size: 42"),
                           QStringLiteral("Logo: (a picture or file of 8 bytes, left out)")}));
    for (const VCardVersion version : {VCardVersion::V30, VCardVersion::V40}) {
        QByteArray again =
            "BEGIN:VCARD\r\nVERSION:" + QByteArray(version == VCardVersion::V30 ? "3.0" : "4.0") +
            "\r\nFN:Ann\r\n";
        for (const UnplacedProperty& u : first)
            again += FormatProperty(u.property, version);
        again += "END:VCARD\r\n";
        const QList<UnplacedProperty> second = UnplacedProperties(ReadVCards(again).value(0));
        ASSERT_EQ(second.size(), first.size()) << again.constData();
        for (int i = 0; i < first.size(); ++i) {
            EXPECT_EQ(second[i].commentLine, first[i].commentLine);
            EXPECT_EQ(second[i].property.values, first[i].property.values);
            EXPECT_EQ(second[i].property.data, first[i].property.data);
        }
    }
}
