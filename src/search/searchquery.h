#pragma once
// The search's SQL: what the user typed and ticked in the search window made into one row query
// and one count query over the contacts. Every ticked field is folded into one joined text, with
// an underscore between fields, and each typed word becomes one Like test against that text; the
// words are joined by OR. The date limits narrow the result as a whole.

#include <QDate>
#include <QString>

namespace mSearch {

// What the search window holds at the moment of a search.
struct SearchInput {
    QString Text; // the search text as typed
    bool Numbers = false;
    bool FullName = false;
    bool Title = false;
    bool Company = false;
    bool Comment = false;
    bool Address = false;
    bool City = false;
    bool State = false;
    bool Zip = false;
    bool DateMinOn = false;
    QDate DateMin; // a null date is no limit
    bool DateMaxOn = false;
    QDate DateMax;
};

// The fixed parts of the two queries.
QString RowSelect();
QString CountSelect();
QString FromClause();
// The twelve numbers as one text: "iif(isnull(Number1),'',Number1) & '_' & ...".
QString NumbersFragment();
// The separator between fields of the joined text.
QString FieldSeparator();

// The row query for `in`, and the count query into `strCount`. Empty, with `strCount` left as the
// unconditional count, when nothing at all is ticked. Text with no word in it (only quote marks)
// throws error 5.
QString BuildWhere(const SearchInput& in, QString& strCount);

// The query of the disk catalogue that the search window still carries; nothing runs it.
QString GetWhereDisk();

// The condition of the main window's quick filter: the words of `text` against the full name,
// the company and the twelve numbers joined into one text. Empty for text without a word.
QString QuickFilterCondition(const QString& text);

} // namespace mSearch
