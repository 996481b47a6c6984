#pragma once
// The size rule of the main and search windows: never smaller than 780 by 540 pixels, never
// larger than the screen they stand on. Installed on a window as an event filter that follows
// the window to another screen.

#include <QObject>

class QWidget;

class SubClassMy : public QObject {
    Q_OBJECT
  public:
    enum Mode { MainWindow = 1, SearchWindow = 8 };
    SubClassMy(QWidget* frm, Mode mode);
    Mode mode() const { return m_mode; }

    static constexpr int MinWidth = 780;
    static constexpr int MinHeight = 540;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void applyLimits();
    QWidget* m_form;
    Mode m_mode;
};

namespace SubClasser {
// Puts the size rule on `frm`. A window that does not exist (null) raises error 5, "Invalid hWnd".
void StartSubClass(QWidget* frm, SubClassMy::Mode mode);
// Takes it off again; a window without the rule is left as it is.
void StopSubClass(QWidget* frm);
} // namespace SubClasser
