#include "synth/keyboard_playing_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/instrument_names.h"
#include "synth/keyboard_parts_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_flow_layout.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

constexpr int groupSpace = 8, optionSpace = 12;  // pixels
constexpr int chordsAColumn = 3;
constexpr std::array octaveCaptions{"-2", "-1", "0", "1", "2", "3"};

QWidget* makePolynotes(KeyboardControls& synth, QWidget* parent) {
    auto* const group = new KeyboardGroup("Polynotes", parent);
    auto& rows = group->rows();
    rows.addWidget(makeTick("Check10", "Single Notes", "Every key sounds one note", synth.Check10, group));
    rows.addWidget(
        makeTick("Check8", "Always play polynotes", "Every key sounds the chord", synth.Check8, group));
    rows.addWidget(makeTick("Check2", "Polynotes on Spacebar down",
                            "Keys sound the chord while the Spacebar is down", synth.Check2, group));
    return group;
}

QWidget* makeStrum(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Strum", parent);
    group->rows().addWidget(makeTick("Chkstrum", "Strum Notes",
                                     "The notes of a chord sound one after another", synth.Chkstrum, group));
    group->rows().addWidget(
        makeKeyboardSlider(sliders, KeyboardSliders::strum, "Strumming Tempo", "Text1", synth.Text1, group));
    return group;
}

QWidget* makeInstrument(KeyboardControls& synth, KeyboardInstrument& instrument, QWidget* parent) {
    auto* const group = new KeyboardGroup("Instrument", parent);
    auto* const name = new InstrumentReadout(group);
    name->setObjectName("LblInstrument");
    name->setToolTip("Instrument:  Double click to select");
    name->setAccessibleName("Instrument");
    name->setRoomFor("Electric Grand Piano");
    name->doubleClicked = [&instrument] { instrument.LblInstrument_DblClick(); };
    bind(*name, synth.LblInstrument);
    group->rows().addWidget(name);
    group->addRow(
        {makeKeyboardButton("Command5", "Select", "Instrument:  Click to select", synth.Command5, group)});
    return group;
}

QWidget* makeNoteType(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Chord", parent);
    group->rows().addWidget(
        makeKeyboardSlider(sliders, KeyboardSliders::chord, "Note Type", "LblChord", synth.LblChord, group));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(optionSpace);
    grid->setVerticalSpacing(0);
    for (int index = 0; index < static_cast<int>(synth.optChord.size()); ++index) {
        const QString name = QString::fromStdString(ChordName(index)).trimmed();
        grid->addWidget(makeOption(memberName("optChord", index), name, name,
                                   synth.optChord[static_cast<std::size_t>(index)], group),
                        index % chordsAColumn, index / chordsAColumn);
    }
    group->rows().addLayout(grid);
    return group;
}

QWidget* makeOctave(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Pitch", parent);
    group->rows().addWidget(
        makeKeyboardSlider(sliders, KeyboardSliders::octave, "Octave", "LblOctave", synth.LblOctave, group));
    auto* const row = new QHBoxLayout;
    row->setSpacing(optionSpace);
    for (std::size_t at = 0; at < octaveCaptions.size(); ++at) {
        row->addWidget(makeOption(memberName("Option5", static_cast<int>(at)), octaveCaptions[at],
                                  QStringLiteral("Octave Shift %1").arg(octaveCaptions[at]),
                                  synth.Option5[at], group));
    }
    row->addStretch();
    group->rows().addLayout(row);
    return group;
}

}  // namespace

KeyboardPlayingPanel::KeyboardPlayingPanel(Studio& studio, KeyboardSliders& sliders,
                                           KeyboardInstrument& instrument, QWidget* parent)
    : QWidget(parent) {
    setObjectName("Frame2");
    auto* const groups = new FlowLayout(groupSpace);
    setLayout(groups);
    auto& synth = studio.frmsynth;
    groups->addWidget(makePolynotes(synth, this));
    groups->addWidget(makeStrum(synth, sliders, this));
    groups->addWidget(makeInstrument(synth, instrument, this));
    groups->addWidget(makeNoteType(synth, sliders, this));
    groups->addWidget(makeOctave(synth, sliders, this));
}

}  // namespace melvane
