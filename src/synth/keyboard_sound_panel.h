#pragma once
#include <QWidget>

#include "synth/keyboard_sliders.h"

namespace melvane {

/// Frame7, the page "Sound 1": the channel with its effects, and the metronome.
class KeyboardSoundPanel : public QWidget {
    Q_OBJECT

 public:
    KeyboardSoundPanel(Studio& studio, KeyboardSliders& sliders, QWidget* parent);
};

}  // namespace melvane
