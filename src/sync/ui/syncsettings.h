#pragma once
// File > Sync settings: the server, the user and password, the address book found on the server,
// how often to sync, the result of the last sync, and "Sync now".

#include "sync/account.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace carddav {

class SyncController;

class SyncSettings : public QDialog {
    Q_OBJECT
  public:
    SyncSettings(SyncController* controller, QWidget* parent = nullptr);

    QLineEdit* fdServer;
    QLineEdit* fdUser;
    QLineEdit* fdPassword;
    QPushButton* bnFind;
    QComboBox* cbBook;
    QSpinBox* fdInterval;
    QLabel* lbLast;
    QLabel* lbStatus;
    QPushButton* bnSyncNow;
    QPushButton* bnUnlink;
    QPushButton* bnOK;

  private:
    void findBooks();
    bool save();
    void unlink();
    void updateButtons();

    SyncController* m_controller;
    Account m_account;
};

} // namespace carddav
