#include "shell/setup_sound_panel.h"

#include <QGridLayout>
#include <QLabel>

#include "shell/engine.h"
#include "shell/setup_channels_panel.h"
#include "shell/setup_score_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_panel_parts.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

constexpr int headingSpace = 6, rowHeight = 24, rowSpace = 4, columnSpace = 16, leastColumn = 132,
              numberWidth = 28;  // pixels

struct SoundEntry {
    const char *name, *tip, *number, *range;
    TextControl SetupControls::*value;
    SetupSliders::Slider slider;
};

constexpr std::array<SoundEntry, 5> entries{
    {{"", "Channel volume", "Label2", "0 to 127", &SetupControls::Label2, SetupSliders::volume},
     {"Modulation", "Modulation", "LMod", "0 to 127", &SetupControls::LMod, SetupSliders::modulation},
     {"Pan", "Pan", "LPan", "-64 to 64", &SetupControls::LPan, SetupSliders::pan},
     {"Reverb", "Reverb", "LReverb", "0 to 127", &SetupControls::LReverb, SetupSliders::reverb},
     {"Chorus", "Chorus", "LChorus", "0 to 127", &SetupControls::LChorus, SetupSliders::chorus}}};

/// A slider with its number; the number moves the track's pointer.
SliderTrack* makeTrack(const SoundEntry& entry, Engine& engine, QWidget* parent) {
    auto& slider = engine.setup.sliders.control(entry.slider);
    auto* const track = new SliderTrack(slider, parent);
    track->setObjectName(SetupSliders::name(entry.slider));
    track->setToolTip(
        QStringLiteral("%1 of the whole channel; the right button puts it to rest").arg(entry.tip));
    track->setAccessibleName(entry.tip);
    bindShown(*track, slider, [track] { track->showNumber(); });
    attachSetupSlider(*track, engine, entry.slider);
    return track;
}

QLabel* makeNumber(const SoundEntry& entry, TextControl& value, SliderTrack& track, QWidget* parent) {
    auto* const number = new QLabel(parent);
    number->setObjectName(entry.number);
    number->setToolTip(entry.tip);
    number->setAccessibleName(entry.tip);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setMinimumWidth(numberWidth);
    bindShown(*number, value, [number, &track, &value] {
        number->setText(QString::fromStdString(value.text()));
        track.showNumber();
    });
    return number;
}

/// Whose sliders they are.
QHBoxLayout* makeHeading(Studio& studio, QWidget* parent) {
    auto* const chip = new ChannelChip(studio, parent);
    auto* const name = new QLabel(parent);
    name->setObjectName("ChannelName");
    name->setAccessibleName("Selected channel");
    bindShown(*name, studio.Form3.ChannelName, [&studio, name, chip] {
        name->setText(QString::fromStdString(studio.Form3.ChannelName.text()));
        chip->update();
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(headingSpace);
    row->addWidget(chip);
    row->addWidget(name);
    row->addStretch();
    row->addWidget(makeCaption("The right button puts a slider to rest", parent));
    return row;
}

}  // namespace

SetupSoundPanel::SetupSoundPanel(Studio& studio, Engine& engine, QWidget* parent) : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(rowSpace);
    int column = 0;
    for (const auto& entry : entries) {
        auto* const track = makeTrack(entry, engine, this);
        auto* const name = makeCaption(entry.name, this);
        if (entry.slider == SetupSliders::volume) {
            name->setObjectName("Label15");
            bind(*name, studio.Form3.Label15);
        }
        grid->addWidget(name, 1, column);
        grid->addWidget(makeNumber(entry, studio.Form3.*entry.value, *track, this), 1, column + 1);
        grid->addWidget(track, 2, column, 1, 2);
        grid->addWidget(makeCaption(entry.range, this), 3, column, 1, 2);
        grid->setColumnMinimumWidth(column, leastColumn - numberWidth);
        grid->setColumnStretch(column, 1);
        grid->setColumnMinimumWidth(column + 2, columnSpace);
        column += 3;
    }
    grid->setColumnMinimumWidth(column - 1, 0);
    grid->addLayout(makeHeading(studio, this), 0, 0, 1, column - 1);
    for (const int row : {0, 1, 2, 3}) grid->setRowMinimumHeight(row, rowHeight);
    grid->setRowStretch(4, 1);
}

}  // namespace melvane
