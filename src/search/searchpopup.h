#pragma once
// Where the search window shows a pop-up menu and waits for the choice. Tests replace the
// handler so that nothing waits: it answers the entry chosen, or null for none.

#include <functional>

class QAction;
class QMenu;

namespace mSearch {

// Shows `menu` at the mouse pointer and answers the entry chosen, null when none was.
QAction* ShowPopup(QMenu* menu);
using PopupHandler = std::function<QAction*(QMenu* menu)>;
// Returns the previous handler; an empty one restores the real menu.
PopupHandler SetPopupHandler(PopupHandler handler);

} // namespace mSearch
