#include "ui/frame_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace melvane {
namespace {

constexpr double pixel = twipsAPixel;

TEST(FrameGeometry, TheStripsMakeARingWithCornersOfFifteenPixels) {
    const auto strips = edgeStrips(400, 300);
    EXPECT_EQ(strips[topLeftCorner], (FrameRect{0, 0, 15, 15}));
    EXPECT_EQ(strips[bottomLeftCorner], (FrameRect{0, 285, 15, 15}));
    EXPECT_EQ(strips[bottomRightCorner], (FrameRect{385, 285, 15, 15}));
    EXPECT_EQ(strips[topRightCorner], (FrameRect{385, 0, 15, 15}));
    EXPECT_EQ(strips[topSide].left, 15);
    EXPECT_EQ(strips[topSide].width, 370);
    EXPECT_EQ(strips[bottomSide].left, 15);
    EXPECT_EQ(strips[bottomSide].width, 370);
    EXPECT_EQ(strips[bottomSide].top + strips[bottomSide].height, 300);
    EXPECT_EQ(strips[leftSide].top, 15);
    EXPECT_EQ(strips[leftSide].height, 270);
    EXPECT_EQ(strips[rightSide].top, 15);
    EXPECT_EQ(strips[rightSide].height, 270);
    EXPECT_EQ(strips[rightSide].left + strips[rightSide].width, 400);
}

TEST(FrameGeometry, TheGripsOfTheSidesAreFivePixelsThick) {
    const auto grips = resizeGrips(400, 300);
    EXPECT_EQ(grips[leftSide], (FrameRect{0, 30, 5, 240}));
    EXPECT_EQ(grips[rightSide], (FrameRect{395, 30, 5, 240}));
    EXPECT_EQ(grips[topSide], (FrameRect{19, 0, 361, 5}));
    EXPECT_EQ(grips[bottomSide], (FrameRect{19, 295, 361, 5}));
}

TEST(FrameGeometry, TheGripsOfTheCornersStandElevenPixelsFromTheEnds) {
    const auto grips = resizeGrips(400, 300);
    const auto place = [&](FramePart part) { return std::pair(grips[part].top, grips[part].left); };
    EXPECT_EQ(place(bottomRightCorner), std::pair(289, 389));
    EXPECT_EQ(place(bottomLeftCorner), std::pair(289, 0));
    EXPECT_EQ(place(topRightCorner), std::pair(0, 389));
    EXPECT_EQ(place(topLeftCorner), std::pair(0, 0));
}

struct Pulled {
    int part;
    WindowPlace expected;  // pixels
};

TEST(FrameGeometry, EachGripMovesTheSidesThatItOwns) {
    const WindowPlace before{100 * pixel, 200 * pixel, 400 * pixel, 300 * pixel};
    const Pulled all[] = {
        {topLeftCorner, {110, 220, 390, 280}},     {leftSide, {110, 200, 390, 300}},
        {bottomLeftCorner, {110, 200, 390, 320}},  {bottomSide, {100, 200, 400, 320}},
        {bottomRightCorner, {100, 200, 410, 320}}, {rightSide, {100, 200, 410, 300}},
        {topRightCorner, {100, 220, 410, 280}},    {topSide, {100, 220, 400, 280}},
    };
    for (const auto& [part, expected] : all) {
        const WindowPlace after = resizedByGrip(before, part, 10, 20);
        EXPECT_EQ(after, (WindowPlace{expected.left * pixel, expected.top * pixel, expected.width * pixel,
                                      expected.height * pixel}))
            << part;
    }
}

TEST(FrameGeometry, AWindowIsHeldToItsFloors) {
    const WindowPlace before{0, 0, 400 * pixel, 300 * pixel};
    const WindowPlace narrow = resizedByGrip(before, bottomRightCorner, -343, -210);
    EXPECT_EQ(narrow.width, 57 * pixel);
    EXPECT_EQ(narrow.height, 90 * pixel);
    const WindowPlace narrower = resizedByGrip(before, bottomRightCorner, -344, -5000);
    EXPECT_EQ(narrower.width, 57 * pixel);
    EXPECT_EQ(narrower.height, 90 * pixel);
    const WindowPlace fromTheLeft = resizedByGrip(before, topLeftCorner, 380, 280);
    EXPECT_EQ(fromTheLeft, (WindowPlace{380 * pixel, 280 * pixel, 57 * pixel, 90 * pixel}));
    const WindowPlace wider = resizedByGrip(before, bottomRightCorner, -342, -209);
    EXPECT_EQ(wider.width, 58 * pixel);
    EXPECT_EQ(wider.height, 91 * pixel);
}

TEST(FrameGeometry, AGripThatDoesNotExistMovesNothing) {
    const WindowPlace before{15, 30, 400 * pixel, 300 * pixel};
    EXPECT_EQ(resizedByGrip(before, -1, 50, 50), before);
    EXPECT_EQ(resizedByGrip(before, frameParts, 50, 50), before);
}

TEST(FrameGeometry, TheCornersAreAsRoundAsTheWindowAsks) {
    EXPECT_EQ(cornerDiameter("frminfo"), 26);
    EXPECT_EQ(cornerDiameter("form1"), 25);
    EXPECT_EQ(cornerDiameter("frmsynth"), 25);
    for (const char* const other : {"Form2", "Form3", "Form5", "Record", "Wiz", "FrmInst"}) {
        EXPECT_EQ(cornerDiameter(other), 8) << other;
    }
}

TEST(FrameGeometry, ACornersCutFollowsItsCircle) {
    for (const int diameter : {8, 25, 26}) {
        const auto insets = cornerInsets(diameter);
        ASSERT_EQ(insets.size(), static_cast<std::size_t>((diameter + 1) / 2));
        const double radius = diameter / 2.0;
        for (std::size_t row = 0; row < insets.size(); ++row) {
            const double up = radius - (static_cast<double>(row) + 0.5);
            const double across = radius - insets[row];
            EXPECT_NEAR(std::hypot(up, across), radius, 1.0) << diameter << ' ' << row;
            if (row == 0) continue;
            EXPECT_LE(insets[row], insets[row - 1]);
        }
        EXPECT_EQ(insets.back(), 0);
    }
}

}  // namespace
}  // namespace melvane
