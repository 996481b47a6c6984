#include "exchange/vcardmap.h"

#include <algorithm>

#include "core/error.h"
#include "core/language.h"

#include <QHash>

namespace exchange {

using namespace mLanguageGobals;

const QList<VCardMapping>& VCardMappingTable() {
    using T = VCardTarget;
    static const QList<VCardMapping> table = {
        {"FN", "", T::FullName, "", nullptr},
        {"N", "", T::Name, "", nullptr},
        {"TITLE", "", T::Title, "", nullptr},
        {"ORG", "", T::Company, "", nullptr},
        {"ADR", "", T::Address, "", nullptr},
        {"NOTE", "", T::Comment, "", nullptr},
        {"PHOTO", "", T::Photo, "", nullptr},
        // Phones: the kind before the place, so that a home fax is a fax.
        {"TEL", "cell", T::Number, "Mobile phone", "cell"},
        {"TEL", "mobile", T::Number, "Mobile phone", nullptr},
        {"TEL", "iphone", T::Number, "Mobile phone", nullptr},
        {"TEL", "fax", T::Number, "Fax", "fax"},
        {"TEL", "pager", T::Number, "Pager", "pager"},
        {"TEL", "home", T::Number, "Home phone", "home,voice"},
        {"TEL", "work", T::Number, "Work phone", "work,voice"},
        {"TEL", "", T::Number, "Phone", ""},
        {"EMAIL", "", T::Number, "Email", ""},
        {"IMPP", "msnim:", T::Number, "MSN", ""},
        {"IMPP", "msn:", T::Number, "MSN", nullptr},
        {"IMPP", "icq:", T::Number, "ICQ", ""},
        {"IMPP", "aim:", T::Number, "AOL", ""},
        {"IMPP", "skype:", T::Number, "Skype", ""},
        {"IMPP", "xmpp:", T::Number, "XMPP", ""},
        {"IMPP", "sip:", T::Number, "SIP", ""},
        {"IMPP", "", T::Number, "Instant messaging", ""},
        {"X-MSN", "", T::Number, "MSN", nullptr},
        {"X-ICQ", "", T::Number, "ICQ", nullptr},
        {"X-AIM", "", T::Number, "AOL", nullptr},
        {"X-SKYPE", "", T::Number, "Skype", nullptr},
        {"X-SKYPE-USERNAME", "", T::Number, "Skype", nullptr},
        {"X-JABBER", "", T::Number, "XMPP", nullptr},
        {"X-GOOGLE-TALK", "", T::Number, "XMPP", nullptr},
        {"URL", "", T::Number, "Web page", ""},
        {"X-KELVARIN-CATEGORY", "", T::Category, "", nullptr},
        {"CATEGORIES", "", T::Category, "", nullptr},
        {"X-KELVARIN-GROUP", "", T::Group, "", nullptr},
        {"X-KELVARIN-FAVORITE", "", T::Favorite, "", nullptr},
        {"X-ABLABEL", "", T::Label, "", nullptr},
        {"VERSION", "", T::Ignored, "", nullptr},
        {"PRODID", "", T::Ignored, "", nullptr},
        {"REV", "", T::Ignored, "", nullptr},
        {"UID", "", T::Ignored, "", nullptr},
        {"KIND", "", T::Ignored, "", nullptr},
        {"CLIENTPIDMAP", "", T::Ignored, "", nullptr},
        {"X-ABUID", "", T::Ignored, "", nullptr},
        {"X-ABSHOWAS", "", T::Ignored, "", nullptr},
    };
    return table;
}

namespace {

// Labels of the lines that keep in the comment what has no field of its own.
QString leftoverLabel(const VCardProperty& p, const QHash<QString, QString>& groupLabels) {
    const QString custom = groupLabels.value(p.group);
    if (!p.group.isEmpty() && !custom.isEmpty()) return custom;
    static const QHash<QString, const QString*> known = {
        {QStringLiteral("BDAY"), &msgExBirthday},         {QStringLiteral("ANNIVERSARY"), &msgExAnniversary},
        {QStringLiteral("NICKNAME"), &msgExNickname},     {QStringLiteral("ROLE"), &msgExRole},
        {QStringLiteral("GENDER"), &msgExGender},         {QStringLiteral("ADR"), &msgExAddress},
        {QStringLiteral("TITLE"), &msgExJobTitle},        {QStringLiteral("FN"), &msgExName},
        {QStringLiteral("PHOTO"), &msgExPhoto},           {QStringLiteral("LOGO"), &msgExLogo},
        {QStringLiteral("CATEGORIES"), &msgExCategories},
    };
    const auto it = known.constFind(p.name);
    return it != known.constEnd() ? **it : p.name;
}

// An Apple-style system label "_$!<Mobile>!$_" names nothing new: the TYPE values say it.
bool isSystemLabel(const QString& label) {
    return label.startsWith(QLatin1String("_$!<")) && label.endsWith(QLatin1String(">!$_"));
}

bool fits(const VCardMapping& row, const VCardProperty& p, QString* handle) {
    if (p.name != QLatin1String(row.property)) return false;
    const QString condition = QString::fromLatin1(row.condition);
    if (condition.isEmpty()) return true;
    if (!condition.endsWith(QLatin1Char(':'))) return p.hasType(condition);
    const QString value = p.text().trimmed();
    if (!value.startsWith(condition, Qt::CaseInsensitive)) {
        // An IMPP without the scheme in its value may say the service in a parameter.
        const QStringList service = p.parameter(QStringLiteral("X-SERVICE-TYPE"));
        if (service.isEmpty() || value.contains(QLatin1Char(':'))) return false;
        QString s = service.first().toLower();
        if (s == QLatin1String("jabber") || s == QLatin1String("google talk")) s = QStringLiteral("xmpp");
        if (s + QLatin1Char(':') != condition &&
            !(s == QLatin1String("msn") && condition == QLatin1String("msnim:")))
            return false;
        if (handle) *handle = value;
        return true;
    }
    if (handle) {
        QString h = value.mid(condition.size());
        // msnim:chat?contact=name, aim:goim?screenname=name
        const qsizetype q = h.indexOf(QLatin1Char('?'));
        const qsizetype eq = h.lastIndexOf(QLatin1Char('='));
        if (q >= 0 && eq > q) h = h.mid(eq + 1);
        *handle = h;
    }
    return true;
}

const VCardMapping* rowFor(const VCardProperty& p, QString* handle) {
    for (const VCardMapping& row : VCardMappingTable())
        if (fits(row, p, handle)) return &row;
    return nullptr;
}

// A tree path of X-KELVARIN-CATEGORY, -GROUP or -FAVORITE: names joined by "/", with %2F and %25
// within a name. A value of several components is a path given name by name.
QStringList pathOf(const QStringList& components) {
    if (components.size() != 1) return components;
    if (components.first().isEmpty()) return {};
    QStringList path;
    for (const QString& written : components.first().split(QLatin1Char('/'))) {
        QString name;
        for (qsizetype i = 0; i < written.size(); ++i) {
            const QStringView code = QStringView(written).mid(i, 3);
            if (code.compare(QLatin1String("%2F"), Qt::CaseInsensitive) == 0 ||
                code == QLatin1String("%25")) {
                name += code.at(2) == QLatin1Char('5') ? QLatin1Char('%') : QLatin1Char('/');
                i += 2;
            } else {
                name += written.at(i);
            }
        }
        path << name;
    }
    return path;
}

QStringList pathOfCategory(const QString& text) {
    QStringList path;
    for (const QString& s : text.split(QLatin1Char('/'))) {
        const QString t = s.trimmed();
        if (!t.isEmpty()) path.append(t);
    }
    return path;
}

QString joinNonEmpty(const QStringList& parts, const QString& sep) {
    QStringList kept;
    for (const QString& s : parts)
        if (!s.trimmed().isEmpty()) kept.append(s.trimmed());
    return kept.join(sep);
}

QString component(const VCardProperty& p, int i) {
    return i < p.values.size() ? p.values.at(i) : QString();
}

// An address on one line: street, extended, city, state and zip, country.
QString addressLine(const VCardProperty& p) {
    const QString zipCity = joinNonEmpty({component(p, 5), component(p, 3)}, QStringLiteral(" "));
    return joinNonEmpty(
        {component(p, 0), component(p, 2), component(p, 1), zipCity, component(p, 4), component(p, 6)},
        QStringLiteral(", "));
}

QString leftoverValue(const VCardProperty& p) {
    if (p.isBinary()) return msgExBinaryLeftOut.arg(p.data.size());
    if (p.name == QLatin1String("ADR")) return addressLine(p);
    if (p.name == QLatin1String("N")) return joinNonEmpty(p.values, QStringLiteral(" "));
    if (p.name == QLatin1String("CATEGORIES") || p.name == QLatin1String("NICKNAME"))
        return p.values.join(QStringLiteral(", "));
    return p.text();
}

} // namespace

QList<UnplacedProperty> UnplacedProperties(const VCardContact& card) {
    QHash<QString, QString> groupLabels;
    QHash<QString, const VCardProperty*> labelLines;
    for (const VCardProperty& p : card.properties)
        // The label that names the group's property in the comment, and the line that says it.
        if (p.name == QLatin1String("X-ABLABEL") && !p.group.isEmpty() && !isSystemLabel(p.text())) {
            labelLines.insert(p.group, &p);
            groupLabels.insert(p.group, p.text());
        }
    QList<UnplacedProperty> unplaced;
    for (const VCardProperty& p : card.properties) {
        QString handle;
        if (rowFor(p, &handle)) continue;
        const QString value = leftoverValue(p);
        if (value.trimmed().isEmpty()) continue;
        unplaced.append({p, leftoverLabel(p, groupLabels) + QStringLiteral(": ") + value});
        if (const VCardProperty* label = labelLines.value(p.group)) {
            unplaced.append({*label, QString()});
            labelLines.remove(p.group);
        }
    }
    return unplaced;
}

QString PictureExtension(const QByteArray& bytes, const QString& mediaType) {
    if (bytes.startsWith("\xFF\xD8\xFF")) return QStringLiteral("jpg");
    if (bytes.startsWith("\x89PNG")) return QStringLiteral("png");
    if (bytes.startsWith("GIF8")) return QStringLiteral("gif");
    if (bytes.startsWith("BM")) return QStringLiteral("bmp");
    const qsizetype slash = mediaType.indexOf(QLatin1Char('/'));
    if (slash < 0) return QString();
    QString sub = mediaType.mid(slash + 1).toLower();
    if (sub.startsWith(QLatin1String("x-"))) sub = sub.mid(2);
    if (sub == QLatin1String("jpeg") || sub == QLatin1String("pjpeg")) return QStringLiteral("jpg");
    if (sub == QLatin1String("svg+xml")) return QStringLiteral("svg");
    return sub;
}

bool IsMediaType(const QString& text) {
    const qsizetype slash = text.indexOf(QLatin1Char('/'));
    if (slash <= 0 || slash == text.size() - 1 || text.indexOf(QLatin1Char('/'), slash + 1) >= 0)
        return false;
    for (const QChar c : text)
        if (!((c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
              (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || QStringLiteral("/!#$&^_.+-").contains(c)))
            return false;
    return true;
}

QString PictureMediaType(const QByteArray& bytes, const QString& extension) {
    QString ext = PictureExtension(bytes);
    if (ext.isEmpty()) ext = extension.toLower();
    if (ext.isEmpty()) return QString();
    if (ext == QLatin1String("jpg") || ext == QLatin1String("jpeg") || ext == QLatin1String("jpe"))
        return QStringLiteral("image/jpeg");
    if (ext == QLatin1String("tif")) return QStringLiteral("image/tiff");
    if (ext == QLatin1String("svg")) return QStringLiteral("image/svg+xml");
    const QString media = QStringLiteral("image/") + ext;
    return IsMediaType(media) ? media : QString();
}

bool NumberOf(const VCardProperty& p, const QString* label, NumberRow* number) {
    QString handle;
    const VCardMapping* row = rowFor(p, &handle);
    if (!row || row->target != VCardTarget::Number) return false;
    QString value = handle.isEmpty() ? p.text().trimmed() : handle.trimmed();
    if (p.name == QLatin1String("TEL") && value.startsWith(QLatin1String("tel:"), Qt::CaseInsensitive))
        value = value.mid(4).trimmed(); // 4.0 writes numbers as tel: addresses
    if (value.isEmpty()) return false;
    number->type = label ? *label : QString::fromUtf8(row->typeName);
    number->value = value;
    return true;
}

namespace {

// N of a group named "itemN", -1 for any other group or none.
int ItemIndex(const QString& group) {
    if (!group.startsWith(QLatin1String("item"), Qt::CaseInsensitive)) return -1;
    bool number = false;
    const int n = group.mid(4).toInt(&number);
    return number && n >= 0 ? n : -1;
}

} // namespace

ContactRecord RecordFromVCard(const VCardContact& card) {
    HUNT_PLACE("exchange::RecordFromVCard");
    ContactRecord r;
    QHash<QString, QString> groupLabels;
    for (const VCardProperty& p : card.properties)
        if (p.name == QLatin1String("X-ABLABEL") && !p.group.isEmpty() && !isSystemLabel(p.text()))
            groupLabels.insert(p.group, p.text());

    // The address: the preferred one, else the first.
    const VCardProperty* address = nullptr;
    for (const VCardProperty* a : card.all(QStringLiteral("ADR")))
        if (!address || (a->preferred() && !address->preferred())) address = a;

    QStringList leftovers;
    QStringList notes;
    const VCardProperty* name = nullptr;
    bool haveFullName = false;
    bool haveTitle = false;
    bool haveCompany = false;
    bool havePhoto = false;
    bool haveCategory = false;
    bool haveGroup = false;
    const bool kelvarinCategory = card.first(QStringLiteral("X-KELVARIN-CATEGORY")) != nullptr;
    const auto leftover = [&](const VCardProperty& p, const QString& value) {
        if (!value.trimmed().isEmpty())
            leftovers.append(leftoverLabel(p, groupLabels) + QStringLiteral(": ") + value);
    };

    struct FoundNumber {
        int item;     // N of its group "itemN", -1 for none
        int leftover; // where among the leftovers it stands, should it be one
        NumberRow row;
    };
    QList<FoundNumber> numbers;
    for (const VCardProperty& p : card.properties) {
        QString handle;
        const VCardMapping* row = rowFor(p, &handle);
        if (!row ||
            (p.isBinary() && row->target != VCardTarget::Photo && row->target != VCardTarget::Ignored)) {
            leftover(p, leftoverValue(p));
            continue;
        }
        switch (row->target) {
        case VCardTarget::FullName:
            if (!haveFullName && !p.text().trimmed().isEmpty()) {
                r.FullName = p.text().trimmed();
                haveFullName = true;
            } else if (p.text().trimmed() != r.FullName) {
                leftover(p, p.text());
            }
            break;
        case VCardTarget::Name:
            if (!name) name = &p;
            break;
        case VCardTarget::Title:
            if (!haveTitle) {
                r.Title = p.text();
                haveTitle = true;
            } else {
                leftover(p, p.text());
            }
            break;
        case VCardTarget::Company:
            if (!haveCompany) {
                r.Company = component(p, 0);
                haveCompany = true;
                const QString rest = joinNonEmpty(p.values.mid(1), QStringLiteral(", "));
                if (!rest.isEmpty()) leftovers.append(msgExDepartment + QStringLiteral(": ") + rest);
            } else {
                leftovers.append(msgExCompany + QStringLiteral(": ") +
                                 joinNonEmpty(p.values, QStringLiteral(", ")));
            }
            break;
        case VCardTarget::Address:
            if (&p == address) {
                r.Address = joinNonEmpty({component(p, 2), component(p, 1)}, QStringLiteral(", "));
                r.City = component(p, 3);
                r.State = component(p, 4);
                r.Zip = component(p, 5);
                if (!component(p, 0).trimmed().isEmpty())
                    leftovers.append(msgExPostOfficeBox + QStringLiteral(": ") + component(p, 0));
                if (!component(p, 6).trimmed().isEmpty())
                    leftovers.append(msgExCountry + QStringLiteral(": ") + component(p, 6));
            } else {
                leftover(p, addressLine(p));
            }
            break;
        case VCardTarget::Comment:
            if (!p.text().isEmpty()) notes.append(p.values.join(QString()));
            break;
        case VCardTarget::Photo:
            if (!havePhoto && p.isBinary()) {
                r.Photo = p.data;
                const QStringList ext = p.parameter(QStringLiteral("X-KELVARIN-EXT"));
                r.PhotoExt = ext.isEmpty() ? PictureExtension(p.data, p.mediaType) : ext.first();
                havePhoto = true;
            } else {
                leftover(p, leftoverValue(p));
            }
            break;
        case VCardTarget::Number: {
            NumberRow number;
            const auto label = groupLabels.constFind(p.group);
            if (!NumberOf(p, !p.group.isEmpty() && label != groupLabels.constEnd() ? &*label : nullptr,
                          &number))
                break;
            numbers.append({ItemIndex(p.group), int(leftovers.size()), number});
            break;
        }
        case VCardTarget::Category:
            if (p.name == QLatin1String("X-KELVARIN-CATEGORY")) {
                if (!haveCategory) r.CategoryPath = pathOf(p.values);
                haveCategory = true;
            } else if (kelvarinCategory) {
                // Written beside X-KELVARIN-CATEGORY for other programs; only more items are news.
                if (p.values.size() > 1) leftover(p, p.values.mid(1).join(QStringLiteral(", ")));
            } else if (!haveCategory && !p.values.isEmpty()) {
                r.CategoryPath = pathOfCategory(p.values.first());
                haveCategory = true;
                if (p.values.size() > 1) leftover(p, p.values.mid(1).join(QStringLiteral(", ")));
            } else {
                leftover(p, p.values.join(QStringLiteral(", ")));
            }
            break;
        case VCardTarget::Group:
            if (!haveGroup) r.GroupPath = pathOf(p.values);
            haveGroup = true;
            break;
        case VCardTarget::Favorite:
            if (!r.Favorite) r.FavoritePath = pathOf(p.values);
            r.Favorite = true;
            break;
        case VCardTarget::Label:
        case VCardTarget::Ignored:
            break;
        }
    }

    if (!haveFullName && name) {
        // Prefix, given, additional, family, suffix.
        r.FullName = joinNonEmpty({component(*name, 3), component(*name, 1), component(*name, 2),
                                   component(*name, 0), component(*name, 4)},
                                  QStringLiteral(" "));
    }
    r.Comment = notes.join(QLatin1Char('\n'));
    // Cards whose every number stands in a group of its own ("item1.TEL", "item2.EMAIL", as
    // Kelvarin writes them) keep the order of the groups, even where a server sorted the lines.
    if (std::all_of(numbers.cbegin(), numbers.cend(), [](const FoundNumber& n) { return n.item >= 0; }))
        std::stable_sort(numbers.begin(), numbers.end(),
                         [](const FoundNumber& a, const FoundNumber& b) { return a.item < b.item; });
    // Past the twelfth, numbers are leftovers in the place of the card where they stood.
    QList<FoundNumber> extra = numbers.mid(kNumberRows);
    for (const FoundNumber& n : numbers.mid(0, kNumberRows))
        r.Numbers.append(n.row);
    std::stable_sort(extra.begin(), extra.end(),
                     [](const FoundNumber& a, const FoundNumber& b) { return a.leftover < b.leftover; });
    for (int i = 0; i < extra.size(); ++i)
        leftovers.insert(extra[i].leftover + i,
                         extra[i].row.type + QStringLiteral(": ") + extra[i].row.value);
    if (!leftovers.isEmpty()) {
        if (!r.Comment.isEmpty()) r.Comment += QLatin1Char('\n');
        r.Comment += leftovers.join(QLatin1Char('\n'));
    }
    return r;
}

} // namespace exchange
