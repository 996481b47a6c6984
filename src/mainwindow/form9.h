#pragma once
// The tip of the day: one tip at a time with Next, or all of them at once. The tips are the lines
// of "Tips.txt" among the program's files; a missing file gives an empty window and no message.
// The window remembers the last tip shown and alternates between its two views from one opening
// to the next.

#include "preferences/formdialog.h"

#include <QStringList>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

class Form9 : public FormDialog {
    Q_OBJECT
  public:
    explicit Form9(QWidget* parent = nullptr);

    QLabel* Label1 = nullptr;
    QPlainTextEdit* fdTipTextOne = nullptr;
    QPlainTextEdit* fdTipTextAll = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdNextTip = nullptr;
    QPushButton* bnShowAll = nullptr;
    QCheckBox* chkLoadTipsAtStartup = nullptr;

    QStringList Tips;
    qint32 CurrentTip = 0;
    bool ShowAllNext = false;

    void Form_Load();
    void LoadTips(const QString& sFile);
    void ShowAllTips();
    void DoNextTip();
    void DisplayCurrentTip();
    void DoAllTips();

  protected:
    void BeforeUnload() override;
};

namespace mTips {
// Shows the tip dialog over the main window: always when asked for (`ShowTip`), at start only
// when the preference says so.
void StartupTip(bool ShowTip, QWidget* owner);
} // namespace mTips
