#pragma once
// Where a contact stands: one category, one group, at most one favorites folder, and its letter.
// When one of these changes, the phonebook is written and the main window follows without a
// refill: the contact's row comes, goes or has its path cells rewritten, the counts of the tree
// are read again, and the detail pane empties when its contact has left the list.
//
// The assignment travels as node keys ("ID" + number); a contact that is no favorite has ""
// for its favorites folder.

#include "trees/mainview.h"

#include <QString>

class TreeView;

namespace mCommon {

// Reads the letter tab and the three nodes of contact pIDCD from the phonebook; each old key and
// its new twin get the same value. A contact that is no favorite gets "" for both favorites keys.
// Nothing changes when there is no such contact.
void IniDiskCatParams(QString& DType, QString& OldDiskCat, QString& NewDiskCat, QString& OldDiskBor,
                      QString& NewDiskBor, QString& OldDiskBox, QString& NewDiskBox, qint32 pIDCD);

// Stores the nodes of contact pIDCD that differ from the old ones, then brings the list and the
// counts of the tree on display in step. DType is the contact's letter tab now, OldDType the one
// it had (the letter itself is stored by whoever changed it).
void UpdateGlobalInfo(const mTV::MainView& view, const QString& DType, const QString& OldDType,
                      const QString& OldDiskCat, const QString& NewDiskCat, const QString& OldDiskBor,
                      const QString& NewDiskBor, const QString& OldDiskBox, const QString& NewDiskBox,
                      qint32 pIDCD);
// Nodes were added to the trees whose flags are set (from the contact card). When the tree on
// display is one of them it is filled again, and the node that was selected is selected again
// and stays the node in force. A tree not on display is left alone: it is filled when its tab is
// chosen.
void UpdateMainCatTree(TreeView& CatTree, bool AddCat, bool AddBor, bool AddBox);
} // namespace mCommon
