#include <gtest/gtest.h>

#include "ui/behaviour/CropFrame.h"

namespace vellora {

void PrintTo(const Rect& rect, std::ostream* out) {
    *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom
         << ')';
}

namespace {

constexpr Rect kStage{0, 0, 600, 450};

/// A frame of a mode after one drag.
Rect dragged(int mode, const Rect& bounds, QPoint from, QPoint to) {
    CropFrame frame;
    frame.setMode(mode, bounds);
    frame.press(from);
    frame.drag(to);
    frame.release();
    return frame.rect();
}

TEST(CropFrameTest, StartsAsTheLargestFrameOfItsMode) {
    CropFrame frame;
    EXPECT_EQ(frame.mode(), kCropNone);
    EXPECT_TRUE(frame.isEmpty());
    EXPECT_TRUE(frame.setMode(kCropFourToThree, kStage));
    EXPECT_EQ(frame.rect(), kStage);
    EXPECT_TRUE(frame.setMode(kCropSixteenToNine, kStage));
    EXPECT_EQ(frame.rect(), (Rect{0, 56, 600, 393}));
    EXPECT_TRUE(frame.setMode(kCropManual, {100, 0, 500, 450}));
    EXPECT_EQ(frame.rect(), (Rect{100, 0, 500, 450}));
    // 450 * 4 / 3 is wider than the photo; 400 * 3 / 4 is its height.
    EXPECT_TRUE(frame.setMode(kCropFourToThree, {100, 0, 500, 450}));
    EXPECT_EQ(frame.rect(), (Rect{100, 75, 500, 375}));
    // A wide photo: 301 * 4 / 3 = 401.3, centred with an odd remainder.
    EXPECT_TRUE(frame.setMode(kCropNone, kStage));
    EXPECT_TRUE(frame.setMode(kCropFourToThree, {0, 74, 600, 375}));
    EXPECT_EQ(frame.rect(), (Rect{99, 74, 500, 375}));
    EXPECT_TRUE(frame.setMode(kCropNone, kStage));
    EXPECT_TRUE(frame.isEmpty());
}

TEST(CropFrameTest, TheSameModeTwiceKeepsAMovedFrame) {
    CropFrame frame;
    frame.setMode(kCropManual, kStage);
    frame.press({0, 0});
    EXPECT_TRUE(frame.drag({120, 90}));
    EXPECT_FALSE(frame.setMode(kCropManual, kStage));
    EXPECT_EQ(frame.rect(), (Rect{120, 90, 600, 450}));
    EXPECT_FALSE(frame.setMode(kCropNone, {}));  // no photo: nothing changes
    EXPECT_FALSE(frame.setMode(7, kStage));
    EXPECT_EQ(frame.mode(), kCropManual);
    frame.clear();
    EXPECT_TRUE(frame.isEmpty());
    EXPECT_EQ(frame.mode(), kCropManual);
    frame.drop();
    EXPECT_EQ(frame.mode(), kCropNone);
}

TEST(CropFrameTest, NoFrameIsChosenWithoutAPictureToo) {
    CropFrame frame;
    frame.setMode(kCropManual, kStage);
    frame.clear();  // the next photo, which is missing
    EXPECT_FALSE(frame.setMode(kCropFourToThree, {}));
    EXPECT_FALSE(frame.setMode(kCropNone, {}));
    EXPECT_EQ(frame.mode(), kCropNone);
    EXPECT_TRUE(frame.setMode(kCropManual, kStage));
    EXPECT_EQ(frame.rect(), kStage);
}

TEST(CropFrameTest, HandlesAreHitThreeBeforeTheirPointButNotThreeBehind) {
    CropFrame frame;
    frame.setMode(kCropManual, {100, 50, 501, 350});
    const QPoint points[] = {{100, 50},  {300, 50},  {501, 50},  {501, 200},
                             {501, 350}, {300, 350}, {100, 350}, {100, 200}};
    for (int handle = 1; handle <= 8; ++handle) {
        const QPoint point = points[handle - 1];
        EXPECT_EQ(frame.handlePoint(handle), point);
        EXPECT_EQ(frame.handleAt(point - QPoint(3, 3)), handle);
        EXPECT_EQ(frame.handleAt(point + QPoint(2, 2)), handle);
        EXPECT_NE(frame.handleAt(point + QPoint(3, 0)), handle);
        EXPECT_NE(frame.handleAt(point + QPoint(0, 3)), handle);
    }
    EXPECT_EQ(frame.handleAt({200, 100}), CropFrame::kInside);
    EXPECT_EQ(frame.handleAt({50, 100}), CropFrame::kNoHandle);
    // Where squares overlap, the lower code wins.
    frame.setMode(kCropFourToThree, {100, 50, 104, 53});
    EXPECT_EQ(frame.handleAt({101, 50}), 1);
}

TEST(CropFrameTest, ManualHandlesMoveOnlyTheEdgesTheyTouch) {
    constexpr Rect kBounds{100, 50, 500, 350};
    const auto drag = [&](QPoint from, QPoint to) {
        return dragged(kCropManual, kBounds, from, to);
    };
    EXPECT_EQ(drag({100, 50}, {150, 80}), (Rect{150, 80, 500, 350}));
    EXPECT_EQ(drag({300, 50}, {10, 80}), (Rect{100, 80, 500, 350}));
    EXPECT_EQ(drag({500, 50}, {450, 80}), (Rect{100, 80, 450, 350}));
    EXPECT_EQ(drag({500, 200}, {450, 9}), (Rect{100, 50, 450, 350}));
    EXPECT_EQ(drag({500, 350}, {450, 300}), (Rect{100, 50, 450, 300}));
    EXPECT_EQ(drag({300, 350}, {1, 300}), (Rect{100, 50, 500, 300}));
    EXPECT_EQ(drag({100, 350}, {150, 300}), (Rect{150, 50, 500, 300}));
    EXPECT_EQ(drag({100, 200}, {150, 1}), (Rect{150, 50, 500, 350}));
    // Past the bounds, onto the opposite edge, across it: as it was.
    EXPECT_EQ(drag({100, 50}, {99, 80}), kBounds);
    EXPECT_EQ(drag({500, 350}, {501, 300}), kBounds);
    EXPECT_EQ(drag({100, 200}, {500, 200}), kBounds);
    EXPECT_EQ(drag({300, 350}, {300, 50}), kBounds);
    EXPECT_EQ(drag({300, 350}, {300, 51}), (Rect{100, 50, 500, 51}));
}

TEST(CropFrameTest, AspectHandlesSetTheOtherEdge) {
    const auto drag = [](int mode, QPoint from, QPoint to) {
        return dragged(mode, kStage, from, to);
    };
    EXPECT_EQ(drag(kCropFourToThree, {0, 0}, {120, 90}), (Rect{120, 90, 600, 450}));
    EXPECT_EQ(drag(kCropFourToThree, {0, 225}, {121, 0}), (Rect{121, 91, 600, 450}));
    EXPECT_EQ(drag(kCropFourToThree, {300, 0}, {0, 90}), (Rect{120, 90, 600, 450}));
    EXPECT_EQ(drag(kCropFourToThree, {600, 0}, {400, 0}), (Rect{0, 150, 400, 450}));
    EXPECT_EQ(drag(kCropFourToThree, {600, 225}, {400, 0}), (Rect{0, 0, 400, 300}));
    EXPECT_EQ(drag(kCropFourToThree, {600, 450}, {401, 0}), (Rect{0, 0, 401, 300}));
    EXPECT_EQ(drag(kCropFourToThree, {300, 450}, {0, 301}), (Rect{0, 0, 401, 301}));
    EXPECT_EQ(drag(kCropFourToThree, {0, 450}, {200, 0}), (Rect{200, 0, 600, 300}));
    // 16:9 starts at (0, 56, 600, 393); 480 * 9 / 16 = 270.
    EXPECT_EQ(drag(kCropSixteenToNine, {0, 56}, {120, 0}), (Rect{120, 123, 600, 393}));
    EXPECT_EQ(drag(kCropSixteenToNine, {300, 393}, {0, 146}), (Rect{0, 56, 160, 146}));
    // Beyond the bounds or the opposite edge: as it was.
    EXPECT_EQ(drag(kCropFourToThree, {0, 0}, {-1, 0}), kStage);
    EXPECT_EQ(drag(kCropFourToThree, {0, 0}, {600, 0}), kStage);
    EXPECT_EQ(drag(kCropFourToThree, {600, 450}, {601, 0}), kStage);
}

TEST(CropFrameTest, TheTwoRightHandPairsCanLeaveTheBounds) {
    CropFrame frame;
    frame.setMode(kCropFourToThree, kStage);
    // A small frame at the top: (200, 0, 400, 150).
    frame.press({600, 450});
    frame.drag({200, 0});
    frame.press({100, 75});
    frame.drag({300, 75});
    ASSERT_EQ(frame.rect(), (Rect{200, 0, 400, 150}));
    frame.press({400, 0});
    EXPECT_TRUE(frame.drag({600, 0}));
    EXPECT_EQ(frame.rect(), (Rect{200, -150, 600, 150}));

    frame.setMode(kCropNone, kStage);
    frame.setMode(kCropFourToThree, kStage);
    frame.press({0, 0});
    frame.drag({400, 0});
    frame.press({500, 400});
    frame.drag({300, 400});
    ASSERT_EQ(frame.rect(), (Rect{200, 300, 400, 450}));
    frame.press({400, 375});
    EXPECT_TRUE(frame.drag({600, 375}));
    EXPECT_EQ(frame.rect(), (Rect{200, 300, 600, 600}));
}

TEST(CropFrameTest, TheInsideMovesTheFrameWithinTheBounds) {
    CropFrame frame;
    frame.setMode(kCropManual, kStage);
    frame.press({600, 450});
    frame.drag({200, 100});
    frame.press({100, 50});
    EXPECT_EQ(frame.handle(), CropFrame::kInside);
    frame.drag({150, 75});
    EXPECT_EQ(frame.rect(), (Rect{50, 25, 250, 125}));
    frame.drag({9999, 60});
    EXPECT_EQ(frame.rect(), (Rect{400, 10, 600, 110}));
    frame.drag({100, 50});
    EXPECT_EQ(frame.rect(), (Rect{0, 0, 200, 100}));

    // Full width leaves room only up and down: sideways is ignored, down past the edge as well.
    EXPECT_EQ(dragged(kCropSixteenToNine, kStage, {300, 200}, {303, 220}), (Rect{0, 76, 600, 413}));
    EXPECT_EQ(dragged(kCropSixteenToNine, kStage, {300, 200}, {300, 400}), (Rect{0, 56, 600, 393}));
}

TEST(CropFrameTest, NothingIsDraggedWithoutAHandleOrAFrame) {
    CropFrame frame;
    frame.press({10, 10});
    EXPECT_FALSE(frame.drag({20, 20}));
    frame.setMode(kCropSixteenToNine, kStage);
    frame.press({300, 20});
    EXPECT_EQ(frame.handle(), CropFrame::kNoHandle);
    EXPECT_FALSE(frame.drag({20, 20}));
    frame.press({300, 200});
    frame.release();
    EXPECT_FALSE(frame.drag({300, 210}));
}

}  // namespace
}  // namespace vellora
