#include "bench/generate.h"

#include "core/globals.h"
#include "phonebook/catpath.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QStringList>

namespace bench {

namespace {

const char* kFirst[] = {"Anna",  "Boris", "Clara", "David",   "Elena",   "Frank",  "Greta",  "Hugo",
                        "Ines",  "Jonas", "Karin", "Lukas",   "Maria",   "Nils",   "Olga",   "Paul",
                        "Quinn", "Rosa",  "Sven",  "Tanja",   "Ugo",     "Vera",   "Walter", "Xenia",
                        "Yusuf", "Zoe",   "Émile", "Øystein", "1st Aid", "O'Brien"};
const char* kLast[] = {"Smith",   "Jones", "Miller", "Brown",    "Novak", "Garcia", "Kowalski",
                       "Schmidt", "Rossi", "Dubois", "Nakamura", "Olsen", "Petrov", "Quint",
                       "Reyes",   "Silva", "Taylor", "Ulrich",   "Vogel", "Weber"};
const char* kCompany[] = {"Acme Tools", "Blue River Ltd", "Cedar Works",  "Delta Freight",
                          "Echo Media", "Fjord Fishing",  "Granite Bank", "Harbor Clinic",
                          "Iris Labs",  "Juniper Foods"};
const char* kCity[] = {"Oslo",   "Lyon",  "Porto",  "Graz",   "Turku",
                       "Gdansk", "Leeds", "Bremen", "Bergen", "Malmo"};
const char* kWords[] = {
    "met at the fair",  "call after lunch", "prefers e-mail", "old friend",
    "supplier contact", "birthday in May",  "owes a book",    "common interests: sailing, chess"};

// A tree table filled with `count` nodes, each under a random earlier node down to `depth` levels.
void fillTree(const QString& table, int count, int depth, const QString& prefix) {
    QRandomGenerator rnd(uint(table.size() * 7919 + count));
    struct Node {
        int id;
        QString pedigree;
        int level;
    };
    std::vector<Node> nodes{{0, QStringLiteral("ID0E"), 0}};
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM ") + table);
    const int first = table == QLatin1String("Categories") ? 13 : 2;
    for (int id = first; id < first + count; ++id) {
        Node parent = nodes[rnd.bounded(int(nodes.size()))];
        while (parent.level >= depth)
            parent = nodes[rnd.bounded(int(nodes.size()))];
        const Node n{id, parent.pedigree + QStringLiteral("ID%1E").arg(id), parent.level + 1};
        rs.AddNew();
        rs.SetValue(QStringLiteral("ID"), id);
        rs.SetValue(QStringLiteral("Name"), QStringLiteral("%1 %2").arg(prefix).arg(id));
        rs.SetValue(QStringLiteral("IDPARENT"), parent.id);
        rs.SetValue(QStringLiteral("Pedigree"), n.pedigree);
        rs.Update();
        nodes.push_back(n);
    }
    rs.Close();
}

QString letterOf(const QString& name) {
    const QChar c = name.isEmpty() ? QChar() : name[0].toUpper();
    if (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) return QString(c);
    if (c.isDigit()) return QStringLiteral("NUM");
    return QStringLiteral("UNK");
}

} // namespace

void Generate(int contacts) {
    gWS.BeginTrans();
    fillTree(QStringLiteral("Categories"), 200, 3, QStringLiteral("Category"));
    fillTree(QStringLiteral("Boxes"), 50, 2, QStringLiteral("Group"));
    fillTree(QStringLiteral("Borrows"), 20, 1, QStringLiteral("Favorites"));
    mLV::UpdateCatPathAll();
    QRandomGenerator rnd(42);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs"));
    const QDateTime base(QDate(2020, 1, 1), QTime(9, 0));
    for (int i = 1; i <= contacts; ++i) {
        const QString name = QStringLiteral("%1 %2").arg(QString::fromUtf8(kFirst[rnd.bounded(30)]),
                                                         QString::fromUtf8(kLast[rnd.bounded(20)]));
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDCD"), i);
        rs.SetValue(QStringLiteral("ContactNumber"), i);
        rs.SetValue(QStringLiteral("FullName"), name);
        rs.SetValue(QStringLiteral("Label"), letterOf(name));
        rs.SetValue(QStringLiteral("Title"), i % 3 ? QVariant(QStringLiteral("Manager")) : QVariant());
        rs.SetValue(QStringLiteral("Company"), QString::fromUtf8(kCompany[rnd.bounded(10)]));
        rs.SetValue(QStringLiteral("Address"), QStringLiteral("%1 Harbour Street").arg(rnd.bounded(1, 300)));
        rs.SetValue(QStringLiteral("City"), QString::fromUtf8(kCity[rnd.bounded(10)]));
        rs.SetValue(QStringLiteral("Zip"), QString::number(rnd.bounded(10000, 99999)));
        if (i % 4 == 0) rs.SetValue(QStringLiteral("Comment"), QString::fromUtf8(kWords[rnd.bounded(8)]));
        rs.SetValue(QStringLiteral("Type1"), 1);
        rs.SetValue(QStringLiteral("Number1"), QStringLiteral("+47 %1").arg(rnd.bounded(10000000, 99999999)));
        rs.SetValue(QStringLiteral("Type2"), 3);
        rs.SetValue(QStringLiteral("Number2"), QStringLiteral("+47 %1").arg(rnd.bounded(10000000, 99999999)));
        rs.SetValue(QStringLiteral("Type3"), 5);
        rs.SetValue(QStringLiteral("Number3"), name.toLower().replace(QLatin1Char(' '), QLatin1Char('.')) +
                                                   QStringLiteral("@example.org"));
        rs.SetValue(QStringLiteral("IDC"), rnd.bounded(13 + 200));
        rs.SetValue(QStringLiteral("IDX"), rnd.bounded(1, 52));
        rs.SetValue(QStringLiteral("IDB"), rnd.bounded(10) < 3 ? rnd.bounded(0, 22) : -1);
        rs.SetValue(QStringLiteral("DateScan"), base.addSecs(qint64(i) * 600));
        rs.Update();
    }
    rs.Close();
    gWS.CommitTrans();
}

exchange::ContactRecord GeneratedRecord(int i) {
    static const char* first[] = {"Anna", "Jürgen", "Zoë", "Ólafur", "Chloé", "Bob", "Łucja", "Mateo"};
    static const char* last[] = {"Müller", "Smith", "Durand", "O'Brien", "Nowak", "García", "Rossi", "Kim"};
    exchange::ContactRecord c;
    c.FullName = QStringLiteral("%1 %2 %3")
                     .arg(QString::fromUtf8(first[i % 8]), QString::fromUtf8(last[(i / 8) % 8]))
                     .arg(i);
    c.Company = QStringLiteral("Company %1, Ltd.").arg(i % 997);
    c.Title = QStringLiteral("Manager");
    c.Address = QStringLiteral("%1 Long Street; Building B").arg(i % 500);
    c.City = QStringLiteral("Springfield");
    c.State = QStringLiteral("IL");
    c.Zip = QStringLiteral("%1").arg(10000 + i % 90000);
    if (i % 4 == 0)
        c.Comment = QStringLiteral("Met at the fair, booth %1;\nask about the offer.").arg(i % 50);
    c.Numbers = {
        {QStringLiteral("Mobile phone"), QStringLiteral("+1 555 %1").arg(i, 7, 10, QLatin1Char('0'))},
        {QStringLiteral("Work phone"), QStringLiteral("+1 555 %1").arg(i + 1, 7, 10, QLatin1Char('0'))},
        {QStringLiteral("Email"), QStringLiteral("person%1@example.com").arg(i)}};
    if (i % 10 == 0) {
        // One contact in ten has a 10 KB photo.
        QByteArray photo("\xFF\xD8\xFF\xE0", 4);
        photo.resize(10 * 1024, char(i & 0x7F));
        c.Photo = photo;
        c.PhotoExt = QStringLiteral("jpg");
    }
    c.CategoryPath = {QStringLiteral("Business"), QStringLiteral("Customers")};
    c.GroupPath = {QStringLiteral("Others")};
    return c;
}

} // namespace bench
