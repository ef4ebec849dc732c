#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "text/Coverage.h"
#include "text/GlowCoverage.h"
#include "text/PathTools.h"

namespace vellora {
namespace {

QImage drawn(Coverage& coverage, QSize size) {
    QImage picture(size, QImage::Format_Grayscale8);
    picture.fill(0);
    for (int y = coverage.area().top(); y <= coverage.area().bottom(); ++y) {
        const Coverage::Run run = coverage.row(y);
        std::copy(run.values.begin(), run.values.end(), picture.scanLine(y) + run.x);
    }
    return picture;
}

QImage covered(const QPainterPath& path, const QTransform& transform, QSize size) {
    OutlineCoverage coverage(path, transform, QRect(QPoint(), size));
    return drawn(coverage, size);
}

int at(const QImage& picture, int x, int y) {
    return picture.constScanLine(y)[x];
}

/// What a dense grid of points says of a path filled by the winding rule.
QImage counted(const QPainterPath& path, QSize size) {
    constexpr int kSteps = 16;
    QImage large(size * kSteps, QImage::Format_Grayscale8);
    large.fill(0);
    QPainter painter(&large);
    painter.scale(kSteps, kSteps);
    painter.fillPath(path, Qt::white);
    painter.end();
    QImage picture(size, QImage::Format_Grayscale8);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            int sum = 0;
            for (int j = 0; j < kSteps; ++j) {
                const uchar* row = large.constScanLine(y * kSteps + j) + x * kSteps;
                sum += static_cast<int>(std::count(row, row + kSteps, 255));
            }
            picture.scanLine(y)[x] = static_cast<uchar>(sum * 255 / (kSteps * kSteps));
        }
    }
    return picture;
}

int largestDifference(const QImage& a, const QImage& b) {
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            largest = std::max(largest, std::abs(at(a, x, y) - at(b, x, y)));
        }
    }
    return largest;
}

TEST(OutlineCoverage, CountsPartsOfPixels) {
    QPainterPath path;
    path.addRect(2.25, 1.5, 3.0, 2.25);
    const QImage picture = covered(path, {}, {8, 6});
    const int expected[6][8] = {{0, 0, 0, 0, 0, 0, 0, 0},        {0, 0, 96, 128, 128, 32, 0, 0},
                                {0, 0, 191, 255, 255, 64, 0, 0}, {0, 0, 143, 191, 191, 48, 0, 0},
                                {0, 0, 0, 0, 0, 0, 0, 0},        {0, 0, 0, 0, 0, 0, 0, 0}};
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) {
            EXPECT_NEAR(at(picture, x, y), expected[y][x], 1) << x << "," << y;
        }
    }
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({{0, 0}, {8, 0}, {0, 4}}));
    const QImage slope = covered(triangle, {}, {8, 4});
    EXPECT_NEAR(at(slope, 7, 0), 255 * 0.25, 1);
    EXPECT_NEAR(at(slope, 6, 0), 255 * 0.75, 1);
    EXPECT_NEAR(at(slope, 5, 0), 255, 1);
    EXPECT_NEAR(at(slope, 0, 3), 255 * 0.75, 1);
}

TEST(OutlineCoverage, AgreesWithCountedPointsForRandomShapes) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> reach(5.0, 45.0);
    for (int round = 0; round < 20; ++round) {
        // A star that leaves the picture on all sides, with another one inside that overlaps it.
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        for (const int corners : {9, 23}) {
            QPolygonF star;
            for (int i = 0; i < corners; ++i) {
                const double angle = 2 * std::numbers::pi * i / corners;
                const double far = reach(random);
                star.append({30 + far * std::cos(angle), 30 + far * std::sin(angle)});
            }
            path.addPolygon(star);
            path.closeSubpath();
        }
        const QImage exact = covered(path, {}, {60, 60});
        const QImage points = counted(path, {60, 60});
        double sum = 0.0;
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 60; ++x) {
                sum += std::abs(at(exact, x, y) - at(points, x, y));
            }
        }
        EXPECT_LT(sum / 3600, 1.0) << round;
        EXPECT_LT(largestDifference(exact, points), 130) << "only where edges cross in a pixel";
    }
}

TEST(OutlineCoverage, CutsWhatLiesFarOutside) {
    QPainterPath path;
    path.addRect(-1e9, -1e9, 1e9 + 3, 2e9);  // all left of 3
    path.addRect(6, -1e12, 1e12, 1e12 + 2);  // all right of 6, above 2
    const QImage picture = covered(path, {}, {10, 5});
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(at(picture, x, y), x < 3 || (x >= 6 && y < 2) ? 255 : 0) << x << "," << y;
        }
    }
    QPainterPath away;
    away.addRect(20, 20, 5, 5);
    OutlineCoverage nothing(away, {}, QRect(0, 0, 10, 10));
    EXPECT_TRUE(nothing.area().isEmpty());
}

