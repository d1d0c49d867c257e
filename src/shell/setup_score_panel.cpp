#include "shell/setup_score_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_panel_parts.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

constexpr int space = 4, captionSpace = 8, boxWidth = 56, leastSlider = 140;  // pixels

struct SpeedEntry {
    const char *caption, *box, *strip, *tip;
    TextControl SetupControls::*number;
    SetupSliders::Slider slider;
};

constexpr std::array<SpeedEntry, 2> speeds{
    {{"Tempo (playing speed)", "TempoLabel", "LblTempo", "Beats Per Minute", &SetupControls::TempoLabel,
      SetupSliders::tempo},
     {"Beats per measure", "TxBeats", "Lblbeats", "Beats per measure", &SetupControls::TxBeats,
      SetupSliders::beats}}};

struct InstrumentEntry {
    const char *caption, *label, *button, *tip;
    TextControl SetupControls::*name;
    void (SetupChannels::*pick)();
};

constexpr std::array<InstrumentEntry, 2> instrumentEntries{
    {{"Melody instrument", "LblInst1", "Command2", "Select the melody instrument", &SetupControls::LblInst1,
      &SetupChannels::LblInst1_DblClick},
     {"Percussion instrument", "LblInst2", "Command3", "Select the percussion instrument",
      &SetupControls::LblInst2, &SetupChannels::LblInst2_DblClick}}};

QGridLayout& gridOf(const QWidget& panel) { return static_cast<QGridLayout&>(*panel.layout()); }

}  // namespace

void attachSetupSlider(SliderTrack& track, Engine& engine, int slider) {
    auto& sliders = engine.setup.sliders;
    const auto which = static_cast<SetupSliders::Slider>(slider);
    // A click without a move counts as well.
    track.pressed = [&sliders, which](int button, double x) {
        sliders.press(which);
        sliders.move(which, button, x);
    };
    track.moved = [&sliders, which](int button, double x) { sliders.move(which, button, x); };
    track.released = [&sliders, which](int, double) { sliders.release(which); };
    track.stepped = [&sliders, which](int steps) { sliders.step(which, steps); };
}

SetupScorePanel::SetupScorePanel(Studio& studio, Engine& engine, QWidget* parent) : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(captionSpace);
    grid->setVerticalSpacing(space);
    addSpeed(studio, engine);
    addInstruments(studio, engine);
    grid->setColumnMinimumWidth(2, leastSlider);
    grid->setColumnStretch(2, 1);
}

void SetupScorePanel::addSpeed(Studio& studio, Engine& engine) {
    int row = 0;
    for (const auto& entry : speeds) {
        auto* const box = new QLineEdit(this);
        box->setObjectName(entry.box);
        box->setToolTip(entry.caption);
        box->setAccessibleName(entry.caption);
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(boxWidth);
        auto& slider = engine.setup.sliders.control(entry.slider);
        auto* const track = new SliderTrack(slider, this);
        track->setObjectName(entry.strip);
        track->setToolTip(entry.tip);
        track->setAccessibleName(entry.tip);
        bindShown(*track, slider, [track] { track->showNumber(); });
        bindNumber(*box, studio.Form3.*entry.number, [track] { track->showNumber(); });
        attachSetupSlider(*track, engine, entry.slider);
        gridOf(*this).addWidget(makeCaption(entry.caption, this), row, 0);
        gridOf(*this).addWidget(box, row, 1);
        gridOf(*this).addWidget(track, row, 2);
        ++row;
    }
}

void SetupScorePanel::addInstruments(Studio& studio, Engine& engine) {
    int row = static_cast<int>(speeds.size());
    for (const auto& entry : instrumentEntries) {
        auto& channels = engine.setup.channels;
        const auto pick = [&channels, run = entry.pick] { std::invoke(run, channels); };
        auto* const name = new InstrumentReadout(this);
        name->setObjectName(entry.label);
        name->setToolTip(entry.tip);
        name->setAccessibleName(entry.caption);
        name->doubleClicked = pick;
        bind(*name, studio.Form3.*entry.name);
        auto* const button = new QPushButton("Select", this);
        button->setObjectName(entry.button);
        button->setToolTip(entry.tip);
        button->setAccessibleName(entry.tip);
        connect(button, &QPushButton::clicked, this, pick);
        auto* const line = new QHBoxLayout;
        line->setSpacing(captionSpace);
        line->addWidget(name, 1);
        line->addWidget(button);
        gridOf(*this).addWidget(makeCaption(entry.caption, this), row, 0);
        gridOf(*this).addLayout(line, row, 1, 1, 2);
        ++row;
    }
}

}  // namespace melvane
