#include "core/grid.h"

#include <algorithm>

namespace melvane {

void Grid::create(int lastColumn, std::int16_t value) {
    if (lastColumn < 0 || lastColumn >= mostColumns) return;
    columns_ = lastColumn + 1;
    cells_.assign(static_cast<std::size_t>(tracks) * static_cast<std::size_t>(columns_), value);
}

void Grid::resize(int lastColumn) {
    if (lastColumn < 0 || lastColumn >= mostColumns || lastColumn == this->lastColumn()) return;
    Grid resized(lastColumn);
    const auto kept = static_cast<std::size_t>(std::min(columns_, resized.columns_));
    for (int track = 0; track < tracks; ++track) {
        const auto from = row(track).first(kept);
        std::ranges::copy(from, resized.row(track).begin());
    }
    *this = std::move(resized);
}

void Grid::fillTrack(int track, int value, int lastColumn) {
    if (value < INT16_MIN || value > INT16_MAX || lastColumn < 0) return;
    const auto cells = row(track);
    std::ranges::fill(cells.first(std::min(cells.size(), static_cast<std::size_t>(lastColumn) + 1)),
                      static_cast<std::int16_t>(value));
}

std::span<const std::int16_t> Grid::row(int track) const {
    if (track < 0 || track >= tracks || columns_ == 0) return {};
    return {cells_.data() + index(track, 0), static_cast<std::size_t>(columns_)};
}

std::span<std::int16_t> Grid::row(int track) {
    if (track < 0 || track >= tracks || columns_ == 0) return {};
    return {cells_.data() + index(track, 0), static_cast<std::size_t>(columns_)};
}

}  // namespace melvane
