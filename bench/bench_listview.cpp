// The contact list control on its own: a fill of 100,000 rows of 25 columns with texts like a
// phonebook's, and a sort of those rows by a text column.
#include "bench.h"
#include "support/controls/listview.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace {

const QStringList kFirst = {"Anna", "Bernard", "Chloé",   "Dmitri",    "Elena", "Farid",  "Greta",
                            "Hugo", "Ines",    "Jonas",   "Katarzyna", "Luis",  "Maja",   "Nils",
                            "Olga", "Pierre",  "Quentin", "Rosa",      "Sven",  "Tereza", "Ugo",
                            "Vera", "Willem",  "Yusuf",   "Zoë"};
const QStringList kLast = {"Andersen", "Bauer",   "Costa",  "Dubois",   "Eriksson", "Fischer", "García",
                           "Horvat",   "Ivanova", "Jansen", "Kowalski", "Lefèvre",  "Müller",  "Nowak",
                           "O'Brien",  "Petrov",  "Quinn",  "Rossi",    "Schmidt",  "Tanaka",  "Umarov",
                           "Varga",    "Weber",   "Young",  "Zeller"};
const QStringList kCompanies = {"",
                                "",
                                "Northwind Traders",
                                "Blue River Logistics",
                                "Hansen & Co",
                                "Acme Tooling",
                                "City Hospital",
                                "Lindqvist Architects",
                                "Open Field Farms"};
const QStringList kTitles = {"", "", "", "Dr.", "Manager", "Sales Director", "Engineer", "Teacher"};
const QStringList kCategories = {"Family",         "Family/Cousins", "Family/Cousins/Paris",
                                 "Friends",        "Work",           "Work/Clients",
                                 "Work/Suppliers", "Others",         "Sports club"};
const QStringList kCities = {"Amsterdam", "Berlin", "Brno", "Chicago", "Lyon",     "Madrid",
                             "Oslo",      "Porto",  "Riga", "Toronto", "Valencia", "Zürich"};
const QStringList kStreets = {"Main Street", "Lindenallee", "Rue des Fleurs", "Harbour Road", "Via Roma"};
const QStringList kComments = {"",
                               "",
                               "",
                               "",
                               "Met at the conference in spring; prefers mail.",
                               "Birthday in May",
                               "Call after six, not on weekends."};

// One contact row as the list fill writes it: the name as item text and 24 sub-items.
void addRow(ListView& lv, int n) {
    const QString name = kFirst[n % kFirst.size()] + ' ' + kLast[(n / 7) % kLast.size()];
    ListItem* item = lv.ListItems.Add(QStringLiteral("ID") + QString::number(n + 1), name, QString(),
                                      QStringLiteral("BOR"));
    item->SetTag(QStringLiteral("b"));
    ListSubItemCollection& s = item->ListSubItems;
    s.Add(kTitles[n % kTitles.size()]);
    s.Add(kCompanies[(n / 3) % kCompanies.size()]);
    s.Add(kCategories[n % kCategories.size()]);
    s.Add(n % 5 ? QString() : QStringLiteral("Favorites/Close"));
    s.Add(QString::number(1 + n % 240) + ' ' + kStreets[n % kStreets.size()]);
    s.Add(kCities[(n / 11) % kCities.size()]);
    s.Add(n % 2 ? QStringLiteral("NY") : QString());
    s.Add(QString::number(10000 + (n * 37) % 89999));
    s.Add(kComments[n % kComments.size()]);
    s.Add(QString::number(n + 1));
    s.Add(QStringLiteral("%1/%2/20%3 10:%4:00")
              .arg(1 + n % 12, 2, 10, QLatin1Char('0'))
              .arg(1 + n % 28, 2, 10, QLatin1Char('0'))
              .arg(10 + n % 14)
              .arg(n % 60, 2, 10, QLatin1Char('0')));
    s.Add(n % 3 ? QStringLiteral("Home") : QStringLiteral("Office"));
    s.Add(QStringLiteral("Phone: +1 555 ") + QString::number(1000000 + n));
    s.Add(QStringLiteral("Mobile: +1 555 ") + QString::number(2000000 + n));
    s.Add(n % 2 ? QStringLiteral("Email: ") + kFirst[n % kFirst.size()].toLower() +
                      QStringLiteral("@example.org")
                : QString());
    for (int k = 4; k <= 12; ++k)
        s.Add(k == 4 && n % 4 == 0 ? QStringLiteral("Fax: +1 555 0100") : QString());
}

void addColumns(ListView& lv) {
    const char* keys[] = {"FullName", "Title", "Company", "Category", "Favorite", "Address", "City",
                          "State",    "Zip",   "Comment", "ID",       "Added",    "Box"};
    for (const char* k : keys)
        lv.ColumnHeaders.Add(QString::fromLatin1(k), QString::fromLatin1(k), 120);
    for (int k = 1; k <= 12; ++k)
        lv.ColumnHeaders.Add(QStringLiteral("Info %1").arg(k), QStringLiteral("Info %1").arg(k), 100);
}

void fill(ListView& lv, int rows) {
    lv.BeginUpdate();
    for (int n = 0; n < rows; ++n)
        addRow(lv, n);
    lv.EndUpdate();
}

int rowsFor(const bench::Context& ctx) {
    return ctx.contacts > 0 ? ctx.contacts : 100000;
}

// Resident memory now, in MB: the difference before and after a fill is what the list holds.
double residentMb() {
    QFile f(QStringLiteral("/proc/self/statm"));
    if (!f.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> fields = f.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * 4096 / (1024.0 * 1024.0) : 0;
}

void benchFill(const bench::Context& ctx) {
    const int rows = rowsFor(ctx);
    std::vector<double> runs;
    double held = 0;
    for (int i = 0; i < 3; ++i) {
        ListView lv;
        addColumns(lv);
        const double before = residentMb();
        QElapsedTimer t;
        t.start();
        fill(lv, rows);
        runs.push_back(t.nsecsElapsed() / 1e6);
        held = std::max(held, residentMb() - before); // later runs reuse the memory freed by the first
    }
    std::sort(runs.begin(), runs.end());
    bench::Report(QStringLiteral("list fill, 25 columns (holds %1 MB, peak %2 MB)")
                      .arg(held, 0, 'f', 0)
                      .arg(bench::PeakRssMb(), 0, 'f', 0),
                  rows, runs[1]);
}

void benchSort(const bench::Context& ctx) {
    const int rows = rowsFor(ctx);
    ListView lv;
    addColumns(lv);
    fill(lv, rows);
    const int city = lv.ColumnHeaders("City")->SubItemIndex();
    int order = 0;
    const double ms = bench::MedianMs(3, [&] {
        lv.SetSorted(false);
        lv.SetSortKey(city);
        lv.SetSortOrder(order);
        lv.SetSorted(true);
        order = 1 - order;
    });
    bench::Report(
        QStringLiteral("list sort by a text column (peak %1 MB)").arg(bench::PeakRssMb(), 0, 'f', 0), rows,
        ms);
}

bench::Register fillCase("list fill", 600, benchFill);
bench::Register sortCase("list sort", 610, benchSort);

} // namespace
