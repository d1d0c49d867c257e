#include "synth/keyboard_choices.h"

#include "core/instrument_names.h"
#include "core/names.h"

namespace melvane {

namespace {

constexpr int semitonesAnOctave = 12, lowestOctave = -2, noOctave = 0 - lowestOctave;

template <std::size_t Count>
bool has(const std::array<CheckControl, Count>& options, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < options.size();
}

/// One of a row: a click on the one that is ticked leaves it so.
template <std::size_t Count>
void tickOnly(std::array<CheckControl, Count>& options, int index) {
    for (std::size_t at = 0; at < Count; ++at) options[at].set(static_cast<int>(at) == index);
}

}  // namespace

KeyboardChoices::KeyboardChoices(Studio& studio) : studio_(studio) {
    auto& synth = studio_.frmsynth;
    for (std::size_t at = 0; at < synth.Option5.size(); ++at) {
        synth.Option5[at].acted = [this, at] { Option5_Click(static_cast<int>(at)); };
    }
    for (std::size_t at = 0; at < synth.optChord.size(); ++at) {
        synth.optChord[at].acted = [this, at] { optChord_Click(static_cast<int>(at)); };
    }
    // The octave is set by the slider and by Option5; these two have no place in the window.
    synth.VsbOctave.setVisible(false);
    for (std::size_t at = 0; at < synth.OptOct.size(); ++at) {
        synth.OptOct[at].setVisible(false);
        OptOct_MouseMove(static_cast<int>(at), 0, 0, 0, 0);
    }
    Option5_Click(noOctave);
    synth.LblChord.set(ShowChordName(0));
}

void KeyboardChoices::Option5_Click(int Index) {
    auto& synth = studio_.frmsynth;
    if (!has(synth.Option5, Index)) return;
    tickOnly(synth.Option5, Index);
    const int octaves = Index + lowestOctave;
    studio_.keyboard.OctaveShift = static_cast<Int16>(octaves * semitonesAnOctave);
    synth.LblOctave.set(" Octave Shift " + std::to_string(octaves));
}

void KeyboardChoices::optChord_Click(int Index) {
    auto& synth = studio_.frmsynth;
    if (!has(synth.optChord, Index)) return;
    synth.Text4.set(std::to_string(Index));
    synth.LblChord.set(ShowChordName(Index));
}

std::string KeyboardChoices::ShowChordName(int index) {
    auto& options = studio_.frmsynth.optChord;
    if (has(options, index)) tickOnly(options, index);
    return ChordName(index);
}

void KeyboardChoices::OptOct_MouseMove(int Index, int, int, double, double) {
    auto& options = studio_.frmsynth.OptOct;
    if (!has(options, Index)) return;
    options[static_cast<std::size_t>(Index)].setTip(Index == 0 ? "Single Note" : "Octave");
}

void KeyboardChoices::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Option5_Click", this, &KeyboardChoices::Option5_Click);
    operations.add("frmsynth", "optChord_Click", this, &KeyboardChoices::optChord_Click);
    operations.add("frmsynth", "ShowChordName", this, &KeyboardChoices::ShowChordName);
    operations.add("form1", "ShowChordName", this, &KeyboardChoices::ShowChordName);
    operations.add("frmsynth", "OptOct_MouseMove", this, &KeyboardChoices::OptOct_MouseMove);
}

}  // namespace melvane
