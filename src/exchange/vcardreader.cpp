#include "exchange/vcardreader.h"

#include "core/error.h"
#include "core/language.h"
#include "exchange/charsets.h"
#include "exchange/vcardmap.h"

#include <QBuffer>
#include <QIODevice>
#include <QStringDecoder>
#include <cctype>

namespace exchange {

using namespace mLanguageGobals;

namespace {

bool isUpperAscii(char c) {
    return c >= 'A' && c <= 'Z';
}

QByteArray upper(const QByteArray& s) {
    QByteArray u = s;
    for (char& c : u)
        if (c >= 'a' && c <= 'z') c = char(c - 32);
    return u;
}

// Position of the first ':' outside double quotes, -1 when there is none.
qsizetype colonOf(const QByteArray& line) {
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const char c = line.at(i);
        if (c == '"')
            quoted = !quoted;
        else if (c == ':' && !quoted)
            return i;
    }
    // An unbalanced quote: take the first colon at all.
    return quoted ? line.indexOf(':') : -1;
}

bool headSays(const QByteArray& line, const char* what) {
    const qsizetype colon = colonOf(line);
    if (colon < 0) return false;
    return upper(line.left(colon)).contains(what);
}

bool isQuotedPrintable(const QByteArray& line) {
    return headSays(line, "QUOTED-PRINTABLE");
}

bool isBase64Head(const QByteArray& line) {
    const qsizetype colon = colonOf(line);
    if (colon < 0) return false;
    const QByteArray head = upper(line.left(colon)) + ';';
    return head.contains("BASE64") || head.contains("ENCODING=B;") || head.contains("ENCODING=\"B\"");
}

// A line of bare base64, as 2.1 writers continue a photo without the folding space.
bool isBase64Line(const QByteArray& line) {
    if (line.isEmpty()) return false;
    for (const char c : line)
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
              c == '/' || c == '='))
            return false;
    return true;
}

bool isBlank(const QByteArray& line) {
    for (const char c : line)
        if (!isspace(static_cast<unsigned char>(c))) return false;
    return true;
}

