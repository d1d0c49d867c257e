#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>

#include "ui/qt_style.h"

namespace {

/// A screen of so many pixels: "1600x1000" where the environment does not ask for another.
QByteArray screen() {
    const auto asked = qEnvironmentVariable("MELVANE_TEST_SCREEN", "1600x1000").split('x');
    return QStringLiteral(
               R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [{"name": "screen",)"
               R"("x": 0, "y": 0, "width": %1, "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
        .arg(asked.value(0), asked.value(1))
        .toUtf8();
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryFile description;
    if (!description.open()) return 1;
    description.write(screen());
    description.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + description.fileName().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    melvane::applyStyle(application);
    return RUN_ALL_TESTS();
}
