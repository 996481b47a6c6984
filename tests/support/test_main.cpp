// Shared main of every test program: an offscreen application, a private settings store and
// documents folder, and message boxes that fail the test unless a test answers them.
#include "support/fixture.h"

#include <QApplication>
#include <QStandardPaths>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Pictures for the documentation are taken on the display given (see test_screenshots.cpp).
    if (!qEnvironmentVariableIsSet("KELVARIN_SCREENSHOTS")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    fixture::SetUpProcess();
    return RUN_ALL_TESTS();
}
