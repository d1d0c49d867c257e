#include "core/panel_sliders.h"

#include <algorithm>

#include "core/names.h"

namespace melvane {

namespace {

constexpr int leftButton = 1, rightButton = 2;

struct Scale {
    const char* name;
    SliderControl MainControls::*control;
    TextControl MainControls::*number;
    int steps;  ///< of the number from one end to the other
    int first;  ///< the number at the left end
    int resting;
};

// A drag counts from 1 on the three effects, and from -63 on the pan, whose middle therefore reads 1.
constexpr std::array<Scale, PanelSliders::count> scales{
    {{"lblVolume", &MainControls::lblVolume, &MainControls::vol3, 127, 0, 127},
     {"LblMod", &MainControls::LblMod, &MainControls::T1, 127, 1, 0},
     {"LblPan", &MainControls::LblPan, &MainControls::T2, 128, -63, 1},
     {"LblReverb", &MainControls::LblReverb, &MainControls::T3, 127, 1, 0},
     {"LblChorus", &MainControls::LblChorus, &MainControls::T4, 127, 1, 0}}};

const Scale& scaleOf(PanelSliders::Slider slider) { return scales[static_cast<std::size_t>(slider)]; }

}  // namespace

SliderControl& PanelSliders::control(Slider slider) const { return studio_.form1.*scaleOf(slider).control; }
TextControl& PanelSliders::number(Slider slider) const { return studio_.form1.*scaleOf(slider).number; }

void PanelSliders::move(Slider slider, int button, double X) {
    if (!held(slider)) return;
    if ((button & leftButton) != 0) {
        const auto& scale = scaleOf(slider);
        const double place = control(slider).fractionAt(X) * scale.steps;
        number(slider).set(std::to_string(static_cast<int>(place) + scale.first));
    } else if ((button & rightButton) != 0) {
        rest(slider);
    }
}

void PanelSliders::step(Slider slider, int steps) {
    const auto& scale = scaleOf(slider);
    const int lowest = std::min(scale.first, scale.resting);
    const double now = leadingNumber(number(slider).text());
    const double next = std::clamp<double>(now + steps, lowest, scale.first + scale.steps);
    number(slider).set(std::to_string(static_cast<int>(next)));
}

void PanelSliders::rest(Slider slider) {
    number(slider).set(std::to_string(scaleOf(slider).resting));
    if (slider != volume) return;
    studio_.tracks.TrackVolume[static_cast<std::size_t>(studio_.tracks.CurrentTrack)] = 127;
}

void PanelSliders::listNames(NameTables& tables) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        const std::string name = scaleOf(slider).name;
        tables.operations.addMouse("form1", name + "_MouseDown",
                                   [this, slider](int, double) { press(slider); });
        tables.operations.addMouse("form1", name + "_MouseMove",
                                   [this, slider](int button, double X) { move(slider, button, X); });
        tables.operations.addMouse("form1", name + "_MouseUp",
                                   [this, slider](int, double) { release(slider); });
    }
}

}  // namespace melvane
