#include "core/grid_blocks.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace melvane {

namespace {

/// The columns of `columns` that `to` has and that find a source `shift` columns further in `from`.
Columns common(const Grid& from, const Grid& to, Columns columns, int shift) {
    return {std::max({columns.first, 0, -shift}),
            std::min({columns.last, to.lastColumn(), from.lastColumn() - shift})};
}

}  // namespace

void copyColumns(const Grid& from, int fromTrack, Grid& to, int toTrack, Columns columns, int shift) {
    const auto source = from.row(fromTrack);
    const auto target = to.row(toTrack);
    const auto [first, last] = common(from, to, columns, shift);
    if (source.empty() || target.empty() || last < first) return;
    std::memmove(target.data() + first, source.data() + first + shift,
                 static_cast<std::size_t>(last - first + 1) * sizeof(std::int16_t));
}

void repeatColumnsBackwards(Grid& grid, int track, Columns columns, int shift) {
    const auto cells = grid.row(track);
    if (cells.empty()) return;
    const auto [first, last] = common(grid, grid, columns, shift);
    for (int column = last; column >= first; --column)
        cells[static_cast<std::size_t>(column)] = cells[static_cast<std::size_t>(column + shift)];
}

void fillColumns(Grid& grid, int track, Columns columns, std::int16_t value) {
    const auto cells = grid.row(track);
    const auto [first, last] = common(grid, grid, columns, 0);
    if (cells.empty() || last < first) return;
    std::fill(cells.begin() + first, cells.begin() + last + 1, value);
}

void makeStart(Grid& notes, int track, int column) {
    const int value = notes.get(track, column, cell::empty);
    if (cell::isContinuation(value)) notes.set(track, column, value - cell::continuation);
}

void mirrorColumns(Grid& notes, Grid& instruments, int track, Columns columns) {
    const auto cells = notes.row(track), sounds = instruments.row(track);
    const std::vector<std::int16_t> oldCells(cells.begin(), cells.end()),
        oldSounds(sounds.begin(), sounds.end());
    const auto [first, last] = common(notes, instruments, columns, 0);
    for (int column = first; column <= last; ++column) {
        const int mirrored = columns.first + columns.last - column;
        if (mirrored < first || mirrored > last) continue;
        const auto at = static_cast<std::size_t>(column), from = static_cast<std::size_t>(mirrored);
        const int value = oldCells[from];
        cells[at] = static_cast<std::int16_t>(cell::isEmpty(value) ? cell::empty : cell::row(value));
        sounds[at] = oldSounds[from];
    }
}

}  // namespace melvane
