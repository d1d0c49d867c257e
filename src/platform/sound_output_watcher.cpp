#include "platform/sound_output_watcher.h"

#include <utility>

#include "platform/sound_card.h"
#include "platform/sound_stream_clock.h"

namespace melvane {

namespace {

// An output that asks for nothing in this many looks in a row stands still (a server that hangs, a suspended
// device), and so does one that takes a second for its start: the user is told later, of what lasts.
constexpr unsigned looksUntilStill = 3, looksUntilTold = 15;

}  // namespace

struct OutputWatcher::Stream {
    explicit Stream(std::shared_ptr<SoundCardCore> shared)
        : core(std::move(shared)), clock(core->frequency) {}

    void fill(std::span<float> interleaved) {
        core->mixer.render(ticket, interleaved, [this, &interleaved] {
            return clock.next(core->clock.counter(), interleaved.size() / soundChannels);
        });
    }

    std::shared_ptr<SoundCardCore> core;
    StreamClock clock;
    std::atomic<SoundMixer::Ticket> ticket{0};
};

OutputWatcher::OutputWatcher(std::shared_ptr<SoundCardCore> core, SoundOutput::Opener opener)
    : core_(std::move(core)), opener_(std::move(opener)) {}

OutputWatcher::~OutputWatcher() = default;

bool OutputWatcher::look() {
    if (!output_) {
        tryToOpen();
        return output_ != nullptr;
    }
    if (output_->isLost()) {
        giveToPuller();
        tell(SoundCard::lostNotice);
        output_.reset();
        return false;
    }
    const std::uint64_t blocks = output_->blocks();
    const bool moves = blocks != std::exchange(blocksSeen_, blocks);
    looksWithoutBlock_ = moves ? 0 : looksWithoutBlock_ + 1;
    if (moves && !core_->hasOutput) useOutput();
    if (looksWithoutBlock_ == looksUntilStill && core_->hasOutput) giveToPuller();
    if (looksWithoutBlock_ == looksUntilTold) tell(SoundCard::lostNotice);
    return true;
}

void OutputWatcher::tryToOpen() {
    stream_ = std::make_shared<Stream>(core_);
    blocksSeen_ = 0;
    looksWithoutBlock_ = 0;
    output_ = opener_([stream = stream_](std::span<float> interleaved) { stream->fill(interleaved); });
    if (output_) {
        useOutput();
    } else {
        giveToPuller();
        tell(SoundCard::noOutputNotice);
    }
}

void OutputWatcher::useOutput() {
    const std::lock_guard lock(core_->mutex);
    core_->puller.stop();
    stream_->ticket = core_->mixer.handOver();
    core_->hasOutput = true;
    if (std::exchange(userWasTold_, false)) core_->notices.emplace_back(SoundCard::backNotice);
}

void OutputWatcher::giveToPuller() {
    const std::lock_guard lock(core_->mutex);
    core_->hasOutput = false;
    if (!core_->isEnding && !core_->puller.isPulling()) core_->puller.start(core_->clock.counter());
    core_->changed.notify_all();
}

void OutputWatcher::tell(const char* notice) {
    const std::lock_guard lock(core_->mutex);
    if (!std::exchange(userWasTold_, true)) core_->notices.emplace_back(notice);
}

}  // namespace melvane
