#pragma once
// The cipher of the stored passwords: Blowfish (16 rounds) of libgcrypt in cipher block chaining
// from a zero vector, over a buffer that starts with a random block, then the length, then the
// text. The result is upper-case hexadecimal, one blank between bytes ("0A 1B ..."), so that one
// password gives a different text each time it is stored.

#include <QByteArray>
#include <QString>
#include <functional>

class clsBlowfish {
  public:
    // The stored form of `text` under `key`. The text is taken as its UTF-8 bytes.
    QString EncryptString(const QString& text, const QString& key);
    // The text of a stored form. A text that is not one (damaged hex, a wrong length, a length
    // field that does not fit) raises HuntERR::Error errBadCiphertext.
    QString DecryptString(const QString& text, const QString& key);

    // Plain Blowfish of whole 8-byte blocks: electronic code book, or chaining from `iv`.
    static QByteArray EncipherECB(const QByteArray& key, const QByteArray& blocks);
    static QByteArray EncipherCBC(const QByteArray& key, const QByteArray& iv, const QByteArray& blocks);
    static QByteArray DecipherCBC(const QByteArray& key, const QByteArray& iv, const QByteArray& blocks);
};

namespace mAccess {

// The error number of a stored password that cannot be read.
constexpr qint32 errBadCiphertext = 3031; // "Not a valid password."

// The key of the passwords stored in a phonebook; the same in every installation.
QString PasswordKey();

// The source of the random first block: a 31-bit number each call. Tests fix it; an empty
// function restores the system's generator. Answers the previous source.
using RandomSource = std::function<quint32()>;
RandomSource SetRandomSource(RandomSource source);

} // namespace mAccess
