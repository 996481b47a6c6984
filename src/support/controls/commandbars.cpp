#include "support/controls/commandbars.h"

#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

CommandBarAction::CommandBarAction(int id, const QString& caption, ControlType type, QObject* parent)
    : QAction(caption, parent), m_id(id), m_type(type) {
    setCheckable(type == ControlType::RadioButton);
}

void CommandBarAction::SetEnabled(bool enabled) {
    m_enabled = enabled;
    setEnabled(Enabled());
    emit EnabledSet(Enabled());
}

CommandBars::CommandBars(QMainWindow* window) : QObject(window), m_window(window) {}

CommandBarAction* CommandBars::Action(int id, const QString& caption, ControlType type) {
    if (CommandBarAction* known = m_actions.value(id)) return known;
    auto* action = new CommandBarAction(id, caption, type, this);
    if (m_icons) action->setIcon(m_icons(id));
    // Menus show check marks, not icons, for the radio-like entries.
    action->setIconVisibleInMenu(type != ControlType::RadioButton);
    connect(action, &QAction::triggered, this, [this, action] {
        // A click does not change the check state by itself: the command sets it.
        if (action->isCheckable()) action->setChecked(!action->isChecked());
        emit Execute(action);
    });
    m_actions.insert(id, action);
    return action;
}

void CommandBars::place(QWidget* controls, QAction* action, bool beginGroup) {
    if (auto* menu = qobject_cast<QMenu*>(controls)) {
        if (beginGroup && !menu->isEmpty()) menu->addSeparator();
        menu->addAction(action);
    } else if (auto* bar = qobject_cast<QToolBar*>(controls)) {
        if (beginGroup && !bar->actions().isEmpty()) bar->addSeparator();
        bar->addAction(action);
        if (QWidget* button = bar->widgetForAction(action)) button->installEventFilter(this);
    } else if (auto* menuBar = qobject_cast<QMenuBar*>(controls)) {
        menuBar->addAction(action);
    }
}

CommandBarAction* CommandBars::AddButton(QWidget* controls, ControlType type, int id, const QString& caption,
                                         bool beginGroup) {
    const bool first = !m_actions.contains(id);
    CommandBarAction* action = Action(id, caption, type);
    if (first) action->m_beginGroup = beginGroup;
    place(controls, action, beginGroup);
    return action;
}

QMenu* CommandBars::AddPopup(QWidget* controls, const QString& caption, bool beginGroup) {
    auto* popup = new QMenu(caption, controls);
    if (auto* menu = qobject_cast<QMenu*>(controls)) {
        if (beginGroup && !menu->isEmpty()) menu->addSeparator();
        menu->addMenu(popup);
    } else if (auto* menuBar = qobject_cast<QMenuBar*>(controls)) {
        menuBar->addMenu(popup);
    }
    return popup;
}

QMenu* CommandBars::AddDropDown(QToolBar* bar, CommandBarAction* button) {
    auto* menu = new QMenu(bar);
    button->setMenu(menu);
    if (auto* tool = qobject_cast<QToolButton*>(bar->widgetForAction(button)))
        tool->setPopupMode(QToolButton::MenuButtonPopup);
    return menu;
}

CommandBarAction* CommandBars::AddToolbarList(QMenu* menu, int id, const QString& caption) {
    CommandBarAction* marker = AddButton(menu, ControlType::Button, id, caption);
    // The marker only holds the place (and the Enabled state) of the list; it shows no entry.
    marker->setVisible(false);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, marker] { fillToolbarList(menu, marker); });
    connect(marker, &CommandBarAction::EnabledSet, this, [this](bool enabled) {
        for (QAction* entry : std::as_const(m_listed))
            entry->setEnabled(enabled);
    });
    fillToolbarList(menu, marker);
    return marker;
}

void CommandBars::fillToolbarList(QMenu* menu, CommandBarAction* marker) {
    for (QAction* entry : std::as_const(m_listed))
        menu->removeAction(entry);
    m_listed.clear();
    for (QToolBar* bar : std::as_const(m_toolBars)) {
        QAction* entry = bar->toggleViewAction();
        entry->setEnabled(marker->Enabled());
        menu->insertAction(marker, entry);
        m_listed.append(entry);
    }
}

