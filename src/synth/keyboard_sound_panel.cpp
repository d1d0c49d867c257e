#include "synth/keyboard_sound_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPainter>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/qt_pixels.h"
#include "synth/keyboard_parts_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_flow_layout.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int groupSpace = 8, sliderSpace = 16, rowSpace = 4, slidersARow = 3;  // pixels, sliders
constexpr int lightSide = 16, lightSpace = 8;                                   // pixels

struct SoundEntry {
    KeyboardSliders::Slider slider;
    const char *caption, *readout;
    TextControl KeyboardControls::*number;
};

constexpr std::array<SoundEntry, 5> effects{
    {{KeyboardSliders::volume, "Note Volume", "Label11", &KeyboardControls::Label11},
     {KeyboardSliders::modulation, "Modulation", "LMod", &KeyboardControls::LMod},
     {KeyboardSliders::pan, "Pan", "LPan", &KeyboardControls::LPan},
     {KeyboardSliders::reverb, "Reverb", "LReverb", &KeyboardControls::LReverb},
     {KeyboardSliders::chorus, "Chorus", "LChorus", &KeyboardControls::LChorus}}};

constexpr std::array beatCaptions{"30", "60", "120", "180", "240"};

/// pctBeat: a light of the metronome.
class BeatLight : public QWidget {
 public:
    BeatLight(const BoxControl& light, int index, QWidget* parent) : QWidget(parent), light_(light) {
        setObjectName(memberName("pctBeat", index));
        setFixedSize(lightSide, lightSide);
        setToolTip(QStringLiteral("Beat %1").arg(index + 1));
        setAccessibleName(toolTip());
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette::text, 1));
        painter.setBrush(toQt(light_.backColour()));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }

 private:
    const BoxControl& light_;
};

/// Picmetro: the lights, in room that they keep while they are hidden.
QWidget* makeLights(KeyboardControls& synth, QWidget* parent) {
    auto* const panel = new QWidget(parent);
    panel->setObjectName("Picmetro");
    panel->setAccessibleName("Lights of the beats");
    auto policy = panel->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    panel->setSizePolicy(policy);
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(lightSpace);
    for (std::size_t at = 0; at < synth.pctBeat.size(); ++at) {
        auto* const light = new BeatLight(synth.pctBeat[at], static_cast<int>(at), panel);
        bindShown(*light, synth.pctBeat[at], [light] { light->update(); });
        row->addWidget(light);
    }
    bindState(*panel, synth.Picmetro);
    return panel;
}

QWidget* makeChannel(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Keys", parent);
    group->rows().addWidget(makeKeyboardSlider(sliders, KeyboardSliders::channel, "Channel", "LblChannel",
                                               synth.LblChannel, group));
    group->addRow({makeTick("ChkSustain", "Hold", "Notes of the channel sound on after their keys are up",
                            synth.ChkSustain, group),
                   makeTick("ChkMute", "Mute", "Mark the channel as mute", synth.ChkMute, group)});
    return group;
}

QWidget* makeEffects(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Sound of the channel", parent);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(sliderSpace);
    grid->setVerticalSpacing(rowSpace);
    int place = 0;
    for (const auto& entry : effects) {
        grid->addWidget(makeKeyboardSlider(sliders, entry.slider, entry.caption, entry.readout,
                                           synth.*entry.number, group),
                        place / slidersARow, place % slidersARow);
        ++place;
    }
    group->rows().addLayout(grid);
    return group;
}

QWidget* makeMetronome(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Metronome", parent);
    group->addRow({makeTick("chkRunning", "Metronome", "Metronome On/Off", synth.chkRunning, group),
                   makeTick("Check9", "Sound", "The beats sound", synth.Check9, group),
                   makeLights(synth, group)});
    auto* const row = new QHBoxLayout;
    row->setSpacing(lightSpace);
    for (std::size_t at = 0; at < beatCaptions.size(); ++at) {
        const QString name = QStringLiteral("%1 beats per minute").arg(beatCaptions[at]);
        QWidget* const option =
            makeOption(memberName("Optbeat", static_cast<int>(at)), beatCaptions[at],
                       QString::fromStdString(synth.Optbeat[at].tip()), synth.Optbeat[at], group);
        option->setAccessibleName(name);
        row->addWidget(option);
    }
    row->addStretch();
    group->rows().addLayout(row);
    group->rows().addWidget(makeKeyboardSlider(sliders, KeyboardSliders::beats, "Beats Per Minute",
                                               "txtValue", synth.txtValue, group));
    return group;
}

}  // namespace

KeyboardSoundPanel::KeyboardSoundPanel(Studio& studio, KeyboardSliders& sliders, QWidget* parent)
    : QWidget(parent) {
    setObjectName("Frame7");
    auto* const groups = new FlowLayout(groupSpace);
    setLayout(groups);
    groups->addWidget(makeChannel(studio.frmsynth, sliders, this));
    groups->addWidget(makeEffects(studio.frmsynth, sliders, this));
    groups->addWidget(makeMetronome(studio.frmsynth, sliders, this));
}

}  // namespace melvane
