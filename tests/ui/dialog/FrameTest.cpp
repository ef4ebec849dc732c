// The frame: its zones, its drags, and where the dialog's parts stand.

#include <QTest>

#include <gtest/gtest.h>

#include "ui/dialog/DialogLayout.h"
#include "ui/dialog/FrameZones.h"
#include "ui/dialog/VUDFrame.h"

namespace vellora {
namespace {

TEST(FrameZonesTest, EdgesCornersAndTitle) {
    constexpr QSize kFrame(800, 500);
    EXPECT_EQ(frameZoneAt({4, 250}, kFrame), kZoneLeft);
    EXPECT_EQ(frameZoneAt({5, 250}, kFrame), kZoneNone);
    EXPECT_EQ(frameZoneAt({795, 250}, kFrame), kZoneRight);
    EXPECT_EQ(frameZoneAt({794, 250}, kFrame), kZoneNone);
    EXPECT_EQ(frameZoneAt({400, 499}, kFrame), kZoneBottom);
    EXPECT_EQ(frameZoneAt({799, 0}, kFrame), kZoneRight | kZoneTop);
    EXPECT_EQ(frameZoneAt({0, 499}, kFrame), kZoneLeft | kZoneBottom);
    EXPECT_EQ(frameZoneAt({400, 5}, kFrame), kZoneMove);
    EXPECT_EQ(frameZoneAt({400, 21}, kFrame), kZoneMove);
    EXPECT_EQ(frameZoneAt({400, 22}, kFrame), kZoneNone);
    EXPECT_EQ(cursorOfZone(kZoneTop), Qt::SizeVerCursor);
    EXPECT_EQ(cursorOfZone(kZoneLeft | kZoneTop), Qt::SizeFDiagCursor);
    EXPECT_EQ(cursorOfZone(kZoneRight | kZoneTop), Qt::SizeBDiagCursor);
    EXPECT_EQ(cursorOfZone(kZoneMove), Qt::ArrowCursor);
}

TEST(FrameZonesTest, DragsKeepTheOtherEdgeAndTheMinimum) {
    const QRect start(100, 100, 600, 450);
    EXPECT_EQ(draggedFrame(start, kZoneLeft, {50, 9}, kMinimumFrame), QRect(150, 100, 550, 450));
    EXPECT_EQ(draggedFrame(start, kZoneLeft, {500, 0}, kMinimumFrame), QRect(300, 100, 400, 450));
    EXPECT_EQ(draggedFrame(start, kZoneRight | kZoneBottom, {-500, -500}, kMinimumFrame),
              QRect(100, 100, 400, 300));
    EXPECT_EQ(draggedFrame(start, kZoneTop, {0, 500}, kMinimumFrame), QRect(100, 250, 600, 300));
    EXPECT_EQ(draggedFrame(start, kZoneMove, {-30, 40}, kMinimumFrame), QRect(70, 140, 600, 450));
}

TEST(FrameTest, IsSizedByItsEdges) {
    CVUDFrame frame(3000, nullptr);
    frame.setGeometry(50, 60, 600, 450);
    frame.show();
    QTest::mousePress(&frame, Qt::LeftButton, {}, {598, 200});
    QTest::mouseMove(&frame, {638, 200});
    QTest::mouseRelease(&frame, Qt::LeftButton, {}, {638, 200});
    EXPECT_EQ(frame.geometry(), QRect(50, 60, 640, 450));
    QTest::mousePress(&frame, Qt::LeftButton, {}, {300, 448});
    QTest::mouseMove(&frame, {300, 20});
    QTest::mouseRelease(&frame, Qt::LeftButton, {}, {300, 20});
    EXPECT_EQ(frame.geometry(), QRect(50, 60, 640, 300));
}

TEST(FrameTest, IsMovedByItsTitleUnlessMaximised) {
    CVUDFrame frame(3000, nullptr);
    frame.setGeometry(50, 60, 600, 450);
    frame.show();
    QTest::mousePress(&frame, Qt::LeftButton, {}, {300, 10});
    QTest::mouseMove(&frame, {320, 30});
    QTest::mouseRelease(&frame, Qt::LeftButton, {}, {300, 10});
    EXPECT_EQ(frame.pos(), QPoint(70, 80));
    frame.SystemCommand(kSystemMaximize);
    const QRect maximized = frame.geometry();
    QTest::mousePress(&frame, Qt::LeftButton, {}, {300, 10});
    QTest::mouseMove(&frame, {320, 30});
    QTest::mouseRelease(&frame, Qt::LeftButton, {}, {300, 10});
    EXPECT_EQ(frame.geometry(), maximized);
}

TEST(DialogLayoutTest, PartsStandAtTheirPlaces) {
    const DialogLayout layout;
    const QSize size = layout.dialogSize({});
    EXPECT_EQ(size, QSize(959, 564));
    EXPECT_EQ(layout.toolPanel(size), QRect(8, 25, 947, 44));
    EXPECT_EQ(layout.tabBar(size), QRect(636, 72, 317, 32));
    EXPECT_EQ(layout.page(size), QRect(632, 104, 321, 454));
    EXPECT_EQ(layout.canvas(), QRect(16, 88, 600, 450));
    EXPECT_EQ(layout.toolHeader(size), QRect(5, 23, 949, 49));
    EXPECT_EQ(layout.tabHeader(size), QRect(632, 72, 327, 32));
}

TEST(DialogLayoutTest, TallControlsPushTheRestDown) {
    const DialogLayout layout{12, 6};
    EXPECT_EQ(layout.canvas(), QRect(16, 100, 600, 450));
    EXPECT_EQ(layout.dialogSize({500, 600}), QSize(1138, 728));
    EXPECT_EQ(placedDialog({1400, 900}, {959, 564}, {0, 0, 1366, 768}, {100, 100}),
              QRect(0, 0, 1366, 768));
    EXPECT_EQ(placedDialog({959, 564}, {959, 564}, {0, 0, 1366, 768}, {1300, 384}),
              QRect(407, 103, 959, 564));
}

}  // namespace
}  // namespace vellora
