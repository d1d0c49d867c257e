#pragma once
#include <functional>

#include "platform/event_loop.h"
#include "recorder/mci_commands.h"
#include "recorder/recorder_log.h"

namespace melvane {

/// The player of files: opens one, plays it while it shows how far it is, pauses and stops. MIDI files to be
/// recorded go through it too. Events are served while it plays; what they stop, ends it.
class AudioPlayer {
 public:
    struct Parts {
        MciCommands& mci;
        RecorderLog& log;
        Clock& clock;
        EventLoop& loop;
    };
    AudioPlayer(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    /// Opens the file and shows what its first bytes and the device say of it.
    void OpenMP3(const std::string& file, const std::string& alias);
    /// The same open without a message.
    void OpenMpegFile(const std::string& file);
    /// Plays the open file from its start and returns when it is over, stopped or closed.
    void PlayMP3();
    void PauseMP3();
    void ResumeMP3();
    void StopMP3();
    void CloseMP3();
    void PlayNext();
    /// Pauses or goes on; the flag is the one of the score.
    void togglePause();
    /// Shows the position of the moment; at the end it waits half a second.
    void refresh();

    /// The handle of the window that what is played belongs to; without it there is none, which is 0.
    std::function<std::int64_t()> pictureWindow;

    void listNames(NameTables& tables);

 private:
    std::string open(const std::string& file, const std::string& alias);
    void showHeader(const std::string& file);
    /// False when the play is over.
    bool step();
    bool isAtEnd();
    void showEnd();
    void showPosition(std::int64_t position);
    void waitHalfASecond();

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
