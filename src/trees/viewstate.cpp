#include "trees/viewstate.h"

// The advanced mode is the default of the settings; the preferences replace it at start.
bool AdvancedCategoryMode = true;
QString CurrentLetter = QStringLiteral("ALL");
QString CurrentTreeTab = QStringLiteral("Categories");
QString CurrentNodeKey = QStringLiteral("ID0");
QString CurrentDiskKey;

namespace mToolBar {

qint16 WhatCATIsChecked() {
    if (CurrentTreeTab == QLatin1String("Categories")) return 0;
    if (CurrentTreeTab == QLatin1String("Boxes")) return 1;
    return 2;
}

} // namespace mToolBar
