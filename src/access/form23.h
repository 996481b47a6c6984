#pragma once
// The access options of the phonebook: the default mode and the two passwords, shown in clear.
// OK stores them (an empty box: no password); whoever can open the dialog can reset them.

#include "preferences/formdialog.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

class Form23 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form23(QWidget* parent = nullptr);

    QLabel* Label1 = nullptr;
    QGroupBox* Frame1 = nullptr;
    QRadioButton* Option1[2] = {nullptr, nullptr}; // 0 Read-only access, 1 Full access
    QLabel* lblReadOnlyPW = nullptr;
    QLineEdit* fdReadOnlyPW = nullptr;
    QLabel* lblFullPW = nullptr;
    QLineEdit* fdFullPW = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    void bnOK_Click();
    void bnCancel_Click();

  private:
    void buildControls();
};
