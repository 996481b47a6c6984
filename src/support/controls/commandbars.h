#pragma once
// Command bars: every command of a window is one action with a numeric id. Menus, toolbars and
// pop-ups show controls of those actions; the same id shown in several places is one action, so
// its Enabled, Checked, Caption, Tag and Visible hold for all of them. A click on any control
// reaches the one Execute signal. The toolbars' places can be saved to a text and restored.

#include <QAction>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <functional>

class QMainWindow;
class QMenu;
class QMenuBar;
class QToolBar;
class QWidget;

// Kind of control: a plain button, or a radio-like button that shows a check state. A click
// never changes that state by itself; the command that runs sets it.
enum class ControlType { Button = 1, RadioButton = 11 };

class CommandBarAction : public QAction {
    Q_OBJECT
  public:
    CommandBarAction(int id, const QString& caption, ControlType type, QObject* parent);

    int Id() const { return m_id; }
    ControlType Type() const { return m_type; }

    // Enabled as set, also while the control is hidden (a hidden QAction reports itself disabled).
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);
    bool Checked() const { return isChecked(); }
    void SetChecked(bool checked) { setChecked(checked); }
    bool Visible() const { return isVisible(); }
    void SetVisible(bool visible) { setVisible(visible); }
    QString Caption() const { return text(); }
    void SetCaption(const QString& caption) { setText(caption); }
    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }
    // A separator stands before the control where it was first placed.
    bool BeginGroup() const { return m_beginGroup; }

  signals:
    void EnabledSet(bool enabled);

  private:
    friend class CommandBars;
    int m_id;
    ControlType m_type;
    QString m_tag;
    bool m_beginGroup = false;
    bool m_enabled = true;
};

class CommandBars : public QObject {
    Q_OBJECT
  public:
    explicit CommandBars(QMainWindow* window);

    // Icon of a command by its id; asked once when the action is made. Null: no icon.
    void SetIconProvider(std::function<QIcon(int id)> provider) { m_icons = std::move(provider); }

    // The action of `id`, made on first use. A later call with the same id answers the same action.
    CommandBarAction* Action(int id, const QString& caption, ControlType type = ControlType::Button);

    // Places the action of `id` on a menu, menu bar or toolbar, after a separator when
    // `beginGroup`, and answers it.
    CommandBarAction* AddButton(QWidget* controls, ControlType type, int id, const QString& caption,
                                bool beginGroup = false);
    // A sub-menu on a menu or the menu bar.
    QMenu* AddPopup(QWidget* controls, const QString& caption, bool beginGroup = false);
    // A drop-down under a toolbar button: the button runs its own command, the arrow opens the menu.
    QMenu* AddDropDown(QToolBar* bar, CommandBarAction* button);
    // The list of toolbars with a check each, shown in `menu` where the marker action `id` stands.
    CommandBarAction* AddToolbarList(QMenu* menu, int id, const QString& caption);
    // A toolbar of the window, in the top area; `name` identifies it in saved layouts.
    QToolBar* AddToolBar(const QString& title, const QString& name);
    // Puts `bar` on the row of `barOnLeft`, right of it; a bar added after these starts a new row.
    void DockRightOf(QToolBar* bar, QToolBar* barOnLeft);
    // Starts a new row of toolbars before `bar`.
    void DockOnNewRow(QToolBar* bar);

    // A pop-up menu of the window, not on the menu bar, found by its name.
    QMenu* AddContextMenu(const QString& name);
    QMenu* ContextMenu(const QString& name) const { return m_contextMenus.value(name); }

    CommandBarAction* FindAction(int id) const;
    QList<CommandBarAction*> Actions() const; // every action with an id, by id
    QList<int> Ids() const { return m_actions.keys(); }
    const QList<QToolBar*>& ToolBars() const { return m_toolBars; }

    // Runs the command of `id` as a click would: a disabled or unknown command does nothing.
    bool ExecuteId(int id);

    // Display options of all toolbars.
    void SetShowToolTips(bool show);
    void SetLargeIcons(bool large);
    void SetLocked(bool locked);
    static int IconSize(bool large) { return large ? 24 : 16; }

    // The toolbars' places: area, row, order and visibility, as one line of text.
    QString SaveLayout() const;
    // Restores a text of SaveLayout; bars it does not name keep their place. False for a text
    // that is empty or not a layout, which changes nothing.
    bool LoadLayout(const QString& layout);

  signals:
    void Execute(CommandBarAction* Control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Where one toolbar stands: its area, its row in that area (from the window's edge) and
    // whether it shows. The list of places runs row by row, left to right (top to bottom).
    struct BarPlace {
        QToolBar* bar;
        Qt::ToolBarArea area;
        int row;
        bool visible;
    };
    void place(QWidget* controls, QAction* action, bool beginGroup);
    void fillToolbarList(QMenu* menu, CommandBarAction* marker);
    QList<BarPlace> currentPlaces() const;
    void applyPlaces(const QList<BarPlace>& places);
    QToolBar* barNamed(const QString& name) const;

    QMainWindow* m_window;
    QMap<int, CommandBarAction*> m_actions; // ordered by id
    QList<QToolBar*> m_toolBars;
    QList<BarPlace> m_places; // as last applied; the window's geometry tells more once it shows
    QHash<QString, QMenu*> m_contextMenus;
    QList<QAction*> m_listed; // the toolbar list's entries now in the menu
    std::function<QIcon(int)> m_icons;
    bool m_showToolTips = true;
    bool m_largeIcons = true;
    bool m_locked = false;
};
