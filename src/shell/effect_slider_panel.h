#pragma once
#include <QFrame>
#include <array>

#include "core/studio.h"

namespace melvane {

class Engine;
class SliderTrack;

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
