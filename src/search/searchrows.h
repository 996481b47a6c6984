#pragma once
// The rows of the search results: one row per contact of the search's row query, with the cells
// in the order of the result list's columns. A number that is a mail or web address is a link:
// its cell is blue and carries the number in its Tag.

#include "contactlist/listdates.h"
#include "phonebook/store/dao.h"
#include "support/controls/listitem.h"

#include <QColor>

class ListView;

namespace mSearch {

// Cell numbers of the result list (0 is the item text, the full name).
enum SearchCell : int {
    scFullName = 0,
    scTitle,
    scCompany,
    scInfo1, // to scInfo1 + 11
    scCategory = scInfo1 + 12,
    scFavorite,
    scAddress,
    scCity,
    scState,
    scZip,
    scComment,
    scID,
    scAdded,
    scBox,
};

// The colour of a link cell.
QColor LinkColor();

// The places of the fields in the row query, and the cells of the row being made: found once per
// recordset.
struct SearchFields {
    explicit SearchFields(const dao::Recordset& rs); // throws 3265 when a field is missing
    int IDCD, FullName, Title, Company, Category, Favorite, Address, City, State, Zip, Comment, ContactNumber,
        DateScan, Box;
    int T[12];
    int Number[12];
    mLV::ShownDate Added;
    mutable ListRowCells Row;
};

// Adds the row of the contact the recordset stands on: key "ID" + IDCD, the small icon of a
// contact, the 24 cells after the name, and the link cells.
void AddSearchRecord(ListView& ListView1, const dao::Recordset& rs, const SearchFields& f);

} // namespace mSearch
