#include "recorder/record_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QVBoxLayout>

#include "recorder/player_panel.h"
#include "recorder/recording_panel.h"
#include "ui/qt_front_keeper.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr int outerMargin = 12, space = 8;  // pixels

/// 0 where no system shows the widget.
std::int64_t handleOf(const QWidget& widget) {
    return QGuiApplication::platformName() == "offscreen" ? 0
                                                          : static_cast<std::int64_t>(systemHandle(widget));
}

}  // namespace

Record::Record(Studio& studio, RecorderCommands& commands, QWidget* parent)
    : ToolWindow(studio, {.name = "Record", .title = "Sound Recorder", .resizes = false, .kind = Qt::Tool},
                 {studio.Record.place, studio.shell.RecorderOpen}, parent),
      commands_(commands) {
    auto* const rows = new QVBoxLayout(client());
    rows->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    rows->setSpacing(space);
    auto* const recording = new RecordingPanel(studio.Record, client());
    rows->addWidget(recording);
    rows->addWidget(new PlayerPanel(studio.Record, commands.buttons, client()));
    rows->addStretch();
    makePicture();
    holdContents();
    new FrontKeeper(*this);
}

/// Nobody sees it: the device wants a window for what it plays.
void Record::makePicture() {
    auto* const picture = new QWidget(client());
    picture->setObjectName("picMP3");
    picture->setAttribute(Qt::WA_DontCreateNativeAncestors);
    picture->hide();
    commands_.audio.pictureWindow = [picture = QPointer<QWidget>(picture)] {
        return picture != nullptr ? handleOf(*picture) : 0;
    };
}

void Record::setVisible(bool visible) {
    const QWidget* const front = QApplication::activeWindow();
    if (visible && isHidden() && front != nullptr && front->windowType() == Qt::Window)
        putBeforeActiveWindow(*this);
    ToolWindow::setVisible(visible);
}

void Record::load() {
    commands_.window.Form_Load();
    findChild<QWidget*>("CmdrecordSNG")->setFocus();
}

void Record::comeToFront() { commands_.window.Form_Activate(); }
void Record::comeNear(int button) { commands_.buttons.ImgR_MouseMove(button, 0, 0, 0, 0); }
void Record::leaveButtons() { commands_.buttons.hideButtons(); }

void Record::closeEvent(QCloseEvent* event) {
    event->accept();
    commands_.window.Form_Unload();
}

}  // namespace melvane
