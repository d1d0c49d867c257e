#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace melvane::sound_test {

/// A program started by a test. It is killed when this is destroyed.
class ChildProcess {
 public:
    ChildProcess() = default;
    /// Found on the PATH. Standard output and error go to the files; an empty name throws them away.
    static ChildProcess start(const std::vector<std::string>& command, const std::string& outputFile = {},
                              const std::string& errorFile = {});
    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;

    bool isRunning();
    /// Sends the signal and waits for the end.
    void stop(int signal);
    void send(int signal) const;
    /// Waits for the end; the exit code, or -1 when it was killed or never ran.
    int wait();
    /// -1 when it does not run.
    pid_t id() const { return id_; }

 private:
    explicit ChildProcess(pid_t id) : id_(id) {}
    void noteEnd(int status);

    pid_t id_ = -1;
    int exitCode_ = -1;
};

}  // namespace melvane::sound_test
