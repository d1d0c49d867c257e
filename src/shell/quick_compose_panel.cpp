#include "shell/quick_compose_panel.h"

#include <array>

#include "shell/channel_labels_panel.h"
#include "shell/effect_slider_panel.h"
#include "shell/note_readout_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_flow_layout.h"

namespace melvane {

namespace {

constexpr int panelSpace = 8;  // pixels

}  // namespace

QuickComposePanel::QuickComposePanel(Studio& studio, QWidget* parent) : QWidget(parent) {
    auto* const panels = new FlowLayout(panelSpace);
    setLayout(panels);
    channels_ = new ChannelLabelsPanel(studio, this);
    auto* const readout = new NoteReadoutPanel(studio, this);
    chord_ = new ChordPanel(studio, this);
    sliders_ = new EffectSlidersPanel(studio, this);
    auto* const effects = new EffectReadoutPanel(studio, this);
    instrument_ = new NoteInstrumentPanel(studio, this);
    for (QWidget* const panel :
         std::array<QWidget*, 6>{channels_, readout, chord_, sliders_, effects, instrument_}) {
        panels->addWidget(panel);
        panel->setSizePolicy(panel == channels_ ? QSizePolicy::Maximum : QSizePolicy::Expanding,
                             QSizePolicy::Preferred);
    }
    // The design disables the panel during a playback; the channel labels stay in use.
    readout->setObjectName("Picture11");
    auto& area = studio.form1.Picture11;
    area.setTip("Right click for menu");
    bindShown(*readout, area, [&area, effects, this] {
        for (QWidget* const panel : std::array<QWidget*, 4>{chord_, sliders_, effects, instrument_}) {
            panel->setEnabled(area.enabled());
        }
    });
}

void QuickComposePanel::attach(Engine& engine) {
    channels_->attach(engine);
    chord_->attach(engine);
    sliders_->attach(engine);
    instrument_->attach(engine);
}

}  // namespace melvane
