#pragma once
// The password dialog: the access mode to enter and its password. OK with the right password
// sets the mode (gReadOnlyMode) and gPasswordAccepted; Cancel clears gPasswordAccepted. An empty
// box matches a mode without a password. There is no limit to the attempts.

#include "preferences/formdialog.h"

#include <QString>
#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class Form22 : public FormDialog {
    Q_OBJECT
  public:
    // pFromMenu: opened by the menu for mode pFullMode (selected first); otherwise at an open,
    // where the phonebook's default mode comes first.
    Form22(bool pFromMenu, bool pFullMode, QWidget* parent = nullptr);

    bool pFromMenu;
    bool pFullMode;

    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QComboBox* cmbMode = nullptr; // 0 Full access, 1 Read-only access
    QLineEdit* fdPW = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;

    void Form_Load();
    void bnOK_Click();
    void bnCancel_Click();

  private:
    void buildControls();
    // The deciphered passwords; none for one whose stored form cannot be read, which no entry
    // matches.
    std::optional<QString> m_fullPW;
    std::optional<QString> m_readOnlyPW;
};
