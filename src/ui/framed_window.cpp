#include "ui/framed_window.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "core/qt_mouse.h"
#include "core/settings.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr std::array<Qt::CursorShape, frameParts> gripPointers{
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor,
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor};

constexpr std::array<Qt::Edges, frameParts> gripEdges{
    Qt::TopEdge | Qt::LeftEdge,  Qt::Edges(Qt::LeftEdge),        Qt::BottomEdge | Qt::LeftEdge,
    Qt::Edges(Qt::BottomEdge),   Qt::BottomEdge | Qt::RightEdge, Qt::Edges(Qt::RightEdge),
    Qt::TopEdge | Qt::RightEdge, Qt::Edges(Qt::TopEdge)};

constexpr Int16 normalState = 0, minimisedState = 1, maximisedState = 2;

QRect rectOf(const FrameRect& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

/// One strip of the frame: it shows its part of the edges that are painted all around.
class EdgeStrip : public QWidget {
 public:
    EdgeStrip(const FrameLook& look, int diameter, QWidget* window)
        : QWidget(window), look_(look), diameter_(diameter) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.translate(-pos());
        paintFrameEdges(painter, parentWidget()->size(), look_, diameter_);
    }

 private:
    const FrameLook& look_;
    int diameter_;
};

}  // namespace

FramedWindow::FramedWindow(Studio& studio, const FrameOptions& options, QWidget* parent)
    : QWidget(parent, options.kind | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint),
      studio_(studio),
      options_(options),
      titleBar_(new TitleBar(options.title, options.buttons, this)),
      client_(new QWidget(this)) {
    setObjectName(options.name);
    setWindowTitle(options.title);
    setMinimumSize(smallestFrameWidth, smallestFrameHeight);
    titleBar_->setHelpEnabled(false);
    connect(titleBar_, &TitleBar::closeWanted, this, [this] { imgTitleClose_Click(); });
    connect(titleBar_, &TitleBar::minimiseWanted, this, [this] { imgTitleMinimize_Click(); });
    connect(titleBar_, &TitleBar::maximiseWanted, this, [this] { imgTitleMaxRestore_Click(); });
    connect(titleBar_, &TitleBar::helpWanted, this, [this] { imgTitleHelp_Click(); });
    connect(this, &QWidget::windowTitleChanged, titleBar_, &TitleBar::setTitle);
    makeStripsAndGrips();
}

void FramedWindow::makeStripsAndGrips() {
    for (int part = 0; part < frameParts; ++part) {
        const auto at = static_cast<std::size_t>(part);
        Winedge_[at] = new EdgeStrip(look_, cornerDiameter(options_.name), this);
        Winedge_[at]->setObjectName(memberName("Winedge", part));
        Resizer_[at] = new QWidget(this);
        Resizer_[at]->setObjectName(memberName("Resizer", part));
        Resizer_[at]->setCursor(gripPointers[at]);
        Resizer_[at]->installEventFilter(this);
    }
}

void FramedWindow::useSettings(const Settings& settings) { settings_ = &settings; }

void FramedWindow::setHelp(std::function<void()> help) {
    help_ = std::move(help);
    titleBar_->setHelpEnabled(help_ != nullptr);
}

QSize FramedWindow::sizeAround(QSize client) const {
    return {client.width(), client.height() + titleBarHeight + frameThickness};
}

// Layout

void FramedWindow::ApplySkin() { layOutFrame(isMaximized()); }

void FramedWindow::layOutFrame(bool maximised) {
    bool flat = true;
    if (settings_ != nullptr) settings_->read("XPInterface", true, flat);
    flat ? LayoutFrameXP(maximised) : LayoutFrame3D(maximised);
}

void FramedWindow::LayoutFrameXP(bool maximised) {
    look_ = FrameLook::flat;
    layOutParts(maximised);
}

void FramedWindow::LayoutFrame3D(bool maximised) {
    look_ = FrameLook::stylized;
    layOutParts(maximised);
}

