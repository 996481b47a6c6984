#include "exchange/charsets.h"

#include <QStringDecoder>

namespace exchange {

bool IsValidUtf8(const QByteArray& bytes, bool allowCutEnd) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.constData());
    const qsizetype n = bytes.size();
    qsizetype i = 0;
    while (i < n) {
        const unsigned char c = p[i];
        if (c < 0x80) {
            ++i;
            continue;
        }
        int more = 0;
        unsigned int min = 0;
        unsigned int code = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            more = 1;
            min = 0x80;
            code = c & 0x1F;
        } else if (c >= 0xE0 && c <= 0xEF) {
            more = 2;
            min = 0x800;
            code = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            more = 3;
            min = 0x10000;
            code = c & 0x07;
        } else {
            return false;
        }
        if (i + more >= n) { // the sequence runs past the end
            if (!allowCutEnd) return false;
            for (qsizetype k = i + 1; k < n; ++k)
                if ((p[k] & 0xC0) != 0x80) return false;
            return true;
        }
        for (int k = 1; k <= more; ++k) {
            if ((p[i + k] & 0xC0) != 0x80) return false;
            code = (code << 6) | (p[i + k] & 0x3F);
        }
        if (code < min || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
        i += more + 1;
    }
    return true;
}

QString FromUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

QString FromWindows1252(const QByteArray& bytes) {
    // 0x80 to 0x9F; 0 marks the five codes the code page leaves undefined, read as Latin-1.
    static const char16_t high[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    QString out(bytes.size(), Qt::Uninitialized);
    QChar* d = out.data();
    for (const char ch : bytes) {
        const auto c = static_cast<unsigned char>(ch);
        *d++ = (c >= 0x80 && c < 0xA0 && high[c - 0x80]) ? QChar(high[c - 0x80]) : QChar(c);
    }
    return out;
}

QString DecodeText(const QByteArray& bytes, const QString& charset, bool* known) {
    if (known) *known = true;
    const QString name = charset.trimmed().toLower();
    if (name.isEmpty() || name == QLatin1String("utf-8") || name == QLatin1String("utf8")) {
        if (IsValidUtf8(bytes)) return FromUtf8(bytes);
        return FromWindows1252(bytes);
    }
    if (name == QLatin1String("windows-1252") || name == QLatin1String("cp1252") ||
        name == QLatin1String("iso-8859-1") || name == QLatin1String("latin1") ||
        name == QLatin1String("us-ascii") || name == QLatin1String("ascii"))
        return FromWindows1252(bytes); // labelled Latin-1 text is in practice 1252
    QStringDecoder decoder(name.toLatin1().constData(), QStringConverter::Flag::ConvertInitialBom);
    if (decoder.isValid()) {
        QString text = decoder.decode(bytes);
        if (!decoder.hasError()) return text;
    } else if (known) {
        *known = false;
    }
    return IsValidUtf8(bytes) ? FromUtf8(bytes) : FromWindows1252(bytes);
}

} // namespace exchange
