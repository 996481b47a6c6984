#include "search/searchpopup.h"

#include <QCursor>
#include <QMenu>

namespace mSearch {

namespace {
PopupHandler& handler() {
    static PopupHandler h;
    return h;
}
} // namespace

QAction* ShowPopup(QMenu* menu) {
    if (handler()) return handler()(menu);
    return menu->exec(QCursor::pos());
}

PopupHandler SetPopupHandler(PopupHandler h) {
    PopupHandler old = std::move(handler());
    handler() = std::move(h);
    return old;
}

} // namespace mSearch
