#pragma once
#include <QObject>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/program.h"
#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "render/null_midi_port.h"
#include "render/null_windows.h"

namespace melvane::bench {

using Moment = std::chrono::steady_clock::time_point;

/// A MIDI port that stamps the first note of each column: that of track 0, which has one in every column.
class ColumnPort final : public NullMidiPort {
 public:
    std::vector<Moment> columns;
    std::function<void()> columnCame;

    Result midiOutShortMsg(Handle, std::uint32_t message) override;
};

/// Calls back from the event loop right after a moment, as an event of the system would come then.
class Prompter : public QObject {
 public:
    explicit Prompter(std::function<void()> call);
    ~Prompter() override;
    void callAt(Moment moment);

 protected:
    bool event(QEvent* event) override;

 private:
    void run();

    std::function<void()> call_;
    std::mutex guard_;
    std::condition_variable changed_;
    std::optional<Moment> next_;
    bool over_ = false;
    std::thread thread_;
};

/// The whole program in the real time of the real event loop, over a score whose tracks are all full, on a
/// window of 1920 by 1080 pixels. No tool window has been open yet.
class Stage {
 public:
    static constexpr int tempo = 400;
    static constexpr double step = 13.8 / tempo;  ///< seconds
    static constexpr int columns = 140;           ///< of the score: less than a page
    static constexpr int tracks = 12;

    Stage();
    ~Stage() { program.window().unload(); }

    /// Plays the score once, to its end or until something stops it. Answers how late each column from the
    /// second on came after the one before it, in milliseconds beyond the step.
    std::vector<double> play();
    static std::chrono::nanoseconds stepTime() {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(step));
    }

    SteadyClock clock;
    QtEventLoop loop{clock};
    ColumnPort port;
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore store;
    NullDialogs dialogs;
    Outside outside;
    Program program;

 private:
    void fill();
};

}  // namespace melvane::bench
