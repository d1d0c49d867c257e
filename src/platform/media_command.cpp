#include "platform/media_command.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "platform/text.h"

namespace melvane {

namespace {

constexpr std::string_view blanks = " \t";
using Read = std::optional<MediaCommand>;

/// What is left of a command's text.
class Words {
 public:
    explicit Words(std::string_view text) : rest_(text) {}

    std::string_view rest() const { return rest_; }
    bool atEnd() const { return rest_.find_first_not_of(blanks) == std::string_view::npos; }
    /// The next word in lower case; empty at the end.
    std::string next() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
        const std::size_t length = std::min(rest_.find_first_of(blanks), rest_.size());
        std::string word = lowerCase(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return word;
    }
    /// Whether these words follow; they are passed over.
    template <typename... Texts>
    bool follow(Texts... words) {
        return ((next() == words) && ...);
    }
    std::optional<std::int64_t> number() {
        const std::string word = next();
        std::int64_t value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (word.empty() || error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
        return value;
    }

 private:
    std::string_view rest_;
};

/// A path without what stands around it.
std::string pathIn(std::string_view text) {
    std::string path = trimmed(text);
    if (path.size() >= 2 && path.front() == '"' && path.back() == '"') return path.substr(1, path.size() - 2);
    return path;
}

/// "TYPE alias A parent N style N", the last three in any order.
Read readOpenTail(Words words) {
    MediaCommand command{.verb = MediaVerb::open};
    command.type = words.next();
    while (!words.atEnd()) {
        const std::string key = words.next();
        if (key == "alias" && command.alias.empty()) {
            command.alias = words.next();
        } else if ((key != "parent" && key != "style") || !words.number()) {
            return std::nullopt;
        }
    }
    if (command.alias.empty()) return std::nullopt;
    return command;
}

Read readOpen(Words words) {
    constexpr std::string_view separator = " type ";
    const std::string lower = lowerCase(words.rest());
    for (std::size_t at = lower.rfind(separator); at != std::string::npos;
         at = at == 0 ? std::string::npos : lower.rfind(separator, at - 1)) {
        if (auto command = readOpenTail(Words(words.rest().substr(at + separator.size())))) {
            command->path = pathIn(words.rest().substr(0, at));
            return command;
        }
    }
    return std::nullopt;
}

/// A verb with nothing but the alias.
template <MediaVerb verb>
Read readPlain(Words words) {
    MediaCommand command{.verb = verb, .alias = words.next()};
    if (command.alias.empty() || !words.atEnd()) return std::nullopt;
    return command;
}

Read readClose(Words words) {
    auto command = readPlain<MediaVerb::close>(words);
    if (command && command->alias == "all") return MediaCommand{.verb = MediaVerb::closeAll};
    return command;
}

Read readPlay(Words words) {
    MediaCommand command{.verb = MediaVerb::play, .alias = words.next()};
    while (!words.atEnd()) {
        const std::string key = words.next();
        auto* const moment = key == "from" ? &command.from : key == "to" ? &command.to : nullptr;
        if (moment == nullptr || *moment) return std::nullopt;
        *moment = words.number();
        if (!*moment) return std::nullopt;
    }
    if (command.alias.empty()) return std::nullopt;
    return command;
}

Read readTimeFormat(MediaCommand command, Words words) {
    command.verb = MediaVerb::setTimeFormat;
    if (!words.follow("format")) return std::nullopt;
    const std::string unit = words.next();
    command.inFrames = unit == "frames";
    if ((!command.inFrames && unit != "ms" && unit != "milliseconds") || !words.atEnd()) return std::nullopt;
    return command;
}

/// Numbers that no format has are read as -1.
int formatNumber(std::int64_t value) {
    return value >= 0 && value <= 1'000'000 ? static_cast<int>(value) : -1;
}

Read readWaveFormat(MediaCommand command, Words words) {
    command.verb = MediaVerb::setWaveFormat;
    constexpr std::array<std::string_view, 5> keys{"samplespersec", "channels", "bitspersample", "alignment",
                                                   "bytespersec"};
    std::array<std::optional<int>, keys.size()> values;
    while (!words.atEnd()) {
        const auto* const key = std::ranges::find(keys, words.next());
        const auto value = words.number();
        if (key == keys.end() || !value) return std::nullopt;
        values.at(static_cast<std::size_t>(key - keys.begin())) = formatNumber(*value);
    }
    if (!values[0] || !values[1] || !values[2]) return std::nullopt;
    WaveFormat& format = command.format;
    format = {*values[0], *values[1], *values[2]};
    // What contradicts itself is told as a format that nothing supports.
    const bool fits = isRecorded(format) && values[3].value_or(format.alignment()) == format.alignment() &&
                      values[4].value_or(format.bytesPerSecond()) == format.bytesPerSecond();
    if (!fits) format = {0, 0, 0};
    return command;
}

Read readSet(Words words) {
    MediaCommand command{.alias = words.next()};
    Words others = words;
    if (words.next() == "time") return readTimeFormat(std::move(command), words);
    return readWaveFormat(std::move(command), others);
}

Read readStatus(Words words) {
    MediaCommand command{.alias = words.next()};
    const std::string what = words.next();
    command.verb = what == "length" ? MediaVerb::length : MediaVerb::position;
    if ((what != "length" && what != "position") || !words.atEnd()) return std::nullopt;
    return command;
}

Read readCapability(Words words) {
    MediaCommand command{.verb = MediaVerb::canSave, .alias = words.next()};
    if (!words.follow("can", "save") || !words.atEnd()) return std::nullopt;
    return command;
}

Read readSave(Words words) {
    MediaCommand command{.verb = MediaVerb::save, .alias = words.next()};
    command.path = pathIn(words.rest());
    if (command.alias.empty()) return std::nullopt;
    return command;
}

constexpr std::array readers{
    std::pair{std::string_view("open"), &readOpen},
    std::pair{std::string_view("close"), &readClose},
    std::pair{std::string_view("play"), &readPlay},
    std::pair{std::string_view("pause"), &readPlain<MediaVerb::pause>},
    std::pair{std::string_view("resume"), &readPlain<MediaVerb::resume>},
    std::pair{std::string_view("stop"), &readPlain<MediaVerb::stop>},
    std::pair{std::string_view("set"), &readSet},
    std::pair{std::string_view("status"), &readStatus},
    std::pair{std::string_view("record"), &readPlain<MediaVerb::record>},
    std::pair{std::string_view("capability"), &readCapability},
    std::pair{std::string_view("save"), &readSave},
    std::pair{std::string_view("delete"), &readPlain<MediaVerb::erase>},
};

}  // namespace

Read readMediaCommand(std::string_view text) {
    constexpr std::string_view lineBreaks("\r\n\0", 3);
    if (text.find_first_of(lineBreaks) != std::string_view::npos) return std::nullopt;
    Words words(text);
    const std::string verb = words.next();
    const auto* const reader = std::ranges::find(readers, verb, [](const auto& each) { return each.first; });
    return reader == readers.end() ? std::nullopt : reader->second(words);
}

}  // namespace melvane
