// The whole portable media device: commands, one a line, up to a line of "%%"; what follows is the file that
// "$F" stands for in them. Between two commands the stream of sound goes on by a block.
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "platform/media_command.h"
#include "platform/media_error.h"
#include "platform/media_portable_device.h"

using namespace melvane;

namespace {

constexpr int mostCommands = 60;
constexpr std::size_t blockFrames = 700;

/// One tick a frame.
class FrameClock final : public Clock {
 public:
    std::int64_t counter() const override { return now; }
    std::int64_t frequency() const override { return soundRate; }
    std::int64_t tickCount() const override { return now * 1000 / soundRate; }
    std::int64_t now = 0;
};

/// A folder for what is saved, removed with the program.
class Folder {
 public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "melvane-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) != nullptr) path_ = name;
    }
    ~Folder() {
        std::error_code failed;
        if (!path_.empty()) std::filesystem::remove_all(path_, failed);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::string path() const { return path_.string(); }

 private:
    std::filesystem::path path_;
};

/// A file of the system's memory.
class MemoryFile {
 public:
    explicit MemoryFile(std::string_view content) : descriptor_(memfd_create("file", MFD_CLOEXEC)) {
        isWhole_ = descriptor_ >= 0 &&
                   write(descriptor_, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    }
    ~MemoryFile() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    bool isWhole() const { return isWhole_; }
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
    int descriptor_;
    bool isWhole_ = false;
};

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
    return text;
}

class Device {
 public:
    Device(const Folder& folder, const std::string& file) : folder_(folder), file_(file) {}

    void send(const std::string& line) {
        const std::string text = replaced(line, "$F", file_);
        const auto command = readMediaCommand(text);
        const auto answer = device_.send(command ? harmless(text, *command) : text);
        check(command, answer);
        goOn();
    }

 private:
    /// Nothing but the file is read, and nothing is written outside the folder.
    std::string harmless(const std::string& text, const MediaCommand& command) const {
        if (command.verb == MediaVerb::save) {
            const bool hasFolder = command.path.size() % 4 != 3;
            return "save " + command.alias + " " +
                   (command.path.empty() ? "" : folder_.file(hasFolder ? "saved.wav" : "none/saved.wav"));
        }
        const bool isOwn = command.path.empty() || command.path == file_ || command.path == "new";
        if (command.verb != MediaVerb::open || isOwn) return text;
        return "open " + folder_.file("none") + " type " + command.type + " alias " + command.alias;
    }
    static void check(const std::optional<MediaCommand>& command, const MediaDevice::Answer& answer) {
        fuzz::require(answer.code == 0 || !answer.text.empty(), "each failure has a text");
        if (!command) {
            fuzz::require(answer == answerOf(MediaError::notUnderstood), "what is no command is refused");
            return;
        }
        const bool asks = command->verb == MediaVerb::length || command->verb == MediaVerb::position;
        if (!asks || answer.code != 0) return;
        std::int64_t value = -1;
        std::from_chars(answer.text.data(), answer.text.data() + answer.text.size(), value);
        fuzz::require(value >= 0, "lengths and positions are whole numbers");
    }
    void goOn() {
        std::vector<float> block(blockFrames * soundChannels);
        device_.catchUp();
        synthesizer_.mix(block, clock_.now);
        device_.voices().mix(block, clock_.now);
        device_.tap().hear(block, clock_.now);
        for (const float value : block) fuzz::require(std::isfinite(value), "every value is a number");
        clock_.now += static_cast<std::int64_t>(blockFrames);
    }

    const Folder& folder_;
    const std::string file_;
    FrameClock clock_;
    Synthesizer synthesizer_{clock_, 0.0};
    PortableMediaDevice device_{
        clock_,
        synthesizer_,
        {.openInput = [](const std::shared_ptr<SoundTap>&) { return std::unique_ptr<SoundInput>(); },
         .recordingsFolder = [this] { return folder_.path(); },
         .mostCaptureBytes = 5000}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string_view all = fuzz::asText(data, size);
    constexpr std::string_view separator = "\n%%\n";
    const std::size_t end = std::min(all.find(separator), all.size());
    const MemoryFile file(all.substr(std::min(end + separator.size(), all.size())));
    if (!file.isWhole()) return 0;
    Device device(folder, file.path());
    std::string_view commands = all.substr(0, end);
    for (int count = 0; count < mostCommands && !commands.empty(); ++count) {
        const std::size_t line = std::min(commands.find('\n'), commands.size());
        device.send(std::string(commands.substr(0, line)));
        commands.remove_prefix(std::min(line + 1, commands.size()));
    }
    return 0;
}
