#pragma once
// The row of CDs that the contact card writes: the fields the card owns, the next free contact id
// and number, and the cells of the contact's row in the main window's list.

#include "phonebook/store/dao.h"

#include <QString>
#include <QVariant>
#include <array>

class ListItem;

namespace mCard {

// What the card writes into CDs on add and on edit. Texts are already trimmed, and Null where
// empty; a type is the IDTYPE of the chosen entry, or Null.
struct CardFields {
    QString Label; // "A" to "Z", "NUM" or "UNK"
    QVariant FullName, Title, Company, Address, City, State, Zip, Comment;
    std::array<QVariant, 13> Type;   // [1] to [12]
    std::array<QVariant, 13> Number; // [1] to [12]
};

// Writes the fields in their order: Label, the texts, Type1 to Type12, Number1 to Number12. The
// recordset is in AddNew or Edit.
void WriteCardFields(dao::Recordset& rs, const CardFields& fields);

// The next IDCD: the highest + 1, 1 in an empty phonebook. An id freed at the top is used again.
qint32 NextContactID();

// What the card shows of a contact in its list row, each text as it goes into its cell.
struct CardRowTexts {
    QString FullName, Title, Company, Category, Favorite, Address, City, State, Zip, Comment, Box;
    std::array<QString, 13> TypeText; // text of the chosen type, [1] to [12]
    std::array<QString, 13> Number;   // [1] to [12]
};

// Rewrites the cells of a contact row from the card; the contact number and the date added keep
// their cells.
void WriteContactRow(ListItem& row, const CardRowTexts& texts);

} // namespace mCard
