#include "core/panel_sliders.h"

#include "core/mouse_buttons.h"
#include "core/names.h"

namespace melvane {

namespace {

struct Named {
    const char* name;
    SliderControl MainControls::*control;
};

constexpr std::array<Named, PanelSliders::count> sliders{{{"lblVolume", &MainControls::lblVolume},
                                                          {"LblMod", &MainControls::LblMod},
                                                          {"LblPan", &MainControls::LblPan},
                                                          {"LblReverb", &MainControls::LblReverb},
                                                          {"LblChorus", &MainControls::LblChorus}}};

}  // namespace

SliderControl& PanelSliders::control(Slider slider) const {
    return studio_.form1.*sliders[static_cast<std::size_t>(slider)].control;
}

void PanelSliders::move(Slider slider, int button, double X) {
    if (!held(slider)) return;
    if ((button & mouse::left) != 0) {
        control(slider).drag(X);
    } else if ((button & mouse::right) != 0) {
        rest(slider);
    }
}

void PanelSliders::rest(Slider slider) {
    control(slider).set(control(slider).scale().resting);
    if (slider != volume) return;
    studio_.tracks.TrackVolume[static_cast<std::size_t>(studio_.tracks.CurrentTrack)] = 127;
}

void PanelSliders::listNames(NameTables& tables) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        const std::string name = sliders[static_cast<std::size_t>(index)].name;
        tables.controls.add("form1", name, control(slider));
        tables.controls.add("form1", name + "Ptr", control(slider).pointer);
        tables.operations.addMouse("form1", name + "_MouseDown",
                                   [this, slider](int, double) { press(slider); });
        tables.operations.addMouse("form1", name + "_MouseMove",
                                   [this, slider](int button, double X) { move(slider, button, X); });
        tables.operations.addMouse("form1", name + "_MouseUp",
                                   [this, slider](int, double) { release(slider); });
    }
}

}  // namespace melvane
