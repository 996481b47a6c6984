#pragma once
// A phonebook of a few people for the search tests: names in several scripts, an apostrophe, a
// city of two words, numbers with and without a type, and the dates they were added.

#include "core/globals.h"
#include "phonebook/store/dao.h"
#include "support/fixture.h"

#include <QDateTime>
#include <QStringList>
#include <initializer_list>
#include <ostream>
#include <utility>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

class SearchBook : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        john = person("John Smith", {{"City", "New York"},
                                     {"Title", "Manager"},
                                     {"Type1", 1},
                                     {"Number1", "555-0100"},
                                     {"DateScan", when(2024, 1, 15)}});
        mary = person("Mary O'Brien",
                      {{"Company", "Smithers & Co"}, {"City", "Boston"}, {"DateScan", when(2024, 3, 1, 8)}});
        aero = person("Ærø Jensen", {{"City", "Marstal"},
                                     {"Type5", 5},
                                     {"Number5", "aero@example.dk"},
                                     {"DateScan", when(2024, 3, 31, 23)}});
        lukasz = person("Łukasz Nowak", {{"Address", "ul. Długa 5\r\nGdańsk"},
                                         {"Number2", "www.nowak.example"},
                                         {"DateScan", when(2023, 12, 31, 12)}});
        dmitri = person("Дмитрий Иванов", {{"Comment", "Встреча в Москве\r\nвторая строка"},
                                           {"Zip", "101000"},
                                           {"DateScan", when(2024, 6, 1)}});
        wang = person("王伟", {{"Company", "北京 Trading"},
                               {"Type3", 3},
                               {"Number3", "+86 10 5555"},
                               {"DateScan", when(2024, 6, 2)}});
    }

    static QDateTime when(int y, int m, int d, int h = 9) { return QDateTime(QDate(y, m, d), QTime(h, 30)); }

    int person(const char* name, std::initializer_list<std::pair<const char*, QVariant>> fields) {
        const int id = addContact(QString::fromUtf8(name));
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(id));
        rs.Edit();
        for (const auto& [field, value] : fields)
            rs.SetValue(QLatin1String(field), value);
        rs.Update();
        rs.Close();
        return id;
    }

    // The full names of the rows of a query, sorted.
    static QStringList names(const QString& jetSql) {
        QStringList n;
        dao::Recordset rs = gDB.OpenRecordset(jetSql, dao::dbOpenSnapshot);
        for (; !rs.AtEOF(); rs.MoveNext())
            n << rs[QStringLiteral("FullName")].toString();
        rs.Close();
        n.sort();
        return n;
    }

    int john = 0, mary = 0, aero = 0, lukasz = 0, dmitri = 0, wang = 0;
};
