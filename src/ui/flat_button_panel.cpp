#include "ui/flat_button_panel.h"

#include <QMouseEvent>
#include <QToolButton>

#include "core/editing_controls.h"
#include "core/qt_mouse.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"

namespace melvane {

FlatButton::FlatButton(int index, PictureControl& button, PictureControl& picture, const QString& spoken,
                       QWidget* parent, const char* pictures)
    : QWidget(parent),
      index_(index),
      picture_(make(pictures, picture, spoken)),
      button_(make("Cmd2", button, spoken)) {
    setFixedSize(side, side);
    // A little above the middle.
    picture_->setGeometry(static_cast<int>((side - pictureSide) * 0.5),
                          static_cast<int>((side - pictureSide) * 0.4), pictureSide, pictureSide);
    picture_->setFocusPolicy(Qt::TabFocus);
    button_->setGeometry(rect());
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setProperty("raised", true);
    button_->installEventFilter(this);
    for (QToolButton* const part : {picture_, button_}) {
        connect(part, &QToolButton::clicked, this, &FlatButton::pressed);
    }
}

QToolButton* FlatButton::make(const char* array, PictureControl& control, const QString& spoken) {
    auto* const widget = new QToolButton(this);
    widget->setObjectName(memberName(array, index_));
    widget->setIconSize({iconSide, iconSide});
    widget->setAutoRaise(true);
    widget->setVisible(control.visible());  // not of itself, once the window is shown
    bindShown(*widget, control, [widget, &control, spoken] {
        widget->setIcon(pictureOf(control));
        widget->setAccessibleName(control.tip().empty() ? spoken : QString::fromStdString(control.tip()));
    });
    return widget;
}

/// Any mouse button, wherever it comes up: the toolkit's own signal knows the left one only.
bool FlatButton::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        Q_EMIT released(buttonMask(static_cast<QMouseEvent&>(*event).button()));
    }
    return QWidget::eventFilter(watched, event);
}

/// A button that hides itself under the mouse leaves the toolkit's own account of where that is, and the
/// picture would keep the look of being under it.
void FlatButton::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    picture_->setAttribute(Qt::WA_UnderMouse, false);
    picture_->update();
}

QWidget* FlatButton::picture() const { return picture_; }
QWidget* FlatButton::button() const { return button_; }

QWidget* makeIdleButton(const QString& name, PictureControl& control, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIconSize({FlatButton::iconSide, FlatButton::iconSide});
    button->setFixedSize(FlatButton::side, FlatButton::side);
    button->setAutoRaise(true);
    bindShown(*button, control, [button, &control] {
        button->setIcon(pictureOf(control));
        button->setAccessibleName(QString::fromStdString(control.tip()));
    });
    return button;
}

QIcon pictureOf(const PictureControl& control) {
    QString name = QString::fromStdString(control.picture());
    const QString disabled = EditingControls::disabledArt;
    if (!name.endsWith(disabled)) return icon(name);
    name.chop(disabled.size());
    return disabledIcon(name);
}

}  // namespace melvane
