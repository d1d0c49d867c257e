#pragma once
#include <QWidget>

#include "synth/keyboard_instrument.h"
#include "synth/keyboard_sliders.h"

namespace melvane {

/// Frame2, the page "Sound  2": chords and their strum, instrument and octave.
class KeyboardPlayingPanel : public QWidget {
    Q_OBJECT

 public:
    KeyboardPlayingPanel(Studio& studio, KeyboardSliders& sliders, KeyboardInstrument& instrument,
                         QWidget* parent);
};

}  // namespace melvane
