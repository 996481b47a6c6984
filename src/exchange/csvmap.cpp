#include "exchange/csvmap.h"

#include "core/error.h"
#include "core/language.h"

#include <QMap>
#include <QRegularExpression>

namespace exchange {

using namespace mLanguageGobals;

namespace {

using F = CsvField;

struct PresetColumn {
    const char* header;
    CsvField field;
    const char* typeName;
    int slot;
};

// Outlook-style: addresses Home (1), Business (2), Other (3).
const QList<PresetColumn> kDesktopMail = {
    {"Title", F::Prefix, "", 0},
    {"First Name", F::FirstName, "", 0},
    {"Middle Name", F::MiddleName, "", 0},
    {"Last Name", F::LastName, "", 0},
    {"Suffix", F::Suffix, "", 0},
    {"Company", F::Company, "", 0},
    {"Department", F::Department, "", 0},
    {"Job Title", F::Title, "", 0},
    {"Home Street", F::Street, "", 1},
    {"Home Street 2", F::Street2, "", 1},
    {"Home Street 3", F::Street2, "", 1},
    {"Home City", F::City, "", 1},
    {"Home State", F::State, "", 1},
    {"Home Postal Code", F::Zip, "", 1},
    {"Home Country/Region", F::Country, "", 1},
    {"Business Street", F::Street, "", 2},
    {"Business Street 2", F::Street2, "", 2},
    {"Business Street 3", F::Street2, "", 2},
    {"Business City", F::City, "", 2},
    {"Business State", F::State, "", 2},
    {"Business Postal Code", F::Zip, "", 2},
    {"Business Country/Region", F::Country, "", 2},
    {"Other Street", F::Street, "", 3},
    {"Other Street 2", F::Street2, "", 3},
    {"Other Street 3", F::Street2, "", 3},
    {"Other City", F::City, "", 3},
    {"Other State", F::State, "", 3},
    {"Other Postal Code", F::Zip, "", 3},
    {"Other Country/Region", F::Country, "", 3},
    {"Business Phone", F::Number, "Work phone", 0},
    {"Business Phone 2", F::Number, "Work phone", 0},
    {"Home Phone", F::Number, "Home phone", 0},
    {"Home Phone 2", F::Number, "Home phone", 0},
    {"Mobile Phone", F::Number, "Mobile phone", 0},
    {"Business Fax", F::Number, "Fax", 0},
    {"Home Fax", F::Number, "Fax", 0},
    {"Other Fax", F::Number, "Fax", 0},
    {"Pager", F::Number, "Pager", 0},
    {"Primary Phone", F::Number, "Phone", 0},
    {"Other Phone", F::Number, "Phone", 0},
    {"Company Main Phone", F::Number, "Phone", 0},
    {"Car Phone", F::Number, "Phone", 0},
    {"Assistant's Phone", F::Number, "Phone", 0},
    {"E-mail Address", F::Number, "Email", 0},
    {"E-mail 2 Address", F::Number, "Email", 0},
    {"E-mail 3 Address", F::Number, "Email", 0},
    {"E-mail Type", F::Ignore, "", 0},
    {"E-mail Display Name", F::Ignore, "", 0},
    {"E-mail 2 Type", F::Ignore, "", 0},
    {"E-mail 2 Display Name", F::Ignore, "", 0},
    {"E-mail 3 Type", F::Ignore, "", 0},
    {"E-mail 3 Display Name", F::Ignore, "", 0},
    {"Web Page", F::Number, "Web page", 0},
    {"Notes", F::Comment, "", 0},
    {"Categories", F::Category, "", 0},
};

// Thunderbird-style: addresses Home (1), Work (2).
const QList<PresetColumn> kThunderbird = {
    {"First Name", F::FirstName, "", 0},
    {"Last Name", F::LastName, "", 0},
    {"Display Name", F::FullName, "", 0},
    {"Primary Email", F::Number, "Email", 0},
    {"Secondary Email", F::Number, "Email", 0},
    {"Screen Name", F::Number, "Instant messaging", 0},
    {"Work Phone", F::Number, "Work phone", 0},
    {"Home Phone", F::Number, "Home phone", 0},
    {"Fax Number", F::Number, "Fax", 0},
    {"Pager Number", F::Number, "Pager", 0},
    {"Mobile Number", F::Number, "Mobile phone", 0},
    {"Home Address", F::Street, "", 1},
    {"Home Address 2", F::Street2, "", 1},
    {"Home City", F::City, "", 1},
    {"Home State", F::State, "", 1},
    {"Home ZipCode", F::Zip, "", 1},
    {"Home Country", F::Country, "", 1},
    {"Work Address", F::Street, "", 2},
    {"Work Address 2", F::Street2, "", 2},
    {"Work City", F::City, "", 2},
    {"Work State", F::State, "", 2},
    {"Work ZipCode", F::Zip, "", 2},
    {"Work Country", F::Country, "", 2},
    {"Job Title", F::Title, "", 0},
    {"Department", F::Department, "", 0},
    {"Organization", F::Company, "", 0},
    {"Web Page 1", F::Number, "Web page", 0},
    {"Web Page 2", F::Number, "Web page", 0},
    {"Notes", F::Comment, "", 0},
};

// Google-style, both the older ("Given Name", "Group Membership") and the newer ("First Name",
// "Labels") header; the numbered columns ("Phone 2 - Value") are matched by pattern.
const QList<PresetColumn> kWebMail = {
    {"Name", F::FullName, "", 0},
    {"Given Name", F::FirstName, "", 0},
    {"First Name", F::FirstName, "", 0},
    {"Additional Name", F::MiddleName, "", 0},
    {"Middle Name", F::MiddleName, "", 0},
    {"Family Name", F::LastName, "", 0},
    {"Last Name", F::LastName, "", 0},
    {"Name Prefix", F::Prefix, "", 0},
    {"Name Suffix", F::Suffix, "", 0},
    {"Organization Name", F::Company, "", 0},
    {"Organization Title", F::Title, "", 0},
    {"Organization Department", F::Department, "", 0},
    {"Notes", F::Comment, "", 0},
    {"Group Membership", F::Category, "", 0},
    {"Labels", F::Category, "", 0},
    {"File As", F::Ignore, "", 0},
};

// Kind of a numbered Google-style column: the base of its slot and its default number type.
struct Numbered {
    const char* kind;
    int base;
    const char* typeName;
};
const Numbered kNumbered[] = {
    {"E-mail", 100, "Email"},
    {"Phone", 200, "Phone"},
    {"Website", 300, "Web page"},
    {"IM", 400, "Instant messaging"},
};

bool webMailNumbered(const QString& header, CsvColumn& column) {
    static const QRegularExpression re(
        QStringLiteral(R"(^(E-mail|Phone|Website|IM|Address|Organization) (\d+) - (.+)$)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto m = re.match(header.trimmed());
    if (!m.hasMatch()) return false;
    const QString kind = m.captured(1).toLower();
    const int n = m.captured(2).toInt();
    const QString part = m.captured(3).toLower();
    if (kind == QLatin1String("address")) {
        static const QMap<QString, CsvField> parts = {
            {QStringLiteral("street"), F::Street},    {QStringLiteral("extended address"), F::Street2},
            {QStringLiteral("city"), F::City},        {QStringLiteral("region"), F::State},
            {QStringLiteral("postal code"), F::Zip},  {QStringLiteral("country"), F::Country},
            {QStringLiteral("formatted"), F::Ignore}, {QStringLiteral("type"), F::Ignore},
            {QStringLiteral("label"), F::Ignore},     {QStringLiteral("po box"), F::Extra},
        };
        column = {parts.value(part, F::Extra), QString(), n, QString()};
        return true;
    }
    if (kind == QLatin1String("organization")) {
        CsvField f = F::Extra;
        if (n == 1 && part == QLatin1String("name"))
            f = F::Company;
        else if (n == 1 && part == QLatin1String("title"))
            f = F::Title;
        else if (n == 1 && part == QLatin1String("department"))
            f = F::Department;
        else if (part == QLatin1String("type") || part == QLatin1String("label"))
            f = F::Ignore;
        column = {f, QString(), 0, QString()};
        return true;
    }
    for (const Numbered& k : kNumbered) {
        if (kind.compare(QLatin1String(k.kind), Qt::CaseInsensitive) != 0) continue;
        const int slot = k.base + n;
        if (part == QLatin1String("value"))
            column = {F::Number, QString::fromLatin1(k.typeName), slot, QString()};
        else if ((part == QLatin1String("type") || part == QLatin1String("label")) && k.base != 300)
            column = {F::NumberType, QString(), slot, QString()};
        else if (part == QLatin1String("service"))
            column = {F::NumberType, QString(), slot, QString()};
        else
            column = {F::Ignore, QString(), 0, QString()};
        return true;
    }
    return false;
}

const QList<PresetColumn>& kelvarinColumns() {
    static const QList<PresetColumn> columns = [] {
        QList<PresetColumn> c = {
            {"Full name", F::FullName, "", 0},
            {"Title", F::Title, "", 0},
            {"Company", F::Company, "", 0},
            {"Address", F::Street, "", 1},
            {"City", F::City, "", 1},
            {"State", F::State, "", 1},
            {"Zip", F::Zip, "", 1},
            {"Comment", F::Comment, "", 0},
            {"Category", F::Category, "", 0},
            {"Group", F::Group, "", 0},
            {"Favorite", F::Favorite, "", 0},
        };
        static const QList<QByteArray> names = [] {
            QList<QByteArray> n;
            for (int i = 1; i <= kNumberRows; ++i) {
                n.append("Number " + QByteArray::number(i) + " type");
                n.append("Number " + QByteArray::number(i));
            }
            return n;
        }();
        for (int i = 0; i < kNumberRows; ++i) {
            c.append({names.at(2 * i).constData(), F::NumberType, "", i + 1});
            c.append({names.at(2 * i + 1).constData(), F::Number, "", i + 1});
        }
        return c;
    }();
    return columns;
}

// Guesses for a header no preset knows.
bool genericColumn(const QString& header, CsvColumn& column) {
    static const QList<QPair<QStringList, CsvColumn>> guesses = {
        {{"name", "full name", "fullname", "display name", "contact"}, {F::FullName, {}, 0, {}}},
        {{"first name", "given name", "firstname", "forename"}, {F::FirstName, {}, 0, {}}},
        {{"middle name"}, {F::MiddleName, {}, 0, {}}},
        {{"last name", "family name", "surname", "lastname"}, {F::LastName, {}, 0, {}}},
        {{"title", "job title", "position", "role"}, {F::Title, {}, 0, {}}},
        {{"company", "organization", "organisation", "org"}, {F::Company, {}, 0, {}}},
        {{"department"}, {F::Department, {}, 0, {}}},
        {{"address", "street", "street address"}, {F::Street, {}, 1, {}}},
        {{"city", "town"}, {F::City, {}, 1, {}}},
        {{"state", "region", "province", "county"}, {F::State, {}, 1, {}}},
        {{"zip", "zip code", "postal code", "postcode"}, {F::Zip, {}, 1, {}}},
        {{"country"}, {F::Country, {}, 1, {}}},
        {{"notes", "note", "comment", "comments"}, {F::Comment, {}, 0, {}}},
        {{"category", "categories"}, {F::Category, {}, 0, {}}},
        {{"group", "groups"}, {F::Group, {}, 0, {}}},
        {{"email", "e-mail", "e-mail address", "email address", "mail"}, {F::Number, "Email", 0, {}}},
        {{"mobile", "mobile phone", "cell", "cell phone", "cellphone"}, {F::Number, "Mobile phone", 0, {}}},
        {{"home phone"}, {F::Number, "Home phone", 0, {}}},
        {{"work phone", "business phone", "office phone"}, {F::Number, "Work phone", 0, {}}},
        {{"fax"}, {F::Number, "Fax", 0, {}}},
        {{"phone", "telephone", "tel"}, {F::Number, "Phone", 0, {}}},
        {{"web", "website", "web page", "url", "homepage"}, {F::Number, "Web page", 0, {}}},
    };
    const QString h = header.trimmed().toLower();
    for (const auto& g : guesses)
        if (g.first.contains(h)) {
            column = g.second;
            return true;
        }
    return false;
}

bool presetColumn(const QList<PresetColumn>& table, const QString& header, CsvColumn& column) {
    for (const PresetColumn& p : table)
        if (header.trimmed().compare(QLatin1String(p.header), Qt::CaseInsensitive) == 0) {
            column = {p.field, QString::fromLatin1(p.typeName), p.slot, QString()};
            return true;
        }
    return false;
}

bool known(CsvPreset preset, const QString& header, CsvColumn& column) {
    switch (preset) {
    case CsvPreset::Generic:
        return genericColumn(header, column);
    case CsvPreset::WebMail:
        if (webMailNumbered(header, column)) return true;
        if (!presetColumn(kWebMail, header, column)) return false;
        if (column.field == F::Category) column.listSeparator = QStringLiteral(" ::: ");
        return true;
    case CsvPreset::DesktopMail:
        if (!presetColumn(kDesktopMail, header, column)) return false;
        if (column.field == F::Category) column.listSeparator = QStringLiteral(";");
        return true;
    case CsvPreset::Thunderbird:
        return presetColumn(kThunderbird, header, column);
    case CsvPreset::Kelvarin:
        return presetColumn(kelvarinColumns(), header, column);
    }
    return false;
}

// The number type that a type cell names: a word every program uses, or the cell's own text.
QString typeFromCell(const QString& cell, const QString& defaultType) {
    QString t = cell.trimmed();
    if (t.startsWith(QLatin1String("* "))) t = t.mid(2); // marks the primary one
    const QString l = t.toLower();
    if (l.isEmpty() || l == QLatin1String("other") || l == QLatin1String("main") ||
        l == QLatin1String("internet") || l == QLatin1String("smtp") || l == QLatin1String("voice") ||
        l == QLatin1String("homepage") || l == QLatin1String("profile") || l == QLatin1String("blog"))
        return defaultType;
    if (defaultType == QLatin1String("Email") &&
        (l == QLatin1String("home") || l == QLatin1String("work") || l == QLatin1String("personal")))
        return defaultType;
    if (l.contains(QLatin1String("fax"))) return QStringLiteral("Fax");
    if (l == QLatin1String("mobile") || l == QLatin1String("cell") || l == QLatin1String("iphone"))
        return QStringLiteral("Mobile phone");
    if (l == QLatin1String("pager")) return QStringLiteral("Pager");
    if (l == QLatin1String("home")) return QStringLiteral("Home phone");
    if (l == QLatin1String("work")) return QStringLiteral("Work phone");
    if (l == QLatin1String("skype")) return QStringLiteral("Skype");
    if (l == QLatin1String("icq")) return QStringLiteral("ICQ");
    if (l == QLatin1String("aim")) return QStringLiteral("AOL");
    if (l == QLatin1String("msn") || l == QLatin1String("windows live")) return QStringLiteral("MSN");
    if (l == QLatin1String("jabber") || l == QLatin1String("xmpp") || l == QLatin1String("google talk"))
        return QStringLiteral("XMPP");
    return t;
}

QString joinNonEmpty(const QStringList& parts, const QString& sep) {
    QStringList kept;
    for (const QString& s : parts)
        if (!s.trimmed().isEmpty()) kept.append(s.trimmed());
    return kept.join(sep);
}

QStringList pathOf(const QString& text) {
    QStringList path;
    for (const QString& s : text.split(QLatin1Char('/')))
        if (!s.trimmed().isEmpty()) path.append(s.trimmed());
    return path;
}

struct AddressParts {
    QString street, street2, city, state, zip, country;
    bool empty() const {
        return joinNonEmpty({street, street2, city, state, zip, country}, QString()).isEmpty();
    }
    QString line() const {
        return joinNonEmpty({street, street2, joinNonEmpty({zip, city}, QStringLiteral(" ")), state, country},
                            QStringLiteral(", "));
    }
};

} // namespace

CsvPreset DetectCsvPreset(const QStringList& header) {
    HUNT_PLACE("exchange::DetectCsvPreset");
    const CsvPreset order[] = {CsvPreset::Kelvarin, CsvPreset::WebMail, CsvPreset::DesktopMail,
                               CsvPreset::Thunderbird};
    CsvPreset best = CsvPreset::Generic;
    int bestScore = 2; // a preset must know at least three columns
    for (const CsvPreset preset : order) {
        int score = 0;
        CsvColumn column;
        for (const QString& h : header)
            if (known(preset, h, column)) ++score;
        if (score > bestScore) {
            best = preset;
            bestScore = score;
        }
    }
    return best;
}

QString CsvPresetName(CsvPreset preset) {
    switch (preset) {
    case CsvPreset::Generic:
        return msgExPresetGeneric;
    case CsvPreset::WebMail:
        return msgExPresetWebMail;
    case CsvPreset::DesktopMail:
        return msgExPresetDesktopMail;
    case CsvPreset::Thunderbird:
        return msgExPresetThunderbird;
    case CsvPreset::Kelvarin:
        return msgExPresetKelvarin;
    }
    return QString();
}

QList<CsvColumn> CsvMapping(CsvPreset preset, const QStringList& header) {
    HUNT_PLACE("exchange::CsvMapping");
    QList<CsvColumn> mapping;
    for (const QString& h : header) {
        CsvColumn column;
        if (!known(preset, h, column) && !(preset != CsvPreset::Generic && genericColumn(h, column)))
            column.field = h.trimmed().isEmpty() ? F::Ignore : F::Extra;
        mapping.append(column);
    }
    return mapping;
}

ContactRecord RecordFromCsv(const QList<CsvColumn>& mapping, const QStringList& header,
                            const QStringList& row) {
    HUNT_PLACE("exchange::RecordFromCsv");
    ContactRecord r;
    QString prefix, first, middle, last, suffix;
    QStringList notes, leftovers, departments;
    QMap<int, AddressParts> addresses;
    QMap<int, QString> slotTypes;
    bool haveCategory = false;
    for (qsizetype i = 0; i < mapping.size(); ++i) {
        const CsvColumn& c = mapping.at(i);
        if (c.field == F::NumberType && i < row.size()) slotTypes.insert(c.slot, row.at(i));
    }
    const auto extra = [&](const QString& label, const QString& value) {
        if (!value.trimmed().isEmpty()) leftovers.append(label + QStringLiteral(": ") + value);
    };
    const qsizetype columns = std::max(mapping.size(), row.size());
    for (qsizetype i = 0; i < columns; ++i) {
        const QString value = i < row.size() ? row.at(i) : QString();
        const QString trimmed = value.trimmed();
        const QString label = i < header.size() && !header.at(i).trimmed().isEmpty() ? header.at(i).trimmed()
                                                                                     : msgExColumn.arg(i + 1);
        if (i >= mapping.size()) {
            extra(label, value);
            continue;
        }
        const CsvColumn& c = mapping.at(i);
        switch (c.field) {
        case F::Ignore:
        case F::NumberType:
            break;
        case F::FullName:
            if (r.FullName.isEmpty()) r.FullName = trimmed;
            break;
        case F::Prefix:
            prefix = trimmed;
            break;
        case F::FirstName:
            first = trimmed;
            break;
        case F::MiddleName:
            middle = trimmed;
            break;
        case F::LastName:
            last = trimmed;
            break;
        case F::Suffix:
            suffix = trimmed;
            break;
        case F::Title:
            if (r.Title.isEmpty())
                r.Title = trimmed;
            else
                extra(label, value);
            break;
        case F::Company:
            if (r.Company.isEmpty())
                r.Company = trimmed;
            else
                extra(label, value);
            break;
        case F::Department:
            if (!trimmed.isEmpty()) departments.append(trimmed);
            break;
        case F::Street:
            addresses[c.slot].street = joinNonEmpty({addresses[c.slot].street, value}, QStringLiteral(", "));
            break;
        case F::Street2:
            addresses[c.slot].street2 =
                joinNonEmpty({addresses[c.slot].street2, value}, QStringLiteral(", "));
            break;
        case F::City:
            addresses[c.slot].city = trimmed;
            break;
        case F::State:
            addresses[c.slot].state = trimmed;
            break;
        case F::Zip:
            addresses[c.slot].zip = trimmed;
            break;
        case F::Country:
            addresses[c.slot].country = trimmed;
            break;
        case F::Comment:
            if (!value.isEmpty()) notes.append(value);
            break;
        case F::Category: {
            QStringList items = c.listSeparator.isEmpty() ? QStringList{value} : value.split(c.listSeparator);
            QStringList kept;
            for (const QString& item : items)
                if (!item.trimmed().isEmpty() && !item.trimmed().startsWith(QLatin1String("* ")))
                    kept.append(item.trimmed()); // "* myContacts" and the like are the program's own
            if (kept.isEmpty()) break;
            if (!haveCategory) {
                r.CategoryPath = pathOf(kept.takeFirst());
                haveCategory = true;
            }
            if (!kept.isEmpty()) extra(msgExCategories, kept.join(QStringLiteral(", ")));
            break;
        }
        case F::Group:
            if (r.GroupPath.isEmpty()) r.GroupPath = pathOf(value);
            break;
        case F::Favorite:
            if (!trimmed.isEmpty() && !r.Favorite) {
                r.Favorite = true;
                r.FavoritePath = pathOf(trimmed);
            }
            break;
        case F::Number: {
            // Kelvarin's own columns name the type as it is; others in their own words.
            const QString type = !slotTypes.contains(c.slot) ? c.typeName
                                 : c.typeName.isEmpty()      ? slotTypes.value(c.slot).trimmed()
                                                        : typeFromCell(slotTypes.value(c.slot), c.typeName);
            // One cell may hold several values (" ::: " between them).
            for (const QString& v : value.split(QStringLiteral(" ::: "))) {
                if (v.trimmed().isEmpty()) continue;
                if (r.Numbers.size() < kNumberRows)
                    r.Numbers.append({type, v.trimmed()});
                else
                    extra(type.isEmpty() ? label : type, v.trimmed());
            }
            break;
        }
        case F::Extra:
            extra(label, value);
            break;
        }
    }
    if (r.FullName.isEmpty())
        r.FullName = joinNonEmpty({prefix, first, middle, last, suffix}, QStringLiteral(" "));
    if (!departments.isEmpty())
        leftovers.prepend(msgExDepartment + QStringLiteral(": ") + departments.join(QStringLiteral(", ")));
    bool first_ = true;
    for (auto it = addresses.cbegin(); it != addresses.cend(); ++it) {
        if (it->empty()) continue;
        if (first_) {
            r.Address = joinNonEmpty({it->street, it->street2}, QStringLiteral(", "));
            r.City = it->city;
            r.State = it->state;
            r.Zip = it->zip;
            if (!it->country.isEmpty()) leftovers.append(msgExCountry + QStringLiteral(": ") + it->country);
            first_ = false;
        } else {
            leftovers.append(msgExAddress + QStringLiteral(": ") + it->line());
        }
    }
    r.Comment = notes.join(QLatin1Char('\n'));
    if (!leftovers.isEmpty()) {
        if (!r.Comment.isEmpty()) r.Comment += QLatin1Char('\n');
        r.Comment += leftovers.join(QLatin1Char('\n'));
    }
    return r;
}

QList<CsvColumn> KelvarinCsvColumns() {
    QList<CsvColumn> columns;
    for (const PresetColumn& p : kelvarinColumns())
        columns.append({p.field, QString::fromLatin1(p.typeName), p.slot, QString()});
    return columns;
}

QString KelvarinCsvHeader(const CsvColumn& column) {
    for (const PresetColumn& p : kelvarinColumns())
        if (p.field == column.field &&
            (p.slot == column.slot || (p.field != F::Number && p.field != F::NumberType)))
            return QString::fromLatin1(p.header);
    return QString();
}

QStringList CsvValues(const QList<CsvColumn>& columns, const ContactRecord& c) {
    QStringList values;
    for (const CsvColumn& column : columns) {
        const int n = column.slot - 1;
        switch (column.field) {
        case F::FullName:
            values.append(c.FullName);
            break;
        case F::Title:
            values.append(c.Title);
            break;
        case F::Company:
            values.append(c.Company);
            break;
        case F::Street:
            values.append(c.Address);
            break;
        case F::City:
            values.append(c.City);
            break;
        case F::State:
            values.append(c.State);
            break;
        case F::Zip:
            values.append(c.Zip);
            break;
        case F::Comment:
            values.append(c.Comment);
            break;
        case F::Category:
            values.append(c.CategoryPath.join(QLatin1Char('/')));
            break;
        case F::Group:
            values.append(c.GroupPath.join(QLatin1Char('/')));
            break;
        case F::Favorite:
            values.append(!c.Favorite                ? QString()
                          : c.FavoritePath.isEmpty() ? QStringLiteral("/")
                                                     : c.FavoritePath.join(QLatin1Char('/')));
            break;
        case F::NumberType:
            values.append(n >= 0 && n < c.Numbers.size() ? c.Numbers.at(n).type : QString());
            break;
        case F::Number:
            values.append(n >= 0 && n < c.Numbers.size() ? c.Numbers.at(n).value : QString());
            break;
        default:
            values.append(QString());
            break;
        }
    }
    return values;
}

} // namespace exchange