void FramedWindow::layOutParts(bool maximised) {
    titleBar_->setLook(look_);
    titleBar_->setMaximised(maximised);
    titleBar_->setGeometry(0, 0, width(), titleBarHeight);
    const int below = maximised ? 0 : frameThickness;
    client_->setGeometry(0, titleBarHeight, width(), std::max(0, height() - titleBarHeight - below));
    const auto strips = edgeStrips(width(), height());
    for (std::size_t at = 0; at < strips.size(); ++at) {
        Winedge_[at]->setGeometry(rectOf(strips[at]));
        Winedge_[at]->setVisible(!maximised);
        Winedge_[at]->raise();
        Winedge_[at]->update();
    }
    LayoutResizers(maximised);
}

void FramedWindow::LayoutResizers(bool maximised) {
    QPalette colours = palette();
    if (colours.color(QPalette::Window) != palette::ground) {
        colours.setColor(QPalette::Window, palette::ground);
        setPalette(colours);
    }
    const auto grips = resizeGrips(width(), height());
    for (std::size_t at = 0; at < grips.size(); ++at) {
        Resizer_[at]->setGeometry(rectOf(grips[at]));
        Resizer_[at]->setVisible(options_.resizes && !maximised);
        Resizer_[at]->raise();
    }
}

void FramedWindow::SetWindowShape() {
    QRegion shape(rect());
    const auto insets = cornerInsets(cornerDiameter(options_.name));
    for (int row = 0; row < static_cast<int>(insets.size()); ++row) {
        const int cut = insets[static_cast<std::size_t>(row)];
        for (const int y : {row, height() - 1 - row}) {
            shape -= QRect(0, y, cut, 1);
            shape -= QRect(width() - cut, y, cut, 1);
        }
    }
    // A screen that nobody sees has no masks, and says so each time.
    if (!QGuiApplication::platformName().startsWith("offscreen")) setMask(shape);
}

// Events

void FramedWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutFrame(isMaximized());
    SetWindowShape();
}

void FramedWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    studio_.shell.WindowState = isMinimized() ? minimisedState : isMaximized() ? maximisedState : normalState;
    if (!isMinimized()) layOutFrame(isMaximized());
}

void FramedWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!shownOnce_) putTitleButtonsLast();
    shownOnce_ = true;
}

/// The Tab key reaches the contents first, and the first of them has the focus.
void FramedWindow::putTitleButtonsLast() {
    QWidget* first = nullptr;
    QWidget* last = nullptr;
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        if (titleBar_->isAncestorOf(widget) || widget == titleBar_) continue;
        last = widget;
        if (first == nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled())
            first = widget;
    }
    if (focusWidget() == nullptr && first != nullptr) first->setFocus();
    for (QWidget* const button : titleBar_->buttons()) {
        if (last != nullptr) setTabOrder(last, button);
        last = button;
    }
}

void FramedWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) barePress_ = event->position().toPoint();
}

/// The system takes the window at the first movement, so that a double click stays one.
void FramedWindow::mouseMoveEvent(QMouseEvent* event) {
    const QPoint cursor = event->globalPosition().toPoint();
    if (carriedAt_) return moveWith(cursor);
    const QPoint pulled = barePress_ ? event->position().toPoint() - *barePress_ : QPoint();
    if (pulled.isNull() || !event->buttons().testFlag(Qt::LeftButton)) return;
    if (placesItself() && !isMaximized()) move(pos() + pulled);
    DragWindow();
    barePress_.reset();
    if (carriedAt_) moveWith(cursor);
}

void FramedWindow::mouseReleaseEvent(QMouseEvent*) {
    barePress_.reset();
    carriedAt_.reset();
}

void FramedWindow::moveWith(QPoint cursor) { move(cursor - *carriedAt_); }

