#include "synth/performance_capture.h"

#include <algorithm>
#include <string_view>

#include "core/names.h"

namespace melvane {

namespace {

constexpr std::string_view on = "ON", off = "OFF";
constexpr Colour lampOn{0, 255, 0}, lampOff{255, 0, 0};
// Seconds. A tick of none would never let time pass, and one without end could never be stopped.
constexpr double leastTick = 0.0001, tickForNone = 0.001, longestTick = 86400;
constexpr int itemsWithoutWorth = 2;

}  // namespace

PerformanceCapture::PerformanceCapture(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& synth = studio.frmsynth;
    setLamp(false);
    synth.CmdRec.setPicture("compose");
    synth.CmdRec.setTip("Start / Stop Composing");
    synth.CmdRec.acted = [this] { CmdRec_Click(); };
}

bool PerformanceCapture::isOn() const { return studio_.frmsynth.Label8.text() == on; }
bool PerformanceCapture::isOff() const { return studio_.frmsynth.Label8.text() == off; }

void PerformanceCapture::setLamp(bool lit) {
    auto& lamp = studio_.frmsynth.Label8;
    lamp.set(std::string(lit ? on : off));
    lamp.setBackColour(lit ? lampOn : lampOff);
}

void PerformanceCapture::Comp1_Click() {
    auto& keyboard = studio_.keyboard;
    if (keyboard.List3.count() > itemsWithoutWorth) {
        // Whatever is answered, the recording goes.
        parts_.dialogs.messageBox(BoxKind::plain, "Erase Recording",
                                  "Recording has not been saved. Overwrite?", BoxButtons::yesNo);
    }
    for (TextList* list : {&keyboard.List1, &keyboard.List3, &keyboard.List4}) list->clear();
    if (!isOff()) {
        setLamp(false);
        return run();  // which ends at once
    }
    auto& button = studio_.frmsynth.CmdRec;
    button.setPicture("compose_stop");
    button.setTip("Stop Composing");
    setLamp(true);
    keyboard.KeyIsDown = false;
    // It begins with the first key, not with the click; a stop meanwhile takes effect with that key.
    parts_.loop.waitFor([&keyboard] { return keyboard.KeyIsDown; });
    run();
    button.setPicture("compose");
    button.setTip("Start / Stop Composing");
}

/// Only the first key of the capture is counted, so a row that is struck again leaves a mark when it is that
/// key.
void PerformanceCapture::run() {
    auto& keyboard = studio_.keyboard;
    keyboard.FirstKeyChar = keyboard.CurrentKeyChar;
    keyboard.RepeatCount = 0;
    while (isOn() && !parts_.loop.ended()) {
        ++keyboard.RepeatCount;
        if (keyboard.CurrentKeyChar != keyboard.FirstKeyChar) keyboard.RepeatCount = 0;
        keyboard.List1.add(keyboard.RepeatCount);
        keyboard.List3.add(narrowed<std::int32_t>(leadingNumber(studio_.frmsynth.Text7.text())).value_or(0));
        TimeOut();
    }
}

void PerformanceCapture::Comp2_Click() { setLamp(false); }

void PerformanceCapture::CmdRec_Click() { isOff() ? Comp1_Click() : Comp2_Click(); }

void PerformanceCapture::waitTicks(double ticks) {
    auto& slot = studio_.keyboard.ComposerStopWatch;
    if (parts_.stopWatches.StopWatchStart(slot) == 0) {
        slot = parts_.stopWatches.StopWatchCreate();
        parts_.stopWatches.StopWatchStart(slot);
    }
    const double seconds = leadingNumber(studio_.frmsynth.Text2.text()) * ticks * 0.001;
    parts_.stopWatches.WaitSecondsBusy(slot,
                                       seconds < leastTick ? tickForNone : std::min(seconds, longestTick));
}

void PerformanceCapture::TimeOut() { waitTicks(1); }
void PerformanceCapture::TimeOut2() { waitTicks(1.2); }

void PerformanceCapture::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Comp1_Click", this, &PerformanceCapture::Comp1_Click);
    operations.add("frmsynth", "Comp2_Click", this, &PerformanceCapture::Comp2_Click);
    operations.add("frmsynth", "CmdRec_Click", this, &PerformanceCapture::CmdRec_Click);
    operations.add("frmsynth", "TimeOut", this, &PerformanceCapture::TimeOut);
    operations.add("frmsynth", "TimeOut2", this, &PerformanceCapture::TimeOut2);
}

}  // namespace melvane
