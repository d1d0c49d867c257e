#include "ui/tool_window.h"

#include <QLayout>
#include <QMouseEvent>

#include "ui/flat_button_panel.h"

namespace melvane {

ToolWindow::ToolWindow(Studio& studio, const FrameOptions& options, State state, QWidget* parent)
    : FramedWindow(studio, options, parent), state_(state) {}

void ToolWindow::holdContents() {
    for (QWidget* const part : findChildren<QWidget*>()) {
        part->setMouseTracking(true);
        part->installEventFilter(this);
    }
    setMouseTracking(true);
    resize(sizeAround(client()->layout()->sizeHint()));
}

bool ToolWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool moved = event->type() == QEvent::MouseMove &&
                       static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
    // A larger font needs a larger window.
    if (watched == client() && event->type() == QEvent::LayoutRequest) {
        resize(size().expandedTo(sizeAround(client()->layout()->sizeHint())));
    }
    return (moved && handleMove(*watched)) || FramedWindow::eventFilter(watched, event);
}

/// Whether the move ends here: over a flat button, else it would reach the ground behind.
bool ToolWindow::handleMove(const QObject& watched) {
    const auto* const flat = qobject_cast<const FlatButton*>(watched.parent());
    if (flat != nullptr && &watched == flat->button()) return true;
    if (flat != nullptr && flat->picture()->isEnabled()) {
        comeNear(flat->index());
        return true;
    }
    leaveButtons();
    return false;
}

bool ToolWindow::event(QEvent* event) {
    const bool known = FramedWindow::event(event);
    const auto type = event->type();
    if (!loaded()) return known;
    if (type == QEvent::WindowActivate) comeToFront();
    if (type == QEvent::Leave || type == QEvent::MouseMove) leaveButtons();
    return known;
}

void ToolWindow::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (loaded()) return;
    const WindowPlace now = placeInTwips();
    state_.place.width = now.width;
    state_.place.height = now.height;
    load();
    moveOntoScreen(state_.place.left, state_.place.top);
    tellPlace();
    ApplySkin();
}

void ToolWindow::tellPlace() { state_.place = placeInTwips(); }

void ToolWindow::moveEvent(QMoveEvent* event) {
    FramedWindow::moveEvent(event);
    if (loaded()) tellPlace();
}

void ToolWindow::resizeEvent(QResizeEvent* event) {
    FramedWindow::resizeEvent(event);
    if (loaded()) tellPlace();
}

}  // namespace melvane
