#include "recorder/record_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QVBoxLayout>

#include "recorder/player_panel.h"
#include "recorder/recording_panel.h"
#include "ui/flat_button_panel.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr int outerMargin = 12, space = 8;  // pixels

/// The handle by which the system knows the widget; 0 where no system shows it.
std::int64_t handleOf(const QWidget& widget) {
    return QGuiApplication::platformName() == "offscreen" ? 0 : static_cast<std::int64_t>(widget.winId());
}

}  // namespace

Record::Record(Studio& studio, RecorderCommands& commands, QWidget* parent)
    : FramedWindow(studio, {"Record", "Sound Recorder", {}, false, Qt::Tool}, parent),
      studio_(studio),
      commands_(commands) {
    auto* const rows = new QVBoxLayout(client());
    rows->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    rows->setSpacing(space);
    auto* const recording = new RecordingPanel(studio.Record, client());
    rows->addWidget(recording);
    rows->addWidget(new PlayerPanel(studio.Record, commands.buttons, client()));
    rows->addStretch();
    makePicture();
    for (QWidget* const part : findChildren<QWidget*>()) {
        part->setMouseTracking(true);
        part->installEventFilter(this);
    }
    setMouseTracking(true);
    resize(sizeAround(rows->sizeHint()));
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

bool Record::eventFilter(QObject* watched, QEvent* event) {
    const bool moved = event->type() == QEvent::MouseMove &&
                       static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
    // A larger font needs a larger window.
    if (watched == client() && event->type() == QEvent::LayoutRequest) {
        resize(size().expandedTo(sizeAround(client()->layout()->sizeHint())));
    }
    return (moved && handleMove(*watched)) || FramedWindow::eventFilter(watched, event);
}

/// Whether the move ends here: over a flat button, else it would reach the ground behind.
bool Record::handleMove(const QObject& watched) {
    const auto* const flat = qobject_cast<const FlatButton*>(watched.parent());
    if (flat != nullptr && &watched == flat->button()) return true;
    if (flat != nullptr && flat->picture()->isEnabled()) {
        commands_.buttons.ImgR_MouseMove(flat->index(), 0, 0, 0, 0);
        return true;
    }
    commands_.buttons.hideButtons();
    return false;
}

bool Record::event(QEvent* event) {
    const bool known = FramedWindow::event(event);
    const auto type = event->type();
    if (!loaded()) return known;
    if (type == QEvent::WindowActivate) commands_.window.Form_Activate();
    if (type == QEvent::Leave || type == QEvent::MouseMove) commands_.buttons.hideButtons();
    return known;
}

void Record::setVisible(bool visible) {
    const QWidget* const front = QApplication::activeWindow();
    if (visible && isHidden() && front != nullptr && front->windowType() == Qt::Window)
        putBeforeActiveWindow(*this);
    FramedWindow::setVisible(visible);
}

void Record::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (loaded()) return;
    auto& place = studio_.Record.place;
    place.width = width() * double{twipsAPixel};
    place.height = height() * double{twipsAPixel};
    commands_.window.Form_Load();
    moveOntoScreen(place.left, place.top);
    tellPlace();
    findChild<QWidget*>("CmdrecordSNG")->setFocus();
}

void Record::closeEvent(QCloseEvent* event) {
    event->accept();
    commands_.window.Form_Unload();
}

void Record::tellPlace() {
    studio_.Record.place = {x() * double{twipsAPixel}, y() * double{twipsAPixel},
                            width() * double{twipsAPixel}, height() * double{twipsAPixel}};
}

void Record::moveEvent(QMoveEvent* event) {
    FramedWindow::moveEvent(event);
    if (loaded()) tellPlace();
}

void Record::resizeEvent(QResizeEvent* event) {
    FramedWindow::resizeEvent(event);
    if (loaded()) tellPlace();
}

}  // namespace melvane
