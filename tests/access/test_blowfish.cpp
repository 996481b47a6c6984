// The cipher of the stored passwords: the library's Blowfish against the published vectors, and
// the stored form built on it.
#include "access/blowfish.h"
#include "core/error.h"

#include <QRegularExpression>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

QByteArray hex(const char* text) {
    return QByteArray::fromHex(text);
}

struct FixedRandom {
    explicit FixedRandom(std::vector<quint32> values) {
        old = mAccess::SetRandomSource(
            [values, at = size_t(0)]() mutable { return values[at++ % values.size()]; });
    }
    ~FixedRandom() { mAccess::SetRandomSource(std::move(old)); }
    mAccess::RandomSource old;
};

} // namespace

TEST(Blowfish, TheLibraryMeetsThePublishedVectors) {
    // Eric Young's set: key, plain text, cipher text.
    const char* ecb[][3] = {{"0000000000000000", "0000000000000000", "4EF997456198DD78"},
                            {"FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFFF", "51866FD5B85ECB8A"},
                            {"3000000000000000", "1000000000000001", "7D856F9A613063F2"},
                            {"1111111111111111", "1111111111111111", "2466DD878B963C9D"},
                            {"FEDCBA9876543210", "0123456789ABCDEF", "0ACEAB0FC6A0A28D"}};
    for (const auto& v : ecb)
        EXPECT_EQ(clsBlowfish::EncipherECB(hex(v[0]), hex(v[1])).toHex().toUpper(), QByteArray(v[2])) << v[0];

    // The chained vector: "7654321 Now is the time for " and its closing zero, padded with zeros.
    QByteArray plain("7654321 Now is the time for ");
    plain.append('\0');
    plain.append(QByteArray(32 - plain.size(), '\0'));
    const QByteArray key = hex("0123456789ABCDEFF0E1D2C3B4A59687");
    const QByteArray iv = hex("FEDCBA9876543210");
    const QByteArray cipher = clsBlowfish::EncipherCBC(key, iv, plain);
    EXPECT_EQ(cipher.toHex().toUpper(),
              QByteArray("6B77B4D63006DEE605B156E27403979358DEB9E7154616D959F1652BD5FF92CC"));
    EXPECT_EQ(clsBlowfish::DecipherCBC(key, iv, cipher), plain);
}

TEST(Blowfish, TheStoredFormHasARandomFirstBlockTheLengthAndUpperCaseHex) {
    const QString key = mAccess::PasswordKey();
    ASSERT_EQ(key.size(), 17);
    FixedRandom fixed({0x11223344, 0x7FFFFFFF});
    const QString stored = clsBlowfish().EncryptString(QStringLiteral("secret"), key);
    // 4 + 4 + 4 + 6 bytes, rounded up to 24: 24 pairs of digits with 23 blanks.
    EXPECT_EQ(stored.size(), 24 * 3 - 1);
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^([0-9A-F]{2} ){23}[0-9A-F]{2}$")).match(stored).hasMatch())
        << stored.toStdString();
    const QByteArray bytes = QByteArray::fromHex(stored.toLatin1());
    // The chain starts from zero, so the first block is the random numbers enciphered alone.
    EXPECT_EQ(bytes.left(8), clsBlowfish::EncipherECB(key.toUtf8(), hex("44332211FFFFFF7F")));
    const QByteArray plain = clsBlowfish::DecipherCBC(key.toUtf8(), QByteArray(8, '\0'), bytes);
    EXPECT_EQ(qFromLittleEndian<quint32>(plain.constData() + 4), 0x7FFFFFFFu);
    EXPECT_EQ(qFromLittleEndian<quint32>(plain.constData() + 8), 6u);
    EXPECT_EQ(plain.mid(12, 6), QByteArray("secret"));
    EXPECT_EQ(plain.mid(18), QByteArray(6, '\0'));
}

TEST(Blowfish, OnePasswordGivesANewTextEachTimeAndEveryTextComesBack) {
    clsBlowfish bf;
    const QString key = mAccess::PasswordKey();
    EXPECT_NE(bf.EncryptString(QStringLiteral("same"), key), bf.EncryptString(QStringLiteral("same"), key));
    const QStringList texts = {QString(),
                               QStringLiteral("a"),
                               QStringLiteral("1234567"),
                               QStringLiteral("12345678"),
                               QStringLiteral("123456789"),
                               QString(200, QLatin1Char('x')),
                               QStringLiteral("Grüße, Øre, Ŀ, 東京"),
                               QStringLiteral("Case Matters")};
    for (const QString& text : texts)
        EXPECT_EQ(bf.DecryptString(bf.EncryptString(text, key), key), text) << text.size();
}

TEST(Blowfish, ADamagedTextIsRefusedWithAClearError) {
    clsBlowfish bf;
    const QString key = mAccess::PasswordKey();
    const QString good = bf.EncryptString(QStringLiteral("secret"), key);
    QString flipped = good;
    flipped[30] =
        flipped[30] == QLatin1Char('0') ? QLatin1Char('1') : QLatin1Char('0'); // in the length block
    const QStringList damaged = {QString(),
                                 QStringLiteral("plain text"),
                                 good.left(good.size() - 3), // a block cut short
                                 good + QStringLiteral(" 0G"),
                                 QStringLiteral("00 11 22 33 44 55 66 77"), // one block only
                                 flipped};
    for (const QString& text : damaged) {
        try {
            const QString out = bf.DecryptString(text, key);
            // A changed byte may by chance leave a length that fits; it never gives the password back.
            EXPECT_NE(out, QStringLiteral("secret")) << text.toStdString();
            EXPECT_EQ(text, flipped);
        } catch (const HuntERR::Error& e) {
            EXPECT_EQ(e.Number(), mAccess::errBadCiphertext);
            EXPECT_TRUE(e.Description().startsWith(QStringLiteral("The stored password cannot be read")))
                << e.Description().toStdString();
        }
    }
    HuntERR::ClearPendingStack();
}
