#include "platform/media_capture_writer.h"

#include <unistd.h>

#include "platform/audio_file_draft.h"
#include "platform/media_error.h"

namespace melvane {

namespace {

bool writeWhole(int descriptor, std::string_view bytes) {
    return write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

std::string_view padding(std::uint64_t bytes) { return {"\0", bytes % 2}; }

}  // namespace

void CaptureWriter::start() {
    runs_ = true;
    worker_.start();
}

void CaptureWriter::writeDown(bool isLast) {
    std::size_t count = 0;
    do {
        count = ring_.ring.pop(sound_);
        bytes_.clear();
        encoder_->encode(std::span(sound_).first(count), isLast && count < sound_.size(), bytes_);
        // What finds no room is passed over, so that the ring stays free.
        static_cast<void>(spool_.append(bytes_));
    } while (count == sound_.size());
    written_ = spool_.size();
}

void CaptureWriter::finish() {
    worker_.stop();
    writeDown(true);
    runs_ = false;
}

void CaptureWriter::emptyRing() {
    while (ring_.ring.pop(sound_) > 0) {
    }
    ring_.lostFrames = 0;
}

void CaptureWriter::clear() {
    worker_.between([this] {
        emptyRing();
        spool_.clear();
        written_ = 0;
    });
}

MediaDevice::Answer CaptureWriter::readiness() const {
    return spool_.failure() ? answerOf(MediaError::noSpool, *spool_.failure()) : MediaDevice::Answer{};
}

MediaDevice::Answer CaptureWriter::faults() const {
    if (spool_.failure()) return answerOf(MediaError::noRoom, *spool_.failure());
    if (spool_.isFull()) return answerOf(MediaError::tooLong);
    if (const auto lost = ring_.lostFrames.load(); lost > 0) {
        return answerOf(MediaError::framesLost, missingSeconds(static_cast<double>(lost) / soundRate));
    }
    return {};
}

MediaDevice::Answer CaptureWriter::save(const std::string& path) {
    worker_.doNow();
    const std::uint64_t bytes = frames() * static_cast<unsigned>(format().alignment());
    const bool isDone = !runs_ && spool_.nameIt(path, waveHeader(format(), bytes), bytes, padding(bytes));
    return isDone ? MediaDevice::Answer{} : saveCopy(path, bytes);
}

/// What is there stays as it is, so writing down goes on meanwhile.
MediaDevice::Answer CaptureWriter::saveCopy(const std::string& path, std::uint64_t bytes) {
    int source = -1;
    worker_.between([&] { source = spool_.duplicate(); });
    FileDraft draft(path);
    const int descriptor = draft.open();
    const bool written = descriptor >= 0 && writeWhole(descriptor, waveHeader(format(), bytes)) &&
                         copySpool(source, spool_.headSize(), bytes, descriptor) &&
                         writeWhole(descriptor, padding(bytes));
    const auto failure = written ? draft.complete() : draft.failure(lastSystemError());
    if (source >= 0) close(source);
    return failure ? answerOf(MediaError::notSaved, *failure) : MediaDevice::Answer{};
}

}  // namespace melvane
