#include "private_sound_server.h"

#include <signal.h>
#include <stdlib.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace melvane::sound_test {

namespace {

constexpr std::chrono::milliseconds startPatience{8000};
constexpr std::chrono::milliseconds startPoll{20};

std::string newFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "melvane-sound-XXXXXX").string();
    return mkdtemp(name.data()) ? name : std::string();
}

bool isInstalled(const std::string& program) {
    return ChildProcess::start({program, "--version"}).wait() == 0;
}

}  // namespace

PrivateSoundServer::PrivateSoundServer() : folder_(newFolder()) {
    setenv("PULSE_SERVER", ("unix:" + folder_ + "/native").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
    setenv("HOME", folder_.c_str(), 1);
}

PrivateSoundServer::~PrivateSoundServer() {
    kill();
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string PrivateSoundServer::start() {
    for (const char* program : {"pulseaudio", "pactl", "parec"}) {
        if (!isInstalled(program))
            return std::string(program) + " is missing: install pulseaudio and pulseaudio-utils";
    }
    std::error_code ignored;
    std::filesystem::remove(folder_ + "/native", ignored);
    server_ = ChildProcess::start(
        {"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
         "module-native-protocol-unix socket=" + folder_ + "/native auth-anonymous=1", "-L",
         "module-null-sink sink_name=card rate=44100 channels=2 norewinds=1"},
        {}, folder_ + "/server.log");
    for (auto waited = startPoll; waited < startPatience; waited += startPoll) {
        if (answers()) return {};
        if (!server_.isRunning()) return "pulseaudio ended at once; see " + folder_ + "/server.log";
        std::this_thread::sleep_for(startPoll);
    }
    return "pulseaudio does not answer";
}

bool PrivateSoundServer::answers() const {
    return std::filesystem::exists(folder_ + "/native") && ChildProcess::start({"pactl", "info"}).wait() == 0;
}

void PrivateSoundServer::kill() { server_.stop(SIGKILL); }

void PrivateSoundServer::freeze(bool frozen) { server_.send(frozen ? SIGSTOP : SIGCONT); }

MonitorRecording::MonitorRecording(const PrivateSoundServer& server)
    : file_(server.folder() + "/recording.raw") {
    std::filesystem::remove(file_);
    recorder_ = ChildProcess::start({"parec", "--latency-msec=20", "--format=float32le", "--rate=44100",
                                     "--channels=2", "-d", "card.monitor"},
                                    file_);
    for (auto waited = startPoll; waited < startPatience && !hasBegun(); waited += startPoll) {
        std::this_thread::sleep_for(startPoll);
    }
}

bool MonitorRecording::hasBegun() const {
    std::error_code ignored;
    const auto size = std::filesystem::file_size(file_, ignored);
    return !ignored && size > 0;
}

std::vector<float> MonitorRecording::take() {
    recorder_.stop(SIGTERM);
    std::ifstream file(file_, std::ios::binary);
    std::vector<float> left;
    float frame[2];
    while (file.read(reinterpret_cast<char*>(frame), sizeof frame)) left.push_back(frame[0]);
    return left;
}

}  // namespace melvane::sound_test
