#pragma once
#include <QFrame>
#include <QWidget>
#include <array>
#include <functional>

#include "core/studio.h"

namespace melvane {

class Engine;

/// What a slider's number counts: the fraction of its way is (number - first) / steps.
struct SliderScale {
    int first = 0, steps = 127;
};

/// The track of a slider with its pointer. It shows a number and hands the mouse, the wheel and the arrow
/// keys on; what they come to is decided elsewhere.
class SliderTrack : public QWidget {
    Q_OBJECT

 public:
    static constexpr int pointerWidth = 10;  ///< pixels
    /// `control` is told how wide the track is.
    SliderTrack(SliderScale scale, SliderControl& control, QWidget* parent);
    void showNumber(int number);

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
    SliderScale scale_;
    SliderControl& control_;
    int number_ = 0;
    int wheelRest_ = 0;
};

/// The five sliders of the panel: velocity, modulation, pan, reverb and chorus for the next edits, each with
/// its name, track, pointer and number.
class EffectSlidersPanel : public QFrame {
    Q_OBJECT

 public:
    EffectSlidersPanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);

 private:
    std::array<SliderTrack*, 5> tracks_{};
};

/// The effect read-out, Picture10: where modulation, pan, reverb and chorus of the inspected note stand.
class EffectReadoutPanel : public QFrame {
    Q_OBJECT

 public:
    EffectReadoutPanel(Studio& studio, QWidget* parent);
};

}  // namespace melvane