// True when the line is `what` (upper case), in any case and with blanks around it. Every line is
// asked, photos too, so it copies nothing.
bool isCardLine(const QByteArray& line, const char* what) {
    const qsizetype length = qsizetype(qstrlen(what));
    qsizetype begin = 0, end = line.size();
    while (begin < end && isspace(static_cast<unsigned char>(line.at(begin))))
        ++begin;
    while (end > begin && isspace(static_cast<unsigned char>(line.at(end - 1))))
        --end;
    return end - begin == length && qstrnicmp(line.constData() + begin, what, length) == 0;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// Quoted-printable: "=XX" is a byte; an "=" that starts no such pair stands for itself.
QByteArray fromQuotedPrintable(const QByteArray& in) {
    QByteArray out;
    out.reserve(in.size());
    for (qsizetype i = 0; i < in.size(); ++i) {
        const char c = in.at(i);
        if (c == '=' && i + 2 < in.size() && hexDigit(in.at(i + 1)) >= 0 && hexDigit(in.at(i + 2)) >= 0) {
            out.append(char(hexDigit(in.at(i + 1)) * 16 + hexDigit(in.at(i + 2))));
            i += 2;
        } else {
            out.append(c);
        }
    }
    return out;
}

bool fromBase64(const QByteArray& in, QByteArray& out) {
    QByteArray clean(in.size(), Qt::Uninitialized);
    char* to = clean.data();
    for (const char c : in)
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') *to++ = c;
    clean.truncate(to - clean.constData());
    auto r = QByteArray::fromBase64Encoding(clean, QByteArray::AbortOnBase64DecodingErrors);
    if (!r) {
        // Some writers leave the padding out.
        if (clean.size() % 4 != 0 && !clean.endsWith('=')) {
            clean.append(QByteArray(4 - clean.size() % 4, '='));
            r = QByteArray::fromBase64Encoding(clean, QByteArray::AbortOnBase64DecodingErrors);
        }
        if (!r) return false;
    }
    out = std::move(r.decoded);
    return true;
}

// Splits at `sep` outside double quotes.
QList<QByteArray> splitUnquoted(const QByteArray& s, char sep) {
    QList<QByteArray> parts;
    bool quoted = false;
    qsizetype start = 0;
    for (qsizetype i = 0; i < s.size(); ++i) {
        const char c = s.at(i);
        if (c == '"')
            quoted = !quoted;
        else if (c == sep && !quoted) {
            parts.append(s.mid(start, i - start));
            start = i + 1;
        }
    }
    parts.append(s.mid(start));
    return parts;
}

QString unquote(QString v) {
    v = v.trimmed();
    if (v.size() >= 2 && v.startsWith(QLatin1Char('"')) && v.endsWith(QLatin1Char('"')))
        v = v.mid(1, v.size() - 2);
    return v;
}

// Parameter values of 4.0 may carry ^n (line break), ^' (quote mark) and ^^ (caret).
QString caretUnescape(const QString& v) {
    if (!v.contains(QLatin1Char('^'))) return v;
    QString out;
    for (qsizetype i = 0; i < v.size(); ++i) {
        if (v.at(i) == QLatin1Char('^') && i + 1 < v.size()) {
            const QChar n = v.at(i + 1);
            if (n == QLatin1Char('n') || n == QLatin1Char('N')) {
                out += QLatin1Char('\n');
                ++i;
                continue;
            }
            if (n == QLatin1Char('\'')) {
                out += QLatin1Char('"');
                ++i;
                continue;
            }
            if (n == QLatin1Char('^')) {
                out += QLatin1Char('^');
                ++i;
                continue;
            }
        }
        out += v.at(i);
    }
    return out;
}

enum class ValueKind { Single, Structured, List };

ValueKind kindOf(const QString& name) {
    if (name == QLatin1String("N") || name == QLatin1String("ADR") || name == QLatin1String("ORG") ||
        name == QLatin1String("GENDER") || name == QLatin1String("CLIENTPIDMAP") ||
        name == QLatin1String("X-KELVARIN-CATEGORY") || name == QLatin1String("X-KELVARIN-GROUP") ||
        name == QLatin1String("X-KELVARIN-FAVORITE"))
        return ValueKind::Structured;
    if (name == QLatin1String("CATEGORIES") || name == QLatin1String("NICKNAME")) return ValueKind::List;
    return ValueKind::Single;
}

// Splits at the separator where no backslash escapes it, and unescapes each piece. 2.1 knows
// only the escaped separators and the backslash; later versions also \n for a line break.
QStringList splitEscaped(const QString& text, QChar sep, bool version21) {
    QStringList parts;
    QString cur;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\\') && i + 1 < text.size()) {
            const QChar n = text.at(i + 1);
            if (n == QLatin1Char(';') || n == QLatin1Char(',') || n == QLatin1Char('\\') ||
                n == QLatin1Char(':')) {
                cur += n;
                ++i;
                continue;
            }
            if (!version21 && (n == QLatin1Char('n') || n == QLatin1Char('N'))) {
                cur += QLatin1Char('\n');
                ++i;
                continue;
            }
            cur += c;
            continue;
        }
        if (!sep.isNull() && c == sep) {
            parts.append(cur);
            cur.clear();
            continue;
        }
        cur += c;
    }
    parts.append(cur);
    return parts;
}

