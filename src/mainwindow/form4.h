#pragma once
// The statistics of the phonebook: how many contacts each letter of the index holds, with the
// digits and the unknown first characters in rows of their own and the total at the end. A
// letter without contacts shows no count at all.

#include "preferences/formdialog.h"

class ListView;
class QPushButton;

class Form4 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form4(QWidget* parent = nullptr);

    ListView* ListView1 = nullptr;
    QPushButton* bnOK = nullptr;

    void Form_Load();
};

namespace mTips {
// Opens the statistics over the main window.
void Summary(QWidget* owner);
} // namespace mTips