QMenu* CommandBars::AddContextMenu(const QString& name) {
    auto* menu = new QMenu(m_window);
    menu->setObjectName(name);
    m_contextMenus.insert(name, menu);
    return menu;
}

CommandBarAction* CommandBars::FindAction(int id) const {
    return m_actions.value(id);
}

QList<CommandBarAction*> CommandBars::Actions() const {
    return m_actions.values();
}

bool CommandBars::ExecuteId(int id) {
    CommandBarAction* action = m_actions.value(id);
    if (!action || !action->isEnabled()) return false;
    action->trigger();
    return true;
}

void CommandBars::SetShowToolTips(bool show) {
    m_showToolTips = show;
}

void CommandBars::SetLargeIcons(bool large) {
    m_largeIcons = large;
    for (QToolBar* bar : std::as_const(m_toolBars))
        bar->setIconSize(QSize(IconSize(large), IconSize(large)));
}

void CommandBars::SetLocked(bool locked) {
    m_locked = locked;
    for (QToolBar* bar : std::as_const(m_toolBars))
        bar->setMovable(!locked);
}

bool CommandBars::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && !m_showToolTips) return true;
    return QObject::eventFilter(watched, event);
}

// Toolbar places -------------------------------------------------------------------------------

namespace {

bool horizontalArea(Qt::ToolBarArea area) {
    return area == Qt::TopToolBarArea || area == Qt::BottomToolBarArea;
}

} // namespace

QToolBar* CommandBars::AddToolBar(const QString& title, const QString& name) {
    auto* bar = new QToolBar(title, m_window);
    bar->setObjectName(name);
    bar->setFloatable(false);
    bar->setMovable(!m_locked);
    bar->setIconSize(QSize(IconSize(m_largeIcons), IconSize(m_largeIcons)));
    m_window->addToolBar(Qt::TopToolBarArea, bar);
    m_toolBars.append(bar);
    int row = 0;
    for (const BarPlace& p : std::as_const(m_places))
        if (p.area == Qt::TopToolBarArea) row = std::max(row, p.row);
    m_places.append({bar, Qt::TopToolBarArea, row, true});
    return bar;
}

QToolBar* CommandBars::barNamed(const QString& name) const {
    for (QToolBar* bar : m_toolBars)
        if (bar->objectName() == name) return bar;
    return nullptr;
}

void CommandBars::DockRightOf(QToolBar* bar, QToolBar* barOnLeft) {
    QList<BarPlace> places = currentPlaces();
    BarPlace moved{bar, Qt::TopToolBarArea, 0, bar->isVisibleTo(m_window)};
    for (int i = 0; i < places.size(); ++i)
        if (places[i].bar == bar) moved = places.takeAt(i);
    for (int i = 0; i < places.size(); ++i) {
        if (places[i].bar != barOnLeft) continue;
        moved.area = places[i].area;
        moved.row = places[i].row;
        places.insert(i + 1, moved);
        break;
    }
    applyPlaces(places);
}

void CommandBars::DockOnNewRow(QToolBar* bar) {
    QList<BarPlace> places = currentPlaces();
    int at = -1;
    for (int i = 0; i < places.size(); ++i)
        if (places[i].bar == bar) at = i;
    if (at < 0) return;
    BarPlace moved = places.takeAt(at);
    int last = -1;
    for (const BarPlace& p : std::as_const(places))
        if (p.area == moved.area) last = std::max(last, p.row);
    moved.row = last + 1;
    places.append(moved);
    applyPlaces(places);
}

