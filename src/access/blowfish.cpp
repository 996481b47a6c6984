#include "access/blowfish.h"

#include "core/error.h"

#include <QRandomGenerator>
#include <QStringList>
#include <QtEndian>
#include <gcrypt.h>

namespace mAccess {

namespace {
RandomSource& randomSource() {
    static RandomSource source;
    return source;
}

quint32 nextRandom() {
    if (randomSource()) return randomSource()() & 0x7FFFFFFFu;
    return QRandomGenerator::system()->generate() & 0x7FFFFFFFu;
}
} // namespace

QString PasswordKey() {
    return QStringLiteral("pkd-kd gwh xob-LR");
}

RandomSource SetRandomSource(RandomSource source) {
    RandomSource old = std::move(randomSource());
    randomSource() = std::move(source);
    return old;
}

} // namespace mAccess

namespace {

constexpr int kBlock = 8;

[[noreturn]] void cipherFailed(gcry_error_t e) {
    throw HuntERR::Error(mAccess::errBadCiphertext,
                         QStringLiteral("The cipher library refused the operation: %1").arg(gcry_strerror(e)),
                         QStringLiteral("clsBlowfish"));
}

[[noreturn]] void badText(const QString& why) {
    throw HuntERR::Error(mAccess::errBadCiphertext,
                         QStringLiteral("The stored password cannot be read: ") + why,
                         QStringLiteral("clsBlowfish"));
}

// One Blowfish run of libgcrypt over whole blocks; the handle is closed however the run ends.
QByteArray run(int mode, bool encrypt, const QByteArray& key, const QByteArray& iv, const QByteArray& data) {
    static const bool ready =
        gcry_check_version(nullptr) != nullptr && gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0) == 0;
    (void)ready;
    if (data.size() % kBlock != 0) badText(QStringLiteral("its length is not a whole number of blocks"));
    gcry_cipher_hd_t h = nullptr;
    if (gcry_error_t e = gcry_cipher_open(&h, GCRY_CIPHER_BLOWFISH, mode, 0)) cipherFailed(e);
    struct Closer {
        gcry_cipher_hd_t h;
        ~Closer() { gcry_cipher_close(h); }
    } closer{h};
    if (gcry_error_t e = gcry_cipher_setkey(h, key.constData(), size_t(key.size()))) cipherFailed(e);
    if (mode == GCRY_CIPHER_MODE_CBC)
        if (gcry_error_t e = gcry_cipher_setiv(h, iv.constData(), size_t(iv.size()))) cipherFailed(e);
    QByteArray out(data.size(), Qt::Uninitialized);
    const gcry_error_t e =
        encrypt
            ? gcry_cipher_encrypt(h, out.data(), size_t(out.size()), data.constData(), size_t(data.size()))
            : gcry_cipher_decrypt(h, out.data(), size_t(out.size()), data.constData(), size_t(data.size()));
    if (e) cipherFailed(e);
    return out;
}

const QByteArray kZeroIV(kBlock, '\0');

} // namespace

QByteArray clsBlowfish::EncipherECB(const QByteArray& key, const QByteArray& blocks) {
    return run(GCRY_CIPHER_MODE_ECB, true, key, QByteArray(), blocks);
}

QByteArray clsBlowfish::EncipherCBC(const QByteArray& key, const QByteArray& iv, const QByteArray& blocks) {
    return run(GCRY_CIPHER_MODE_CBC, true, key, iv, blocks);
}

QByteArray clsBlowfish::DecipherCBC(const QByteArray& key, const QByteArray& iv, const QByteArray& blocks) {
    return run(GCRY_CIPHER_MODE_CBC, false, key, iv, blocks);
}

QString clsBlowfish::EncryptString(const QString& text, const QString& key) {
    HUNT_PLACE("clsBlowfish.EncryptString");
    const QByteArray bytes = text.toUtf8();
    // Two random 31-bit numbers, the length, the text; zeros up to a whole block.
    QByteArray plain(12 + bytes.size(), '\0');
    qToLittleEndian<quint32>(mAccess::nextRandom(), plain.data());
    qToLittleEndian<quint32>(mAccess::nextRandom(), plain.data() + 4);
    qToLittleEndian<quint32>(quint32(bytes.size()), plain.data() + 8);
    std::copy(bytes.begin(), bytes.end(), plain.begin() + 12);
    plain.append(QByteArray((kBlock - plain.size() % kBlock) % kBlock, '\0'));
    return QString::fromLatin1(EncipherCBC(key.toUtf8(), kZeroIV, plain).toHex(' ').toUpper());
}

QString clsBlowfish::DecryptString(const QString& text, const QString& key) {
    HUNT_PLACE("clsBlowfish.DecryptString");
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QByteArray cipher;
    cipher.reserve(parts.size());
    for (const QString& part : parts) {
        bool ok = false;
        const uint byte = part.toUInt(&ok, 16);
        if (!ok || part.size() != 2 || byte > 0xFF) badText(QStringLiteral("\"%1\" is not a byte").arg(part));
        cipher.append(char(byte));
    }
    if (cipher.size() < 2 * kBlock || cipher.size() % kBlock != 0)
        badText(QStringLiteral("%1 bytes do not make whole blocks").arg(cipher.size()));
    const QByteArray plain = DecipherCBC(key.toUtf8(), kZeroIV, cipher);
    const quint32 length = qFromLittleEndian<quint32>(plain.constData() + 8);
    // The text and its padding fill the blocks after the length exactly.
    if (length > quint32(plain.size() - 12) || plain.size() - 12 - qint64(length) >= kBlock)
        badText(QStringLiteral("its length field does not fit"));
    const QByteArray bytes = plain.mid(12, int(length));
    const QString decoded = QString::fromUtf8(bytes);
    if (decoded.toUtf8() != bytes) badText(QStringLiteral("its text is not valid"));
    return decoded;
}
