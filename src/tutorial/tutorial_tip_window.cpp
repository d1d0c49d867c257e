#include "tutorial/tutorial_tip_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "tutorial/tutorial_tip.h"
#include "ui/qt_bindings.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

// Pixels.
constexpr int textWidth = 300, sideMargin = 16;
constexpr int moreThanText = 10;  // that the window is higher than its text

}  // namespace

frminfo::frminfo(Studio& studio, TutorialTip& tip, QWidget* parent)
    : FramedWindow(studio, {.name = "frminfo", .title = "Tip", .resizes = false, .kind = Qt::Dialog}, parent),
      studio_(studio),
      tip_(tip),
      Label1_(new QLabel(client())) {
    setWindowModality(Qt::ApplicationModal);
    Label1_->setObjectName("Label1");
    Label1_->setToolTip("Double-click to continue");
    Label1_->setWordWrap(true);
    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label1_->setFocusPolicy(Qt::StrongFocus);
    Label1_->installEventFilter(this);
    auto* const box = new QVBoxLayout(client());
    box->setContentsMargins(sideMargin, 0, sideMargin, 0);
    box->addWidget(Label1_);
    bindShown(*Label1_, studio.frminfo.Label1, [this] { fit(); });
    studio.frminfo.window.changed = [this] {
        if (!studio_.frminfo.window.visible()) leave();
    };
    tip.focusIsBack = [this] { return before_.isNull() || before_->isActiveWindow(); };
}

frminfo::~frminfo() { tip_.focusIsBack = nullptr; }

void frminfo::leave() {
    const bool wasInFront = isActiveWindow();
    hide();
    if (!wasInFront) before_.clear();
    if (before_ != nullptr && before_->isVisible()) before_->activateWindow();
}

/// As high as the text asks for.
void frminfo::fit() {
    const QString text = QString::fromStdString(studio_.frminfo.Label1.text());
    Label1_->setText(text);
    Label1_->setAccessibleName(text);
    resize(sizeAround({textWidth + 2 * sideMargin, Label1_->heightForWidth(textWidth) + moreThanText}));
    if (isVisible()) stand();
}

/// Beside the tutorial, at the side where there is room, at the height of the step.
void frminfo::stand() {
    const auto& tip = studio_.frminfo;
    const double unit = twipsAPixel;
    const double right = tip.besideLeft + tip.besideWidth;
    const QRect room = screen()->availableGeometry();
    const bool fits = right / unit + width() <= room.right() + 1;
    moveOntoScreen(fits ? right : tip.besideLeft - width() * unit, tip.top);
}

void frminfo::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (event->spontaneous()) return;
    studio_.frminfo.loaded = true;
    studio_.frminfo.window.setVisible(true);
    QWidget* const front = QApplication::activeWindow();
    if (front != this) before_ = front;
    putBeforeActiveWindow(*this);
    ApplySkin();
    stand();
    Label1_->setFocus();
}

void frminfo::closeEvent(QCloseEvent* event) {
    event->accept();
    if (loaded()) tip_.Form_Unload();
}

void frminfo::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            return tip_.Form_Unload();
        default:
            QWidget::keyPressEvent(event);
    }
}

bool frminfo::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Label1_ && event->type() == QEvent::MouseButtonDblClick) {
        tip_.Form_Unload();
        return true;
    }
    return FramedWindow::eventFilter(watched, event);
}

}  // namespace melvane