// Once the window has been laid out, the bars' geometry shows where the user has put them. Bars
// that are hidden have no place on screen: they keep their row beside the bar they followed.
QList<CommandBars::BarPlace> CommandBars::currentPlaces() const {
    if (!m_window->isVisible()) {
        QList<BarPlace> places = m_places;
        for (BarPlace& p : places)
            p.visible = p.bar->isVisibleTo(m_window);
        return places;
    }
    struct Seen {
        BarPlace place;
        int line;
        int along;
    };
    QList<Seen> seen;
    for (QToolBar* bar : m_toolBars) {
        if (!bar->isVisible()) continue;
        const Qt::ToolBarArea area = m_window->toolBarArea(bar);
        const QRect g = bar->geometry();
        const bool h = horizontalArea(area);
        seen.append({{bar, area, 0, true}, h ? g.y() : g.x(), h ? g.x() : g.y()});
    }
    std::stable_sort(seen.begin(), seen.end(), [](const Seen& a, const Seen& b) {
        if (a.place.area != b.place.area) return a.place.area < b.place.area;
        if (a.line != b.line) return a.line < b.line;
        return a.along < b.along;
    });
    QList<BarPlace> places;
    for (int i = 0; i < seen.size(); ++i) {
        BarPlace p = seen[i].place;
        if (i > 0 && seen[i - 1].place.area == p.area)
            p.row = places.last().row + (seen[i - 1].line != seen[i].line ? 1 : 0);
        places.append(p);
    }
    // The hidden ones, in the order they had.
    for (int m = 0; m < m_places.size(); ++m) {
        BarPlace hidden = m_places[m];
        if (hidden.bar->isVisible()) continue;
        hidden.visible = false;
        int after = -1;
        for (int k = m - 1; k >= 0 && after < 0; --k) {
            if (m_places[k].area != hidden.area) break;
            for (int i = 0; i < places.size(); ++i)
                if (places[i].bar == m_places[k].bar) after = i;
        }
        if (after < 0) {
            // First of its area: the rows behind it move along when it had a row of its own.
            const bool ownRow = m + 1 >= m_places.size() || m_places[m + 1].area != hidden.area ||
                                m_places[m + 1].row != hidden.row;
            int at = 0;
            while (at < places.size() && places[at].area < hidden.area)
                ++at;
            hidden.row = 0;
            for (int i = at; ownRow && i < places.size() && places[i].area == hidden.area; ++i)
                ++places[i].row;
            places.insert(at, hidden);
            continue;
        }
        const bool ownRow = hidden.row != m_places[m - 1].row;
        hidden.row = places[after].row + (ownRow ? 1 : 0);
        for (int i = after + 1; ownRow && i < places.size() && places[i].area == hidden.area; ++i)
            ++places[i].row;
        places.insert(after + 1, hidden);
    }
    return places;
}

void CommandBars::applyPlaces(const QList<BarPlace>& places) {
    for (const BarPlace& p : places)
        m_window->removeToolBar(p.bar);
    for (int i = 0; i < places.size(); ++i) {
        const BarPlace& p = places[i];
        if (i > 0 && places[i - 1].area == p.area && places[i - 1].row != p.row)
            m_window->addToolBarBreak(p.area);
        m_window->addToolBar(p.area, p.bar);
        p.bar->setVisible(p.visible);
    }
    // Bars the list does not name stay as they are, behind the others of their area.
    QList<BarPlace> kept = places;
    for (const BarPlace& old : std::as_const(m_places)) {
        bool named = false;
        for (const BarPlace& p : places)
            named = named || p.bar == old.bar;
        if (!named) kept.append(old);
    }
    m_places = kept;
}

QString CommandBars::SaveLayout() const {
    QStringList parts;
    for (const BarPlace& p : currentPlaces())
        parts << QStringLiteral("%1,%2,%3,%4")
                     .arg(p.bar->objectName())
                     .arg(int(p.area))
                     .arg(p.row)
                     .arg(p.visible ? 1 : 0);
    return parts.join(QLatin1Char(';'));
}

bool CommandBars::LoadLayout(const QString& layout) {
    QList<BarPlace> places;
    for (const QString& part : layout.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QStringList f = part.split(QLatin1Char(','));
        if (f.size() != 4) return false;
        bool okArea = false, okRow = false;
        const int area = f[1].toInt(&okArea);
        const int row = f[2].toInt(&okRow);
        QToolBar* bar = barNamed(f[0]);
        const bool knownArea = area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea ||
                               area == Qt::TopToolBarArea || area == Qt::BottomToolBarArea;
        if (!okArea || !okRow || !knownArea || row < 0 ||
            (f[3] != QLatin1String("0") && f[3] != QLatin1String("1")))
            return false;
        if (!bar) continue; // a bar of another version of the program
        places.append({bar, Qt::ToolBarArea(area), row, f[3] == QLatin1String("1")});
    }
    if (places.isEmpty()) return false;
    std::stable_sort(places.begin(), places.end(), [](const BarPlace& a, const BarPlace& b) {
        return a.area != b.area ? a.area < b.area : a.row < b.row;
    });
    applyPlaces(places);
    return true;
}
