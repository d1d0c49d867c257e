#include "synth/metronome.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr double secondsAMinute = 60;

}  // namespace

Metronome::Metronome(MetronomeState& state, Clock& clock, EventLoop& loop)
    : state_(state), clock_(clock), loop_(loop) {
    ResetWatch();
}

void Metronome::StartMetronome() {
    if (state_.BeatsPerMinute == 0) return;
    state_.BeatInterval = secondsAMinute / state_.BeatsPerMinute;
    state_.NextBeatTime = state_.BeatInterval;
    if (timer_ == 0) timer_ = loop_.startTimer(timMainInterval, [this] { timMain_Timer(); });
    StartWatch();
}

void Metronome::StopMetronome() {
    loop_.stopTimer(timer_);
    timer_ = 0;
    ResetWatch();
    state_.CurrentBeat = 0;
}

bool Metronome::isDue(double now) const {
    const double next = state_.NextBeatTime;
    return (next > state_.LastCheckTime && next < now) || next == now;
}

void Metronome::timMain_Timer() {
    if (isDue(ElapsedSeconds())) {
        ++state_.CurrentBeat;
        if (state_.CurrentBeat > state_.BeatsPerMeasure) state_.CurrentBeat = 1;
        if (onBeat) onBeat(state_.CurrentBeat);
        state_.NextBeatTime += state_.BeatInterval;
    }
    state_.LastCheckTime = ElapsedSeconds();
}

void Metronome::ResetWatch() {
    state_.StartCount = state_.StopCount = 0;
    state_.WatchRunning = false;
    state_.CounterFrequency = clock_.frequency();
}

void Metronome::StartWatch() {
    if (state_.WatchRunning) return;
    const std::int64_t run = state_.StopCount > 0 ? state_.StartCount - state_.StopCount : 0;
    state_.StartCount = clock_.counter() + run;
    state_.StopCount = 0;
    state_.WatchRunning = true;
}

double Metronome::ElapsedSeconds() {
    if (state_.WatchRunning) state_.StopCount = clock_.counter();
    const auto count = static_cast<double>(state_.StopCount - state_.StartCount);
    return state_.CounterFrequency > 0 ? count / static_cast<double>(state_.CounterFrequency) : 0;
}

double Metronome::StopWatch() {
    const double elapsed = ElapsedSeconds();
    state_.WatchRunning = false;
    return elapsed;
}

void Metronome::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    for (const std::string owner : {"", "cMetronome1."}) {
        operations.add("frmsynth", owner + "StartMetronome", this, &Metronome::StartMetronome);
        operations.add("frmsynth", owner + "StopMetronome", this, &Metronome::StopMetronome);
        operations.add("frmsynth", owner + "ResetWatch", this, &Metronome::ResetWatch);
        operations.add("frmsynth", owner + "StartWatch", this, &Metronome::StartWatch);
        operations.add("frmsynth", owner + "ElapsedSeconds", this, &Metronome::ElapsedSeconds);
        operations.add("frmsynth", owner + "StopWatch", this, &Metronome::StopWatch);
    }
}

}  // namespace melvane
