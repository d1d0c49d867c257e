#include "files/sng_writer.h"

#include <array>
#include <charconv>
#include <span>

namespace melvane {

namespace {

constexpr const char* lineEnd = "\r\n";

/// Appends to one buffer whose free end is kept ahead of the writing: values first, the text's length last.
class TextBuilder {
 public:
    void reserve(std::size_t bytes) { text_.reserve(bytes); }

    void row(std::span<const Int16> values) {
        constexpr std::size_t longestValue = 7;  // "-32768,"
        const std::size_t used = text_.size();
        text_.resize(used + values.size() * longestValue);
        char* at = text_.data() + used;
        char* const end = text_.data() + text_.size();
        for (const Int16 value : values) {
            at = std::to_chars(at, end, value).ptr;
            *at++ = ',';
        }
        if (!values.empty()) --at;
        text_.resize(static_cast<std::size_t>(at - text_.data()));
        text_ += lineEnd;
    }
    void line(std::string_view text) {
        text_ += text;
        text_ += lineEnd;
    }
    std::string take() { return std::move(text_); }

 private:
    std::string text_;
};

/// Columns `first` to `last` of a track, cut at the end of the grid.
std::span<const Int16> columns(const Grid& grid, int track, int first, int last) {
    const auto row = grid.row(track);
    const auto end = std::min(row.size(), static_cast<std::size_t>(std::max(last + 1, 0)));
    const auto begin = std::min(static_cast<std::size_t>(first), end);
    return row.subspan(begin, end - begin);
}

/// Answers the last used column of any track.
int writeShort(TextBuilder& text, const Studio& studio) {
    const auto& score = studio.score;
    int used = 0;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        const int last = lastUsedColumn(score, track).value_or(0);
        used = std::max(used, last);
        text.row(columns(score.NoteArray, track, 0, last));
        text.row(columns(score.InstArray, track, 0, last));
    }
    // As numbers are printed: a blank for the sign, the digits, a blank.
    text.line((score.Tempo < 0 ? "" : " ") + std::to_string(score.Tempo) + " ");
    text.row(std::span(studio.tracks.TrackInstrument.begin(), lastTrackNumber + 1));
    return used;
}

}  // namespace

std::string writeSngShort(const Studio& studio) {
    TextBuilder text;
    writeShort(text, studio);
    return text.take();
}

std::string writeSng(const Studio& studio) {
    const auto& score = studio.score;
    TextBuilder text;
    const int used = std::max(writeShort(text, studio), score.MaxUsedColumn);
    text.line("Polyphonics");
    for (int row = 0; row <= 8; ++row) text.row(columns(score.PolyArray, row, 0, used + 1));
    const std::array<std::pair<const char*, const Grid*>, 5> effects{{{"Volume", &score.VolumeArray},
                                                                      {"Modulation_Change", &score.ModArray},
                                                                      {"Pan_Change", &score.PanArray},
                                                                      {"Reverb_Change", &score.ReverbArray},
                                                                      {"Chorus_Change", &score.ChorusArray}}};
    for (const auto& [heading, grid] : effects) {
        text.line(heading);
        for (int track = 0; track <= lastTrackNumber; ++track) text.row(columns(*grid, track, 1, used + 1));
    }
    return text.take();
}

}  // namespace melvane
