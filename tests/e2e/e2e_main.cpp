#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "drive/qt_screen.h"
#include "ui/qt_style.h"

/// The application is for the ruler of the windows alone; the program under test is another process.
int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const QTemporaryDir folder;
    melvane::drive::prepareScreen(folder.path().toStdString());
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    melvane::applyStyle(*qApp);
    return RUN_ALL_TESTS();
}
