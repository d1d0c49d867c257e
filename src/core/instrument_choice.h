#pragma once
#include "core/settings.h"
#include "core/sounder.h"
#include "core/studio.h"
#include "platform/clock.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The instrument in hand and the tracks and selected notes that take it.
class InstrumentChoice {
 public:
    InstrumentChoice(Studio& studio, Settings& settings, Sounder& sounder, Clock& clock, EventLoop& loop)
        : studio_(studio), settings_(settings), sounder_(sounder), clock_(clock), loop_(loop) {}

    /// The melody instrument for a melody track and its selection; does nothing more on a percussion track.
    void Combo1_Click();
    /// Its counterpart for percussion tracks.
    void Combo5_Click();
    /// The instrument in hand, whichever kind the current track takes, for the track and its selection. While
    /// Busy a test note sounds for 250 milliseconds.
    void Command9_Click();

    /// Every selected cell of the current track with a note takes the instrument.
    void giveToSelection(int instrument);

    void listNames(NameTables& tables);

 private:
    void giveToTrack(int instrument);
    void soundTestNote();

    Studio& studio_;
    Settings& settings_;
    Sounder& sounder_;
    Clock& clock_;
    EventLoop& loop_;
};

}  // namespace melvane
