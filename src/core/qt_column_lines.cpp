#include "core/qt_column_lines.h"

namespace melvane {

void paintColumnGrid(PixelPainter& pixels, int width, int height) {
    for (int x = 0; x < width; x += Page::columnWidth) {
        pixels.verticalLine(x, 0, height - 1, surface_colours::columnGrid);
    }
}

void paintBarLines(PixelPainter& pixels, const Score& score, int firstColumn, int width, int height) {
    forEachBar(score, firstColumn, width,
               [&](int x) { pixels.verticalLine(x, 0, height - 1, surface_colours::barLine); });
}

}  // namespace melvane
