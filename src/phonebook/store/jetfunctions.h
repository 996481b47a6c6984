#pragma once
// Jet's functions and its Like operator, registered on every connection of the store.

#include <QList>
#include <QPair>
#include <QString>
#include <QStringView>
#include <vector>

struct sqlite3;

namespace dao {

void RegisterJetFunctions(sqlite3* db);

// Jet's Like: * any run, ? one character, # one digit, [abc] [a-z] [!abc] a class; no regard to case
// in any script (Unicode case folding), and a letter composed of a base and a mark is the same as
// its precomposed form. Matching takes time linear in the length of the value, whatever the stars
// of the pattern.
class JetLikePattern {
  public:
    explicit JetLikePattern(const QString& pattern);
    bool Matches(const QString& value) const;
    // The same for a value in UTF-8, as SQLite hands it over; a value of ASCII alone is matched
    // without being turned into a QString.
    bool MatchesUtf8(const char* value, int bytes) const;
    // A value already in the form Matches compares: composed and case-folded.
    bool MatchesFolded(QStringView folded) const;
    // The form of a text that matching compares.
    static QString Fold(const QString& text);

  private:
    struct Class {
        QString chars; // single characters
        QList<QPair<QChar, QChar>> ranges;
        bool negate = false;
        bool contains(QChar c) const;
    };
    // One character of the pattern.
    struct Unit {
        enum Kind { Char, AnyOne, Digit, InClass } kind;
        QChar c;       // Char: the folded character
        int klass = 0; // InClass: index in m_classes
    };
    // The units between two stars (or an end of the pattern): they match as many characters.
    struct Piece {
        int from = 0;   // first unit
        int length = 0; // units
        QString text;   // the folded text when every unit is a plain character
        bool literal = true;
    };
    std::vector<Class> m_classes;
    std::vector<Unit> m_units;
    std::vector<Piece> m_pieces; // one more than the runs of stars
    bool matchesAt(const Piece& piece, QStringView v, int pos) const;
    int find(const Piece& piece, QStringView v, int from, int last) const; // leftmost start <= last, or -1
};

} // namespace dao
