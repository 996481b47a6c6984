#pragma once
// The report wizard. The first page (pbList) previews the contacts a report could hold and picks
// all of them, the selected ones or the others; the second (pbOptions) sets title, comment,
// order, columns, format and layout. "Create" writes the report and the wizard stays open for
// another one; "Close" ends it, and stores the options when "Save settings" is ticked.
//
//     Form15 frm(true, owner); // DiskMode: the contact list; false: the selected contact
//     ShowModal(&frm, owner);

#include "preferences/formdialog.h"
#include "reports/reportwriter.h"

#include <QLocale>

class ListItem;
class ListView;
class ColumnHeader;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;

class Form15 : public FormDialog {
    Q_OBJECT
  public:
    // Builds and loads the wizard over the main window's contact list.
    explicit Form15(bool DiskMode, QWidget* parent = nullptr);
    // The same over another list standing in for it (none: an empty preview).
    Form15(bool DiskMode, const ListView* source, QWidget* parent);

    bool DiskMode;

    // Controls. The first page:
    QWidget* pbList = nullptr;
    ListView* lvReport = nullptr;
    QRadioButton* Option1[3] = {}; // All, Selected, Not selected
    // The second page:
    QWidget* pbOptions = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* fdTitle = nullptr;
    QLabel* Label2 = nullptr;
    QLineEdit* fdComment = nullptr;
    QLabel* Label3 = nullptr;
    QComboBox* cmbSortDisks = nullptr;
    ListView* lvDiskColumns = nullptr; // text the caption, Tag the column's tag, checked to print
    QScrollBar* VScroll1 = nullptr;
    QPushButton* bnUp = nullptr;
    QPushButton* bnDown = nullptr;
    QCheckBox* chShortBox = nullptr;
    QCheckBox* chShortCategory = nullptr;
    QCheckBox* chSummary = nullptr;
    QGroupBox* XPFrame1 = nullptr;
    QRadioButton* Option2[2] = {}; // HTML, CSV
    QGroupBox* Frame1 = nullptr;
    QRadioButton* Option3[2] = {}; // Columnar, Tabular
    QLabel* Label4 = nullptr;
    QLineEdit* fdSeparator = nullptr;
    QCheckBox* chOpen = nullptr;
    QCheckBox* chSaveSettings = nullptr;
    // Below both pages:
    QPushButton* fdBack = nullptr;
    QPushButton* bnNextSave = nullptr;
    QPushButton* bnCancel = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    void Form_Load();
    void IniDiskColumnsList();
    void AllowNext();
    bool AnyDisk() const;
    int DiskSpan() const;
    void GetReportOptions();
    void SaveReportOptions();
    // The file to write: Ext 1 HTML, 2 separated text; "" when the user cancelled.
    QString GetReportPath(int Ext);
    // The row SQL of the report; strCount gets the count SQL.
    QString GetWhereReport(QString& strCount);
    // A setting of the locale: lc_type 12 its list separator, 14 its decimal point, 15 its
    // thousands separator; "" for others.
    static QString LocaleInfo(const QLocale& locale, int lc_type);

    void SaveReport();
    void SaveReportHorizontal();
    void SaveReport2();
    void SaveReportHorizontal2();

    void bnNextSave_Click();
    void fdBack_Click();
    void bnCancel_Click();
    void Option1_Click(int Index);
    void Option2_Click(int Index);
    void lvReport_ColumnClick(ColumnHeader* column);
    void lvDiskColumns_ItemClick(ListItem* Item);
    void bnUp_Click();
    void bnDown_Click();
    void VScroll1_Change();

    // True while a report is being written.
    bool Running() const { return m_running; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void done(int result) override;

  private:
    void buildControls();
    void runReport(mReport::ReportKind kind, const char* place);
    void swapRows(ListItem* a, ListItem* b);

    const ListView* m_source;
    bool m_cancel = false;
    bool m_running = false;
};
