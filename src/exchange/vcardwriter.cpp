#include "exchange/vcardwriter.h"

#include "core/error.h"
#include "exchange/vcardmap.h"

#include <QHash>
#include <QIODevice>
#include <algorithm>

namespace exchange {

namespace {

constexpr qsizetype kFoldAt = 75;

// Text escaped for a value. 3.0 escapes ";" everywhere; 4.0 only where it would split a
// component or an item (structured and list values).
QByteArray escaped(const QString& text, VCardVersion version, bool structured) {
    bool plain = true;
    for (const QChar c : text)
        if (c == QLatin1Char('\\') || c == QLatin1Char(',') || c == QLatin1Char(';') ||
            c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            plain = false;
            break;
        }
    if (plain) return text.toUtf8();
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QString out;
    out.reserve(t.size() + 8);
    for (const QChar c : t) {
        if (c == QLatin1Char('\\'))
            out += QLatin1String("\\\\");
        else if (c == QLatin1Char(','))
            out += QLatin1String("\\,");
        else if (c == QLatin1Char(';') && (structured || version == VCardVersion::V30))
            out += QLatin1String("\\;");
        else if (c == QLatin1Char('\n'))
            out += QLatin1String("\\n");
        else
            out += c;
    }
    return out.toUtf8();
}

QByteArray structuredValue(const QStringList& components, VCardVersion version) {
    QByteArray out;
    for (qsizetype i = 0; i < components.size(); ++i) {
        if (i) out += ';';
        out += escaped(components.at(i), version, true);
    }
    return out;
}

// A parameter value, quoted when it holds a separator.
QByteArray parameterValue(const QString& value, VCardVersion version) {
    QString v = value;
    v.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (version == VCardVersion::V40) {
        v.replace(QLatin1Char('^'), QLatin1String("^^"))
            .replace(QLatin1Char('"'), QLatin1String("^'"))
            .replace(QLatin1Char('\n'), QLatin1String("^n"));
    } else {
        v.remove(QLatin1Char('"')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    if (v.contains(QLatin1Char(',')) || v.contains(QLatin1Char(';')) || v.contains(QLatin1Char(':')) ||
        v != v.trimmed())
        return '"' + v.toUtf8() + '"';
    return v.toUtf8();
}

QByteArray typeParameter(const char* types, VCardVersion version) {
    if (!types || !*types) return QByteArray();
    QByteArray t(types);
    if (version == VCardVersion::V30) t = t.toUpper();
    return ";TYPE=" + t;
}

// The full name split for N: the last word as the family name, the words before as given names.
QStringList nameComponents(const QString& fullName) {
    const QString name = fullName.simplified();
    const qsizetype space = name.lastIndexOf(QLatin1Char(' '));
    if (space < 0) return {name, QString(), QString(), QString(), QString()};
    return {name.mid(space + 1), name.left(space), QString(), QString(), QString()};
}

const VCardMapping* writerRow(const QString& typeName) {
    // The row that writes each number type, looked up once.
    static const QHash<QString, const VCardMapping*> rows = [] {
        QHash<QString, const VCardMapping*> byType;
        for (const VCardMapping& row : VCardMappingTable())
            if (row.target == VCardTarget::Number && row.writeAs &&
                !byType.contains(QString::fromUtf8(row.typeName)))
                byType.insert(QString::fromUtf8(row.typeName), &row);
        return byType;
    }();
    return rows.value(typeName);
}

// The property of a number whose type vCard has no word for, by the look of its value.
const char* propertyByValue(const QString& value) {
    const QString v = value.trimmed();
    if (v.contains(QLatin1String("://")) || v.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
        return "URL";
    if (v.contains(QLatin1Char('@')) && !v.contains(QLatin1Char(' '))) return "EMAIL";
    return "TEL";
}

// The value as written: a scheme before an IMPP handle, and "tel:" before a number that begins
// with "tel:" itself, which the reader takes away again.
QString writtenValue(const QByteArray& property, const QString& scheme, const QString& value) {
    if (property == "IMPP") return scheme + value;
    if (property == "TEL" && value.startsWith(QLatin1String("tel:"), Qt::CaseInsensitive))
        return QStringLiteral("tel:") + value;
    return value;
}

// True when the property would read back as exactly this number row.
bool readsBackAs(const QByteArray& property, const char* types, const QString& written, const NumberRow& n) {
    VCardProperty p;
    p.name = QString::fromLatin1(property);
    if (types && *types)
        p.parameters.append({QStringLiteral("TYPE"), QString::fromLatin1(types).split(QLatin1Char(','))});
    p.values = QStringList{written};
    NumberRow back;
    return NumberOf(p, nullptr, &back) && back == n;
}

class Card {
  public:
    explicit Card(VCardVersion version) : m_version(version) {}
    void add(const QByteArray& head, const QByteArray& value) { m_out += FoldLine(head + ':' + value); }
    QByteArray take() { return std::move(m_out); }
    VCardVersion version() const { return m_version; }

  private:
    VCardVersion m_version;
    QByteArray m_out;
};

// Every number stands in a group of its own, "item1" to "item12" in the order of the card, so
// that a reader gets the order back even from a server that sorts a card's lines by name.
void writeNumbers(Card& card, const ContactRecord& c) {
    const VCardVersion v = card.version();
    int item = 0;
    for (const NumberRow& n : c.Numbers) {
        if (n.value.trimmed().isEmpty()) continue;
        const QByteArray group = "item" + QByteArray::number(++item) + '.';
        const VCardMapping* row = writerRow(n.type);
        if (row) {
            const QByteArray property(row->property);
            const QString written = writtenValue(property, QString::fromLatin1(row->condition), n.value);
            if (readsBackAs(property, row->writeAs, written, n)) {
                if (property == "EMAIL" && v == VCardVersion::V30)
                    card.add(group + "EMAIL;TYPE=INTERNET", escaped(written, v, false));
                else
                    card.add(group + property + typeParameter(row->writeAs, v), escaped(written, v, false));
                continue;
            }
        }
        // A type of the user's own, or a value the type's own property would not give back: a
        // property with the type's name as the label of its group.
        const QByteArray property = propertyByValue(n.value);
        card.add(group + property, escaped(writtenValue(property, QString(), n.value), v, false));
        card.add(group + "X-ABLabel", escaped(n.type, v, false));
    }
}

void writePhoto(Card& card, const ContactRecord& c) {
    if (c.Photo.isEmpty()) return;
    const VCardVersion v = card.version();
    QString media = PictureMediaType(c.Photo, c.PhotoExt);
    if (media.isEmpty()) media = QStringLiteral("application/octet-stream");
    // The extension as the contact had it, when the media type would not give it back.
    QByteArray head = "PHOTO";
    if (PictureExtension(c.Photo, media) != c.PhotoExt)
        head += ";X-KELVARIN-EXT=" + parameterValue(c.PhotoExt, v);
    if (v == VCardVersion::V40) {
        card.add(head, "data:" + media.toUtf8() + ";base64," + c.Photo.toBase64());
    } else {
        QByteArray type = media.mid(media.indexOf(QLatin1Char('/')) + 1).toUpper().toUtf8();
        card.add(head + ";ENCODING=b;TYPE=" + type, c.Photo.toBase64());
    }
}

// A tree path as one text: the names joined by "/", a "/" or "%" within a name written as %2F or
// %25. One plain text survives servers that rewrite the separators of values they do not know.
void writePath(Card& card, const QByteArray& property, const QStringList& path) {
    QStringList names;
    for (QString name : path)
        names << name.replace(QLatin1Char('%'), QStringLiteral("%25"))
                     .replace(QLatin1Char('/'), QStringLiteral("%2F"));
    card.add(property, structuredValue({names.join(QLatin1Char('/'))}, card.version()));
}

} // namespace

QByteArray FoldLine(const QByteArray& line) {
    if (line.size() <= kFoldAt) return line + "\r\n";
    QByteArray out;
    out.reserve(line.size() + line.size() / 70 * 3 + 4);
    qsizetype pos = 0;
    qsizetype room = kFoldAt;
    while (pos < line.size()) {
        qsizetype end = std::min(line.size(), pos + room);
        // Back off to the start of a character.
        while (end < line.size() && end > pos + 1 &&
               (static_cast<unsigned char>(line.at(end)) & 0xC0) == 0x80)
            --end;
        if (pos) out += ' ';
        out.append(line.constData() + pos, end - pos);
        out += "\r\n";
        pos = end;
        room = kFoldAt - 1;
    }
    return out;
}

// True for a name a content line may carry: letters, digits and "-".
bool IsToken(const QString& name) {
    return !name.isEmpty() && std::all_of(name.cbegin(), name.cend(), [](QChar c) {
        return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
               (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
               (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('-');
    });
}

QByteArray FormatProperty(const VCardProperty& p, VCardVersion v) {
    // A name the reader let through but no content line can carry is left out, as is the property
    // when its own name is one, or so long that the line would fold inside it (a folded piece
    // without ":" reads as more of a base64 value before it).
    if (!IsToken(p.name) || (!p.group.isEmpty() && !IsToken(p.group)) || p.group.size() + p.name.size() > 60)
        return {};
    QByteArray line = p.group.isEmpty() ? QByteArray() : p.group.toUtf8() + '.';
    line += p.name.toUtf8();
    for (const VCardParameter& parameter : p.parameters) {
        // How the value is coded is said anew below; a value that names a coding would be read as
        // one (2.1 writes them bare).
        const bool namesCoding =
            std::any_of(parameter.values.cbegin(), parameter.values.cend(), [](const QString& v) {
                return v.contains(QLatin1String("QUOTED-PRINTABLE"), Qt::CaseInsensitive) ||
                       v.compare(QLatin1String("BASE64"), Qt::CaseInsensitive) == 0 ||
                       v.compare(QLatin1String("B"), Qt::CaseInsensitive) == 0;
            });
        if (namesCoding || !IsToken(parameter.name) || parameter.name == QLatin1String("ENCODING") ||
            parameter.name == QLatin1String("CHARSET") ||
            (p.isBinary() && (parameter.name == QLatin1String("VALUE") ||
                              (v == VCardVersion::V30 && parameter.name == QLatin1String("TYPE")))))
            continue;
        QByteArrayList values;
        for (const QString& value : parameter.values)
            values << parameterValue(value, v);
        line += ';' + parameter.name.toUtf8() + (values.isEmpty() ? QByteArray() : '=' + values.join(','));
    }
    QByteArray value;
    if (p.isBinary()) {
        const QString media =
            p.mediaType.isEmpty() ? QStringLiteral("application/octet-stream") : p.mediaType;
        if (v == VCardVersion::V40) {
            value = "data:" + media.toUtf8() + ";base64," + p.data.toBase64();
        } else {
            line += ";ENCODING=b";
            if (!p.mediaType.isEmpty())
                line +=
                    ";TYPE=" + p.mediaType.mid(p.mediaType.indexOf(QLatin1Char('/')) + 1).toUpper().toUtf8();
            value = p.data.toBase64();
        }
    } else if (p.name == QLatin1String("CATEGORIES") || p.name == QLatin1String("NICKNAME")) {
        QByteArrayList items;
        for (const QString& item : p.values)
            items << escaped(item, v, true);
        value = items.join(',');
    } else {
        value = structuredValue(p.values, v);
    }
    return FoldLine(line + ':' + value);
}

QByteArray FormatVCard(const ContactRecord& c, VCardVersion version) {
    HUNT_PLACE("exchange::FormatVCard", c.FullName);
    Card card(version);
    const VCardVersion v = version;
    card.add("BEGIN", "VCARD");
    card.add("VERSION", v == VCardVersion::V40 ? "4.0" : "3.0");
    card.add("PRODID", "-//Kelvarin//Kelvarin//EN");
    card.add("FN", escaped(c.FullName, v, false));
    card.add("N", structuredValue(nameComponents(c.FullName), v));
    if (!c.Company.isEmpty()) card.add("ORG", structuredValue({c.Company}, v));
    if (!c.Title.isEmpty()) card.add("TITLE", escaped(c.Title, v, false));
    if (!c.Address.isEmpty() || !c.City.isEmpty() || !c.State.isEmpty() || !c.Zip.isEmpty())
        card.add("ADR",
                 structuredValue({QString(), QString(), c.Address, c.City, c.State, c.Zip, QString()}, v));
    writeNumbers(card, c);
    if (!c.Comment.isEmpty()) card.add("NOTE", escaped(c.Comment, v, false));
    if (!c.CategoryPath.isEmpty()) {
        const QString joined = c.CategoryPath.join(QLatin1Char('/'));
        card.add("CATEGORIES", escaped(joined, v, true));
        // Names that "/" would not give back whole are written once more, name by name.
        QStringList back;
        for (const QString& s : joined.split(QLatin1Char('/')))
            if (!s.trimmed().isEmpty()) back.append(s.trimmed());
        if (back != c.CategoryPath) writePath(card, "X-KELVARIN-CATEGORY", c.CategoryPath);
    }
    if (!c.GroupPath.isEmpty()) writePath(card, "X-KELVARIN-GROUP", c.GroupPath);
    if (c.Favorite) writePath(card, "X-KELVARIN-FAVORITE", c.FavoritePath);
    writePhoto(card, c);
    card.add("END", "VCARD");
    return card.take();
}

VCardWriter::VCardWriter(QIODevice* device, VCardVersion version) : m_device(device), m_version(version) {}

bool VCardWriter::write(const ContactRecord& contact) {
    HUNT_PLACE("VCardWriter::write", contact.FullName);
    const QByteArray bytes = FormatVCard(contact, m_version);
    if (m_device->write(bytes) != bytes.size()) return false;
    ++m_written;
    return true;
}

} // namespace exchange
