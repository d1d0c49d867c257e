#include "child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

namespace melvane::sound_test {

namespace {

const char* fileOrNull(const std::string& name) { return name.empty() ? "/dev/null" : name.c_str(); }

}  // namespace

ChildProcess ChildProcess::start(const std::vector<std::string>& command, const std::string& outputFile,
                                 const std::string& errorFile) {
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    constexpr int writing = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, fileOrNull(outputFile), writing, 0644);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, fileOrNull(errorFile), writing, 0644);
    pid_t id = -1;
    if (posix_spawnp(&id, arguments[0], &files, nullptr, arguments.data(), environ) != 0) id = -1;
    posix_spawn_file_actions_destroy(&files);
    return ChildProcess(id);
}

ChildProcess::~ChildProcess() { stop(SIGKILL); }

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : id_(std::exchange(other.id_, -1)), exitCode_(other.exitCode_) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    std::swap(id_, other.id_);
    std::swap(exitCode_, other.exitCode_);
    return *this;
}

bool ChildProcess::isRunning() {
    if (id_ <= 0) return false;
    int status = 0;
    if (waitpid(id_, &status, WNOHANG) == 0) return true;
    noteEnd(status);
    return false;
}

void ChildProcess::send(int signal) const {
    if (id_ > 0) kill(id_, signal);
}

void ChildProcess::stop(int signal) {
    send(signal);
    wait();
}

int ChildProcess::wait() {
    if (id_ <= 0) return exitCode_;
    int status = 0;
    if (waitpid(id_, &status, 0) > 0) noteEnd(status);
    id_ = -1;
    return exitCode_;
}

void ChildProcess::noteEnd(int status) {
    id_ = -1;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace melvane::sound_test
