#include "mainwindow/dockingpane.h"

#include <QCloseEvent>

DockingPane::DockingPane(int id, const QString& title, const QString& name, QWidget* parent)
    : QDockWidget(title, parent), m_id(id) {
    setObjectName(name);
    setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                QDockWidget::DockWidgetFloatable);
}

void DockingPane::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    if (event->isAccepted()) emit Closing(m_id);
}
