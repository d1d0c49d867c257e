#pragma once
#include <string>

#include "studio_session.h"

namespace melvane::e2e {

/// A user at the recorder's window.
class RecorderUser {
 public:
    /// Opens the recorder from the main window's toolbar.
    explicit RecorderUser(StudioSession& studio);

    /// One of the three options, by its given name.
    void chooseSource(const std::string& option);
    /// The last entry of the list of formats: 48 kHz, 16 bits, stereo.
    void chooseLastFormat();
    void switchEncodingOff();
    /// Presses "Start Recording".
    void start();
    /// Waits until the recording runs, or is over, as the stop button tells by its look.
    void waitForRecording(bool runs, double seconds);
    void stop();
    /// The player's button.
    void play();

 private:
    StudioSession& studio_;
    StudioSession::Look stopAtRest_;
};

}  // namespace melvane::e2e
