#include "keyboard_stage.h"

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <filesystem>

#include "ui/qt_style.h"

namespace melvane::bench {

KeyboardStage::KeyboardStage()
    : outside{clock,
              loop,
              port,
              media,
              desktop,
              store,
              dialogs,
              Directories{std::filesystem::temp_directory_path() / "melvane-bench", MELVANE_RESOURCES}},
      engine{studio, outside, window, window, floatingWindows} {
    std::filesystem::create_directories(outside.directories.program);
    window.attach(engine);
    engine.startUp.Form_Load();
    keyboard.show();
    keyboard.resize(1280, 720);
    keyboard.activateWindow();
    QCoreApplication::processEvents();
}

void KeyboardStage::send(char letter, bool down) {
    const auto key = static_cast<Qt::Key>(letter);
    const QString text = QString(QChar(letter)).toLower();
    qt_handleKeyEvent(keyboard.windowHandle(), down ? QEvent::KeyPress : QEvent::KeyRelease, key, {}, text,
                      false, 1);
}

void KeyboardStage::serve(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

int runOnScreen(int argc, char** argv, int (*work)(int, char**)) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MELVANE_SCREEN);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    applyStyle(application);
    return work(argc, argv);
}

}  // namespace melvane::bench
