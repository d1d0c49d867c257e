#include "app/picture.h"

#include <QPixmap>
#include <QString>
#include <QTemporaryDir>

#include <iostream>

#include "app/program.h"
#include "app/sound_system.h"
#include "platform/files.h"
#include "platform/qt_event_loop.h"
#include "platform/settings_store.h"
#include "shell/qt_dialogs.h"

namespace melvane {

namespace {

constexpr const char* screen =
    R"({"synchronousWindowSystemEvents":false,"windowFrameMargins":false,"screens":[{"name":"screen",)"
    R"("x":0,"y":0,"width":1280,"height":800,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";

constexpr std::int64_t settlingMilliseconds = 300;  // for what the windows post to themselves at the start

/// What a screen that nobody sees cannot do is no news.
void say(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::cerr << text.toStdString() << '\n';
}

int complain(const std::string& text) {
    std::cerr << "melvane: " << text << '\n';
    return 1;
}

}  // namespace

void useScreenWithoutDisplay() {
    static const QTemporaryDir folder;
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name)) return;
    }
    qInstallMessageHandler(say);
    const std::string file = folder.filePath(QStringLiteral("screen.json")).toStdString();
    if (writeFileWhole(file, screen)) return;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + file));
}

int savePicture(const CommandLine& line) {
    if (!line.score.empty() && !fileExists(line.score.string())) {
        return complain("\"" + line.score.string() + "\" cannot be read.");
    }
    const QTemporaryDir folder;
    SteadyClock clock;
    QtEventLoop loop(clock);
    QtDialogs dialogs(loop);
    MemorySettingsStore settings;
    SilentSystem sound(clock);
    BareDesktop desktop;
    Outside outside{clock,   loop,     sound.port(), sound.media(),
                    desktop, settings, dialogs,      {folder.path().toStdString(), {}}};
    Program program(outside);
    program.start();
    if (!line.score.empty()) program.openScore(line.score);
    loop.waitUntil(clock.counter() + settlingMilliseconds * clock.frequency() / 1000);
    const bool saved = program.window().grab().save(QString::fromStdString(line.picture.string()));
    program.window().unload();
    return saved ? 0 : complain("\"" + line.picture.string() + "\" cannot be written.");
}

}  // namespace melvane
