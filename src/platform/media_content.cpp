#include "platform/media_content.h"

#include <array>
#include <condition_variable>
#include <fstream>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/files.h"
#include "platform/midi_file_reader.h"

namespace melvane {

bool beginsAsMidi(const std::string& path) {
    std::array<char, 12> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const std::string_view bytes(head.data(), head.size());
    return bytes.starts_with("MThd") || (bytes.starts_with("RIFF") && bytes.ends_with("RMID"));
}

MediaContent readMediaContent(const std::string& path, const LengthGuess& guessed) {
    MediaContent content;
    if (beginsAsMidi(path)) {
        if (const auto bytes = readFile(path)) content.notes = readMidiFile(*bytes);
    } else {
        content.sound = AudioReader::open(path, guessed);
    }
    return content;
}

struct MediaReading::Core {
    void read(const Reader& reader);

    std::mutex mutex;
    std::condition_variable changed;
    bool isOver = false;
    MediaContent content;
    std::int64_t guess = 0;
};

void MediaReading::Core::read(const Reader& reader) {
    MediaContent read = reader([this](std::int64_t length) {
        const std::lock_guard lock(mutex);
        guess = length;
    });
    const std::lock_guard lock(mutex);
    content = std::move(read);
    isOver = true;
    changed.notify_all();
}

MediaReading::MediaReading(Reader reader, bool atOnce) : core_(std::make_shared<Core>()) {
    if (atOnce) {
        core_->read(reader);
    } else {
        std::thread([core = core_, reader = std::move(reader)] { core->read(reader); }).detach();
    }
}

bool MediaReading::isOver(std::chrono::milliseconds patience) {
    std::unique_lock lock(core_->mutex);
    return core_->changed.wait_for(lock, patience, [this] { return core_->isOver; });
}

MediaContent MediaReading::take() {
    const std::lock_guard lock(core_->mutex);
    return std::move(core_->content);
}

std::int64_t MediaReading::guessedLength() const {
    const std::lock_guard lock(core_->mutex);
    return core_->guess > 0 ? core_->guess : std::int64_t{MidiSequence::longest};
}

}  // namespace melvane
