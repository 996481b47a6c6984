#pragma once
// Database info: where the phonebook is, its size and the free space of its disk. The phonebook
// can be moved from here to another folder.

#include "preferences/formdialog.h"

class QLabel;
class QPushButton;

class Form6 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form6(QWidget* parent = nullptr);

    QLabel* lblLocation = nullptr;
    QLabel* fdDatabasePath = nullptr;
    QLabel* lblSize = nullptr;
    QLabel* lblFreeSpace = nullptr;
    QPushButton* bnMoveDatabase = nullptr;
    QPushButton* bnOK = nullptr;

    void Form_Load();
    void bnMoveDatabase_Click();
    void bnOK_Click();

  private:
    void showFigures();
};
