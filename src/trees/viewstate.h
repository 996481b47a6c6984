#pragma once
// View state of the main window: which tree, node, letter tab and list row are in force. The
// main window keeps these up to date; the tree procedures read them.

#include <QString>

extern bool AdvancedCategoryMode; // selecting a node lists the contacts of its whole subtree
extern QString CurrentLetter;     // letter tab in force: "ALL", a letter, "NUM" or "UNK"
extern QString CurrentTreeTab;    // tree on display: "Categories", "Boxes" or "Borrows"
extern QString CurrentNodeKey;    // key of the node in force, "ID0" for the root
extern QString CurrentDiskKey;    // key of the list row selected at the last mouse press, "" if none

namespace mToolBar {
// The kind of the tree on display: 0 Categories, 1 Boxes (groups), 2 Borrows (favorites). It is
// read from CurrentTreeTab, so whoever switches the tree tab sets CurrentTreeTab first.
qint16 WhatCATIsChecked();
} // namespace mToolBar
