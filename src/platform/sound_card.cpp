#include "platform/sound_card.h"

#include <utility>

#include "platform/sound_output_watcher.h"

namespace melvane {

namespace {

// Longer than closing a healthy output takes, short enough for a program that ends.
constexpr std::chrono::milliseconds closingPatience{400};

void pullWhileThereIsNoOutput(SoundCardCore& core) {
    std::unique_lock lock(core.mutex);
    while (!core.isEnding) {
        if (!core.puller.isPulling()) {
            core.changed.wait(lock);
            continue;
        }
        const std::int64_t due = core.puller.pull(core.clock.counter());
        const double wait =
            static_cast<double>(due - core.clock.counter()) / static_cast<double>(core.frequency);
        core.changed.wait_for(lock, std::chrono::duration<double>(wait));
    }
}

void watchOutput(const std::shared_ptr<SoundCardCore>& core, SoundOutput::Opener opener,
                 SoundCard::Watch watch) {
    {
        OutputWatcher watcher(core, std::move(opener));
        std::unique_lock lock(core->mutex);
        while (!core->isEnding) {
            lock.unlock();
            const bool hasOutput = watcher.look();
            lock.lock();
            core->changed.wait_for(lock, hasOutput ? watch.atOutput : watch.forOutput,
                                   [&] { return core->isEnding; });
        }
        lock.unlock();
    }
    const std::lock_guard lock(core->mutex);
    core->watcherEnded = true;
    core->changed.notify_all();
}

}  // namespace

SoundCard::SoundCard(const Clock& clock, std::vector<SoundSource*> sources, std::vector<SoundTap*> taps)
    : SoundCard(clock, std::move(sources), std::move(taps), &openMachineOutput, Watch{}) {}

SoundCard::SoundCard(const Clock& clock, std::vector<SoundSource*> sources, std::vector<SoundTap*> taps,
                     SoundOutput::Opener opener, Watch watch)
    : core_(std::make_shared<SoundCardCore>(clock, std::move(sources), std::move(taps))) {
    core_->puller.start(clock.counter());
    puller_ = std::thread([core = core_] { pullWhileThereIsNoOutput(*core); });
    watcher_ = std::thread(watchOutput, core_, std::move(opener), watch);
}

SoundCard::~SoundCard() {
    core_->mixer.close();
    std::unique_lock lock(core_->mutex);
    core_->isEnding = true;
    core_->changed.notify_all();
    const bool ended = core_->changed.wait_for(lock, closingPatience, [this] { return core_->watcherEnded; });
    lock.unlock();
    puller_.join();
    if (ended) {
        watcher_.join();
    } else {
        watcher_.detach();
    }
}

std::optional<std::string> SoundCard::takeNotice() {
    const std::lock_guard lock(core_->mutex);
    if (core_->notices.empty()) return std::nullopt;
    std::string notice = std::move(core_->notices.front());
    core_->notices.pop_front();
    return notice;
}

bool SoundCard::hasOutput() const { return core_->hasOutput; }

}  // namespace melvane
