#pragma once
// The number types editor ("Add/Edit Type"), opened from the contact card. Additions, renames and
// deletions are collected in its lists and written in one transaction by Save; Cancel writes
// nothing. A deleted type leaves every contact that used it: the number stays, its type is empty.
//
// Items of lvTypes: text the type's name, key "ID" + IDTYPE for a stored type ("new<n>" for one
// not stored yet), Tag "" (stored, unchanged), "new" (not stored yet) or "edit" (stored, renamed).
// lvDeletedTypes holds the items marked for deletion, as they were.

#include "preferences/formdialog.h"

#include <QString>

class CardForm;
class ListItem;
class ListView;
class QLineEdit;
class QPushButton;

class Form19 : public FormDialog {
    Q_OBJECT
  public:
    // `card` is the open card whose type combos lose a deleted type at once; may be null.
    explicit Form19(CardForm* card, QWidget* parent = nullptr);

    QLineEdit* fdNewType;
    QPushButton *bnAdd, *bnDelete, *bnEdit;
    ListView* lvTypes;
    ListView* lvDeletedTypes; // hidden
    QPushButton *bnOK, *bnCancel;

    void Form_Load();
    void lvTypes_ItemClick(ListItem* Item);
    void bnAdd_Click();
    void bnEdit_Click();
    void bnDelete_Click();
    // Applies the change set in one transaction and closes; a failure rolls everything back,
    // is reported, and leaves the dialog open with its lists as they were.
    void bnOK_Click();
    void bnCancel_Click();
    // Stores a new type with the next IDTYPE; answers that number.
    static qint32 CreateType(const QString& pNewType);
    // The number of stored types named like Trim(fdNewType).
    int CheckExistType() const;

  private:
    void buildControls();
    bool nameTaken(const QString& text) const;
    void applyChanges();
    void dropFromCard(const QString& key);

    CardForm* m_card;
    int m_newItems = 0;
};
