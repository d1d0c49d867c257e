#pragma once
#include <array>
#include <span>
#include <string_view>

/// The chords of the keyboard by the text of the chord type, as semitones over the root. What a key's release
/// ends is not always what its press began, and this is how it is meant.
namespace melvane {

class ChordOffsets {
 public:
    constexpr ChordOffsets() = default;
    template <class... Semitones>
    constexpr explicit ChordOffsets(Semitones... semitones)
        : count_(sizeof...(Semitones)), semitones_{semitones...} {}
    constexpr std::span<const int> all() const { return {semitones_.data(), count_}; }

 private:
    std::size_t count_ = 0;
    std::array<int, 4> semitones_{};
};

struct KeyChord {
    std::string_view type;
    ChordOffsets struck;    ///< by a key's press
    ChordOffsets released;  ///< by its release
};

inline constexpr std::string_view octaveChord = "10";

inline constexpr std::array<KeyChord, 11> keyChords{{
    {"0", {}, {}},
    {"1", ChordOffsets(4, 7, 12), ChordOffsets(4, 7, 12)},
    {"2", ChordOffsets(3, 7, 12), ChordOffsets(3, 7, 12)},
    {"3", ChordOffsets(4, 7, 11), ChordOffsets(4, 7, 11)},
    {"4", ChordOffsets(3, 7, 10), ChordOffsets(3, 7, 10)},
    {"5", ChordOffsets(3, 6, 10), ChordOffsets(3, 6, 110)},
    {"6", ChordOffsets(3, 6, 9), ChordOffsets(3, 6, 9)},
    {"7", ChordOffsets(4, 7, 10), ChordOffsets(4, 7, 10)},
    {"8", ChordOffsets(4, 7, 11, 14), ChordOffsets(4, 7, 10)},
    {"9", {}, ChordOffsets(4, 7, 10)},
    {octaveChord, ChordOffsets(12), ChordOffsets(12)},
}};

/// The chord of that type; nothing for a text that is no type.
constexpr const KeyChord* findKeyChord(std::string_view type) {
    for (const KeyChord& chord : keyChords) {
        if (chord.type == type) return &chord;
    }
    return nullptr;
}

}  // namespace melvane
