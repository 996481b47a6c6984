#pragma once
// The controls of the main window that the view procedures keep in step: the tree of the tree
// tab on display, the contact list and the detail pane of the selected contact. The letter tab,
// the tree tab and the node in force are the view state of viewstate.h.
//
// The main window is known to the rest of the program only through MainWindow, which it
// implements and registers while it exists; without it the procedures work on the controls they
// are given and nothing else.

#include <optional>

class ListView;
class QWidget;
class TreeView;

namespace mTV {

struct MainView {
    TreeView& CatTree;
    ListView& ListView2; // contacts, and the child nodes in the normal category mode
    ListView& ListView1; // label and value of each field of the selected contact
};

class MainWindow {
  public:
    // The owner of the windows opened over the main window.
    virtual QWidget* Owner() = 0;
    virtual MainView View() = 0;

  protected:
    ~MainWindow() = default;
};

// The registered main window, null while there is none.
MainWindow* TheMainWindow();
void SetMainWindow(MainWindow* window);
// The controls of the registered main window, none while there is no main window.
std::optional<MainView> MainWindowView();
// The owner for a window opened over the main window, null while there is none.
QWidget* MainWindowOwner();

} // namespace mTV
