#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace melvane {

/// A score grid: 16-bit cells at (track, column), both from 0, in one block of memory with a track's columns
/// side by side. A read out of range finds nothing and a write out of range does nothing; no index reaches a
/// neighbour's cell.
class Grid {
 public:
    static constexpr int tracks = 16;
    /// A grid of more columns cannot be made; columns are counted in 16 bits nearly everywhere.
    static constexpr int mostColumns = 100'000;

    Grid() = default;
    explicit Grid(int lastColumn, std::int16_t value = 0) { create(lastColumn, value); }

    /// Makes all columns 0 to `lastColumn` anew, every cell `value`. A negative `lastColumn` leaves the grid
    /// as it is.
    void create(int lastColumn, std::int16_t value = 0);
    /// Keeps the contents that fit; new columns hold 0. A negative or too large `lastColumn` leaves the grid
    /// as it is.
    void resize(int lastColumn);

    /// -1 before the first create.
    int lastColumn() const { return columns_ - 1; }

    bool contains(int track, int column) const {
        return static_cast<unsigned>(track) < tracks &&
               static_cast<unsigned>(column) < static_cast<unsigned>(columns_);
    }
    std::optional<std::int16_t> find(int track, int column) const {
        if (!contains(track, column)) return std::nullopt;
        return cells_[index(track, column)];
    }
    /// The cell, or `missing` when there is none.
    int get(int track, int column, int missing) const {
        return contains(track, column) ? cells_[index(track, column)] : missing;
    }
    /// A value beyond 16 bits is not stored.
    void set(int track, int column, int value) {
        if (contains(track, column) && value >= INT16_MIN && value <= INT16_MAX) {
            cells_[index(track, column)] = static_cast<std::int16_t>(value);
        }
    }
    /// Columns 0 to `lastColumn` of a track, as far as they exist.
    void fillTrack(int track, int value, int lastColumn);

    /// All columns of a track; empty for a track out of range.
    std::span<const std::int16_t> row(int track) const;
    std::span<std::int16_t> row(int track);

    bool operator==(const Grid&) const = default;

 private:
    std::size_t index(int track, int column) const {
        return static_cast<std::size_t>(track) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(column);
    }

    int columns_ = 0;
    std::vector<std::int16_t> cells_;
};

/// The cell code of NoteArray: -1 (and anything below) empty, 0 to 999 the start of a note on that row, 1000
/// and above a continuation of the row cell - 1000.
namespace cell {
inline constexpr int empty = -1;
inline constexpr int continuation = 1000;
constexpr bool isEmpty(int value) { return value < 0; }
constexpr bool isStart(int value) { return value >= 0 && value < continuation; }
constexpr bool isContinuation(int value) { return value >= continuation; }
constexpr int row(int value) { return value % continuation; }
}  // namespace cell

}  // namespace melvane