QString mediaTypeOfTypeParameter(const VCardProperty& p) {
    QStringList candidates = p.parameter(QStringLiteral("MEDIATYPE"));
    candidates += p.parameter(QStringLiteral("TYPE"));
    for (QString t : candidates) {
        t = t.toLower();
        if (t.contains(QLatin1Char('/'))) return IsMediaType(t) ? t : QString();
        if (t == QLatin1String("jpeg") || t == QLatin1String("jpg")) return QStringLiteral("image/jpeg");
        if (t == QLatin1String("png") || t == QLatin1String("gif") || t == QLatin1String("bmp") ||
            t == QLatin1String("tiff") || t == QLatin1String("webp"))
            return QStringLiteral("image/") + t;
    }
    return QString();
}

struct RawLine {
    QByteArray text;
    int line;
};

} // namespace

// ---- VCardProperty and VCardContact ----

QStringList VCardProperty::parameter(const QString& n) const {
    for (const VCardParameter& p : parameters)
        if (p.name == n) return p.values;
    return {};
}

bool VCardProperty::hasType(const QString& type) const {
    for (const VCardParameter& p : parameters)
        if (p.name == QLatin1String("TYPE"))
            for (const QString& v : p.values)
                if (v.compare(type, Qt::CaseInsensitive) == 0) return true;
    return false;
}

bool VCardProperty::preferred() const {
    if (hasType(QStringLiteral("pref"))) return true;
    const QStringList pref = parameter(QStringLiteral("PREF"));
    return !pref.isEmpty();
}

QString VCardProperty::text() const {
    qsizetype n = values.size();
    while (n > 1 && values.at(n - 1).isEmpty())
        --n;
    return values.mid(0, n).join(QLatin1Char(';'));
}

QList<const VCardProperty*> VCardContact::all(const QString& name) const {
    QList<const VCardProperty*> found;
    for (const VCardProperty& p : properties)
        if (p.name == name) found.append(&p);
    return found;
}

const VCardProperty* VCardContact::first(const QString& name) const {
    for (const VCardProperty& p : properties)
        if (p.name == name) return &p;
    return nullptr;
}

// ---- the reader ----

struct VCardReader::Impl {
    QIODevice* device = nullptr;
    std::unique_ptr<QBuffer> converted; // a UTF-16 file, as UTF-8
    bool started = false;
    int physical = 0; // physical lines read
    QByteArray pending;
    int pendingLine = 0;
    bool hasPending = false;
    bool beginSeen = false; // the last card ended at a BEGIN that opens the next one
    int beginLine = 0;
    QList<VCardProblem> problems;

    void start() {
        started = true;
        const QByteArray head = device->peek(4);
        const bool le = head.startsWith("\xFF\xFE");
        const bool be = head.startsWith("\xFE\xFF");
        if (le || be) {
            device->read(2);
            QStringDecoder decoder(le ? QStringConverter::Utf16LE : QStringConverter::Utf16BE,
                                   QStringConverter::Flag::ConvertInitialBom);
            const QString text = decoder.decode(device->readAll());
            converted = std::make_unique<QBuffer>();
            converted->setData(text.toUtf8());
            converted->open(QIODevice::ReadOnly);
            device = converted.get();
        } else if (head.startsWith("\xEF\xBB\xBF")) {
            device->read(3);
        }
    }

    bool readPhysical(QByteArray& out, int& no) {
        if (hasPending) {
            out = std::move(pending);
            no = pendingLine;
            hasPending = false;
            return true;
        }
        if (device->atEnd()) return false;
        out = device->readLine();
        if (out.isEmpty() && device->atEnd()) return false;
        no = ++physical;
        if (out.endsWith('\n')) out.chop(1);
        if (out.endsWith('\r')) out.chop(1);
        return true;
    }

    void unread(QByteArray&& line, int no) {
        pending = std::move(line);
        pendingLine = no;
        hasPending = true;
    }

