#include "drive/qt_screen.h"

#include <QApplication>
#include <QFont>
#include <fstream>
#include <iostream>

namespace melvane::drive {

namespace {

constexpr const char* screenDescription =
    R"({"synchronousWindowSystemEvents":false,"windowFrameMargins":false,"screens":[{"name":"bench","x":0,"y":0,)"
    R"("width":1280,"height":1024,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";

/// What a screen that nobody sees cannot do is no news; everything else is said as before.
void say(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) std::cerr << text.toStdString() << '\n';
}

}  // namespace

void prepareScreen(const std::filesystem::path& folder) {
    qInstallMessageHandler(say);
    const auto path = folder / "screen.json";
    std::ofstream(path) << screenDescription;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(path.string()));
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder.string()));
    // What a user's own session asks of Qt must not reach the bench.
    for (const char* name : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"}) {
        qunsetenv(name);
    }
}

void setBenchFont() {
    QFont font("DejaVu Sans");
    font.setPointSize(QApplication::font().pointSize());
    QApplication::setFont(font);
}

}  // namespace melvane::drive
