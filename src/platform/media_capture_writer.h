#pragma once
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/media_capture_tap.h"
#include "platform/media_device.h"
#include "platform/media_spool.h"
#include "platform/media_wave_encoder.h"
#include "platform/media_worker.h"

namespace melvane {

/// Brings what a capture hears from the ring to the spool, in the capture's format, by a thread of its own
/// while a recording runs. User-interface thread otherwise.
class CaptureWriter {
 public:
    /// `mostBytes`: of a recording.
    explicit CaptureWriter(std::uint64_t mostBytes) : spool_(mostBytes) {}
    ~CaptureWriter() { worker_.stop(); }
    CaptureWriter(const CaptureWriter&) = delete;
    CaptureWriter& operator=(const CaptureWriter&) = delete;

    /// Only while it holds nothing and nothing runs.
    void setFormat(const WaveFormat& format) {
        worker_.between([&] { encoder_ = std::make_unique<WaveEncoder>(format); });
    }
    const WaveFormat& format() const { return encoder_->format(); }
    /// Where sound is to be put while it runs.
    CaptureRing& ring() { return ring_; }

    void start() { worker_.start(); }
    /// Writes what is in the ring, to its end. Nothing may be put there any more.
    void finish();
    /// Passes over what is in the ring. Only while nothing runs.
    void forgetUnwritten();
    void clear();
    /// Any thread.
    void catchUp() { worker_.doNow(); }

    /// Whole frames that have been written.
    std::uint64_t frames() const { return written_ / static_cast<unsigned>(format().alignment()); }
    /// A code when it cannot write anything down.
    MediaDevice::Answer readiness() const;
    /// What went wrong since the last clear(); a code of 0 when nothing did.
    MediaDevice::Answer faults() const;
    /// Writes a WAV file that is complete or absent.
    MediaDevice::Answer save(const std::string& path);

 private:
    void emptyRing();
    void writeDown() { writeDown(false); }
    void writeDown(bool isLast);

    CaptureRing ring_;
    Spool spool_;
    std::unique_ptr<WaveEncoder> encoder_ = std::make_unique<WaveEncoder>(WaveFormat{});
    std::vector<float> sound_ = std::vector<float>(8192 * soundChannels);
    std::string bytes_;
    std::atomic<std::uint64_t> written_{0};
    MediaWorker worker_{[this] { writeDown(); }};
};

}  // namespace melvane
