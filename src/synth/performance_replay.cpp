#include "synth/performance_replay.h"

#include "core/names.h"
#include "synth/key_colours.h"
#include "synth/performance_lists.h"

namespace melvane {

namespace {

constexpr int rowOfKeyNone = 91;  // a row is this number less the key's index
constexpr Colour white{255, 255, 255}, black{0, 0, 0};

double numberOf(const TextControl& control) { return leadingNumber(control.text()); }

/// White only when the key's top is -1, which no key's is: a white key stays black until it is painted anew.
void paintReplayed(Studio& studio, int key) {
    if (key < 0 || key >= Keyboard::keys) return;
    auto& box = studio.frmsynth.CmdKey[static_cast<std::size_t>(key)];
    const Colour colour = box.place().top == -1 ? white : black;
    box.setBackColour(colour);
    studio.frmsynth.NoteX[static_cast<std::size_t>(key)].setBackColour(colour);
}

}  // namespace

PerformanceReplay::PerformanceReplay(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& synth = studio.frmsynth;
    synth.Check3.setTip("Insert pauses");
    synth.Check6.setTip("Pause / Play");
    synth.Text2.setTip("Playing Speed");
    synth.Command2.acted = [this] { Command2_Click(); };
    synth.Check4.acted = [this] { Check4_Click(); };
    synth.Check6.acted = [this] { Check6_Click(); };
    synth.Check7.acted = [this] { Check7_Click(); };
    synth.Text11.acted = [this] { Text11_Change(); };
    synth.Text2.acted = [this] { Text2_Change(); };
}

void PerformanceReplay::Command2_Click() {
    parts_.capture.Comp2_Click();
    play();
}

void PerformanceReplay::Check7_Click() {
    auto& button = studio_.frmsynth.Check7;
    if (parts_.capture.isOn()) return button.set(false);
    const bool pressed = button.ticked();
    if (!pressed) parts_.sounds.reset();
    parts_.capture.Comp2_Click();
    if (!pressed) return;
    play();
    button.set(false);
}

void PerformanceReplay::Check4_Click() {
    if (parts_.capture.isOn()) return;
    parts_.capture.Comp2_Click();
    studio_.frmsynth.Check7.set(false);
}

void PerformanceReplay::Check6_Click() {
    if (!parts_.capture.isOn()) parts_.capture.Comp2_Click();
}

void PerformanceReplay::Text11_Change() {
    if (numberOf(studio_.frmsynth.Text11) < 1) studio_.frmsynth.Text11.set("1");
}

void PerformanceReplay::Text2_Change() {
    if (studio_.frmsynth.Text2.text() == "0") studio_.frmsynth.Text1.set("1");
}

void PerformanceReplay::build() {
    auto& keyboard = studio_.keyboard;
    const performance::Capture capture{keyboard.List1, keyboard.List3};
    if (studio_.frmsynth.Check3.ticked())
        performance::withPauses(capture, numberOf(studio_.frmsynth.Text11), keyboard.List4);
    else
        performance::asPlayed(capture, keyboard.List4);
}

bool PerformanceReplay::stopped() const { return studio_.frmsynth.Check4.ticked() || parts_.loop.ended(); }

void PerformanceReplay::play() {
    auto& synth = studio_.frmsynth;
    build();
    playOnce();
    while (synth.Check5.ticked() && !stopped()) {
        parts_.capture.TimeOut2();
        playOnce();
    }
    synth.Check4.set(false);
    parts_.sounds.reset();
}

void PerformanceReplay::playOnce() {
    auto& synth = studio_.frmsynth;
    const int last = studio_.keyboard.List4.count();
    for (int index = 0; index <= last && !stopped(); ++index) {
        if (synth.Check6.ticked()) {
            parts_.loop.waitFor([this] { return !studio_.frmsynth.Check6.ticked() || stopped(); });
        }
        synth.Text9.set(std::to_string(index));
        index = playItem(index);
        parts_.capture.TimeOut2();
    }
}

/// Answers the index at which it has arrived. A row that stays behind rests is passed over like them.
int PerformanceReplay::playItem(int index) {
    const auto& list = studio_.keyboard.List4;
    if (list.value(index) > 0) return playNote(index);
    if (list.at(index) != performance::rest) return index;
    index = passRests(index);
    for (; index <= list.count() && list.at(index) == list.at(index + 1) && !parts_.loop.ended(); ++index)
        parts_.capture.TimeOut2();
    return index;
}

int PerformanceReplay::passRests(int index) {
    const auto& list = studio_.keyboard.List4;
    for (; list.at(index) == performance::rest && !parts_.loop.ended(); ++index) parts_.capture.TimeOut2();
    return index;
}

/// The row in hand and the note word are the keyboard's own, which stays in use during the waits.
int PerformanceReplay::playNote(int index) {
    auto& keyboard = studio_.keyboard;
    const auto& list = keyboard.List4;
    assign(keyboard.CurrentRow, list.value(index));
    const int key = rowOfKeyNone - keyboard.CurrentRow;
    paintSounding(studio_, key);
    parts_.sounds.setWord(0, key);
    parts_.sounds.noteOn(0);
    parts_.capture.TimeOut2();
    for (; list.value(index) == keyboard.CurrentRow && index <= list.count() && !parts_.loop.ended(); ++index)
        parts_.capture.TimeOut2();
    parts_.capture.TimeOut2();
    parts_.sounds.noteOff(0);
    paintReplayed(studio_, key);
    return passRests(index);
}

void PerformanceReplay::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Command2_Click", this, &PerformanceReplay::Command2_Click);
    operations.add("frmsynth", "Check7_Click", this, &PerformanceReplay::Check7_Click);
    operations.add("frmsynth", "Check4_Click", this, &PerformanceReplay::Check4_Click);
    operations.add("frmsynth", "Check6_Click", this, &PerformanceReplay::Check6_Click);
    operations.add("frmsynth", "Text11_Change", this, &PerformanceReplay::Text11_Change);
    operations.add("frmsynth", "Text2_Change", this, &PerformanceReplay::Text2_Change);
}

}  // namespace melvane
