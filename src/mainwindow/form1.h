#pragma once
// The main window. For now it shows the open phonebook with its counts and offers the File
// commands; every command is an action found by its numeric id.

#include <QHash>
#include <QMainWindow>

class QAction;
class QLabel;
class QMenu;

class Form1 : public QMainWindow {
    Q_OBJECT
public:
    explicit Form1(QWidget* parent = nullptr);
    ~Form1() override;

    // Command actions by id (100 New, 101 Open, 106 Exit, 117 Clear list, 1..10 recent files).
    QHash<int, QAction*> Actions;

    void CommandBars1_Execute(int id);
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileMRU_Click(int Index);
    void mnuFileClear_Click();

    // Fills the view from the open phonebook (or empties it when none is open).
    void RefreshSummary();
    void SetNoImage() {}
    void ROSwitch() {}
    void MenuUpdate() {}

    QLabel* lblPath;
    QLabel* lblCounts;

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    QMenu* m_recent = nullptr;
    void buildMenus();
    void openChosen(const QString& path);
};

// The one reference to the main window; null while it does not exist.
extern Form1* gForm1;
