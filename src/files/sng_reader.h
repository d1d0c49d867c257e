#pragma once
#include <string_view>

#include "core/studio.h"

namespace melvane {

/// The lines of a text, one at a time. A line ends in CR LF, LF or CR; what follows the last line end is a
/// line of its own unless it is empty.
class LineReader {
 public:
    explicit LineReader(std::string_view text) : rest_(text) {}
    bool atEnd() const { return rest_.empty(); }
    /// An empty line at the end of the text.
    std::string_view next();

 private:
    std::string_view rest_;
};

/// What sets the three readers of the score format apart.
struct SngManner {
    bool opensTracks;    ///< a row value of 1 or more makes its track active and visible
    bool growsTableau;   ///< percussion makes the tableau 36 pixels high
    bool limitsTempo;    ///< above 400 counts as 400
    bool readsSections;  ///< chords and effects of the long form
};
inline constexpr SngManner openPoliFile{true, true, true, true};
inline constexpr SngManner openFile{false, true, true, false};
inline constexpr SngManner openSegment{false, false, false, false};

/// Reads a score text into the studio: cells, tempo, instruments and, in the long form, chords and effects.
/// Meaning comes from the position alone, and damaged text is no error: a field without a number is 0, a
/// value beyond 16 bits, an empty line, a missing line and a field beyond the score change nothing. What the
/// text does not hold stays.
void readSng(std::string_view text, Studio& studio, const SngManner& manner);

}  // namespace melvane
