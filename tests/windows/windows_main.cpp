#include <gtest/gtest.h>

#include <QApplication>

#include "ui/qt_style.h"

int main(int argc, char** argv) {
    // Both are screens of 1600 by 1000 logical pixels.
    const bool twice = qEnvironmentVariableIntValue("QT_SCALE_FACTOR") == 2;
    qputenv("QT_QPA_PLATFORM", twice ? "offscreen:configfile=" MELVANE_SCREENS
                                       "/screen_with_twice_the_pixels.json"
                                     : "offscreen:configfile=" MELVANE_SCREENS "/screen.json");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    melvane::applyStyle(application);
    return RUN_ALL_TESTS();
}
