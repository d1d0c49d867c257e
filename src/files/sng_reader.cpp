#include "files/sng_reader.h"

#include <algorithm>

#include "core/numbers.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr int tableauHeight = 36;  // pixels
constexpr int highestTempo = 400;
constexpr int polyphonicsRows = 9;
constexpr int lanes = 16;

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

/// The value of one field: a plain short whole number on the fast road, anything else by the general rule.
std::optional<Int16> fieldValue(std::string_view field) {
    const bool negative = !field.empty() && field.front() == '-';
    std::size_t at = negative ? 1 : 0;
    if (field.size() > at && field.size() <= at + 5) {
        int value = 0;
        while (at < field.size() && isDigit(field[at])) value = value * 10 + (field[at++] - '0');
        if (at == field.size()) return toInt16(negative ? -value : value);
    }
    return toInt16(leadingNumber(field));
}

/// Calls `take(index, value)` for each field of a line, index from 0, up to `last`. An empty line has none.
template <class Take>
void eachField(std::string_view line, int last, Take take) {
    if (line.empty()) return;
    for (int index = 0; index <= last; ++index) {
        const auto comma = line.find(',');
        if (const auto value = fieldValue(line.substr(0, comma))) take(index, *value);
        if (comma == std::string_view::npos) return;
        line.remove_prefix(comma + 1);
    }
}

class ScoreReader {
 public:
    ScoreReader(std::string_view text, Studio& studio, const SngManner& manner)
        : lines_(text), studio_(studio), manner_(manner) {}

    void read() {
        for (int track = 0; track <= lastTrackNumber && !lines_.atEnd(); ++track) {
            readNotes(track);
            readInstruments(track);
        }
        readTempo();
        readTrackInstruments();
        if (manner_.readsSections) readSections();
    }

 private:
    int lastColumn() const { return studio_.score.NoteArray.lastColumn(); }

    void readNotes(int track) {
        const auto cells = studio_.score.NoteArray.row(track);
        bool used = false;
        eachField(lines_.next(), lastColumn(), [&](int column, Int16 value) {
            cells[static_cast<std::size_t>(column)] = value;
            used = used || value >= 1;
        });
        if (!used || !manner_.opensTracks) return;
        studio_.tracks.TrackActive[static_cast<std::size_t>(track)] = true;
        // A score that is opened stands on the tablet whole, also the channels that were never selected.
        studio_.tracks.TrackVisible[static_cast<std::size_t>(track)] = true;
    }

    void readInstruments(int track) {
        const auto cells = studio_.score.InstArray.row(track);
        const bool percussion = !isMelodyTrack(track);
        eachField(lines_.next(), lastColumn(), [&](int column, Int16 value) {
            cells[static_cast<std::size_t>(column)] = value;
            if (percussion && value >= 1) takeLane(track, column, value);
        });
    }

    void takeLane(int track, int column, Int16 instrument) {
        if (manner_.growsTableau) studio_.form1.Beatbox.setHeight(tableauHeight);
        const int position = column + 1;
        if (position < lanes) {
            studio_.tracks
                .PercussionLanes[static_cast<std::size_t>(track - 7)][static_cast<std::size_t>(position)] =
                instrument;
        }
    }

    void readTempo() {
        if (lines_.atEnd()) return;
        const auto line = lines_.next();
        if (trimmed(line).empty()) return;
        auto& tempo = studio_.score.Tempo;
        assign(tempo, leadingNumber(line));
        if (manner_.limitsTempo && tempo > highestTempo) tempo = highestTempo;
    }

    void readTrackInstruments() {
        auto& instruments = studio_.tracks.TrackInstrument;
        if (lines_.atEnd()) {
            for (int track = 0; track <= lastTrackNumber; ++track) {
                assign(instruments[static_cast<std::size_t>(track)],
                       studio_.score.InstArray.get(track, 0, 0));
            }
            return;
        }
        eachField(lines_.next(), lastTrackNumber,
                  [&](int track, Int16 value) { instruments[static_cast<std::size_t>(track)] = value; });
    }

    void readSections() {
        auto& score = studio_.score;
        readSection(score.PolyArray, polyphonicsRows, 0);
        // Field k of an effect row is column k + 1, where the value of a note that starts at column k stands.
        for (Grid* grid :
             {&score.VolumeArray, &score.ModArray, &score.PanArray, &score.ReverbArray, &score.ChorusArray}) {
            readSection(*grid, lastTrackNumber + 1, 1);
        }
    }

    void readSection(Grid& grid, int rows, int columnShift) {
        if (lines_.atEnd()) return;
        lines_.next();  // the heading is for human readers
        for (int row = 0; row < rows && !lines_.atEnd(); ++row) {
            const auto cells = grid.row(row);
            eachField(lines_.next(), grid.lastColumn() - columnShift, [&](int field, Int16 value) {
                cells[static_cast<std::size_t>(field) + static_cast<std::size_t>(columnShift)] = value;
            });
        }
    }

    LineReader lines_;
    Studio& studio_;
    const SngManner& manner_;
};

}  // namespace

std::string_view LineReader::next() {
    const auto feed = rest_.find('\n');
    const auto end = rest_.substr(0, feed).find('\r');
    const auto last = std::min(feed, end);
    const auto line = rest_.substr(0, last);
    if (last == std::string_view::npos) {
        rest_ = {};
        return line;
    }
    const bool both = end < feed && end + 1 == feed;
    rest_.remove_prefix(last + (both ? 2 : 1));
    return line;
}

void readSng(std::string_view text, Studio& studio, const SngManner& manner) {
    ScoreReader(text, studio, manner).read();
}

}  // namespace melvane
