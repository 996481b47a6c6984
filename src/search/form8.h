#pragma once
// The search window: a modal window over the main window with the search text and its history,
// the fields to search, the limits on the date a contact was added, and a result list with one
// row per contact found. A row opens the contact's card; a mail or web number in a row opens the
// mail program or the browser. The window never changes a contact itself.

#include "preferences/formdialog.h"
#include "search/searchquery.h"

#include <QString>

class ListView;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QMenu;
class QProgressBar;
class QPushButton;
class QStatusBar;

class Form8 : public FormDialog {
    Q_OBJECT
  public:
    // Ids of the window's menu entries.
    enum MenuId : int {
        idExecute = 400,
        idOpenInExplorer = 401,
        idProperties = 416,
        idPopupSearch = 10500,
        idSortFirst = 10501, // columns 0 to 23
        idSortLast = 10524,
        idInvertSelection = 10525,
        idSelectAll = 10526,
        idSortByGroup = 10527, // column 24
        idColumnFirst = 10601, // columns 1 to 24
        idColumnLast = 10624,
        idColumnsCustomize = 10625,
        idColumnGroup = 10626, // column 25
    };
    // The most texts the history keeps.
    static constexpr int kHistory = 15;

    // Builds and loads the window (Form_Load). `pIDCD` names the contact a search was opened
    // for, with the text `pPath` kept for it; 0 for a search of the whole phonebook.
    explicit Form8(QWidget* parent = nullptr, qint32 pIDCD = 0, const QString& pPath = QString());
    ~Form8() override;

    // Controls.
    QLabel* Label2 = nullptr;
    QComboBox* cmbName = nullptr;
    QComboBox* ComboHidden = nullptr; // never shown: scratch list of the history
    QCheckBox* chNumbers = nullptr;
    QCheckBox* chFullName = nullptr;
    QCheckBox* chTitle = nullptr;
    QCheckBox* chCompany = nullptr;
    QCheckBox* chComment = nullptr;
    QCheckBox* chAddress = nullptr;
    QCheckBox* chCity = nullptr;
    QCheckBox* chState = nullptr;
    QCheckBox* chZip = nullptr;
    QGroupBox* XPFrame3 = nullptr;
    QCheckBox* chDateMin = nullptr;
    QCheckBox* chDateMax = nullptr;
    QDateEdit* fdDateMin = nullptr;
    QDateEdit* fdDateMax = nullptr;
    QPushButton* bnSearch = nullptr;
    QPushButton* bnStop = nullptr;
    ListView* ListView1 = nullptr;
    QStatusBar* StatusBar1 = nullptr;
    QLabel* StatusPanel1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    bool SearchStopRequested = false;
    qint32 IDCD = 0;
    QString Path;

    void Form_Load();
    // The row query for the controls as they stand, the count query into strCount; empty when
    // nothing is ticked.
    QString GetWhere(QString& strCount) const;
    QString GetWhereDisk() const;
    mSearch::SearchInput Input() const;

    void StartSearch();
    void bnSearch_Click();
    void bnStop_Click();
    void cmbName_KeyPress(int KeyAscii);
    void chDateMin_Click();
    void chDateMax_Click();

    // The history: newest first, at most kHistory texts; a known text moves to the top.
    void UpdateCombo(const QString& str);
    void GetMRUFileList();
    void SaveMRUFileList();
    void SavePath(qint32 pIDCD, const QString& pPath);

    // Opens the card of the selected row when the open-card request is set; clears the request.
    void DiskPropertiesSearch();
    void ListView1_DblClick();
    void ListView1_KeyPress(int& KeyAscii);
    void ListView1_MouseMove(const QPoint& pos);
    void ListView1_MouseUp(Qt::MouseButton Button, const QPoint& pos);
    void ListView1_ColumnClick(int column);

    // The two pop-ups, made afresh each time. PopupSearch shows nothing when `show` is false (the
    // menu is answered so that tests can read it).
    QMenu* PopupSearch(int pMode, bool show = true);
    QMenu* PopupHL8(bool show = true);
    void CommandBars8_Execute(int Id);
    void mnuHL8_Click(int Index);
    void mnuHL8Customize_Click();
    void mnuSearchProperties_Click();
    void mnuSearchSelectAll_Click();
    void mnuSearchInvertSelection_Click();

    // Closes the window; during a search, once the search has stopped.
    void reject() override;

    // The link under a point of the result list, "" when there is none.
    QString LinkAt(const QPoint& pos) const;

  protected:
    void BeforeUnload() override;

  private:
    void buildControls();
    void connectEvents();
    QCheckBox* box(const char* name, const QString& caption);
    QMenu* m_popup = nullptr;
    QMenu* m_headerPopup = nullptr;
    bool m_running = false;
};

// The one search window while it is open; null otherwise.
extern Form8* gForm8;

namespace mCommon {
// Opens the search window over the main window. A text given goes into the search box and is
// searched at once.
void Search(const QString& text = QString());
} // namespace mCommon
