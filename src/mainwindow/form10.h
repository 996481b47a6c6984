#pragma once
// The About window: the program's name, version and purpose, its web site and support address,
// each a link that opens in the desktop's browser or mail program.

#include "preferences/formdialog.h"

class QLabel;

class Form10 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form10(QWidget* parent = nullptr);

    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblWebsite = nullptr;
    QLabel* lblSupport = nullptr;
    QPushButton* bnOK = nullptr;

    void Form_Load();
    // A click on a link of the window.
    void Link_Click(const QString& link);
};
