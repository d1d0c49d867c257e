#include "shell/qt_keys.h"

#include <QShortcut>
#include <QWidget>
#include <array>
#include <functional>

#include "shell/engine.h"

namespace melvane {

namespace {

struct Key {
    const char* keys;
    void (MainToolbarCommands::*command)();
};

constexpr std::array<Key, 7> commands{{{"Ctrl+O", &MainToolbarCommands::openScore},
                                       {"Ctrl+S", &MainToolbarCommands::saveScore},
                                       {"F4", &MainToolbarCommands::rewind},
                                       {"F5", &MainToolbarCommands::play},
                                       {"F6", &MainToolbarCommands::pause},
                                       {"F7", &MainToolbarCommands::stop},
                                       {"F8", &MainToolbarCommands::toggleLoop}}};

}  // namespace

void addKeys(QWidget& window, Engine& engine) {
    for (const auto& [keys, command] : commands) {
        auto* const shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), &window);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, &window,
                         [&engine, run = command] { std::invoke(run, engine.toolbar); });
    }
}

}  // namespace melvane