TEST(PathTools, SweepsLikeManyCopies) {
    QPainterPath ring;
    ring.setFillRule(Qt::WindingFill);
    ring.addEllipse(30, 30, 24, 16);
    QPainterPath hole;
    hole.addEllipse(34, 34, 16, 8);
    ring.addPath(hole.toReversed());
    for (const QPainterPath& shape : {ring, ring.toReversed()}) {
        for (const QPointF way : {QPointF(20, 0), QPointF(14, 14), QPointF(-9, 17)}) {
            QImage copies(90, 90, QImage::Format_Grayscale8);
            copies.fill(0);
            for (int step = 0; step <= 400; ++step) {
                const QImage copy = covered(shape.translated(way * step / 400.0), {}, {90, 90});
                for (int y = 0; y < 90; ++y) {
                    for (int x = 0; x < 90; ++x) {
                        copies.scanLine(y)[x] =
                            static_cast<uchar>(std::max(at(copies, x, y), at(copy, x, y)));
                    }
                }
            }
            const QImage sweep = covered(swept(shape, way, 1.0), {}, {90, 90});
            EXPECT_LE(largestDifference(sweep, copies), 40) << way.x();
        }
    }
}

TEST(PathTools, WidensByHalfThePenWithRoundCorners) {
    QPainterPath square;
    square.addRect(20, 20, 30, 30);
    const QImage picture = covered(widened(square, 8.0, 1.0), {}, {70, 70});
    EXPECT_EQ(at(picture, 35, 16), 255);
    EXPECT_EQ(at(picture, 35, 15), 0);
    EXPECT_EQ(at(picture, 35, 23), 255);
    EXPECT_EQ(at(picture, 35, 24), 0);
    EXPECT_EQ(at(picture, 17, 17), at(picture, 52, 52));
    EXPECT_EQ(at(picture, 16, 16), 0) << "a mitred corner would reach here";
    EXPECT_EQ(at(picture, 18, 18), 255);
}

/// The glow as it is described: a small picture, enlarged by cubic interpolation.
double expectedGlow(const QImage& small, double factorX, double factorY, int x, int y) {
    const auto cubic = [](double d) {
        d = std::abs(d);
        return d < 1   ? 1.5 * d * d * d - 2.5 * d * d + 1
               : d < 2 ? -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2
                       : 0.0;
    };
    double sum = 0.0;
    for (int j = 0; j < small.height(); ++j) {
        for (int i = 0; i < small.width(); ++i) {
            sum += at(small, i, j) * cubic((x + 0.5) / factorX - 0.5 - i) *
                   cubic((y + 0.5) / factorY - 0.5 - j);
        }
    }
    return std::clamp(sum, 0.0, 255.0);
}

TEST(GlowCoverage, EnlargesASmallPictureOfTheShape) {
    QPainterPath shape;
    shape.addRect(30, 20, 60, 30);
    const QRectF bounds(10, 5, 103, 61);
    // A quarter of the bounds, truncated, is 25 x 15; the picture is stretched over all of them.
    QPainterPath grown;
    grown.addRoundedRect(24, 14, 72, 42, 6, 6);
    const QTransform toSmall(0.25, 0, 0, 0.25, -2.5, -1.25);
    const QImage small = covered(grown, toSmall, {25, 15});
    GlowCoverage coverage(shape, bounds, 6.0, 4, {}, QRect(0, 0, 130, 80));
    EXPECT_EQ(coverage.area(), QRect(10, 5, 103, 61));
    const QImage picture = drawn(coverage, {130, 80});
    for (int y = 5; y < 66; ++y) {
        for (int x = 10; x < 113; ++x) {
            EXPECT_NEAR(at(picture, x, y),
                        expectedGlow(small, 103.0 / 25, 61.0 / 15, x - 10, y - 5), 9)
                << x << "," << y;
        }
    }
}

TEST(GlowCoverage, NeedsOnlyWhatIsSeen) {
    QPainterPath shape;
    shape.addRect(0, 0, 1e6, 1e6);
    const QRectF bounds(0, 0, 1e6, 1e6);
    const QTransform huge = QTransform::fromScale(1000, 1000);
    GlowCoverage inside(shape, bounds, 2.0, 1, huge, QRect(5000, 5000, 20, 20));
    EXPECT_EQ(inside.area(), QRect(5000, 5000, 20, 20));
    EXPECT_EQ(inside.row(5000).values[7], 255);
    const QTransform tiny = QTransform::fromScale(1e-4, 1e-4);
    GlowCoverage reduced(shape, bounds, 2.0, 1, tiny, QRect(0, 0, 100, 100));
    EXPECT_EQ(reduced.row(50).values[50], 255);
    GlowCoverage none(shape, bounds, 2.0, 2'000'000, {}, QRect(0, 0, 100, 100));
    EXPECT_TRUE(none.area().isEmpty()) << "a blur larger than the text leaves no picture";
}

}  // namespace
}  // namespace vellora
