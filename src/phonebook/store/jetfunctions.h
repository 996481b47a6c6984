#pragma once
// Jet's functions and its Like operator, registered on every connection of the store.

#include <QList>
#include <QPair>
#include <QString>

struct sqlite3;

namespace dao {

void RegisterJetFunctions(sqlite3* db);

// Jet's Like: * any run, ? one character, # one digit, [abc] [a-z] [!abc] a class; no regard to case.
class JetLikePattern {
public:
    explicit JetLikePattern(const QString& pattern);
    bool Matches(const QString& value) const;

private:
    struct Item {
        enum Kind { Literal, AnyRun, AnyOne, Digit, Class } kind;
        QString chars;           // Literal: the folded text; Class: single characters
        QList<QPair<QChar, QChar>> ranges;
        bool negate = false;
    };
    QList<Item> m_items;
    QString m_contains; // set when the pattern is *literal*: a plain substring test
    bool m_isContains = false;
    bool match(int item, const QString& v, int pos) const;
};

} // namespace dao
