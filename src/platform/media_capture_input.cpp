#include "platform/media_capture_input.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace melvane {

namespace {

using SteadyTime = std::chrono::steady_clock;
using Lock = std::unique_lock<std::mutex>;

}  // namespace

struct CaptureInput::Core {
    Core(SoundInput::Opener how, const Pace& often) : opener(std::move(how)), pace(often) {}

    /// The thread: until the end.
    void watch();

    // With the lock, which these two give up while they talk to the server.
    void open(Lock& lock);
    void close(Lock& lock);
    // With the lock
    void takeRing();
    Troubles allTroubles() const;

    const SoundInput::Opener opener;
    const Pace pace;
    const std::shared_ptr<CaptureTap> tap = std::make_shared<CaptureTap>();
    std::mutex mutex;
    std::condition_variable changed;
    std::unique_ptr<SoundInput> input;
    CaptureRing* ring = nullptr;   ///< that it is to feed
    CaptureTap* former = nullptr;  ///< that feeds the ring until it is open
    bool wasTried = false, wasOpen = false, isEnding = false, hasEnded = false;
    Troubles troubles;                          ///< of inputs that are closed, and of gaps that are over
    std::optional<SteadyTime::time_point> gap;  ///< since when there is no input any more
};

void CaptureInput::Core::takeRing() {
    if (former != nullptr && ring != nullptr) former->letGo(*ring);
    former = nullptr;
    tap->setRing(ring);
}

CaptureInput::Troubles CaptureInput::Core::allTroubles() const {
    Troubles all = troubles;
    all.neverOpened = !wasOpen;
    if (input) {
        all.wasLost = all.wasLost || input->isLost();
        all.overruns += input->overruns();
    }
    if (gap) all.missing += std::chrono::duration_cast<std::chrono::milliseconds>(SteadyTime::now() - *gap);
    return all;
}

void CaptureInput::Core::open(Lock& lock) {
    lock.unlock();
    std::unique_ptr<SoundInput> opened = opener(tap);
    lock.lock();
    wasTried = true;
    if (opened) {
        input = std::move(opened);
        wasOpen = true;
        troubles.missing = allTroubles().missing;
        gap.reset();
        if (ring != nullptr && !isEnding) takeRing();
    }
    changed.notify_all();
}

void CaptureInput::Core::close(Lock& lock) {
    if (!input) return;
    troubles = allTroubles();
    std::unique_ptr<SoundInput> closing = std::move(input);
    lock.unlock();
    closing.reset();
    lock.lock();
}

void CaptureInput::Core::watch() {
    Lock lock(mutex);
    while (!isEnding) {
        if (input && input->isLost()) {
            close(lock);
            gap = SteadyTime::now();
        }
        if (!input && !isEnding) open(lock);
        changed.wait_for(lock, input ? pace.look : pace.again, [this] { return isEnding; });
    }
    close(lock);
    hasEnded = true;
    changed.notify_all();
}

CaptureInput::CaptureInput(SoundInput::Opener opener, const Pace& pace)
    : pace_(pace), core_(std::make_shared<Core>(std::move(opener), pace)) {
    std::thread([core = core_] { core->watch(); }).detach();
}

CaptureInput::~CaptureInput() { end(); }

bool CaptureInput::isOpenInTime() {
    Lock lock(core_->mutex);
    core_->changed.wait_for(lock, pace_.patience, [this] { return core_->wasTried; });
    return core_->input != nullptr;
}

void CaptureInput::feed(CaptureRing* ring, CaptureTap* former) {
    const std::lock_guard lock(core_->mutex);
    core_->ring = ring;
    core_->former = former;
    if (ring == nullptr || core_->input) core_->takeRing();
}

void CaptureInput::end() {
    const std::lock_guard lock(core_->mutex);
    core_->isEnding = true;
    core_->former = nullptr;
    core_->tap->setRing(nullptr);
    core_->changed.notify_all();
}

void CaptureInput::close() {
    end();
    Lock lock(core_->mutex);
    core_->changed.wait_for(lock, pace_.patience, [this] { return core_->hasEnded; });
}

CaptureInput::Troubles CaptureInput::troubles() const {
    const std::lock_guard lock(core_->mutex);
    return core_->allTroubles();
}

}  // namespace melvane
