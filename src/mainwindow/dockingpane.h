#pragma once
// One dockable pane of the main window, known by its id. Closing it with its own button is told
// through Closing, so that the window can keep its menu and preferences in step.

#include <QDockWidget>

class DockingPane : public QDockWidget {
    Q_OBJECT
  public:
    DockingPane(int id, const QString& title, const QString& name, QWidget* parent);
    int Id() const { return m_id; }

  signals:
    void Closing(int id);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    int m_id;
};
