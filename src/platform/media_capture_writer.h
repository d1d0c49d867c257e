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
    /// `mostBytes`: of a recording. `folders`: for its spool, the first that takes it.
    CaptureWriter(std::uint64_t mostBytes, std::vector<std::string> folders)
        : spool_(mostBytes, waveHeaderSize, std::move(folders)) {}
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

    void start();
    /// Writes what is in the ring, to its end. Nothing may be put there any more.
    void finish();
    void clear();
    /// Any thread.
    void catchUp() { worker_.doNow(); }

    /// Whole frames that have been written.
    std::uint64_t frames() const { return written_ / static_cast<unsigned>(format().alignment()); }
    /// A code when it cannot write anything down.
    MediaDevice::Answer readiness() const;
    /// What went wrong since the last clear(); a code of 0 when nothing did.
    MediaDevice::Answer faults() const;
    /// Makes a WAV file that is complete or absent. Takes no time that depends on its length, but while it
    /// runs, or when the file lies on another file system than the spool.
    MediaDevice::Answer save(const std::string& path);

 private:
    void emptyRing();
    void writeDown() { writeDown(false); }
    void writeDown(bool isLast);
    MediaDevice::Answer saveCopy(const std::string& path, std::uint64_t bytes);

    CaptureRing ring_;
    Spool spool_;
    std::unique_ptr<WaveEncoder> encoder_ = std::make_unique<WaveEncoder>(WaveFormat{});
    std::vector<float> sound_ = std::vector<float>(8192 * soundChannels);
    std::string bytes_;
    std::atomic<std::uint64_t> written_{0};
    bool runs_ = false;
    MediaWorker worker_{[this] { writeDown(); }};
};

}  // namespace melvane
