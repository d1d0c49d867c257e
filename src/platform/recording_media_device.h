#pragma once
#include <map>
#include <string>
#include <vector>

#include "platform/media_device.h"
#include "platform/moment_log.h"

namespace melvane {

/// A media device that writes down every command with its answer. Rules give the answers to chosen commands;
/// the others are answered as by a working capture device, which saves silence as long as it recorded, and a
/// working player for which every file lasts 10 seconds at 30 frames a second.
class RecordingMediaDevice final : public MediaDevice {
 public:
    explicit RecordingMediaDevice(const Clock& clock) : clock_(clock), log_(clock) {}

    Answer send(const std::string& command) override;

    /// A command that begins with `prefix`, in any case, gets `answer` and does nothing else. A later rule
    /// with the same prefix takes the place of the former; of several that fit, the longest counts.
    void setReply(const std::string& prefix, Answer answer);
    /// The process that opened devices is gone.
    void forgetDevices() { devices_.clear(); }

    /// `MS "COMMAND" -> CODE "ANSWER"`.
    MomentLog& log() { return log_; }

    static constexpr int framesASecond = 30;
    static constexpr int fileSeconds = 10;
    static constexpr int unknownCommand = 261;
    static constexpr int notOpen = 263;
    static constexpr int noFile = 275;

 private:
    using Words = std::vector<std::string>;
    struct Device {
        bool capture = false;
        bool inFrames = false;
        bool running = false;
        double from = 0, to = 0;  ///< seconds; a capture counts up from 0
        std::int64_t since = 0;   ///< clock counter at which `from` was passed
        int rate = 11025, channels = 1, bits = 8;
    };

    Answer answerTo(const std::string& command);
    Answer open(const std::string& command, const Words& words);
    Answer close(const Words& words);
    Answer act(Device& device, const Words& words, const std::string& command);
    Answer status(const Device& device, const Words& words) const;
    Answer set(Device& device, const Words& words);
    Answer save(const Device& device, const std::string& path) const;
    void start(Device& device, double from, double to);
    void halt(Device& device);
    double seconds(const Device& device) const;

    const Clock& clock_;
    MomentLog log_;
    std::map<std::string, Answer> replies_;  ///< by prefix in lower case
    std::map<std::string, Device> devices_;  ///< by alias in lower case
};

}  // namespace melvane
