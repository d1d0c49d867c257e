#include "core/qt_column_lines.h"

namespace melvane {

std::vector<int> bars(const Score& score, int firstColumn, int width) {
    std::vector<int> edges;
    const int beats = score.BeatsPerMeasure;
    for (int x = 0; beats != 0 && x < width; x += Page::columnWidth) {
        if ((firstColumn + x / Page::columnWidth) % beats == 0) edges.push_back(x);
    }
    return edges;
}

void paintColumnGrid(PixelPainter& pixels, int width, int height) {
    std::vector<int> edges;
    for (int x = 0; x < width; x += Page::columnWidth) edges.push_back(x);
    pixels.verticalLines(edges, 0, height - 1, surface_colours::columnGrid);
}

void paintBarLines(PixelPainter& pixels, const Score& score, int firstColumn, int width, int height) {
    pixels.verticalLines(bars(score, firstColumn, width), 0, height - 1, surface_colours::barLine);
}

}  // namespace melvane
