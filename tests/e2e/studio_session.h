#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "child_process.h"
#include "private_display.h"
#include "window_ruler.h"
#include "x_hand.h"

namespace melvane::e2e {

/// The program as a user starts it, with a home of its own, and the user at its windows. What does not happen
/// in time ends a test by an exception with one line that tells what was waited for.
class StudioSession {
 public:
    struct Place {
        std::string home;         ///< a folder that exists and is the session's own
        std::string soundFolder;  ///< of the sound server, which need not run
    };
    /// The display runs when the program is started.
    StudioSession(WindowRuler& ruler, const PrivateDisplay& display, Place place);

    /// For as many columns as a score shall have, in place of the usual 1000.
    void setColumns(int columns) const;
    /// Starts the program with the score, and waits for its main window. `launcher` is a command that runs
    /// the rest of its line.
    void start(const std::string& score = {}, const std::vector<std::string>& launcher = {});
    /// Closes the main window; the program's exit status.
    int close();
    /// Waits until the program has ended by itself; its exit status.
    int waitForEnd();
    bool isRunning() { return program_.isRunning(); }
    /// What the program complained about.
    std::string complaints() const;

    /// Clicks a control of a window, both by their given names, once the window stands still in front.
    void click(const std::string& window, const std::string& control);
    /// What the user sees at the middle of a control, to be compared with what was seen there before.
    using Look = std::vector<unsigned long>;
    Look lookAt(const std::string& window, const std::string& control);
    /// Waits until the window is shown, or gone.
    void waitForWindow(const std::string& window, bool shown = true);
    /// Waits until the window has the focus of the keyboard.
    void waitForFocus(const std::string& window);
    /// Answers a file dialog of that title.
    void chooseFile(const std::string& title, const std::string& path);
    XHand& hand() { return *hand_; }

    /// Where the recordings go, and where a test sees the folder that the program sees there.
    const std::string& songs() const { return songs_; }
    void seeSongsAt(const std::string& folder) { seenSongs_ = folder; }
    /// The files there with this ending.
    std::vector<std::string> filesEnding(const std::string& ending) const;
    /// Deletes what was recorded.
    void removeRecordings() const;
    /// Waits for the first recording to be saved; its path.
    std::string waitForRecording(double seconds);
    /// The same, and gives the file a second name, which stays when the program deletes it. A file that bears
    /// the name is replaced.
    std::string waitForRecording(double seconds, const std::string& kept);
    /// The program's process; -1 when it does not run.
    pid_t process() const { return program_.id(); }

 private:
    ShownWindow waitFor(const std::string& title) const;
    struct Spot {
        ShownWindow window;
        int x = 0, y = 0;  ///< pixels of the screen
    };
    Spot spotOf(const std::string& window, const std::string& control) const;
    ShownWindow waitUntilStill(const std::string& title) const;

    WindowRuler& ruler_;
    const PrivateDisplay& display_;
    Place place_;
    std::string songs_, seenSongs_;
    std::unique_ptr<XHand> hand_;
    sound_test::ChildProcess program_;
};

}  // namespace melvane::e2e
