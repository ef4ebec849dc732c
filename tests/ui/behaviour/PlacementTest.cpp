#include <limits>
#include <tuple>

#include <gtest/gtest.h>

#include <vellora/model/DVDImageProps.h>

#include "ui/behaviour/Cascade.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/behaviour/SpriteDrag.h"

namespace vellora {
namespace {

/// Where a clip at (100, 100), 200 x 100, lies after one of its handles was dragged.
SpritePlace resized(int handle, QPoint to) {
    CDVDImageProps clip(nullptr);
    clip.SetPosition(100, 100);
    clip.SetSize(200, 100);
    SpriteDrag drag;
    drag.begin({&clip, handle}, clip.GetHandlePoint({}, handle));
    EXPECT_TRUE(drag.isResizing());
    return drag.resizedTo(to);
}

TEST(CascadeTest, StepsDownAndRightAndStartsAgainNearTheFarEdges) {
    Cascade cascade;
    EXPECT_EQ(cascade.next(), QPoint(50, 50));
    EXPECT_EQ(cascade.next(), QPoint(70, 70));
    // 390 + 50 is still below 450; 410 + 50 is not. Likewise 530 + 20 + 50 reaches 600.
    QPoint place;
    for (int step = 2; step <= 17; ++step) {
        place = cascade.next();
    }
    EXPECT_EQ(place, QPoint(390, 390));
    EXPECT_EQ(cascade.next(), QPoint(410, 50));
    for (int step = 0; step < 6; ++step) {
        place = cascade.next();
    }
    EXPECT_EQ(place, QPoint(530, 170));
    EXPECT_EQ(cascade.next(), QPoint(50, 190));
}

TEST(SpriteDragTest, TheBodyFollowsTheMouse) {
    CDVDImageProps clip(nullptr);
    clip.SetPosition(100, 100);
    SpriteDrag drag;
    EXPECT_FALSE(drag.isActive());
    drag.begin({&clip, kHitBody}, {110, 105});
    EXPECT_FALSE(drag.isResizing());
    EXPECT_EQ(drag.movedTo({50, -20}), QPoint(40, -25));
    drag.end();
    EXPECT_FALSE(drag.isActive());
}

TEST(SpriteDragTest, HandlesKeepTheProportionsAndTheOppositeCorner) {
    using Place = SpritePlace;
    EXPECT_EQ(resized(5, {340, 100}), (Place{{100, 100}, {240, 120}}));
    EXPECT_EQ(resized(5, {110, 240}), (Place{{100, 100}, {280, 140}}));
    EXPECT_EQ(resized(1, {60, 190}), (Place{{60, 80}, {240, 120}}));
    EXPECT_EQ(resized(3, {340, 190}), (Place{{100, 80}, {240, 120}}));
    EXPECT_EQ(resized(7, {60, 110}), (Place{{60, 100}, {240, 120}}));
    EXPECT_EQ(resized(4, {340, 999}), (Place{{100, 100}, {240, 120}}));
    EXPECT_EQ(resized(6, {999, 220}), (Place{{100, 100}, {240, 120}}));
    EXPECT_EQ(resized(8, {60, 999}), (Place{{60, 80}, {240, 120}}));
    EXPECT_EQ(resized(2, {999, 80}), (Place{{60, 80}, {240, 120}}));
    // Past the opposite corner it stays small and in place.
    EXPECT_EQ(resized(5, {-300, -300}), (Place{{100, 100}, {16, 8}}));
    EXPECT_EQ(resized(1, {900, 900}), (Place{{284, 192}, {16, 8}}));
}

TEST(SpriteDragTest, NumbersWithoutBoundsDoNotOverflow) {
    constexpr int kLow = std::numeric_limits<int>::min();
    constexpr int kHigh = std::numeric_limits<int>::max();
    for (const QPoint position : {QPoint(kLow, kLow), QPoint(kHigh, kHigh)}) {
        for (const QSize size : {QSize(kHigh, 1), QSize(1, kHigh), QSize(0, 0)}) {
            CDVDImageProps clip(nullptr);
            clip.SetPosition(position.x(), position.y());
            clip.SetSize(size.width(), size.height());
            SpriteDrag drag;
            for (int handle = 1; handle <= 8; ++handle) {
                drag.begin({&clip, handle}, {10, 10});
                EXPECT_FALSE(drag.resizedTo({600, -600}).size.isEmpty());
                std::ignore = drag.movedTo({600, -600});
            }
        }
    }
}

TEST(ClipPlacementTest, AClipKeepsItsProportionsWithinAThirdOfTheStage) {
    EXPECT_EQ(placeOfClip({400, 400}, false, {300, 225}), (SpritePlace{{225, 150}, {150, 150}}));
    EXPECT_EQ(placeOfClip({16, 12}, false, {300, 225}), (SpritePlace{{292, 219}, {16, 12}}));
    EXPECT_EQ(placeOfClip({16, 12}, true, {300, 225}), (SpritePlace{{200, 150}, {200, 150}}));
    EXPECT_EQ(placeOfClip({30000, 3}, true, {300, 225}).size, QSize(200, 1));
}

TEST(ClipPlacementTest, NineExtensionsAreAcceptedInAnyCase) {
    for (const char* extension :
         {"bmp", "JPG", "pcx", "tif", "png", "EMF", "wmf", "jpeg", "Tiff"}) {
        EXPECT_TRUE(isClipFile(QStringLiteral("/a.b/c.") + QLatin1String(extension)));
    }
    EXPECT_FALSE(isClipFile(QStringLiteral("/a.png/c.exe")));
    EXPECT_FALSE(isClipFile(QStringLiteral("/a.png/png")));
    EXPECT_TRUE(isVectorClip(QStringLiteral("a.WMF")));
    EXPECT_FALSE(isVectorClip(QStringLiteral("a.png")));
}

}  // namespace
}  // namespace vellora
