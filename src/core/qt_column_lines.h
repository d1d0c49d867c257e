#pragma once
#include "core/qt_pixels.h"
#include "core/studio.h"

/// The lines that every surface with columns shares; widths and heights in logical pixels.
namespace melvane {

/// A line at the left edge of each column.
void paintColumnGrid(PixelPainter& pixels, int width, int height);

/// Calls `line(x)` for each column edge on which a measure begins; never when BeatsPerMeasure is 0.
template <class Line>
void forEachBar(const Studio& studio, int width, Line&& line) {
    const int beats = studio.score.BeatsPerMeasure;
    if (beats == 0) return;
    for (int x = 0; x < width; x += Page::columnWidth) {
        if ((studio.page.FirstColumn + x / Page::columnWidth) % beats == 0) line(x);
    }
}

void paintBarLines(PixelPainter& pixels, const Studio& studio, int width, int height);

}  // namespace melvane
