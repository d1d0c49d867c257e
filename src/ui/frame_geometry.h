#pragma once
#include <array>
#include <string_view>
#include <vector>

#include "core/main_frame.h"

/// Where the parts of a window's own frame lie. Pixels are logical ones, counted from the window's top left
/// corner; nothing here needs a screen.
namespace melvane {

struct FrameRect {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const FrameRect&) const = default;
};

/// The eight edges and corners, round the window from the top left corner over the left side. The index of
/// Winedge and Resizer.
enum FramePart {
    topLeftCorner,
    leftSide,
    bottomLeftCorner,
    bottomSide,
    bottomRightCorner,
    rightSide,
    topRightCorner,
    topSide
};
inline constexpr int frameParts = 8;

inline constexpr int frameThickness = 5;                                 ///< pixels, of the visible edge
inline constexpr int titleBarHeight = 30;                                ///< pixels
inline constexpr int smallestFrameWidth = 57, smallestFrameHeight = 90;  ///< pixels, after a resize

/// The strips that make the visible frame of a window of that size.
std::array<FrameRect, frameParts> edgeStrips(int width, int height);
/// The invisible grips over it.
std::array<FrameRect, frameParts> resizeGrips(int width, int height);

/// What a grip that was dragged by (dx, dy) pixels makes of a window; never smaller than the smallest. A part
/// out of range changes nothing but that.
WindowPlace resizedByGrip(const WindowPlace& place, int part, int dx, int dy);

/// The diameter in pixels of the circle that rounds the corners of a window, by its given name.
int cornerDiameter(std::string_view window);
/// How many pixels are cut off each end of the rows at the top, first row first, and mirrored at the bottom.
std::vector<int> cornerInsets(int diameter);

}  // namespace melvane
