#pragma once
#include <QWidget>

#include "synth/keyboard_sliders.h"

namespace melvane {

/// Frame9, the page "Compose": capturing what is played, playing it and saving it as a score.
class KeyboardComposePanel : public QWidget {
    Q_OBJECT

 public:
    KeyboardComposePanel(Studio& studio, KeyboardSliders& sliders, QWidget* parent);
};

}  // namespace melvane