    // One logical line: folded lines joined, quoted-printable soft breaks and bare base64 lines
    // taken in.
    bool readLogical(RawLine& out) {
        if (!readPhysical(out.text, out.line)) return false;
        QByteArray next;
        int nextLine = 0;
        while (readPhysical(next, nextLine)) {
            if (!next.isEmpty() && (next.at(0) == ' ' || next.at(0) == '\t')) {
                if (out.text.endsWith('=') && isQuotedPrintable(out.text)) out.text.chop(1);
                out.text.append(next.constData() + 1, next.size() - 1);
                continue;
            }
            if (out.text.endsWith('=') && !isCardLine(next, "END:VCARD") &&
                !isCardLine(next, "BEGIN:VCARD") && isQuotedPrintable(out.text)) {
                out.text.chop(1);
                out.text.append(next);
                continue;
            }
            if (isBase64Line(next) && isBase64Head(out.text)) {
                out.text.append(next);
                continue;
            }
            unread(std::move(next), nextLine);
            break;
        }
        return true;
    }

    bool garbageOpen = false; // the last problem outside cards is a run that may grow

    // A line that is not vCard: it joins the run before it when `joins`, else starts one.
    static void notVCard(QList<VCardProblem>& list, int line, bool joins) {
        if (joins && !list.isEmpty() && list.last().kind == VCardProblem::NotVCard) {
            list.last().lastLine = line;
            return;
        }
        VCardProblem p;
        p.kind = VCardProblem::NotVCard;
        p.line = p.lastLine = line;
        list.append(p);
    }

    void parseCard(const QList<RawLine>& lines, VCardContact& card);
    bool parseProperty(const RawLine& raw, bool v21, VCardContact& card);
};

void VCardReader::Impl::parseCard(const QList<RawLine>& lines, VCardContact& card) {
    // The version decides the escapes, and a card may name it anywhere.
    for (const RawLine& l : lines) {
        const qsizetype colon = colonOf(l.text);
        if (colon > 0 && upper(l.text.left(colon)).trimmed() == "VERSION") {
            card.version = QString::fromLatin1(l.text.mid(colon + 1).trimmed());
            break;
        }
    }
    const bool v21 = card.version == QLatin1String("2.1") || card.version == QLatin1String("2.0");
    bool lastBad = false;
    for (const RawLine& l : lines) {
        const bool bad = !parseProperty(l, v21, card);
        if (bad) notVCard(card.problems, l.line, lastBad);
        lastBad = bad;
    }
    bool any = false;
    for (const VCardProperty& p : card.properties)
        if (p.name != QLatin1String("VERSION")) any = true;
    if (!any) {
        VCardProblem p;
        p.kind = VCardProblem::EmptyCard;
        p.line = p.lastLine = card.line;
        card.problems.append(p);
    }
}

