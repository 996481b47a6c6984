#include "trees/mainview.h"

namespace mTV {

namespace {
MainWindow* gMainWindow = nullptr;
}

MainWindow* TheMainWindow() {
    return gMainWindow;
}

void SetMainWindow(MainWindow* window) {
    gMainWindow = window;
}

std::optional<MainView> MainWindowView() {
    if (gMainWindow) return gMainWindow->View();
    return std::nullopt;
}

QWidget* MainWindowOwner() {
    return gMainWindow ? gMainWindow->Owner() : nullptr;
}

} // namespace mTV
