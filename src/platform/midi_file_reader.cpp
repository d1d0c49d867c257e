#include "platform/midi_file_reader.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/midi_track_reader.h"
#include "platform/sound_source.h"

namespace melvane {

namespace {

constexpr std::size_t tagSize = 4, chunkHeadSize = 8, headSize = chunkHeadSize + 6;
constexpr std::uint32_t usualTempo = 500'000;  // microseconds a quarter note
constexpr int usualDivision = 96;              // ticks a quarter note
constexpr std::uint16_t tracksInTurn = 2;      // the type of a file

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t value = 0;
    for (const char each : bytes) value = value << 8U | static_cast<std::uint8_t>(each);
    return value;
}

/// How long a tick is: by the tempo, or by frames of a picture.
struct Division {
    double ticksAQuarter = usualDivision;
    double ticksASecond = 0;  ///< above 0: the tempo does not count

    double framesATick(std::uint32_t tempo) const {
        if (ticksASecond > 0) return soundRate / ticksASecond;
        return soundRate * 1e-6 * tempo / ticksAQuarter;
    }
};

Division divisionOf(std::uint32_t field) {
    constexpr std::array pictureRates{std::pair{24, 24.0}, std::pair{25, 25.0},
                                      std::pair{29, 30000.0 / 1001.0}, std::pair{30, 30.0}};
    const auto high = static_cast<int>(static_cast<std::int8_t>(field >> 8U));
    const auto low = static_cast<double>(field & 0xFFU);
    if (high >= 0) return {.ticksAQuarter = field > 0 ? static_cast<double>(field) : usualDivision};
    for (const auto& [name, rate] : pictureRates) {
        if (name == -high && low > 0) return {.ticksASecond = rate * low};
    }
    return {};
}

struct Head {
    std::uint32_t type = 0;
    Division division;
};

/// A MIDI file in a RIFF file begins somewhere behind its head.
std::optional<std::string_view> fromHead(std::string_view bytes) {
    if (bytes.starts_with("RIFF")) bytes.remove_prefix(std::min(bytes.find("MThd"), bytes.size()));
    if (!bytes.starts_with("MThd") || bytes.size() < headSize) return std::nullopt;
    return bytes;
}

Head readHead(std::string_view bytes) {
    return {bigEndian(bytes.substr(chunkHeadSize, 2)), divisionOf(bigEndian(bytes.substr(12, 2)))};
}

/// The content of the track whose head stands at `at`. A length that does not lead to another track or to the
/// end of the file is taken for wrong: what else stands there may be a chunk, but also data of the track.
std::string_view trackContent(std::string_view bytes, std::size_t at) {
    const std::uint32_t length = bigEndian(bytes.substr(at + tagSize, tagSize));
    const std::string_view rest = bytes.substr(std::min(at + chunkHeadSize, bytes.size()));
    const bool leadsOn =
        length == rest.size() || (length < rest.size() && rest.substr(length).starts_with("MTrk"));
    return rest.substr(0, leadsOn ? length : rest.find("MTrk"));
}

/// False when there is none.
bool readTracks(std::string_view bytes, bool inTurn, MidiTicks& ticks) {
    bool isAny = false;
    for (std::size_t at = bytes.find("MTrk"); at != std::string_view::npos; at = bytes.find("MTrk", at)) {
        isAny = true;
        const std::uint32_t start = inTurn ? ticks.end : 0;
        if (inTurn) ticks.tempos.push_back({start, usualTempo});
        at =
            std::min(at + chunkHeadSize, bytes.size()) + readMidiTrack(trackContent(bytes, at), start, ticks);
    }
    return isAny;
}

/// Walks through the tempos in step with ticks that never go back.
class TempoWalk {
 public:
    TempoWalk(const std::vector<MidiTicks::Tempo>& tempos, const Division& division)
        : tempos_(tempos), division_(division), framesATick_(division.framesATick(usualTempo)) {}

    /// The frame of a tick.
    double frameOf(std::uint32_t tick) {
        for (; next_ < tempos_.size() && tempos_[next_].tick <= tick; ++next_) {
            frame_ += framesATick_ * (tempos_[next_].tick - tick_);
            tick_ = tempos_[next_].tick;
            framesATick_ = division_.framesATick(tempos_[next_].microseconds);
        }
        return frame_ + framesATick_ * (tick - tick_);
    }

 private:
    const std::vector<MidiTicks::Tempo>& tempos_;
    const Division division_;
    std::size_t next_ = 0;
    std::uint32_t tick_ = 0;  ///< of the last change
    double frame_ = 0, framesATick_;
};

/// The tracks follow each other, each in order, and one alone is in order already.
template <typename Events>
void sortByTick(Events& events) {
    const auto isEarlier = [](const auto& one, const auto& other) { return one.tick < other.tick; };
    if (!std::ranges::is_sorted(events, isEarlier)) std::ranges::stable_sort(events, isEarlier);
}

MidiSequence inFrames(const MidiTicks& ticks, const Division& division) {
    MidiSequence sequence;
    sequence.events.reserve(ticks.messages.size());
    TempoWalk walk(ticks.tempos, division);
    for (const auto& [tick, packed] : ticks.messages) {
        const double frame = walk.frameOf(tick);
        if (frame > MidiSequence::longest) break;
        sequence.events.push_back({static_cast<std::uint32_t>(std::llround(frame)), packed});
    }
    const double end = std::min<double>(walk.frameOf(ticks.end), MidiSequence::longest);
    sequence.length = static_cast<std::uint32_t>(std::llround(end));
    return sequence;
}

}  // namespace

std::optional<MidiSequence> readMidiFile(std::string_view bytes) {
    const auto file = fromHead(bytes);
    if (!file || file->size() > mostMidiBytes) return std::nullopt;
    const Head head = readHead(*file);
    MidiTicks ticks;
    if (!readTracks(*file, head.type == tracksInTurn, ticks)) return std::nullopt;
    sortByTick(ticks.messages);
    sortByTick(ticks.tempos);
    return inFrames(ticks, head.division);
}

}  // namespace melvane
