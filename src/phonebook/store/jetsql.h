#pragma once
// Turns a statement in Jet's SQL dialect into SQLite's. Translations are cached.

#include <QString>

namespace dao {

class JetSql {
  public:
    // SQLite text for `jet`; throws DbError (3075) naming the statement when it cannot be translated.
    static QString Translate(const QString& jet);
    // Translation of a bare expression (a FindFirst criterion, a WHERE fragment).
    static QString TranslateExpression(const QString& jet);
    // '#mm/dd/yy hh:nn:ss#' body (without the #) to 'YYYY-MM-DD HH:MM:SS'; empty when not a date.
    static QString DateLiteral(const QString& body);
};

} // namespace dao
