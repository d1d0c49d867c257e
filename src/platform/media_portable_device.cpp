#include "platform/media_portable_device.h"

#include <algorithm>
#include <array>
#include <filesystem>
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
    return openFile(command.alias, command.path);
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

MediaDevice::Answer PortableMediaDevice::openFile(const std::string& alias, const std::string& path) {
    std::error_code failed;
    const std::uintmax_t size = std::filesystem::file_size(path, failed);
    if (!failed && size > mostMidiBytes && beginsAsMidi(path)) return answerOf(MediaError::tooLarge);
    MediaReading reading([path](const LengthGuess& guessed) { return readMediaContent(path, guessed); },
                         size <= setting_.mostReadAtOnce);
    reading.isOver(setting_.readPatience);
    auto player = std::make_unique<MediaPlayer>(
        std::move(reading), [this](MediaContent content) { return playableOf(std::move(content)); });
    if (player->isDamaged()) return answerOf(MediaError::damagedFile);
    units_[alias] = std::move(player);
    return {};
}

std::unique_ptr<Playable> PortableMediaDevice::playableOf(MediaContent content) {
    if (content.notes) {
        return std::make_unique<MidiPlayer>(std::move(*content.notes), synthesizer_, clock_,
                                            setting_.outputDelaySeconds);
    }
    return std::make_unique<SoundFilePlayer>(std::move(content.sound), voices_, clock_,
                                             setting_.outputDelaySeconds);
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
