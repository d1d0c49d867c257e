#include "shell/main_toolbar.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <algorithm>

#include "shell/engine.h"
#include "ui/flat_button_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"

namespace melvane {

namespace {

constexpr int groupSpace = 8;  // pixels
constexpr std::array groupStarts{3, 4, 8, 12, 14};

}  // namespace

MainToolbar::MainToolbar(Studio& studio, QWidget* parent) : QWidget(parent) {
    setObjectName("toolbMenu");
    setMouseTracking(true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 12, 4);
    row->setSpacing(0);
    addButtons(studio);
    setToolTip("Right click for menu");
    row->addSpacing(groupSpace);
    auto* const status = new ElidedLabel(this);
    status->setObjectName("StatusText");
    status->setAccessibleName("Status");
    status->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    status->setMouseTracking(true);
    bind(*status, studio.form1.StatusText);
    row->addWidget(status, 1);
}

void MainToolbar::addButtons(Studio& studio) {
    auto* const row = static_cast<QHBoxLayout*>(layout());
    for (std::size_t at = 0; at < buttons_.size(); ++at) {
        const int index = static_cast<int>(at);
        if (std::ranges::count(groupStarts, index) > 0) row->addSpacing(groupSpace);
        buttons_[at] =
            new FlatButton(index, studio.form1.Cmd2[at], studio.form1.ImgPic[at], "No function", this);
        for (QWidget* const part : {buttons_[at]->picture(), buttons_[at]->button()}) {
            part->setMouseTracking(true);
            part->installEventFilter(this);
        }
        // What does nothing is not reached by the keyboard either.
        if (*MainToolbarPictures::tip(index) == 0) buttons_[at]->picture()->setFocusPolicy(Qt::NoFocus);
        row->addWidget(buttons_[at]);
    }
}

void MainToolbar::attach(Engine& engine) {
    engine_ = &engine;
    for (FlatButton* const button : buttons_) {
        const int index = button->index();
        connect(button, &FlatButton::released, this,
                [&engine, index](int up) { engine.toolbar.pictures.Cmd2_MouseUp(index, up, 0, 0, 0); });
        connect(button, &FlatButton::pressed, this, [&engine, index] { engine.toolbar.Cmd2_Click(index); });
    }
}

void MainToolbar::hideButtons() const {
    if (engine_ != nullptr) engine_->toolbar.pictures.hideButtons();
}

bool MainToolbar::eventFilter(QObject* watched, QEvent* event) {
    const bool moved = event->type() == QEvent::MouseMove &&
                       static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
    const auto* const flat = qobject_cast<const FlatButton*>(watched->parent());
    if (!moved || flat == nullptr || engine_ == nullptr) return QWidget::eventFilter(watched, event);
    if (watched == flat->picture() && !flat->picture()->isEnabled()) return false;
    if (watched == flat->picture()) engine_->toolbar.pictures.ImgPic_MouseMove(flat->index(), 0, 0, 0, 0);
    return true;
}

void MainToolbar::mouseMoveEvent(QMouseEvent* event) {
    hideButtons();
    QWidget::mouseMoveEvent(event);
}

void MainToolbar::leaveEvent(QEvent* event) {
    hideButtons();
    QWidget::leaveEvent(event);
}

}  // namespace melvane
