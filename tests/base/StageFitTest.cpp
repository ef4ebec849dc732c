#include <gtest/gtest.h>

#include "base/StageFit.h"

namespace vellora {
namespace {

TEST(StageFitTest, PlacesPhotosOnTheDefaultCanvas) {
    const Size canvas{768, 576};
    for (const int mode : {kFitInside, kFitFill, 7}) {
        EXPECT_EQ(placedRect({300, 200}, canvas, mode), (Rect{234, 188, 534, 388}));
        EXPECT_EQ(placedRect({1600, 1200}, canvas, mode), (Rect{0, 0, 768, 576}));
    }
    EXPECT_EQ(placedRect({1920, 1080}, canvas, kFitInside), (Rect{0, 72, 768, 504}));
    EXPECT_EQ(placedRect({1920, 1080}, canvas, kFitFill), (Rect{-128, 0, 896, 576}));
    EXPECT_EQ(placedRect({1080, 1920}, canvas, kFitInside), (Rect{222, 0, 546, 576}));
    EXPECT_EQ(placedRect({1080, 1920}, canvas, kFitFill).top, (576 - 1365) / 2);
    // Only one side smaller than the canvas: scaled.
    EXPECT_EQ(placedRect({768, 100}, canvas, kFitInside), (Rect{0, 238, 768, 338}));
}

TEST(StageFitTest, AnOddMarginWidensTheRectangleButNotTheFittedSize) {
    EXPECT_EQ(placedRect({599, 337}, {600, 450}, kFitInside), (Rect{0, 56, 600, 394}));
    EXPECT_EQ(fittedSize({599, 337}, {600, 450}), (Size{599, 337}));
}

TEST(StageFitTest, ReducesPhotosForThePreview) {
    EXPECT_EQ(previewFactor({599, 449}), 1.0F);
    EXPECT_EQ(previewFactor({1600, 900}), 1600.0F / 600.0F);
    EXPECT_EQ(previewSize({1600, 900}), (Size{599, 337}));
    EXPECT_EQ(previewSize({1200, 900}), (Size{600, 450}));
    EXPECT_EQ(previewSize({600, 450}), (Size{600, 450}));
    // Taller than the stage: the width that the height asks for, 3000 * 450 / 4000 = 337.
    EXPECT_EQ(previewFactor({3000, 4000}), 3000.0F / 337.0F);
    EXPECT_EQ(previewSize({3000, 4000}).height, 449);
    // Slivers that would vanish stay as they are.
    EXPECT_EQ(previewSize({1, 5000}), (Size{1, 5000}));
    EXPECT_EQ(previewSize({5000, 1}), (Size{5000, 1}));
}

TEST(StageFitTest, ToleratesEmptyAndExtremeSizes) {
    EXPECT_TRUE(placedRect({0, 0}, {600, 450}, kFitInside).isEmpty());
    EXPECT_TRUE(placedRect({10, 10}, {0, 0}, kFitInside).isEmpty());
    EXPECT_EQ(fittedSize({0, 10}, {600, 450}), Size{});
    EXPECT_EQ(placedRect({1, 65000}, {600, 450}, kFitInside).width(), 0);
    EXPECT_GT(placedRect({65000, 1}, {600, 45000}, kFitFill).width(), 0);
}

}  // namespace
}  // namespace vellora
