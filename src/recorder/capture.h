#pragma once
#include "midi/panic.h"
#include "platform/dialogs.h"
#include "recorder/mci_commands.h"
#include "recorder/recorder_log.h"

namespace melvane {

/// One capture of sound into a file: opened, set, recorded, then stopped, saved, deleted and closed.
class Capture {
 public:
    struct Parts {
        MciCommands& mci;
        RecorderLog& log;
        Panic& panic;
        Dialogs& dialogs;
    };
    Capture(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    /// Silences what sounds and begins to capture in the chosen format. A failure is told and the run goes
    /// on; its stop fails in its turn.
    void StartTrackRecording();
    /// The device's part of a stop.
    void stop();
    /// Tells whether the device can save, saves in any case and closes everything.
    void saveCheck();
    /// Saves to InputPath, over a file of that name, and closes the capture.
    void Recordcontrol2();
    void CloseCap();

    /// A capture was begun and nothing was saved of it yet.
    bool isToBeSaved() const { return toBeSaved_; }
    /// What was begun is gone with its device.
    void forget() { toBeSaved_ = false; }

    void listNames(NameTables& tables);

 private:
    void addReason(const MciCommands::Answer& answer);
    void save();
    void discard();

    Studio& studio_;
    Parts parts_;
    bool toBeSaved_ = false;
};

}  // namespace melvane
