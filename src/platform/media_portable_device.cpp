#include "platform/media_portable_device.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/media_error.h"
#include "platform/media_midi_player.h"
#include "platform/media_player.h"
#include "platform/media_sound_file_player.h"
#include "platform/midi_file_reader.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr std::string_view captureType = "waveaudio";
constexpr std::string_view emptyFile = "new";
/// Any of them plays any file.
constexpr std::array<std::string_view, 3> types{"mpegvideo", captureType, "sequencer"};

bool isMidiFile(const std::string& path) {
    std::array<char, 12> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const std::string_view bytes(head.data(), head.size());
    return bytes.starts_with("MThd") || (bytes.starts_with("RIFF") && bytes.ends_with("RMID"));
}

}  // namespace

PortableMediaDevice::PortableMediaDevice(const Clock& clock, Synthesizer& synthesizer, Setting setting)
    : clock_(clock), synthesizer_(synthesizer), setting_(std::move(setting)) {}

PortableMediaDevice::~PortableMediaDevice() = default;

MediaDevice::Answer PortableMediaDevice::send(const std::string& text) {
    const auto command = readMediaCommand(text);
    if (!command) return answerOf(MediaError::notUnderstood);
    switch (command->verb) {
        case MediaVerb::open:
            return open(*command);
        case MediaVerb::close:
            return close(*command);
        case MediaVerb::closeAll:
            units_.clear();
            return {};
        default:
            return act(*command);
    }
}

MediaDevice::Answer PortableMediaDevice::open(const MediaCommand& command) {
    if (std::ranges::find(types, command.type) == types.end()) return answerOf(MediaError::unknownType);
    if (units_.contains(command.alias)) return answerOf(MediaError::aliasInUse);
    if (command.type == captureType && lowerCase(command.path) == emptyFile) {
        return openCapture(command.alias);
    }
    if (!fileExists(command.path)) return answerOf(MediaError::noFile);
    auto unit = openFile(command.path);
    if (!unit) return answerOf(MediaError::damagedFile);
    units_[command.alias] = std::move(unit);
    return {};
}

MediaDevice::Answer PortableMediaDevice::openCapture(const std::string& alias) {
    const auto soundsElsewhere = [this] { return setting_.soundsElsewhere() && !aFilePlays(); };
    const CaptureSources sources{mixTap_, soundsElsewhere, setting_.openInput, setting_.inputPace};
    std::vector<std::string> folders = spoolFolders();
    folders.insert(folders.begin(), setting_.recordingsFolder());
    auto capture = std::make_unique<MediaCapture>(sources, setting_.mostCaptureBytes, std::move(folders));
    Answer answer = capture->readiness();
    if (answer.code == 0) units_[alias] = std::move(capture);
    return answer;
}

bool PortableMediaDevice::aFilePlays() const {
    return std::ranges::any_of(units_, [](const auto& each) { return each.second->isPlaying(); });
}

std::unique_ptr<MediaUnit> PortableMediaDevice::openFile(const std::string& path) {
    std::unique_ptr<Playable> sound;
    if (isMidiFile(path)) {
        const auto bytes = readFile(path);
        auto sequence = bytes ? readMidiFile(*bytes) : std::nullopt;
        if (!sequence) return nullptr;
        sound = std::make_unique<MidiPlayer>(std::move(*sequence), synthesizer_, clock_,
                                             setting_.outputDelaySeconds);
    } else {
        auto reader = AudioReader::open(path);
        if (!reader) return nullptr;
        sound = std::make_unique<SoundFilePlayer>(std::move(reader), voices_, clock_,
                                                  setting_.outputDelaySeconds);
    }
    return std::make_unique<MediaPlayer>(std::move(sound));
}

MediaDevice::Answer PortableMediaDevice::close(const MediaCommand& command) {
    return units_.erase(command.alias) == 1 ? Answer{} : answerOf(MediaError::notOpen);
}

MediaDevice::Answer PortableMediaDevice::act(const MediaCommand& command) {
    const auto unit = units_.find(command.alias);
    if (unit == units_.end()) return answerOf(MediaError::notOpen);
    const bool startsFile = command.verb == MediaVerb::play || command.verb == MediaVerb::resume;
    return startsFile ? startFile(*unit->second, command) : unit->second->act(command);
}

MediaDevice::Answer PortableMediaDevice::startFile(MediaUnit& unit, const MediaCommand& command) {
    for (const auto& [alias, each] : units_) each->expectFile();
    const Answer answer = unit.act(command);
    for (const auto& [alias, each] : units_) each->noteFile(unit.isPlaying());
    return answer;
}

void PortableMediaDevice::noteOutput() {
    for (const auto& [alias, unit] : units_) unit->noteOutput();
}

void PortableMediaDevice::catchUp() {
    for (const auto& [alias, unit] : units_) unit->catchUp();
}

}  // namespace melvane
