#pragma once
// The dialog that customises the columns of one list: a row per column in display order, with
// a check box that shows or hides the column; rows move up and down to reorder the columns;
// "Default" brings back every column in its own order. Nothing reaches the list before OK.
//
// The caller names the list and its number (1 fields, 2 contacts, 8 search results) and shows
// the dialog modally:
//     Form21 frm(*ListView2, 2, this);
//     ShowModal(&frm, this);
// The settings are written by the next mLV::SaveColumnSize of that list.

#include "preferences/formdialog.h"

class ListItem;
class ListView;
class QPushButton;
class QScrollBar;

class Form21 : public FormDialog {
    Q_OBJECT
  public:
    // Builds and loads the dialog (Form_Load) for the columns of `Target`.
    Form21(ListView& Target, int ListNumber, QWidget* parent = nullptr);

    int ListNumber; // 1, 2 or 8: the list being edited

    // Controls.
    // A row per column, in display order: text the column's name, Tag its index, the check
    // box on for a visible column.
    ListView* lvColumns = nullptr;
    QScrollBar* VScroll1 = nullptr; // spin of the selected row: its value is the row's place
    QPushButton* bnUp = nullptr;
    QPushButton* bnDown = nullptr;
    QPushButton* bnDefault = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    void IniFileColumnsList();
    void PrepareColumnList();
    void ResetToDefaults();

    void bnUp_Click();
    void bnDown_Click();
    void bnDefault_Click();
    void bnOK_Click();
    void bnCancel_Click();
    void lvColumns_ItemClick(ListItem* Item);
    void VScroll1_Change();

  private:
    void buildControls();
    void swapRows(ListItem* a, ListItem* b);

    ListView& m_target;
};