bool VCardReader::Impl::parseProperty(const RawLine& raw, bool v21, VCardContact& card) {
    const qsizetype colon = colonOf(raw.text);
    if (colon <= 0) return false;
    const QList<QByteArray> head = splitUnquoted(raw.text.left(colon), ';');
    QByteArray fullName = head.first().trimmed();
    VCardProperty prop;
    prop.line = raw.line;
    const qsizetype dot = fullName.lastIndexOf('.');
    if (dot >= 0) {
        prop.group = QString::fromLatin1(fullName.left(dot));
        fullName = fullName.mid(dot + 1);
    }
    if (fullName.isEmpty()) return false;
    for (const char c : fullName)
        if (!(isUpperAscii(c) || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_'))
            return false;
    prop.name = QString::fromLatin1(upper(fullName));
    if (prop.name == QLatin1String("BEGIN") || prop.name == QLatin1String("END")) return true;

    for (qsizetype i = 1; i < head.size(); ++i) {
        const QByteArray part = head.at(i).trimmed();
        if (part.isEmpty()) continue;
        QString name;
        QStringList values;
        const qsizetype eq = part.indexOf('=');
        if (eq < 0) {
            // 2.1 writes bare values: TEL;CELL, PHOTO;BASE64, NOTE;QUOTED-PRINTABLE.
            const QByteArray v = upper(part);
            name = (v == "QUOTED-PRINTABLE" || v == "BASE64" || v == "B" || v == "8BIT" || v == "7BIT")
                       ? QStringLiteral("ENCODING")
                       : QStringLiteral("TYPE");
            values.append(FromUtf8(part));
        } else {
            name = QString::fromLatin1(upper(part.left(eq).trimmed()));
            for (const QByteArray& v : splitUnquoted(part.mid(eq + 1), ',')) {
                QString value = unquote(FromUtf8(v));
                if (!v21) value = caretUnescape(value);
                value.replace(QLatin1String("\r\n"), QLatin1String("\n"))
                    .replace(QLatin1Char('\r'), QLatin1Char('\n'));
                // TYPE="voice,cell" lists its values inside the quotes.
                const QStringList items =
                    name == QLatin1String("TYPE") ? value.split(QLatin1Char(',')) : QStringList{value};
                for (const QString& item : items)
                    if (name != QLatin1String("TYPE"))
                        values.append(item); // may be empty
                    else if (!item.trimmed().isEmpty())
                        values.append(item.trimmed());
            }
        }
        bool merged = false;
        for (VCardParameter& p : prop.parameters)
            if (p.name == name) {
                p.values += values;
                merged = true;
            }
        if (!merged) prop.parameters.append({name, values});
    }

    const QByteArray rawValue = raw.text.mid(colon + 1);
    const QStringList encodings = prop.parameter(QStringLiteral("ENCODING"));
    const QString encoding = encodings.isEmpty() ? QString() : encodings.first().toUpper();
    if (encoding == QLatin1String("B") || encoding == QLatin1String("BASE64")) {
        if (!fromBase64(rawValue, prop.data)) {
            card.problems.append({VCardProblem::BadBase64, raw.line, raw.line, prop.name});
            return true;
        }
        prop.mediaType = mediaTypeOfTypeParameter(prop);
        card.properties.append(std::move(prop));
        return true;
    }
    // A data: address where a picture, a sound or a key may stand, or any value said to be a URI.
    const bool binaryKind =
        prop.name == QLatin1String("PHOTO") || prop.name == QLatin1String("LOGO") ||
        prop.name == QLatin1String("SOUND") || prop.name == QLatin1String("KEY") ||
        prop.parameter(QStringLiteral("VALUE")).contains(QStringLiteral("uri"), Qt::CaseInsensitive);
    if (binaryKind && rawValue.size() > 5 && upper(rawValue.left(5)) == "DATA:") {
        QByteArray uri = rawValue.mid(5);
        uri.replace("\\,", ",").replace("\\;", ";").replace("\\:", ":");
        const qsizetype comma = uri.indexOf(',');
        if (comma < 0) {
            card.problems.append({VCardProblem::BadDataUri, raw.line, raw.line, prop.name});
            return true;
        }
        const QList<QByteArray> meta = uri.left(comma).split(';');
        QByteArray payload = uri.mid(comma + 1);
        if (payload.contains('%')) payload = QByteArray::fromPercentEncoding(payload);
        bool base64 = false;
        for (const QByteArray& m : meta)
            if (upper(m.trimmed()) == "BASE64") base64 = true;
        if (base64) {
            if (!fromBase64(payload, prop.data)) {
                card.problems.append({VCardProblem::BadBase64, raw.line, raw.line, prop.name});
                return true;
            }
        } else {
            prop.data = payload;
        }
        prop.mediaType = QString::fromLatin1(meta.first().trimmed()).toLower();
        if (!IsMediaType(prop.mediaType)) prop.mediaType = mediaTypeOfTypeParameter(prop);
        if (!prop.data.isEmpty()) card.properties.append(std::move(prop));
        return true;
    }

    const QByteArray bytes =
        encoding == QLatin1String("QUOTED-PRINTABLE") ? fromQuotedPrintable(rawValue) : rawValue;
    const QStringList charsets = prop.parameter(QStringLiteral("CHARSET"));
    bool known = true;
    QString text = DecodeText(bytes, charsets.isEmpty() ? QString() : charsets.first(), &known);
    if (text.contains(QLatin1Char('\r'))) // quoted-printable line breaks are CRLF
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"))
            .replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (!known) card.problems.append({VCardProblem::UnknownCharset, raw.line, raw.line, charsets.first()});
    switch (kindOf(prop.name)) {
    case ValueKind::Structured:
        prop.values = splitEscaped(text, QLatin1Char(';'), v21);
        break;
    case ValueKind::List:
        prop.values = splitEscaped(text, QLatin1Char(','), v21);
        for (QString& v : prop.values)
            v = v.trimmed();
        prop.values.removeAll(QString());
        break;
    case ValueKind::Single:
        prop.values = splitEscaped(text, QChar(), v21);
        break;
    }
    card.properties.append(std::move(prop));
    return true;
}

VCardReader::VCardReader(QIODevice* device) : d(std::make_unique<Impl>()) {
    d->device = device;
}

VCardReader::~VCardReader() = default;

const QList<VCardProblem>& VCardReader::problems() const {
    return d->problems;
}

int VCardReader::line() const {
    return d->physical;
}

bool VCardReader::next(VCardContact& card) {
    HUNT_PLACE("VCardReader::next");
    if (!d->started) d->start();
    card = VCardContact();
    QList<RawLine> lines;
    bool inside = false;
    if (d->beginSeen) {
        inside = true;
        card.line = d->beginLine;
        d->beginSeen = false;
    }
    RawLine raw;
    while (d->readLogical(raw)) {
        if (isBlank(raw.text)) continue;
        if (isCardLine(raw.text, "BEGIN:VCARD")) {
            if (inside) {
                // The card before never ended: it is read as far as it went.
                card.problems.append({VCardProblem::MissingEnd, card.line, raw.line - 1, QString()});
                d->beginSeen = true;
                d->beginLine = raw.line;
                d->parseCard(lines, card);
                return true;
            }
            inside = true;
            card.line = raw.line;
            d->garbageOpen = false;
            continue;
        }
        if (!inside) {
            Impl::notVCard(d->problems, raw.line, d->garbageOpen);
            d->garbageOpen = true;
            continue;
        }
        if (isCardLine(raw.text, "END:VCARD")) {
            d->parseCard(lines, card);
            return true;
        }
        lines.append(std::move(raw));
        raw = RawLine();
    }
    if (!inside) return false;
    card.problems.append({VCardProblem::MissingEnd, card.line, d->physical, QString()});
    d->parseCard(lines, card);
    return true;
}

QList<VCardContact> ReadVCards(const QByteArray& file, QList<VCardProblem>* problems) {
    HUNT_PLACE("exchange::ReadVCards");
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    VCardReader reader(&buffer);
    QList<VCardContact> cards;
    VCardContact card;
    while (reader.next(card))
        cards.append(std::move(card));
    if (problems) *problems = reader.problems();
    return cards;
}

QString ProblemText(const VCardProblem& problem) {
    const QString line = QString::number(problem.line);
    switch (problem.kind) {
    case VCardProblem::MissingEnd:
        return msgExMissingEnd.arg(line);
    case VCardProblem::BadBase64:
        return msgExBadBase64.arg(line, problem.detail);
    case VCardProblem::BadDataUri:
        return msgExBadDataUri.arg(line, problem.detail);
    case VCardProblem::UnknownCharset:
        return msgExUnknownCharset.arg(line, problem.detail);
    case VCardProblem::NotVCard:
        return problem.lastLine > problem.line
                   ? msgExNotVCardLines.arg(line, QString::number(problem.lastLine))
                   : msgExNotVCardLine.arg(line);
    case VCardProblem::EmptyCard:
        return msgExEmptyCard.arg(line);
    }
    return QString();
}

} // namespace exchange
