#pragma once
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <functional>

#include "core/qt_mouse.h"
#include "core/surfaces.h"

namespace melvane {

/// A widget whose picture is kept: painted once when it is told to, shown as it is from then on, and open to
/// marks and copied strips in between. The picture has the screen's pixel ratio, so it is sharp at any.
class SurfaceView : public QWidget {
    Q_OBJECT

 public:
    explicit SurfaceView(QWidget* parent);

    /// Paints the whole picture anew, in the widget's present size.
    void redraw();
    /// What is kept, in device pixels. Null while the widget has no extent.
    const QImage& picture();

    void setPointer(DrawingPointer pointer);

    /// Who answers the mouse; nobody at first.
    MouseHandlers mouse;
    /// Told when the user moves the focus here, not when the window comes to the front with it.
    std::function<void()> gotFocus;

 protected:
    bool event(QEvent* event) override;
    /// Paints everything; `size` in logical pixels.
    virtual void paintSurface(QPainter& painter, QSize size) = 0;
    /// Marks on the screen that are not part of the kept picture; logical pixels.
    virtual void paintOver(QPainter&) {}
    virtual void surfaceRedrawn() {}

    /// Runs `draw` on the kept picture as a painter in logical pixels, then shows the result.
    template <class Draw>
    void drawOn(Draw&& draw) {
        drawOn(rect(), draw);
    }
    /// The same, where all that is drawn lies in `area`.
    template <class Draw>
    void drawOn(QRect area, Draw&& draw) {
        if (picture().isNull()) return;
        QPainter painter(&picture_);
        draw(painter);
        painter.end();
        update(area);
    }
    /// The picture for pixel work; the caller calls update().
    QImage& pixels();
    int device(int logical) const;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    void letGo(int buttons, int shift, QPointF at);
    bool fits() const;

    QImage picture_;
    int held_ = 0;  ///< buttons that were pressed here and not let go
    bool reachedByKeyboard_ = false;
};

}  // namespace melvane
