#pragma once
#include <functional>

#include "midi/player.h"
#include "platform/directories.h"
#include "recorder/audio_player.h"
#include "recorder/capture.h"
#include "recorder/encoding.h"
#include "recorder/open_dialogs.h"
#include "recorder/recording_name.h"

namespace melvane {

/// A recording from its start to its encoding, of the score, of a MIDI file or of the keyboard. It stays
/// inside its function while the source plays; its stop comes in through the events that are served there.
class RecordingRun {
 public:
    struct Parts {
        RecorderLog& log;
        Capture& capture;
        AudioPlayer& audio;
        OpenDialogs& dialogs;
        Encoding& encoding;
        Player& player;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
    };
    RecordingRun(Studio& studio, Parts parts);

    /// Records from the chosen source; nothing while a recording runs.
    void CmdrecordSNG_Click();
    void RecordWav();
    void RecordWavFromMid();
    /// Ends what is recorded and saves it. While a MIDI file is recorded the first stop ends the file and a
    /// second one saves.
    void CmdStopRecording_Click();

    std::function<void()> showKeyboard;         ///< shows the keyboard's window
    std::function<void()> showPlayingPosition;  ///< the pictures of the position's switch follow its flag

    void listNames(NameTables& tables);

 private:
    void saveWhatIsLeft();
    void checkSource();
    bool takeSongsFolder();
    bool hasMidiFile();
    void cancel();
    void run();
    void takeName();
    void begin();
    void followPosition();
    bool playSource(const std::string& file);
    void finishCapture();
    void finish();
    bool closedSince(std::int32_t closings) const;

    Studio& studio_;
    Parts parts_;
    RecordingName names_;
    bool running_ = false;  ///< a run is on the stack
};

}  // namespace melvane
