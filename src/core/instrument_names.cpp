#include "core/instrument_names.h"

namespace melvane {

namespace {

constexpr std::array<std::string_view, 11> chordTypeNames{
    " Note",       " Major",        " Minor",     " Major 7th", " Minor 7th", " Minor 7th-5",
    " Diminished", " Dominant 7th", " Major 9th", " Minor 9th", " Octave"};

template <std::size_t Count>
std::string_view at(const std::array<std::string_view, Count>& names, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= Count) return {};
    return names[static_cast<std::size_t>(index)];
}

}  // namespace

std::string_view instrumentName(int instrument) {
    if (isPercussionInstrument(instrument))
        return at(percussionInstrumentNames, instrument - firstPercussionInstrument);
    return at(melodyInstrumentNames, instrument);
}

std::string ChordName(int index) { return std::string(at(chordTypeNames, index)); }

std::vector<std::string> melodyInstrumentList() {
    return {melodyInstrumentNames.begin(), melodyInstrumentNames.end()};
}

std::vector<std::string> percussionInstrumentList() {
    return {percussionInstrumentNames.begin(), percussionInstrumentNames.end()};
}

}  // namespace melvane
