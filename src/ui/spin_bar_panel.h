#pragma once
#include <QAbstractSlider>

#include "core/controls.h"

namespace melvane {

/// A scroll bar without room for a handle: one arrow up to the greater values, one down. The wheel and the
/// arrow keys move it by one, Page Up and Page Down by the large change.
class SpinBar : public QAbstractSlider {
    Q_OBJECT

 public:
    static constexpr int barWidth = 18, barHeight = 24;  // pixels
    /// Shows and moves `bar`, whose greater end may be its minimum.
    SpinBar(ScrollControl& bar, QWidget* parent);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    QRect half(bool upper) const;
    void paintHalf(QPainter& painter, bool upper) const;

    SliderAction held_ = SliderNoAction;  ///< of the arrow that is held down
};

}  // namespace melvane
