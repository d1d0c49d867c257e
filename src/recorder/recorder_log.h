#pragma once
#include <string>

#include "core/studio.h"
#include "platform/clock.h"

namespace melvane {

/// How the recorder tells what happens: one line that each message takes from the one before, and a log to
/// which lines are added.
class RecorderLog {
 public:
    RecorderLog(Studio& studio, Clock& clock) : studio_(studio), clock_(clock) {}

    void show(const std::string& message) { studio_.Record.Erbox.set(message); }
    /// The time, two blanks, the message and a line end.
    void add(const std::string& message);
    void showAndAdd(const std::string& message) {
        show(message);
        add(message);
    }

 private:
    Studio& studio_;
    Clock& clock_;
};

/// Hours, minutes and seconds, each with two digits or more.
std::string convertTime(std::int64_t seconds);

/// Whole minutes and seconds in the same manner.
std::string minutesText(std::int64_t seconds);

/// `part` of `whole` in percent without decimals, with " %" behind it; no digits for 0.
std::string percentText(double part, double whole);

}  // namespace melvane
