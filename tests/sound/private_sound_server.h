#pragma once
#include <memory>
#include <string>

#include "child_process.h"

namespace melvane::sound_test {

/// A PulseAudio server of the test's own with one null sink, "card", in a temporary folder. The environment
/// of this process points to it from construction on, so one at a time.
class PrivateSoundServer {
 public:
    PrivateSoundServer();
    /// Kills the server and removes the folder.
    ~PrivateSoundServer();
    PrivateSoundServer(const PrivateSoundServer&) = delete;
    PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

    /// What kept the server from starting, as one line; empty when it runs.
    std::string start();
    /// Ends it at once, as a crash would.
    void kill();
    /// Freezes it, or lets it go on.
    void freeze(bool frozen);
    const std::string& folder() const { return folder_; }

 private:
    bool answers() const;

    std::string folder_;
    ChildProcess server_;
};

/// Records what the sink "card" plays.
class MonitorRecording {
 public:
    explicit MonitorRecording(const PrivateSoundServer& server);
    /// Ends the recording. The left channel, -1 to 1, at 44.1 kHz.
    std::vector<float> take();
    /// Whether the first bytes have come.
    bool hasBegun() const;

 private:
    std::string file_;
    ChildProcess recorder_;
};

}  // namespace melvane::sound_test
