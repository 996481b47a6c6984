#pragma once
// The preferences dialog: a list of five pages beside the page chosen, with OK, Cancel and Apply.
// It edits section "PreferencesNew" and the preference variables, and its Database page points
// the program at a phonebook: open, new, move, clear. Nothing is stored before OK or Apply, and
// Cancel keeps what Apply already stored.
//
// Opened without a phonebook (at start, when none could be opened) it shows the Database page
// alone, with why the phonebook could not be opened, and closes once one is open.

#include "preferences/formdialog.h"

#include <QFont>
#include <QString>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QSlider;
class QStackedWidget;

class Form7 : public FormDialog {
    Q_OBJECT
  public:
    // The pages, in the order of the list.
    enum Page { PageInterface = 0, PageThemes = 1, PageWindow = 2, PageMisc = 3, PageDatabase = 4 };
    enum { AppThemeCount = 8, ToolbarThemeCount = 2 };

    // `NoPhonebook`: the dialog opens because no phonebook could be opened; `Reason` says which
    // file and why.
    explicit Form7(QWidget* parent = nullptr, bool NoPhonebook = false, const QString& Reason = QString());

    const bool NoPhonebook;

    // Controls.
    QListWidget* List1 = nullptr;
    QStackedWidget* Pages = nullptr;
    QWidget* Pref[5] = {};
    QCheckBox* chToolbar1 = nullptr;
    QCheckBox* chToolbar2 = nullptr;
    QCheckBox* chToolbar3 = nullptr;
    QCheckBox* chFlatToolbar = nullptr;
    QCheckBox* chShowToolTip = nullptr;
    QCheckBox* chShowLargeIcons = nullptr;
    QCheckBox* chLockToolbar = nullptr;
    QCheckBox* chPaneCatTree = nullptr;
    QCheckBox* chPaneListView2 = nullptr;
    QCheckBox* chPaneListView1 = nullptr;
    QCheckBox* chPanePhoto = nullptr;
    QCheckBox* chStatusbar = nullptr;
    QCheckBox* chLvTvLargeIcons = nullptr;
    QPushButton* bnLvTvFonts = nullptr;
    QLabel* lbFont = nullptr;
    QRadioButton* opAppTheme[AppThemeCount] = {};
    QRadioButton* opToolbarTheme[ToolbarThemeCount] = {};
    QCheckBox* chSaveWindowLocation = nullptr;
    QCheckBox* chSaveWindowSize = nullptr;
    QCheckBox* chWindowAnimation1 = nullptr;
    QSlider* hscrAnimationSpeed = nullptr; // the duration of the fade, in ms: long is slow
    QCheckBox* chMinimizeToTray = nullptr;
    QCheckBox* chDuplicateWarning = nullptr;
    QCheckBox* chDeleteDiskWarning = nullptr;
    QCheckBox* chContactCardWithTabs = nullptr;
    QCheckBox* chTipOfTheDayAtStart = nullptr;
    QCheckBox* chBDSizeOnTitle = nullptr;
    QComboBox* cmbFileDoubleClick = nullptr;
    QLabel* lbNoPhonebook = nullptr; // why no phonebook is open; shown only then
    QLineEdit* fdDatabasePath = nullptr;
    QLineEdit* fdSize = nullptr;
    QPushButton* bnDatabasePath = nullptr;
    QPushButton* Command1 = nullptr; // create a new phonebook
    QPushButton* bnMoveDatabase = nullptr;
    QPushButton* bnClearDatabase = nullptr;
    QPushButton* bnOK = nullptr;
    QPushButton* bnCancel = nullptr;
    QPushButton* bnApply = nullptr;

    void Form_Load();
    // Every control from the preference variables and the toolbars.
    void Ini();
    // Every control to the store and the variables.
    void SavePreferences();
    void List1_Click();
    void bnApply_Click();
    void bnOK_Click();
    void bnCancel_Click();
    void bnLvTvFonts_Click();
    void bnDatabasePath_Click();
    void Command1_Click();
    void bnMoveDatabase_Click();
    void bnClearDatabase_Click();

    // The font the lists and trees take after OK or Apply; the family is empty for their own.
    const QFont& ChosenFont() const { return m_font; }
    bool FontChosen() const { return m_fontChosen; }
    QString Reason() const;

  private:
    void buildControls();
    QWidget* buildInterfacePage();
    QWidget* buildThemesPage();
    QWidget* buildWindowPage();
    QWidget* buildMiscPage();
    QWidget* buildDatabasePage();
    void setCaptions();
    // The path, the size and the buttons of the Database page for the phonebook in force.
    void refreshDatabase();
    void showFont();
    void showPages();
    void afterDatabaseChange();

    QString m_reason;
    QFont m_font;
    bool m_fontChosen = false; // a font is set (FontName not empty)
    QGroupBox* m_frames[9] = {};
    QLabel* m_labels[6] = {};
};

namespace mCommon {
// Tools > Preferences: the dialog over the main window.
void ShowPreferences(QWidget* owner);
} // namespace mCommon
