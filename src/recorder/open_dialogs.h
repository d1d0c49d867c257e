#pragma once
#include "files/score_files.h"
#include "midi/midi_output.h"
#include "recorder/capture.h"

namespace melvane {

/// The dialogs that put a file into the recorder's hand. What the media device has open is closed first, but
/// for a capture that is not saved yet.
class OpenDialogs {
 public:
    struct Parts {
        MciCommands& mci;
        const Capture& capture;
        ScoreFiles& files;
        MidiOutput& output;
        Dialogs& dialogs;
    };
    OpenDialogs(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    /// "Open File": a score goes onto the tablet and becomes the source; any other file is one to play.
    /// False when nothing was chosen.
    bool openFile();
    /// "Open MIDI File".
    void openMidiFile();
    /// The general dialog as the tutorial uses it: a score is opened once more, in the short form.
    void C4_Click();
    /// What the device has open, unless there is a capture to be saved.
    void closeOthers();

    void listNames(NameTables& tables);

 private:
    bool choose(const char* title, const char* filter);

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
