#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

class Engine;
class SliderTrack;

/// A slider of the Setup toolbar under the user's hand: mouse, wheel and arrow keys.
void attachSetupSlider(SliderTrack& track, Engine& engine, int slider);

/// Tempo, beats and the two instruments.
class SetupScorePanel : public QWidget {
    Q_OBJECT

 public:
    SetupScorePanel(Studio& studio, Engine& engine, QWidget* parent);

 private:
    void addSpeed(Studio& studio, Engine& engine);
    void addInstruments(Studio& studio, Engine& engine);
};

}  // namespace melvane