bool FramedWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    if (pressed || event->type() == QEvent::MouseButtonRelease) {
        const auto grip = std::ranges::find(Resizer_, watched);
        if (grip != Resizer_.end()) {
            const auto& mouse = static_cast<QMouseEvent&>(*event);
            const int index = static_cast<int>(grip - Resizer_.begin());
            const auto handler = pressed ? &FramedWindow::Resizer_MouseDown : &FramedWindow::Resizer_MouseUp;
            (this->*handler)(index, buttonMask(mouse.button()), shiftMask(mouse), mouse.position().x(),
                             mouse.position().y());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// Moving and sizing

bool FramedWindow::placesItself() const { return !QGuiApplication::platformName().startsWith("wayland"); }

void FramedWindow::moveOntoScreen(double left, double top) {
    const auto pixels = [](double twips) {
        return qRound(std::clamp(twips / twipsAPixel, -32000.0, 32000.0));
    };
    const QPoint corner(pixels(left), pixels(top));
    const QScreen* const there = QGuiApplication::screenAt(corner);
    const QRect room = (there != nullptr ? there : screen())->availableGeometry();
    const QSize spare = (room.size() - size()).expandedTo(QSize(0, 0));
    move(std::clamp(corner.x(), room.left(), room.left() + spare.width()),
         std::clamp(corner.y(), room.top(), room.top() + spare.height()));
}

WindowPlace FramedWindow::placeInTwips() const {
    constexpr double unit = twipsAPixel;
    return {x() * unit, y() * unit, width() * unit, height() * unit};
}

void FramedWindow::placeWholly(const WindowPlace& place) {
    const QPoint corner(pixelsOfTwips(place.left), pixelsOfTwips(place.top));
    const QScreen* const there = QGuiApplication::screenAt(corner);
    const QRect room = (there != nullptr ? there : screen())->availableGeometry();
    const QSize frame = frameGeometry().size() - size();
    const QSize most = room.size() - frame;
    const QSize wanted = QSize(pixelsOfTwips(place.width), pixelsOfTwips(place.height))
                             .expandedTo(minimumSize())
                             .boundedTo(most);
    resize(wanted);
    move(std::clamp(corner.x(), room.left(), room.left() + most.width() - wanted.width()),
         std::clamp(corner.y(), room.top(), room.top() + most.height() - wanted.height()));
}

double FramedWindow::roomWidth() const { return screen()->availableGeometry().width() * double{twipsAPixel}; }
double FramedWindow::roomHeight() const {
    return screen()->availableGeometry().height() * double{twipsAPixel};
}

void FramedWindow::DragWindow() {
    if (isMaximized() || windowHandle() == nullptr) return;
    if (!windowHandle()->startSystemMove() && placesItself() && barePress_) carriedAt_ = barePress_;
}

void FramedWindow::Resizer_MouseDown(int index, int button, int, double X, double Y) {
    if (index < 0 || index >= frameParts || button != 1) return;
    const auto at = static_cast<std::size_t>(index);
    if (!placesItself() && windowHandle() != nullptr) {
        windowHandle()->startSystemResize(gripEdges[at]);
        return;
    }
    setResizing(true);
    gripPress_ = Resizer_[at]->mapToGlobal(QPointF(X, Y)).toPoint();
}

void FramedWindow::Resizer_MouseUp(int index, int, int, double X, double Y) {
    if (!resizing_ || index < 0 || index >= frameParts) return;
    setResizing(false);
    const QPoint cursor = Resizer_[static_cast<std::size_t>(index)]->mapToGlobal(QPointF(X, Y)).toPoint();
    ResizeFromGrip(gripPress_.x(), gripPress_.y(), cursor.x(), cursor.y(), index);
}

void FramedWindow::ResizeFromGrip(int startX, int startY, int endX, int endY, int index) {
    const auto twips = [](int pixels) { return double{twipsAPixel} * pixels; };
    const auto pixels = [](double measure) { return static_cast<int>(measure / twipsAPixel); };
    const WindowPlace now{twips(x()), twips(y()), twips(width()), twips(height())};
    const WindowPlace place = resizedByGrip(now, index, endX - startX, endY - startY);
    setGeometry(pixels(place.left), pixels(place.top), pixels(place.width), pixels(place.height));
    layOutFrame(isMaximized());
}

// Title buttons

void FramedWindow::imgTitleClose_Click() { close(); }

void FramedWindow::imgTitleMinimize_Click() { showMinimized(); }

void FramedWindow::imgTitleMaxRestore_Click() { isMaximized() ? showNormal() : showMaximized(); }

void FramedWindow::imgTitleHelp_Click() {
    if (help_) help_();
}

}  // namespace melvane
