#include "platform/recording_media_device.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string_view>

#include "platform/files.h"
#include "platform/quoted_text.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

std::vector<std::string> wordsOf(const std::string& command) {
    std::istringstream stream(lowerCase(command));
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

/// The number after `key` in "set capture samplespersec 44100 channels 2".
int numberAfter(const std::vector<std::string>& words, std::string_view key, int otherwise) {
    const auto found = std::ranges::find(words, key);
    return found == words.end() || found + 1 == words.end() ? otherwise : std::atoi((found + 1)->c_str());
}

void appendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
    for (int byte = 0; byte < count; ++byte) bytes += static_cast<char>((value >> (8 * byte)) & 0xFFU);
}

std::string silentWav(int rate, int channels, int bits, double seconds) {
    const auto alignment = static_cast<std::uint32_t>(channels * bits / 8);
    const auto frames = static_cast<std::uint32_t>(std::lround(std::min(seconds, 600.0) * rate));
    std::string bytes = "RIFF";
    appendLittleEndian(bytes, 36 + frames * alignment, 4);
    bytes += "WAVEfmt ";
    appendLittleEndian(bytes, 16, 4);
    appendLittleEndian(bytes, 1, 2);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(channels), 2);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(rate), 4);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(rate) * alignment, 4);
    appendLittleEndian(bytes, alignment, 2);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(bits), 2);
    bytes += "data";
    appendLittleEndian(bytes, frames * alignment, 4);
    return bytes.append(frames * alignment, bits == 8 ? '\x80' : '\0');
}

}  // namespace

void RecordingMediaDevice::setReply(const std::string& prefix, Answer answer) {
    replies_[lowerCase(prefix)] = std::move(answer);
}

MediaDevice::Answer RecordingMediaDevice::send(const std::string& command) {
    const std::string lower = lowerCase(command);
    const std::pair<const std::string, Answer>* rule = nullptr;
    for (const auto& entry : replies_) {
        if (lower.starts_with(entry.first) && (rule == nullptr || entry.first.size() > rule->first.size())) {
            rule = &entry;
        }
    }
    const Answer answer = rule != nullptr ? rule->second : answerTo(command);
    log_.add(quoted(command) + " -> " + std::to_string(answer.code) + " " + quoted(answer.text));
    return answer;
}

MediaDevice::Answer RecordingMediaDevice::answerTo(const std::string& command) {
    const Words words = wordsOf(command);
    if (words.size() < 2) return {unknownCommand, "The command is not known."};
    if (words[0] == "open") return open(command, words);
    if (words[0] == "close") return close(words);
    const auto device = devices_.find(words[1]);
    if (device == devices_.end()) return {notOpen, "The device is not open."};
    return act(device->second, words, command);
}

MediaDevice::Answer RecordingMediaDevice::open(const std::string& command, const Words& words) {
    const std::string lower = lowerCase(command);
    const auto type = lower.find(" type ");
    const auto alias = std::ranges::find(words, "alias");
    if (type == std::string::npos || alias == words.end() || alias + 1 == words.end()) {
        return {unknownCommand, "The command is not known."};
    }
    if (type < 5 || trimmed(lower.substr(5, type - 5)).empty()) return {noFile, "The file cannot be found."};
    Device device;
    device.capture = trimmed(lower.substr(5, type - 5)) == "new";
    devices_[*(alias + 1)] = device;
    return {0, "1"};
}

MediaDevice::Answer RecordingMediaDevice::close(const Words& words) {
    if (words[1] == "all") {
        devices_.clear();
        return {};
    }
    if (devices_.erase(words[1]) == 0) return {notOpen, "The device is not open."};
    return {};
}

MediaDevice::Answer RecordingMediaDevice::act(Device& device, const Words& words,
                                              const std::string& command) {
    const std::string& verb = words[0];
    if (verb == "status") return status(device, words);
    if (verb == "set") return set(device, words);
    if (verb == "capability") return {0, device.capture ? "true" : "false"};
    if (verb == "save" && words.size() < 3) return {noFile, "The file has no name."};
    if (verb == "save") return save(device, trimmed(command.substr(command.find(' ', 5) + 1)));
    if (verb == "play") {
        const double unit = device.inFrames ? framesASecond : 1000;
        start(device, numberAfter(words, "from", 0) / unit,
              std::min<double>(numberAfter(words, "to", 1'000'000) / unit, fileSeconds));
    } else if (verb == "record") {
        start(device, 0, endless);
    } else if (verb == "resume") {
        start(device, device.from, device.to);
    } else if (verb == "stop" || verb == "pause") {
        halt(device);
    } else if (verb != "delete") {
        return {unknownCommand, "The command is not known."};
    }
    return {};
}

MediaDevice::Answer RecordingMediaDevice::status(const Device& device, const Words& words) const {
    const std::string what = words.size() > 2 ? words[2] : std::string();
    const double unit = device.inFrames ? framesASecond : 1000;
    if (what == "length") return {0, std::to_string(std::lround(fileSeconds * unit))};
    if (what == "position") return {0, std::to_string(static_cast<long>(seconds(device) * unit + 1e-6))};
    return {unknownCommand, "The command is not known."};
}

MediaDevice::Answer RecordingMediaDevice::set(Device& device, const Words& words) {
    if (words.size() > 4 && words[2] == "time") device.inFrames = words[4] == "frames";
    device.rate = numberAfter(words, "samplespersec", device.rate);
    device.channels = numberAfter(words, "channels", device.channels);
    device.bits = numberAfter(words, "bitspersample", device.bits);
    if (device.rate > 0 && device.channels > 0 && device.bits > 0) return {};
    return {unknownCommand, "The format is not known."};
}

MediaDevice::Answer RecordingMediaDevice::save(const Device& device, const std::string& path) const {
    const auto failure =
        writeFileWhole(path, silentWav(device.rate, device.channels, device.bits, seconds(device)));
    return failure ? Answer{noFile, *failure} : Answer{};
}

void RecordingMediaDevice::start(Device& device, double from, double to) {
    device.from = from;
    device.to = to;
    device.since = clock_.counter();
    device.running = true;
}

void RecordingMediaDevice::halt(Device& device) {
    device.from = seconds(device);
    device.running = false;
}

double RecordingMediaDevice::seconds(const Device& device) const {
    if (!device.running) return device.from;
    const auto ticks = static_cast<double>(clock_.counter() - device.since);
    return std::min(device.from + ticks / static_cast<double>(clock_.frequency()), device.to);
}

}  // namespace melvane
