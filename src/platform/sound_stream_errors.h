#pragma once
#include <RtAudio.h>

#include <atomic>
#include <utility>

namespace melvane {

// The library's error callback is given no object. It is called on the thread that met the error: the
// stream's own, or the one that opens or closes it.
inline thread_local std::atomic<bool>* lostFlagOfThisThread = nullptr;

inline void noteStreamError(RtAudioError::Type, const std::string&) {
    if (lostFlagOfThisThread) *lostFlagOfThisThread = true;
}

/// Errors met on this thread go to `flag` while this lives.
class ErrorsTo {
 public:
    explicit ErrorsTo(std::atomic<bool>& flag) : before_(std::exchange(lostFlagOfThisThread, &flag)) {}
    ~ErrorsTo() { lostFlagOfThisThread = before_; }
    ErrorsTo(const ErrorsTo&) = delete;
    ErrorsTo& operator=(const ErrorsTo&) = delete;

 private:
    std::atomic<bool>* before_;
};

/// ALSA prints a page of errors at each try on a machine without a card, so it is asked only where there is
/// one that plays ("p") or records ("c").
bool hasAlsaDevice(char direction);

}  // namespace melvane
