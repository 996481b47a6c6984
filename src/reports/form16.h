#pragma once
// The chooser before the report wizard: a report of the contact list or of the selected contact.
// Esc or closing the box cancels.

#include "preferences/formdialog.h"

class QPushButton;

class Form16 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form16(QWidget* parent = nullptr);

    QPushButton* bnDiskList = nullptr;
    QPushButton* bnFileList = nullptr;

    bool DiskMode = true; // bnDiskList true, bnFileList false
    bool Cancelled = true;

    void Form_Load();
    void bnDiskList_Click();
    void bnFileList_Click();
};
