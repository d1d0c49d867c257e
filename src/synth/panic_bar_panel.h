#pragma once
#include <QWidget>

#include "core/keyboard_controls.h"
#include "core/qt_mouse.h"

namespace melvane {

/// Label4: the strip along the keys. Its text comes out only once the mouse has been over it.
class PanicBarPanel : public QWidget {
    Q_OBJECT

 public:
    PanicBarPanel(PanicBar& bar, QWidget* parent);

    MouseHandlers mouse;

    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    static void tell(const MouseHandler& handler, Qt::MouseButtons buttons, const QMouseEvent& event);

    PanicBar& bar_;
};

}  // namespace melvane
