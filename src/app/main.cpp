// Where the real outside world is made and joined with the studio.
#include <QApplication>
#include <QStandardPaths>

#include <iostream>
#include <memory>

#include "app/command_line.h"
#include "app/picture.h"
#include "app/program.h"
#include "app/sound_system.h"
#include "platform/desktop_system.h"
#include "platform/qt_event_loop.h"
#include "platform/qt_settings_store.h"
#include "platform/qt_single_instance.h"
#include "shell/qt_dialogs.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;

constexpr std::int64_t noticePeriod = 500, preparePeriod = 250;  // milliseconds

Directories ownDirectories() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return chooseDirectories(QCoreApplication::applicationDirPath().toStdString(),
                             std::filesystem::path(data.toStdString()) / "melvane");
}

void showNotices(Program& program, SoundSystem& sound, EventLoop& loop) {
    loop.startTimer(noticePeriod, [&program, &sound] {
        if (const auto notice = sound.takeNotice()) program.studio().form1.StatusText.set(*notice);
    });
}

/// Once the studio stands on the screen, in moments in which nobody waits for it.
void prepareWindows(Program& program, EventLoop& loop) {
    const auto timer = std::make_shared<int>();
    *timer = loop.startTimer(preparePeriod, [&program, &loop, timer] {
        const auto& studio = program.studio();
        const bool busy = studio.player.Playing || studio.drag.MouseIsDown;
        if (!busy && !program.prepareWindow()) loop.stopTimer(*timer);
    });
}

int runStudio(const CommandLine& line) {
    SteadyClock clock;
    QtEventLoop loop(clock);
    QtSettingsStore settings;
    QtDialogs dialogs(loop);
    QtSingleInstance instance;
    const Directories directories = ownDirectories();
    SoundSystem sound(clock, directories.songs().string());
    DesktopSystem desktop;
    Outside outside{clock, loop, sound.port(), sound.media(), desktop, settings, dialogs, directories};
    Program program(outside);
    program.engine().startUp.anotherInstanceRuns = [&instance] { return instance.anotherRuns(); };
    if (!program.mayStart()) return 0;
    program.start();
    showNotices(program, sound, loop);
    prepareWindows(program, loop);
    if (!line.score.empty()) program.openScore(line.score);
    loop.waitFor([] { return false; });
    return 0;
}

bool hasDisplay() {
#ifdef Q_OS_LINUX
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

int runWindows(int count, char** arguments, const CommandLine& line) {
    const bool picture = line.action == CommandLine::Action::picture;
    if (picture) useScreenWithoutDisplay();
    if (!picture && !hasDisplay()) {
        std::cerr << "melvane: there is no display. See --picture, or melvane-render.\n";
        return 1;
    }
    QApplication application(count, arguments);
    QApplication::setApplicationName(QStringLiteral("Melvane"));
    QApplication::setDesktopFileName(QStringLiteral("melvane"));
    QApplication::setQuitOnLastWindowClosed(false);  // the main window hides while the keyboard is open
    applyStyle(application);
    return picture ? savePicture(line) : runStudio(line);
}

}  // namespace

int main(int count, char** arguments) {
    const CommandLine line = readCommandLine(count, arguments);
    switch (line.action) {
        case CommandLine::Action::help:
            std::cout << commandLineHelp;
            return 0;
        case CommandLine::Action::version:
            std::cout << "Melvane " MELVANE_VERSION "\n";
            return 0;
        case CommandLine::Action::misused:
            std::cerr << "melvane: " << line.complaint << '\n';
            return 2;
        default:
            return runWindows(count, arguments, line);
    }
}
