#pragma once
// The contact list of the main window: the rows that the tree node and the letter tab in force
// pick out, the rows of the node's children in the normal category mode, and the rows added or
// touched after a change. The rows come in no order; the sort that follows puts them in order.
//
// Rows: a contact has the key "ID" + IDCD and the Tag "b"; a child node has "ID" + ID + "E" and
// the Tag "a". Cells follow the column catalogue of the list, in index order.

#include "contactlist/listdates.h"
#include "phonebook/contactquery.h"
#include "phonebook/store/dao.h"
#include "support/controls/listitem.h"

#include <QString>

class ListView;
class TreeView;

namespace mLV {

// Cell numbers of the contact list (0 is the item text, the full name).
enum ListCell : int {
    cellFullName = 0,
    cellTitle,
    cellCompany,
    cellCategory,
    cellFavorite,
    cellAddress,
    cellCity,
    cellState,
    cellZip,
    cellComment,
    cellID,
    cellAdded,
    cellBox,
    cellInfo1, // to cellInfo1 + 11
};

// What writing contact rows needs once per recordset rather than once per row: the places of the
// fields, the shape of the dates shown and the cells of the row being made.
struct ListFields {
    explicit ListFields(const dao::Recordset& rs); // throws 3265 when a field is missing
    int IDCD, FullName, Title, Company, Cat, Bor, Address, City, State, Zip, Comment, ContactNumber, DateScan,
        Box;
    int T[12];
    int Number[12];
    ShownDate Added;
    mutable ListRowCells Row;
};

// Rebuilds the list for letter tab DType ("ALL", a letter, "NUM", "UNK") and node CType of the
// tree on display: the child rows first, then every contact that the two pick out.
void FillDriveList(ListView& ListView2, const QString& DType, const QString& CType);
// Clears the list and adds a row for each child of node NodeKey, in the normal category mode and
// below the root only.
void FillDriveListCat(ListView& ListView2, const QString& NodeKey);
// Adds the row of the contact the recordset stands on (a recordset of the list query). A loop over
// many records makes one ListFields for them; the second form makes its own, for a single record.
void AddDriveRecord(ListView& ListView2, const dao::Recordset& rstWork, const ListFields& fields);
void AddDriveRecord(ListView& ListView2, const dao::Recordset& rstWork);
// Adds a row for node pKey, which has just become a child of the node in force; pName is its label
// in the tree, count included. Only in the normal category mode and below the root.
void AddCatRecord(ListView& ListView2, const QString& pKey, const QString& pName);
// Adds a row for each child of the node selected in the tree that the list does not show yet.
void AddMissingCatRecords(ListView& ListView2, const TreeView& CatTree);
// Adds the row of contact IDCD, read from the phonebook, which it does not change.
void AddDriveListPassive(ListView& ListView2, qint32 IDCD);
// After a new contact pIDCD: stores its category and, when given, its favorite and group; adds
// its row when the view in force shows it, and otherwise switches the view to it. SelectDisk
// selects the row and shows the contact in the detail pane.
void AddDriveList(ListView& ListView2, TreeView& CatTree, const QString& NewDiskCat,
                  const QString& NewDiskBor, const QString& NewDiskBox, bool SelectDisk, qint32 pIDCD);
// After node pKey was renamed or moved: rewrites the path cell of every contact row that shows it.
void UpdateCatInList(ListView& ListView2, const QString& pKey, const QString& pCatName);

// The name in a node label "Name (count)": everything before the last blank.
QString NameOfLabel(const QString& label);

} // namespace mLV
