#include "core/note_names.h"

namespace melvane {

NoteNameTable buildNoteNames() {
    static constexpr std::array<std::string_view, 12> steps{"C",  "C#", "D",  "D#", "E",  "F",
                                                            "F#", "G",  "G#", "A",  "A#", "B"};
    NoteNameTable names;
    for (std::size_t pitch = 0; pitch < names.size(); ++pitch) {
        names[127 - pitch] = std::to_string(pitch / 12).append(steps[pitch % 12]);
    }
    return names;
}

std::string_view nameOfRow(const NoteNameTable& names, int row) {
    if (row < 0 || row > 127) return {};
    return names[static_cast<std::size_t>(row)];
}

bool isSharp(std::string_view name) { return name.ends_with('#'); }

std::string printedRowName(std::string_view name) {
    if (isSharp(name)) return std::string(sharpRowIndent, ' ').append(name);
    const auto letter = name.find_first_not_of("0123456789");
    if (letter == std::string_view::npos) return std::string(name);
    const std::size_t blanks = letter == 1 ? 3 : 2;
    return std::string(name.substr(0, letter)).append(blanks, ' ').append(name.substr(letter));
}

std::string_view NoteName(int cell) {
    static constexpr std::array<std::string_view, 12> letters{"B", "A#", "A",  "G#", "G",  "F#",
                                                              "F", "E",  "D#", "D",  "C#", "C"};
    if (cell > 1000) cell -= 1000;
    int value = cell + 1;
    while (value < 9) value += 12;
    while (value >= 21) value -= 12;
    return letters[static_cast<std::size_t>(value - 9)];
}

}  // namespace melvane
