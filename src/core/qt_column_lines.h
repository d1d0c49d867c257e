#pragma once
#include "core/qt_pixels.h"
#include "core/studio.h"

/// The lines that every surface with columns shares; widths and heights in logical pixels.
namespace melvane {

/// A line at the left edge of each column.
void paintColumnGrid(PixelPainter& pixels, int width, int height);

/// Calls `line(x)` for each column edge on which a measure begins, where `firstColumn` of the score stands at
/// the left; never when BeatsPerMeasure is 0.
template <class Line>
void forEachBar(const Score& score, int firstColumn, int width, Line&& line) {
    const int beats = score.BeatsPerMeasure;
    if (beats == 0) return;
    for (int x = 0; x < width; x += Page::columnWidth) {
        if ((firstColumn + x / Page::columnWidth) % beats == 0) line(x);
    }
}
template <class Line>
void forEachBar(const Studio& studio, int width, Line&& line) {
    forEachBar(studio.score, studio.page.FirstColumn, width, line);
}

void paintBarLines(PixelPainter& pixels, const Score& score, int firstColumn, int width, int height);
inline void paintBarLines(PixelPainter& pixels, const Studio& studio, int width, int height) {
    paintBarLines(pixels, studio.score, studio.page.FirstColumn, width, height);
}

}  // namespace melvane
