#pragma once
#include "recorder/player_buttons.h"
#include "recorder/recorder_window_commands.h"
#include "recorder/recording_run.h"

namespace melvane {

/// The recorder: what the program plays is captured into a WAV file, encoded to MP3, and files are played. A
/// window shows studio.Record; what the user does there comes in through its controls and through the
/// handlers here. A playback drives its progress bar and stops it at the end of the song.
class RecorderCommands final : public PlaybackRecorder {
 public:
    struct Parts {
        Settings& settings;
        MidiOutput& output;
        Panic& panic;
        Player& player;
        ScoreFiles& files;
        MainFrame& mainWindow;
        ToolWindows& toolWindows;
        MediaDevice& media;
        Desktop& desktop;
        Dialogs& dialogs;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
    };
    RecorderCommands(Studio& studio, Parts parts);

    /// For the keyboard: its window with the keyboard as the source.
    void openForKeyboard();

    void showProgress(double ratio) override;
    void clearProgress() override;
    void CmdStopRecording_Click() override { run.CmdStopRecording_Click(); }

    void listNames(NameTables& tables);

    MciCommands mci;
    RecorderLog log;
    Capture capture;
    AudioPlayer audio;
    OpenDialogs dialogs;
    RecordedFile file;
    PlayerButtons buttons;
    EncoderStreams streams;
    Encoding encoding;
    RecordingRun run;
    RecorderWindowCommands window;

 private:
    void EnableButtons();
    void DisableButtons();

    Studio& studio_;
    ToolWindows& toolWindows_;
};

}  // namespace melvane
