#pragma once
#include <chrono>
#include <memory>

#include "platform/media_capture_tap.h"
#include "platform/sound_input.h"

namespace melvane {

/// The machine's sound input for one recording. A thread of its own opens it, opens it again when it is lost,
/// and closes it, so that a sound server that hangs holds up nobody. User-interface thread.
class CaptureInput {
 public:
    struct Pace {
        std::chrono::milliseconds patience{1000};  ///< with the opening and the closing
        std::chrono::milliseconds look{200};       ///< between two looks whether it is lost
        std::chrono::milliseconds again{1000};     ///< between two tries to open it
    };
    /// What went wrong so far.
    struct Troubles {
        bool wasLost = false;
        std::chrono::milliseconds missing{0};  ///< how long there was no input
        std::uint64_t overruns = 0;
        bool neverOpened = false;
    };

    /// Begins to open it.
    CaptureInput(SoundInput::Opener opener, const Pace& pace);
    /// Closes it and does not wait for that.
    ~CaptureInput();
    CaptureInput(const CaptureInput&) = delete;
    CaptureInput& operator=(const CaptureInput&) = delete;

    /// Waits for the first try to open it, as long as the patience lasts; whether it succeeded.
    bool isOpenInTime();
    /// From its next block on its sound goes to the ring, of which `former`, which may be null, lets go in
    /// the same moment: at once, or when it is open. Null: its sound goes nowhere. What is lost before that
    /// does not count.
    void feed(CaptureRing* ring, CaptureTap* former = nullptr);
    /// Closes it, waiting as long as the patience lasts. Nothing goes to the ring any more.
    void close();
    Troubles troubles() const;

 private:
    struct Core;

    void end();

    const Pace pace_;
    const std::shared_ptr<Core> core_;  ///< shared with the thread, which may be left behind
};

}  // namespace melvane
