#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "metafile/MetafileBytes.h"

namespace vellora {
namespace {

constexpr QSize kStage(100, 100);
constexpr double kPi = std::numbers::pi;
const QColor kRed(200, 30, 40);

EmfFile emf() {
    return EmfFile(kStage);
}

WmfFile wmf() {
    return WmfFile(QRect(0, 0, 100, 100));
}

/// A five-pointed star whose centre only the winding rule fills.
const std::initializer_list<QPoint> kStar = {{50, 10}, {74, 84}, {11, 38}, {89, 38}, {26, 84}};

TEST(MetafileShapes, RectanglesFillTheirPixelsInBothFormats) {
    const QImage fromEmf = drawn(emf().fillWith(kRed).put(43, {10, 20, 60, 50}).bytes(), kStage);
    // Bottom, right, top, left.
    const QImage fromWmf =
        drawn(wmf().fillWith(kRed).put(0x041B, {50, 60, 20, 10}).bytes(), kStage);
    for (const QImage& image : {fromEmf, fromWmf}) {
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(pixelAt(image, 10, 20), kRed);
        EXPECT_EQ(pixelAt(image, 59, 49), kRed);
        EXPECT_EQ(pixelAt(image, 9, 20).alpha(), 0);
        EXPECT_EQ(pixelAt(image, 60, 49).alpha(), 0);
        EXPECT_NEAR(coverage(image), 50 * 30, 0.01);
    }
}

TEST(MetafileShapes, FillRulesDecideAboutTheStarsCentre) {
    for (const bool winding : {false, true}) {
        const QImage fromEmf = drawn(
            emf().fillWith(kRed).put(19, {winding ? 2 : 1}).points16(86, kStar).bytes(), kStage);
        Bytes points;
        points.u16(5);
        for (const QPoint point : kStar)
            points.i16(point.x()).i16(point.y());
        const QImage fromWmf = drawn(
            wmf().fillWith(kRed).put(0x0106, {winding ? 2 : 1}).record(0x0324, points).bytes(),
            kStage);
        for (const QImage& image : {fromEmf, fromWmf}) {
            EXPECT_EQ(pixelAt(image, 50, 52).alpha(), winding ? 255 : 0);
            EXPECT_EQ(pixelAt(image, 50, 25).alpha(), 255);
        }
    }
}

TEST(MetafileShapes, PolyPolygonsLeaveHoles) {
    const QByteArray file = emf()
                                .fillWith(kRed)
                                .record(91, Bytes()
                                                .zeros(16)
                                                .u32(2)
                                                .u32(8)
                                                .u32(4)
                                                .u32(4)
                                                .i16(10)
                                                .i16(10)
                                                .i16(90)
                                                .i16(10)
                                                .i16(90)
                                                .i16(90)
                                                .i16(10)
                                                .i16(90)
                                                .i16(30)
                                                .i16(30)
                                                .i16(70)
                                                .i16(30)
                                                .i16(70)
                                                .i16(70)
                                                .i16(30)
                                                .i16(70))
                                .bytes();
    EXPECT_NEAR(coverage(drawn(file, kStage)), 80 * 80 - 40 * 40, 0.01);
}

TEST(MetafileShapes, RoundShapesCoverTheirAreas) {
    const QImage disc = drawn(emf().fillWith(kRed).put(42, {10, 10, 90, 90}).bytes(), kStage);
    EXPECT_NEAR(coverage(disc), kPi * 40 * 40, 12);

    // Quarters counter-clockwise from the right to the top, as they are seen.
    const QImage pie =
        drawn(emf().fillWith(kRed).put(47, {10, 10, 90, 90, 90, 50, 50, 10}).bytes(), kStage);
    EXPECT_NEAR(coverage(pie), kPi * 40 * 40 / 4, 6);
    EXPECT_EQ(pixelAt(pie, 60, 40).alpha(), 255);
    EXPECT_EQ(pixelAt(pie, 40, 40).alpha(), 0);

    const QImage clockwise =
        drawn(emf().fillWith(kRed).put(57, {2}).put(47, {10, 10, 90, 90, 90, 50, 50, 10}).bytes(),
              kStage);
    EXPECT_NEAR(coverage(clockwise), kPi * 40 * 40 * 3 / 4, 10);

    const QImage chord =
        drawn(wmf().fillWith(kRed).put(0x0830, {10, 50, 50, 90, 90, 90, 10, 10}).bytes(), kStage);
    EXPECT_NEAR(coverage(chord), kPi * 40 * 40 / 4 - 40 * 40 / 2.0, 6);

    const QImage rounded =
        drawn(wmf().fillWith(kRed).put(0x061C, {20, 20, 80, 90, 10, 10}).bytes(), kStage);
    EXPECT_NEAR(coverage(rounded), 80 * 70 - (4 - kPi) * 10 * 10, 6);
}

TEST(MetafileShapes, ArcsRunFromStartToEnd) {
    const QImage arc =
        drawn(emf().drawWith(kRed, 4).put(45, {10, 10, 90, 90, 90, 50, 50, 10}).bytes(), kStage);
    // A quarter of the line and two round ends of half a disc.
    EXPECT_NEAR(coverage(arc), 2 * kPi * 40 / 4 * 4 + kPi * 2 * 2, 6);
    EXPECT_EQ(pixelAt(arc, 78, 21).alpha(), 255);

    // A line to the start of the arc, and the position after it: the line goes on from there.
    const QByteArray joined = emf()
                                  .drawWith(kRed, 4)
                                  .put(27, {90, 90})
                                  .put(55, {10, 10, 90, 90, 90, 50, 50, 10})
                                  .put(54, {10, 10})
                                  .bytes();
    const QImage image = drawn(joined, kStage);
    EXPECT_EQ(pixelAt(image, 90, 70).alpha(), 255);
    EXPECT_EQ(pixelAt(image, 25, 10).alpha(), 255);
}

TEST(MetafileShapes, CurvesPassThroughTheirMiddle) {
    // From (10, 50) by (10, 10) and (90, 10) to (90, 50): the middle lies at (50, 20).
    const QByteArray curve =
        emf().drawWith(kRed, 2).points16(85, {{10, 50}, {10, 10}, {90, 10}, {90, 50}}).bytes();
    const QImage image = drawn(curve, kStage);
    EXPECT_GT(pixelAt(image, 50, 20).alpha(), 200);
    EXPECT_EQ(pixelAt(image, 50, 25).alpha(), 0);
}

TEST(MetafilePens, JoinsAndCapsGiveTheirAreas) {
    // A right angle of width 20: its arms cover 2 * 40 * 20 less the shared corner square of
    // which a quarter lies inside both; the corner itself is full, cut off or round.
    const std::initializer_list<QPoint> corner = {{30, 70}, {30, 30}, {70, 30}};
    const auto area = [&](std::uint32_t style) {
        return coverage(
            drawn(emf().drawWith(kRed, 20, style).points16(87, corner).bytes(), kStage));
    };
    constexpr std::uint32_t flat = 0x0200;
    constexpr double arms = 2 * 40 * 20 - 10 * 10;
    EXPECT_NEAR(area(flat | 0x2000), arms + 10 * 10, 1);
    EXPECT_NEAR(area(flat | 0x1000), arms + 10 * 10 / 2.0, 1);
    EXPECT_NEAR(area(flat), arms + kPi * 10 * 10 / 4, 2);
    EXPECT_NEAR(area(0x0100 | 0x2000), arms + 10 * 10 + 2 * 20 * 10, 1);
    EXPECT_NEAR(area(0x2000), arms + 10 * 10 + kPi * 10 * 10, 3);
}

TEST(MetafilePens, MiterLimitCutsSharpCornersOff) {
    const auto area = [&](std::int64_t limit) {
        return coverage(drawn(emf()
                                  .drawWith(kRed, 10, 0x2200)
                                  .put(58, {limit})
                                  .points16(87, {{20, 80}, {50, 30}, {80, 80}})
                                  .bytes(),
                              kStage));
    };
    EXPECT_GT(area(10), area(1) + 20);
    // 10 as the bits of a float.
    EXPECT_DOUBLE_EQ(area(0x41200000), area(10));
}

TEST(MetafilePens, DashesLeaveGaps) {
    // Dots of geometric pens are as long as the line is wide, with gaps of the same length.
    const QImage dots = drawn(
        emf().drawWith(kRed, 10, 2 | 0x0200).points16(87, {{0, 50}, {100, 50}}).bytes(), kStage);
    EXPECT_EQ(pixelAt(dots, 5, 50).alpha(), 255);
    EXPECT_EQ(pixelAt(dots, 15, 50).alpha(), 0);
    EXPECT_NEAR(coverage(dots), 5 * 10 * 10, 1);

    Bytes pen;
    pen.u32(1).zeros(16).u32(0x10000 | 7 | 0x0200).i32(10).u32(0).color(kRed).u32(0);
    pen.u32(2).u32(30).u32(20);
    const QByteArray own =
        emf().record(95, pen).put(37, {1}).points16(87, {{0, 50}, {100, 50}}).bytes();
    EXPECT_NEAR(coverage(drawn(own, kStage)), 60 * 10, 1);
}

TEST(MetafilePens, InsideFramePensStayInside) {
    const QImage image =
        drawn(emf().drawWith(kRed, 10, 6).put(43, {20, 20, 80, 80}).bytes(), kStage);
    EXPECT_EQ(pixelAt(image, 18, 50).alpha(), 0);
    EXPECT_EQ(pixelAt(image, 21, 50).alpha(), 255);
    EXPECT_EQ(pixelAt(image, 31, 50).alpha(), 0);
}

TEST(MetafilePens, LinesDrawnPieceByPieceJoin) {
    const QByteArray pieces = wmf()
                                  .drawWith(kRed, 6)
                                  .put(0x0214, {20, 20})
                                  .put(0x0213, {20, 80})
                                  .put(0x0213, {80, 80})
                                  .bytes();
    // Two lines of 60 with round ends and a round corner.
    EXPECT_NEAR(coverage(drawn(pieces, kStage)), 2 * 60 * 6 - 9 + kPi * 9 * 1.25, 4);
}

TEST(MetafileBrushes, HatchesAreLinesAndGrowWithThePicture) {
    // Horizontal lines of one pixel, eight apart.
    const QByteArray file = emf()
                                .fillWith(kRed)
                                .put(18, {1})
                                .record(39, Bytes().u32(5).u32(2).color(kRed).u32(0))
                                .put(37, {5})
                                .put(43, {0, 0, 100, 100})
                                .bytes();
    const double atOne = coverage(drawn(file, kStage));
    EXPECT_NEAR(atOne, 100 * 100 / 8.0, 60);
    const double atFour = coverage(drawn(file, kStage * 4));
    EXPECT_NEAR(atFour, 16 * atOne, 0.02 * 16 * atOne);

    const QByteArray opaque = emf()
                                  .fillWith(kRed)
                                  .put(18, {2})
                                  .put(25, {0x0000FF00})
                                  .record(39, Bytes().u32(5).u32(2).color(kRed).u32(0))
                                  .put(37, {5})
                                  .put(43, {0, 0, 100, 100})
                                  .bytes();
    const QImage image = drawn(opaque, kStage);
    EXPECT_NEAR(coverage(image), 100 * 100, 0.01);
    EXPECT_EQ(pixelAt(image, 50, 4), QColor(0, 255, 0));
}

TEST(MetafileBrushes, RasterOperationsBlackWhiteAndNothing) {
    const auto color = [](int rop) {
        const QByteArray file = emf()
                                    .fillWith(kRed)
                                    .put(43, {0, 0, 9, 9})
                                    .put(20, {rop})
                                    .put(43, {10, 10, 90, 90})
                                    .bytes();
        return pixelAt(drawn(file, kStage), 50, 50);
    };
    EXPECT_EQ(color(1), QColor(0, 0, 0));
    EXPECT_EQ(color(11).alpha(), 0);
    EXPECT_EQ(color(13), kRed);
    EXPECT_EQ(color(16), QColor(255, 255, 255));
    EXPECT_EQ(color(7), kRed);
}

TEST(MetafilePaths, FillStrokeAndCloseAsOne) {
    const auto triangle = [](std::uint32_t paint, bool close) {
        EmfFile file = emf();
        file.fillWith(QColor(0, 0, 255));
        Bytes pen;
        pen.u32(5).zeros(16).u32(0x10000).i32(6).u32(0).color(kRed).zeros(8);
        file.record(95, pen).put(37, {5}).put(59, {}).put(27, {20, 80}).put(54, {80, 80});
        file.put(54, {50, 20});
        if (close)
            file.put(61, {});
        return drawn(file.put(60, {}).put(paint, {0, 0, 0, 0}).bytes(), kStage);
    };
    const QImage both = triangle(63, true);
    EXPECT_EQ(pixelAt(both, 50, 60), QColor(0, 0, 255));
    EXPECT_EQ(pixelAt(both, 50, 80), kRed);
    EXPECT_EQ(pixelAt(both, 35, 50), kRed);
    // Filling closes the figure, stroking does not.
    EXPECT_EQ(pixelAt(triangle(62, false), 50, 60), QColor(0, 0, 255));
    EXPECT_EQ(pixelAt(triangle(64, false), 35, 50).alpha(), 0);
    EXPECT_EQ(pixelAt(triangle(64, false), 50, 60).alpha(), 0);
}

TEST(MetafilePaths, WidenedPathsAreTheOutlineOfTheLine) {
    const QByteArray file = emf()
                                .drawWith(kRed, 10, 0x0200)
                                .record(39, Bytes().u32(7).u32(0).color(kRed).u32(0))
                                .put(37, {7})
                                .put(59, {})
                                .put(27, {10, 50})
                                .put(54, {90, 50})
                                .put(60, {})
                                .put(66, {})
                                .put(62, {0, 0, 0, 0})
                                .bytes();
    EXPECT_NEAR(coverage(drawn(file, kStage)), 80 * 10, 1);
}

TEST(MetafileShapes, RecordsOfPointTypesDrawLinesCurvesAndMoves) {
    // Move, line, curve, and a line that closes the figure.
    Bytes draw;
    draw.zeros(16).u32(6);
    for (const QPoint point : {QPoint(10, 10), QPoint(10, 90), QPoint(40, 90), QPoint(60, 90),
                               QPoint(90, 90), QPoint(90, 10)})
        draw.i16(point.x()).i16(point.y());
    for (const unsigned type : {6u, 2u, 4u, 4u, 4u, 3u})
        draw.u8(type);
    const QByteArray file = emf().drawWith(kRed, 4).record(92, draw).bytes();
    const QImage image = drawn(file, kStage);
    for (const QPoint on : {QPoint(10, 50), QPoint(50, 90), QPoint(90, 50), QPoint(50, 10)})
        EXPECT_EQ(image.pixelColor(on), kRed) << on.x() << ", " << on.y();
}

TEST(MetafileShapes, GradientsRunFromCornerToCorner) {
    const auto gradient = [](std::uint32_t mode) {
        Bytes fill;
        fill.zeros(16).u32(2).u32(1).u32(mode);
        fill.i32(0).i32(0).u16(0).u16(0).u16(0).u16(0);
        fill.i32(100).i32(100).u16(0xFF00).u16(0xFF00).u16(0).u16(0);
        return drawn(emf().record(118, fill.u32(0).u32(1)).bytes(), kStage);
    };
    const QImage across = gradient(0);
    EXPECT_NEAR(pixelAt(across, 50, 90).red(), 128, 3);
    EXPECT_NEAR(pixelAt(across, 10, 10).green(), 27, 3);
    EXPECT_NEAR(pixelAt(gradient(1), 10, 75).red(), 192, 3);

    Bytes triangle;
    triangle.zeros(16).u32(3).u32(1).u32(2);
    triangle.i32(0).i32(0).u16(0xFF00).u16(0).u16(0).u16(0);
    triangle.i32(100).i32(0).u16(0).u16(0xFF00).u16(0).u16(0);
    triangle.i32(0).i32(100).u16(0).u16(0).u16(0xFF00).u16(0);
    const QImage mixed = drawn(emf().record(118, triangle.u32(0).u32(1).u32(2)).bytes(), kStage);
    EXPECT_NEAR(coverage(mixed), 5000, 5);
    EXPECT_NEAR(pixelAt(mixed, 33, 33).red(), 85, 6);
    EXPECT_NEAR(pixelAt(mixed, 33, 33).green(), 85, 6);
    EXPECT_NEAR(pixelAt(mixed, 33, 33).blue(), 85, 6);
}

}  // namespace
}  // namespace vellora
