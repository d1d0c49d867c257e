#include "ui/framed_window.h"

#include <QApplication>
#include <QPainter>
#include <QShortcut>
#include <algorithm>

#include "core/mouse_buttons.h"
#include "core/settings.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr std::array<Qt::CursorShape, frameParts> gripPointers{
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor,
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor};

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
      resizing_(studio.shell.resizingOf(options.name)),
      studio_(studio),
      options_(options),
      titleBar_(new TitleBar(options.title, options.buttons, this)),
      client_(new QWidget(this)) {
    setObjectName(options.name);
    setWindowTitle(options.title);
    setMinimumSize(smallestFrameWidth, smallestFrameHeight);
    setAttribute(Qt::WA_AlwaysShowToolTips);  // beside a toolbar that is in front, too
    titleBar_->setHelpEnabled(false);
    connect(titleBar_, &TitleBar::closeWanted, this, [this] { imgTitleClose_Click(); });
    connect(titleBar_, &TitleBar::minimiseWanted, this, [this] { imgTitleMinimize_Click(); });
    connect(titleBar_, &TitleBar::maximiseWanted, this, [this] { imgTitleMaxRestore_Click(); });
    connect(titleBar_, &TitleBar::helpWanted, this, [this] { imgTitleHelp_Click(); });
    auto* const help = new QShortcut(QKeySequence::HelpContents, this);
    connect(help, &QShortcut::activated, this, [this] { helpFront(); });
    // In a tool window the key is its parent's too.
    connect(help, &QShortcut::activatedAmbiguously, this, [this] { helpFront(); });
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

void FramedWindow::helpFront() {
    auto* const front = dynamic_cast<FramedWindow*>(QApplication::activeWindow());
    (front != nullptr ? front : this)->imgTitleHelp_Click();
}

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

// Title bar

void FramedWindow::lblTitle_MouseDown(int button, int, double, double) {
    if (button == mouse::left) DragWindow();
}

void FramedWindow::TopBar_MouseDown(int button, int shift, double X, double Y) {
    lblTitle_MouseDown(button, shift, X, Y);
}

void FramedWindow::imgTitleClose_Click() { close(); }

void FramedWindow::imgTitleMinimize_Click() { showMinimized(); }

void FramedWindow::imgTitleMaxRestore_Click() { isMaximized() ? showNormal() : showMaximized(); }

void FramedWindow::imgTitleHelp_Click() {
    if (help_) help_();
}

}  // namespace melvane
