#pragma once
// The status bar of a window in panels numbered from 1, each with a text. A progress bar can be
// placed into a panel, where it covers the text while it shows.

#include <QList>
#include <QStatusBar>

class QLabel;
class QProgressBar;

class StatusBar : public QStatusBar {
    Q_OBJECT
  public:
    // `panels` panels; the first takes the free width, the others their text's width.
    explicit StatusBar(int panels, QWidget* parent = nullptr);

    int PanelCount() const { return int(m_texts.size()); }
    // Adds a panel after the others, as wide as its text; answers its number.
    int AddPanel();
    QString PanelText(int panel) const;
    void SetPanelText(int panel, const QString& text);
    // The panel itself, to put a control into; nullptr outside 1..PanelCount.
    QWidget* Panel(int panel) const;

  private:
    QList<QWidget*> m_panels;
    QList<QLabel*> m_texts;
};

namespace mProgressBar {
// Puts `bar` into `panel` of `statusBar`, hidden until its owner shows it for a long task.
void MoveIntoStatusBar(QProgressBar* bar, StatusBar* statusBar, int panel);
} // namespace mProgressBar
