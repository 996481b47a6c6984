#include "mainwindow/statusbar.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>

StatusBar::StatusBar(int panels, QWidget* parent) : QStatusBar(parent) {
    setSizeGripEnabled(true);
    for (int n = 1; n <= panels; ++n)
        AddPanel();
}

int StatusBar::AddPanel() {
    const int n = PanelCount() + 1;
    auto* panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("Panel%1").arg(n));
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(4, 0, 4, 0);
    auto* text = new QLabel(panel);
    grid->addWidget(text, 0, 0);
    addPermanentWidget(panel, n == 1 ? 1 : 0);
    m_panels.append(panel);
    m_texts.append(text);
    return n;
}

QString StatusBar::PanelText(int panel) const {
    return panel >= 1 && panel <= m_texts.size() ? m_texts[panel - 1]->text() : QString();
}

void StatusBar::SetPanelText(int panel, const QString& text) {
    if (panel >= 1 && panel <= m_texts.size()) m_texts[panel - 1]->setText(text);
}

QWidget* StatusBar::Panel(int panel) const {
    return panel >= 1 && panel <= m_panels.size() ? m_panels[panel - 1] : nullptr;
}

namespace mProgressBar {

void MoveIntoStatusBar(QProgressBar* bar, StatusBar* statusBar, int panel) {
    QWidget* holder = statusBar ? statusBar->Panel(panel) : nullptr;
    if (!bar || !holder) return;
    auto* grid = static_cast<QGridLayout*>(holder->layout());
    bar->setParent(holder);
    bar->setTextVisible(false);
    bar->setMaximumHeight(holder->sizeHint().height());
    // Same cell as the panel's text: while the bar shows, it covers the text.
    grid->addWidget(bar, 0, 0);
    bar->hide();
}

} // namespace mProgressBar
