#pragma once
#include <vector>

#include "core/qt_pixels.h"
#include "core/studio.h"

/// The lines that every surface with columns shares; widths and heights in logical pixels.
namespace melvane {

/// A line at the left edge of each column.
void paintColumnGrid(PixelPainter& pixels, int width, int height);

/// The column edges on which a measure begins, where `firstColumn` of the score stands at the left; none when
/// BeatsPerMeasure is 0.
std::vector<int> bars(const Score& score, int firstColumn, int width);

void paintBarLines(PixelPainter& pixels, const Score& score, int firstColumn, int width, int height);
inline void paintBarLines(PixelPainter& pixels, const Studio& studio, int width, int height) {
    paintBarLines(pixels, studio.score, studio.page.FirstColumn, width, height);
}

}  // namespace melvane
