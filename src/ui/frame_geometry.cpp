#include "ui/frame_geometry.h"

#include <algorithm>
#include <cmath>

namespace melvane {

namespace {

constexpr int cornerSide = 15;                          // pixels, of a corner strip
constexpr int gripSide = 11, gripThickness = 5;         // pixels, of a corner grip and of a side's
constexpr int gripTop = 30, gripLeft = 19;              // pixels, where the grips of the sides begin
constexpr int gripHeightLess = 60, gripWidthLess = 39;  // pixels, what they leave of the window's measure

/// Which of a window's measures a part changes: -1 moves that side, 1 only lengthens, 0 leaves.
struct Owned {
    int across, down;
};
constexpr std::array<Owned, frameParts> owned{
    {{-1, -1}, {-1, 0}, {-1, 1}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}}};

void stretch(double& start, double& length, int side, double distance) {
    if (side < 0) start += distance;
    length += side * distance;
}

struct Rounded {
    std::string_view window;
    int diameter;
};
constexpr std::array<Rounded, 3> rounded{{{"frminfo", 26}, {"form1", 25}, {"frmsynth", 25}}};
constexpr int usualDiameter = 8;

}  // namespace

std::array<FrameRect, frameParts> edgeStrips(int width, int height) {
    const int across = width - 2 * cornerSide, down = height - 2 * cornerSide;
    const int right = width - cornerSide, bottom = height - cornerSide;
    return {{{0, 0, cornerSide, cornerSide},
             {0, cornerSide, frameThickness, down},
             {0, bottom, cornerSide, cornerSide},
             {cornerSide, height - frameThickness, across, frameThickness},
             {right, bottom, cornerSide, cornerSide},
             {width - frameThickness, cornerSide, frameThickness, down},
             {right, 0, cornerSide, cornerSide},
             {cornerSide, 0, across, frameThickness}}};
}

std::array<FrameRect, frameParts> resizeGrips(int width, int height) {
    const int down = height - gripHeightLess, across = width - gripWidthLess;
    return {{{0, 0, gripSide, gripSide},
             {0, gripTop, gripThickness, down},
             {0, height - gripSide, gripSide, gripSide},
             {gripLeft, height - gripThickness, across, gripThickness},
             {width - gripSide, height - gripSide, gripSide, gripSide},
             {width - gripThickness, gripTop, gripThickness, down},
             {width - gripSide, 0, gripSide, gripSide},
             {gripLeft, 0, across, gripThickness}}};
}

WindowPlace resizedByGrip(const WindowPlace& place, int part, int dx, int dy) {
    WindowPlace changed = place;
    if (part >= 0 && part < frameParts) {
        const Owned sides = owned[static_cast<std::size_t>(part)];
        stretch(changed.left, changed.width, sides.across, double{twipsAPixel} * dx);
        stretch(changed.top, changed.height, sides.down, double{twipsAPixel} * dy);
    }
    changed.width = std::max(changed.width, double{smallestFrameWidth * twipsAPixel});
    changed.height = std::max(changed.height, double{smallestFrameHeight * twipsAPixel});
    return changed;
}

int cornerDiameter(std::string_view window) {
    const auto found = std::ranges::find(rounded, window, &Rounded::window);
    return found == rounded.end() ? usualDiameter : found->diameter;
}

std::vector<int> cornerInsets(int diameter) {
    const double radius = diameter / 2.0;
    std::vector<int> insets;
    for (int row = 0; row < radius; ++row) {
        const double up = radius - (row + 0.5);  // from the circle's middle to the row's
        insets.push_back(static_cast<int>(std::lround(radius - std::sqrt(radius * radius - up * up))));
    }
    return insets;
}

}  // namespace melvane
