#pragma once
#include <QWidget>

#include "core/controls.h"

class QToolButton;

namespace melvane {

/// A flat button: a picture, which the user sees and the keyboard reaches, and a button that lies over it
/// with the same picture, hidden until the mouse comes near. Which of them is shown is for their controls to
/// say.
class FlatButton : public QWidget {
    Q_OBJECT

 public:
    static constexpr int side = 36, pictureSide = 28, iconSide = 24;  // pixels
    /// `index` tells the button's name (Cmd2) and, in the array `pictures`, the picture's; `spoken` is what
    /// it is called where its tip is empty.
    FlatButton(int index, PictureControl& button, PictureControl& picture, const QString& spoken,
               QWidget* parent, const char* pictures = "ImgPic");

    int index() const { return index_; }
    QWidget* picture() const;
    QWidget* button() const;

 Q_SIGNALS:
    void released(int button);  ///< a mouse button that went down on it came up
    void pressed();             ///< by mouse or keyboard; after released

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void leaveEvent(QEvent* event) override;

 private:
    QToolButton* make(const char* array, PictureControl& control, const QString& spoken);

    int index_;
    QToolButton* picture_;
    QToolButton* button_;
};

/// A button of the same size that is drawn and does nothing.
QWidget* makeIdleButton(const QString& name, PictureControl& control, QWidget* parent);

/// The drawing that the name of a control's picture stands for.
QIcon pictureOf(const PictureControl& control);

}  // namespace melvane
