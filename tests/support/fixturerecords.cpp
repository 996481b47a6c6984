#include "support/fixturerecords.h"

#include <QStringList>

namespace fixture {

exchange::ContactRecord FullContact(int n) {
    static const char* types[] = {"Mobile phone", "Home phone", "Work phone",  "Fax",
                                  "Email",        "MSN",        "ICQ",         "AOL",
                                  "Skype",        "Web page",   "Kid's phone", "Phone"};
    static const QStringList names = {QStringLiteral("Jürgen Müller"), QStringLiteral("Анна Каренина"),
                                      QStringLiteral("李小龍"), QStringLiteral("Zoë O'Brien-Ñúñez"),
                                      QStringLiteral("Ólafur Þórðarson")};
    exchange::ContactRecord c;
    c.FullName = names.at(n % names.size()) + QStringLiteral(" %1").arg(n);
    c.Title = QStringLiteral("Head of \"Sales\"; Europe, Middle East");
    c.Company = QStringLiteral("Acme, Inc.; Zweigstelle Köln \\ Süd");
    c.Address = QStringLiteral("Hauptstraße %1, Hinterhaus; 2. OG").arg(n);
    c.City = QStringLiteral("Köln");
    c.State = QStringLiteral("NRW");
    c.Zip = QStringLiteral("50667");
    c.Comment = QStringLiteral("First line; with a semicolon\nSecond, with a comma\n\nC:\\temp\\new — "
                               "a long line of text that runs on well past the seventy-five octets at which "
                               "lines are folded: ÄÖÜ äöü ß € 漢字 %1")
                    .arg(n);
    for (int i = 0; i < exchange::kNumberRows; ++i) {
        const QString type = QString::fromUtf8(types[(i + n) % exchange::kNumberRows]);
        QString value = QStringLiteral("+49 221 %1-%2").arg(n).arg(i);
        if (type == QLatin1String("Email")) value = QStringLiteral("user%1.%2@example.com").arg(n).arg(i);
        if (type == QLatin1String("Web page"))
            value = QStringLiteral("https://example.com/%1/%2").arg(n).arg(i);
        if (type == QLatin1String("Skype")) value = QStringLiteral("live:user.%1").arg(n);
        c.Numbers.append({type, value});
    }
    QByteArray photo("\x89PNG\r\n\x1a\n", 8);
    for (int i = 0; i < 3000 + n; ++i)
        photo.append(char((i * 7 + n) & 0xFF));
    c.Photo = photo;
    c.PhotoExt = QStringLiteral("png");
    c.CategoryPath = {QStringLiteral("Business"), QStringLiteral("Customers"), QStringLiteral("Nord/West")};
    c.GroupPath = {QStringLiteral("Clubs"), QStringLiteral("Schach; Köln")};
    c.Favorite = n % 3 != 0;
    if (n % 3 == 1) c.FavoritePath = {QStringLiteral("My favorites")};
    return c;
}

} // namespace fixture

namespace exchange {
void PrintTo(const ContactRecord& r, std::ostream* os) {
    *os << "\n  FullName=" << r.FullName.toStdString() << "\n  Title=" << r.Title.toStdString()
        << "\n  Company=" << r.Company.toStdString() << "\n  Address=" << r.Address.toStdString() << " | "
        << r.City.toStdString() << " | " << r.State.toStdString() << " | " << r.Zip.toStdString()
        << "\n  Comment=" << r.Comment.toStdString() << "\n  Photo=" << r.Photo.size() << " bytes ."
        << r.PhotoExt.toStdString() << "\n  Numbers=";
    for (const NumberRow& n : r.Numbers)
        *os << "[" << n.type.toStdString() << ": " << n.value.toStdString() << "] ";
    *os << "\n  Category=" << r.CategoryPath.join(QLatin1Char('|')).toStdString()
        << " Group=" << r.GroupPath.join(QLatin1Char('|')).toStdString() << " Favorite=" << r.Favorite << ":"
        << r.FavoritePath.join(QLatin1Char('|')).toStdString();
}
} // namespace exchange
