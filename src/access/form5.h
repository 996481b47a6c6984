#pragma once
// The compact dialog: a backup first or not, and over the old backup or beside it. The phonebook
// is closed while it is open.

#include "preferences/formdialog.h"

class QCheckBox;
class QLabel;
class QPushButton;

class Form5 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form5(QWidget* parent = nullptr);

    QLabel* Label1 = nullptr; // the note on the time it takes
    QCheckBox* flgMakeBackup = nullptr;
    QCheckBox* flgEraseOld = nullptr; // usable only with flgMakeBackup
    QPushButton* bnCompact = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    void flgMakeBackup_Click();
    void bnCompact_Click();
    void bnCancel_Click();
};
