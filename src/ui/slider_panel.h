#pragma once
#include <QWidget>
#include <functional>
#include <optional>

#include "core/controls.h"

class QGridLayout;

namespace melvane {

/// The track of a slider with its pointer, a slider to screen readers too. It shows a number and hands the
/// mouse, the wheel and the arrow keys on; what they come to is decided elsewhere.
class SliderTrack : public QWidget {
    Q_OBJECT

 public:
    static constexpr int pointerWidth = 10;  ///< pixels
    /// Shows `number`, which `control` stands for, and tells the control how wide the track is.
    SliderTrack(SliderControl& control, QWidget* parent);
    SliderControl& control() const { return control_; }
    /// The control has changed.
    void showNumber();

    /// Button as 1 left, 2 right, 4 middle; x in pixels from the track's left edge.
    std::function<void(int button, double x)> pressed, moved, released;
    /// One step up or down, by wheel or keys.
    std::function<void(int step)> stepped;

    QSize sizeHint() const override { return {76, 24}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    SliderControl& control_;
    int wheelRest_ = 0;
    std::optional<int> told_;  ///< the number that screen readers know
};

/// The texts of a slider and the names of its two widgets.
struct SliderTexts {
    const char *name, *tip, *track, *number;
};

/// A slider as the user sees it: its name and its number over its track. The track belongs to `parent`.
struct SliderBox {
    QGridLayout* layout;
    SliderTrack* track;
};
SliderBox makeSlider(const SliderTexts& texts, SliderControl& slider, TextControl& number, QWidget* parent);

}  // namespace melvane
