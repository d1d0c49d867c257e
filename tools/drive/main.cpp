#include <QApplication>
#include <QTemporaryDir>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string_view>

#include "drive/interpreter.h"
#include "drive/qt_screen.h"
#include "drive/qt_studio_host.h"
#include "ui/qt_style.h"

/// melvane-drive: runs a script from standard input on the whole program.
namespace {

namespace fs = std::filesystem;

struct Options {
    fs::path here = ".";
    std::optional<fs::path> program;
};

/// Nothing when the command line is not understood.
std::optional<Options> readOptions(int count, char** arguments) {
    Options options;
    for (int index = 1; index < count; index += 2) {
        const std::string_view name = arguments[index];
        if (index + 1 == count) return std::nullopt;
        if (name == "--here")
            options.here = arguments[index + 1];
        else if (name == "--program")
            options.program = arguments[index + 1];
        else
            return std::nullopt;
    }
    return options;
}

int run(int count, char** arguments, const Options& options) {
    if (!fs::is_directory(options.here)) {
        std::cerr << options.here.string() << " is no folder\n";
        return melvane::drive::Interpreter::failure;
    }
    const QTemporaryDir temporary;
    if (!temporary.isValid()) {
        std::cerr << "no temporary folder can be made\n";
        return melvane::drive::Interpreter::failure;
    }
    const fs::path own = temporary.path().toStdString();
    melvane::drive::prepareScreen(own);
    const fs::path program = options.program ? fs::absolute(*options.program) : own / "program";
    fs::create_directories(program);
    const QApplication application(count, arguments);
    // Once Qt has quit no loop of its own waits any more, and the program may be started anew.
    QApplication::setQuitOnLastWindowClosed(false);
    melvane::applyStyle(*qApp);
    melvane::drive::setBenchFont();
    melvane::drive::ScriptedWorld world(fs::canonical(options.here), program);
    melvane::drive::StudioHost host(world, MELVANE_RESOURCES);
    return melvane::drive::Interpreter(world, host, std::cout).run(std::cin);
}

}  // namespace

int main(int count, char** arguments) {
    const auto options = readOptions(count, arguments);
    if (!options) {
        std::cerr << "melvane-drive [--here DIR] [--program DIR] < SCRIPT\n";
        return melvane::drive::Interpreter::failure;
    }
    return run(count, arguments, *options);
}
