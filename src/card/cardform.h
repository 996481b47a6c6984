#pragma once
// The contact card: the one dialog in which a contact is added or edited. One controller serves
// both layouts, Form3 (four tabs) and Form2 (group boxes side by side); the layouts place the
// controls made here and grow the comment box each in their own way. A card lives for one edit:
// made, given its CardKey, loaded, shown modally, closed through OK or Cancel.

#include "phonebook/store/dao.h"

#include "preferences/formdialog.h"

#include <QDialog>
#include <QPixmap>
#include <QString>
#include <array>
#include <map>
#include <string>

class ImageCombo;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class TreeNode;
class TreeView;

class CardForm : public FormDialog {
    Q_OBJECT
  public:
    // The number rows, 1 to 12; arrays of rows keep place 0 empty so that row N is [N].
    static constexpr int kRows = 12;
    template <class T> using Rows = std::array<T*, kRows + 1>;

    ~CardForm() override;

    // State of this edit.
    QString CardKey = QStringLiteral("0"); // IDCD of the contact; "0" for a new one
    bool CardLoaded = false;               // Form_Load has run to its end
    QString PhotoPath;
    qint16 PhotoState = 0;          // 0 no photo, 1 a new file chosen, 2 the stored photo, unchanged
    QString OldDiskCat, NewDiskCat; // category node keys as loaded and as chosen
    QString OldDiskBor, NewDiskBor; // favorites node keys; "" for none
    QString OldDiskBox, NewDiskBox; // group node keys
    bool AddCat = false, AddBor = false, AddBox = false; // nodes were created from the card
    QString CardLetter, OldCardLetter;

    // Controls common to both layouts.
    QLabel *lblFullName, *lblTitle, *lblCompany, *lblAddress, *lblCity, *lblState, *lblZip;
    QLineEdit *fdFullName, *fdTitle, *fdCompany, *fdCity, *fdState, *fdZip;
    QPlainTextEdit* fdAddress;
    QLabel *lblIndex, *lbLetter;
    QLabel* lblComment;
    QPlainTextEdit* fdComment;
    QCheckBox* chWordWrap;
    QPushButton *bnCommentMaximize, *bnCommentMinimize;
    QLabel *lblCategory, *lblBox, *lblFavorite;
    ImageCombo *icmbCategory, *icmbBox, *icmbFavorite;
    QPushButton *bnAddCategory, *bnAddBox, *bnAddFavorite, *bnClearFavorite;
    TreeView* CatTree; // hidden: the trees are filled here and copied into the combos
    Rows<QLabel> lblRow;
    Rows<ImageCombo> icType;
    Rows<QLineEdit> fdNumber;
    Rows<QToolButton> bnCleareType;
    QPushButton* bnAddType;
    QComboBox* cmbUpDown;
    QPushButton *bnUp, *bnDown;
    QGroupBox* GroupBox1; // frame of the photo
    QLabel* picBox;       // the photo as fitted into its frame
    QPixmap picImage;     // the photo at its own size
    QPixmap imNoImage;    // the picture of a contact without a photo
    QPushButton *bnSelectPhoto, *bnDeletePhoto;
    QCheckBox* chContactCardWithTabs;
    QPushButton *bnOK, *bnCancel;

    // The name of the form ("Form3", "Form2"): its window place and the places in error reports.
    QString FormName() const { return objectName(); }

    // Window procedures.
    void Form_Load();
    void bnOK_Click();
    void bnCancel_Click();

    // The combos.
    void FillCatCombo();
    void FillBoxCombo();
    void FillFavCombo();
    void FillTypeCombo();
    void FillImageCombo(const TreeView& OrigTree, const TreeNode* ParentNode, int pIntent, qint16 mode);
    // Kind 1 icmbCategory, 2 icmbBox, 3 icmbFavorite: Found is set when the combo has Key.
    void ScanTypeIsExists(const QString& Key, int Kind, bool& Found) const;
    void icmbCategory_Click();
    void icmbBox_Click();
    void icmbFavorite_Click();
    void bnClearFavorite_Click();
    void bnAddCategory_Click();
    void bnAddBox_Click();
    void bnAddFavorite_Click();

    // Name, letter, numbers, comment.
    void UpdatelbLetter();
    void fdFullName_Change();
    void fdCompany_Change();
    void bnUp_Click();
    void bnDown_Click();
    void bnCleareType_Click(int Index);
    void bnCommentMaximize_Click();
    void bnCommentMinimize_Click();
    void chWordWrap_Click();
    // Opens the number types editor, then fills the type combos again.
    void bnAddType_Click();

    // Saving, inside the transaction of OK.
    void UpdateRecord(bool pAdd);
    void UpdateDriveList();
    void CommentAndNameUpdate();

    // The photo page. A chosen file is shown at once and stored by OK; a file over 512,000 bytes
    // is refused with a message, one that cannot be decoded with an error, and either leaves the
    // card as it was. Cancelling the chooser empties PhotoPath and leaves the rest.
    void bnSelectPhoto_Click();
    void bnDeletePhoto_Click();
    void ResizePhotoInProperties();
    void LoadPhotoFromDB(const dao::Recordset& rstWork);
    void SavePhotoToDB(dao::Recordset& rstWork);

  protected:
    CardForm(const QString& formName, QWidget* parent);

    // The layout's part of Increase and Decrease: where the comment box stands and how large.
    virtual void ShowCommentLarge(bool large) = 0;
    // Brings the page with the name in front (Form3); the wide card shows everything at once.
    virtual void ShowFirstPage() {}
    // Puts the comment box back where the layout keeps it when the card closes.
    virtual void PutCommentHome() = 0;

    // The place name of a procedure of this form in error reports ("Form3.bnOK_Click").
    const char* Place(const char* procedure);

    void reject() override; // Esc and the close button work as Cancel
    // The comment box goes home and, by preference, the card fades out.
    void BeforeUnload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void wireEvents();
    template <class F> void onEvent(const char* procedure, F body);
    void fillTreeCombo(qint16 mode);
    ImageCombo* treeCombo(qint16 mode) const;
    void addNodeFromCard(qint16 mode);
    void moveRow(int step);
    void loadNewContact();
    void loadContact();
    void applyRestrictions();
    void saveLayoutChoice();

    std::map<std::string, std::string> m_places;
};
