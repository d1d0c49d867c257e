#include "render/render_studio.h"

#include <algorithm>

namespace melvane {

namespace {

constexpr int usualColumns = 1000;
constexpr int mostColumns = 32000;  // a column is a 16-bit number in the player

/// The index of the last column that a score's text has room for: one field for each column, in the longest
/// line.
int lastColumnOf(std::string_view text) {
    std::ptrdiff_t longest = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
        longest = std::max(longest, std::ranges::count(line, ','));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return static_cast<int>(std::clamp<std::ptrdiff_t>(longest + 1, usualColumns, mostColumns));
}

}  // namespace

void RenderStudio::open(const std::string& scorePath, std::string_view text) {
    settings.write("NumNotes", std::to_string(lastColumnOf(text)));
    engine.startUp.Form_Load();
    engine.startUp.Form_Activate();
    engine.files.OpenPoliFile(scorePath);
}

bool RenderStudio::hasNotes() const {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (std::ranges::any_of(studio.score.NoteArray.row(track), cell::isStart)) return true;
    }
    return false;
}

}  // namespace melvane
