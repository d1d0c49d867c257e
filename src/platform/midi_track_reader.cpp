#include "platform/midi_track_reader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "platform/sound_short_message.h"

namespace melvane {

namespace {

constexpr std::uint8_t metaEvent = 0xFF, systemExclusive = 0xF0, continuedExclusive = 0xF7;
constexpr std::uint8_t firstSystemStatus = 0xF0;
constexpr std::uint8_t endOfTrack = 0x2F, setTempo = 0x51;
constexpr int mostNumberBytes = 4;

class TrackReader {
 public:
    TrackReader(std::string_view bytes, std::uint32_t start, MidiTicks& ticks)
        : bytes_(bytes), tick_(start), ticks_(ticks) {}

    std::size_t read() {
        while (at_ < bytes_.size() && (std::exchange(isCutShort_, false) || wait()) && readEvent()) {
        }
        ticks_.end = std::max(ticks_.end, tick_);
        return at_;
    }

 private:
    std::optional<std::uint8_t> byte() {
        if (at_ >= bytes_.size()) return std::nullopt;
        return static_cast<std::uint8_t>(bytes_[at_++]);
    }
    /// 7 bits a byte, the highest first; every byte but the last has its eighth bit set.
    std::optional<std::uint32_t> number() {
        std::uint32_t value = 0;
        for (int count = 0; count < mostNumberBytes; ++count) {
            const auto next = byte();
            if (!next) return std::nullopt;
            value = value << 7U | (*next & 0x7FU);
            if (*next < 0x80) return value;
        }
        return std::nullopt;
    }
    bool wait() {
        const auto delta = number();
        if (!delta || *delta > std::numeric_limits<std::uint32_t>::max() - tick_) return false;
        tick_ += *delta;
        return true;
    }

    /// False at the end of the track.
    bool readEvent() {
        const auto first = byte();
        if (!first) return false;
        if (*first == metaEvent) return readMeta();
        if (*first == systemExclusive || *first == continuedExclusive) return pass(number());
        if (*first >= firstSystemStatus) return passSystemMessage(*first);
        if (*first >= 0x80) {
            status_ = *first;
        } else {
            --at_;
        }
        return readMessage();
    }
    bool readMeta() {
        const auto type = byte();
        const auto length = number();
        if (type == endOfTrack || !type || !length || *length > bytes_.size() - at_) return false;
        if (type == setTempo && *length == 3) {
            std::uint32_t microseconds = 0;
            for (std::size_t digit = 0; digit < 3; ++digit) {
                microseconds = microseconds << 8U | static_cast<std::uint8_t>(bytes_[at_ + digit]);
            }
            if (microseconds > 0) ticks_.tempos.push_back({tick_, microseconds});
        }
        at_ += *length;
        return true;
    }
    bool pass(std::optional<std::uint32_t> length) {
        if (!length || *length > bytes_.size() - at_) return false;
        at_ += *length;
        return true;
    }
    /// They have no place in a file; their data are passed over as far as they are data.
    bool passSystemMessage(std::uint8_t status) {
        const int data = status == 0xF2 ? 2 : status == 0xF1 || status == 0xF3 ? 1 : 0;
        for (int count = 0; count < data && isData(); ++count) ++at_;
        return true;
    }
    bool isData() const { return at_ < bytes_.size() && static_cast<std::uint8_t>(bytes_[at_]) < 0x80; }

    /// The data of the running status. Without one they are passed over as those of a note would be.
    bool readMessage() {
        if (status_ == 0) {
            ++at_;
            if (isData()) ++at_;
            return true;
        }
        const std::uint8_t kind = status_ & 0xF0U;
        const bool hasOneByte = kind == message_kind::programChange || kind == message_kind::channelPressure;
        const int length = hasOneByte ? 1 : 2;
        std::uint32_t packed = status_;
        for (int count = 0; count < length; ++count) {
            if (!isData()) {
                isCutShort_ = true;
                return true;
            }
            packed |= static_cast<std::uint32_t>(*byte()) << (8U * static_cast<unsigned>(count + 1));
        }
        ticks_.messages.push_back({tick_, packed});
        return true;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    std::uint32_t tick_;
    std::uint8_t status_ = 0;  ///< running; 0: none yet
    bool isCutShort_ = false;  ///< a status follows where data were due, without a time of its own
    MidiTicks& ticks_;
};

}  // namespace

std::size_t readMidiTrack(std::string_view bytes, std::uint32_t start, MidiTicks& ticks) {
    return TrackReader(bytes, start, ticks).read();
}

}  // namespace melvane
