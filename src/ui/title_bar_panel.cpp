#include "ui/title_bar_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include "ui/frame_geometry.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_icons.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int buttonWidth = 26, buttonHeight = 22, pictureSide = 16, emblemSide = 18;  // pixels
constexpr int sideMargin = 8;                                                          // pixels
constexpr int flatTitleWeight = QFont::DemiBold;

}  // namespace

TitleBar::TitleBar(const QString& title, TitleButtons buttons, QWidget* parent)
    : QWidget(parent),
      has_(buttons),
      emblem_(new QLabel(this)),
      lblTitle_(new ElidedLabel(this)),
      imgTitleHelp_(makeButton("imgTitleHelp", "Help")),
      imgTitleMinimize_(makeButton("imgTitleMinimize", "Minimize")),
      imgTitleMaxRestore_(makeButton("imgTitleMaxRestore", "Maximize")),
      imgTitleClose_(makeButton("imgTitleClose", "Close")),
      imgTitleMaximize_(makeButton("imgTitleMaximize", "")),
      imgTitleRestore_(makeButton("imgTitleRestore", "")) {
    setObjectName("TopBar");
    setFixedHeight(titleBarHeight);
    lblTitle_->setObjectName("lblTitle");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(sideMargin + 2, 2, sideMargin, 2);
    row->setSpacing(2);
    row->addWidget(emblem_);
    row->addSpacing(4);
    row->addWidget(lblTitle_, 1);
    for (QWidget* const button : this->buttons()) row->addWidget(button);
    imgTitleHelp_->setVisible(has_.helps);
    imgTitleMinimize_->setVisible(has_.minimises);
    imgTitleMaxRestore_->setVisible(has_.maximises);
    imgTitleMaximize_->hide();
    imgTitleRestore_->hide();
    connect(imgTitleClose_, &QToolButton::clicked, this, &TitleBar::closeWanted);
    connect(imgTitleMinimize_, &QToolButton::clicked, this, &TitleBar::minimiseWanted);
    connect(imgTitleMaxRestore_, &QToolButton::clicked, this, &TitleBar::maximiseWanted);
    connect(imgTitleHelp_, &QToolButton::clicked, this, &TitleBar::helpWanted);
    setTitle(title);
    showPictures();
}

QToolButton* TitleBar::makeButton(const char* name, const char* tip) {
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFixedSize(buttonWidth, buttonHeight);
    button->setIconSize({pictureSide, pictureSide});
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QList<QWidget*> TitleBar::buttons() const {
    return {imgTitleHelp_, imgTitleMinimize_, imgTitleMaxRestore_, imgTitleClose_};
}

void TitleBar::setTitle(const QString& title) { lblTitle_->setText(title); }

void TitleBar::setHelpEnabled(bool enabled) { imgTitleHelp_->setEnabled(enabled); }

void TitleBar::setLook(FrameLook look) {
    if (look_ == look) return;
    look_ = look;
    showPictures();
}

void TitleBar::setMaximised(bool maximised) {
    maximised_ = maximised;
    imgTitleMaxRestore_->setIcon((maximised ? imgTitleRestore_ : imgTitleMaximize_)->icon());
    const QString tip = maximised ? "Restore" : "Maximize";
    imgTitleMaxRestore_->setToolTip(tip);
    imgTitleMaxRestore_->setAccessibleName(tip);
}

void TitleBar::showPictures() {
    const bool flat = look_ == FrameLook::flat;
    const QColor ink = flat ? Qt::white : palette::text;
    imgTitleHelp_->setIcon(iconInOneColour("title_help", ink));
    imgTitleMinimize_->setIcon(iconInOneColour("title_minimize", ink));
    imgTitleMaximize_->setIcon(iconInOneColour("title_maximize", ink));
    imgTitleRestore_->setIcon(iconInOneColour("title_restore", ink));
    imgTitleClose_->setIcon(iconInOneColour("title_close", ink));
    emblem_->setPixmap(iconInOneColour("emblem", ink).pixmap({emblemSide, emblemSide}, devicePixelRatioF()));
    setMaximised(maximised_);
    // The style sheet goes by this property, and looks at it only when asked.
    setProperty("look", flat ? "flat" : "stylized");
    for (QWidget* const widget : QList<QWidget*>{lblTitle_} + buttons()) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
    QFont font = lblTitle_->font();
    font.setWeight(flat ? QFont::Weight(flatTitleWeight) : QFont::Normal);
    lblTitle_->setFont(font);
    update();
}

void TitleBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintTitleGround(painter, size(), look_);
}

void TitleBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) update();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && has_.maximises) Q_EMIT maximiseWanted();
}

}  // namespace melvane
