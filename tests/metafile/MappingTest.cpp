#include <gtest/gtest.h>

#include "metafile/MetafileBytes.h"
#include "metafile/MetafilePicture.h"

namespace vellora {
namespace {

constexpr QSize kStage(100, 100);
const QColor kRed(200, 30, 40);

/// The box that the picture's pixels lie in.
QRect extentOf(const QImage& image) {
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 127)
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

TEST(MetafileMapping, AnisotropicWindowsStretchAndFlip) {
    EmfFile file(kStage);
    file.fillWith(kRed).put(17, {8}).put(10, {0, 1000}).put(9, {1000, -1000}).put(12, {0, 0});
    file.put(11, {100, 50}).put(43, {100, 100, 300, 400});
    // y counts upwards from the window's lower edge, at half the scale of x.
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(10, 30, 20, 15));
}

TEST(MetafileMapping, IsotropicWindowsTakeTheSmallerScale) {
    EmfFile file(kStage);
    file.fillWith(kRed)
        .put(17, {7})
        .put(9, {100, 100})
        .put(11, {100, 50})
        .put(43, {20, 20, 100, 100});
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(10, 10, 40, 40));
}

TEST(MetafileMapping, MetricUnitsPointUpwards) {
    // One dot of the device is one millimetre; units of a tenth, and the origin moved down.
    EmfFile file(kStage);
    file.fillWith(kRed).put(17, {2}).put(12, {0, 100}).put(43, {100, 100, 300, 200});
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(10, 80, 20, 10));
}

TEST(MetafileMapping, WindowsAreScaledByFractions) {
    EmfFile file(kStage);
    file.fillWith(kRed).put(17, {8}).put(9, {100, 100}).put(11, {100, 100});
    file.put(32, {2, 1, 4, 1}).put(43, {0, 0, 100, 100});
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(0, 0, 50, 25));
}

TEST(MetafileMapping, WorldTransformsComeFirst) {
    const auto transform = [](float a, float b, float c, float d, float x, float y) {
        Bytes bytes;
        for (const float value : {a, b, c, d, x, y}) {
            std::uint32_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            bytes.u32(bits);
        }
        return bytes;
    };
    EmfFile file(kStage);
    // A quarter turn, then a move; multiplied on the left by a doubling.
    file.fillWith(kRed).record(35, transform(0, 1, -1, 0, 50, 10));
    file.record(36, transform(2, 0, 0, 2, 0, 0).u32(2)).put(43, {0, 0, 10, 20});
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(10, 10, 40, 20));
}

TEST(MetafileMapping, SavedStatesComeBackByNumberAndByDistance) {
    const auto file = [](std::int64_t which) {
        EmfFile emf(kStage);
        emf.fillWith(kRed).put(33, {}).put(12, {10, 0}).put(33, {}).put(12, {20, 0});
        emf.put(33, {}).put(12, {40, 0}).put(34, {which}).put(43, {0, 0, 10, 10});
        return extentOf(drawn(emf.bytes(), kStage)).left();
    };
    EXPECT_EQ(file(-1), 20);
    EXPECT_EQ(file(-2), 10);
    EXPECT_EQ(file(1), 0);
    EXPECT_EQ(file(2), 10);
    EXPECT_EQ(file(7), 40);
}

TEST(MetafileFrame, HeaderFrameCutsAndPlacesThePicture) {
    EmfFile file(kStage);
    file.setFrame({50, 0, 50, 100}).fillWith(kRed).put(43, {0, 0, 75, 100});
    EXPECT_EQ(extentOf(drawn(file.bytes(), {50, 100})), QRect(0, 0, 25, 100));
    const auto picture = MetafilePicture::fromBytes(file.bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_NEAR(picture->naturalSize().width() / picture->naturalSize().height(), 0.5, 1e-9);
    EXPECT_NEAR(picture->naturalSize().height(), 100 / 25.4 * 96, 1e-6);
}

TEST(MetafileFrame, PlaceableHeaderGivesSizeAndWindow) {
    WmfFile file(QRect(100, 200, 1000, 500), 1000);
    file.fillWith(kRed).put(0x041B, {450, 600, 200, 100});
    const auto picture = MetafilePicture::fromBytes(file.bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->format(), MetafilePicture::Format::PlaceableWmf);
    EXPECT_EQ(picture->naturalSize(), QSizeF(96, 48));
    EXPECT_EQ(extentOf(drawn(file.bytes(), {100, 50})), QRect(0, 0, 50, 25));
}

TEST(MetafileFrame, WindowExtentsServeWithoutPlaceableHeader) {
    WmfFile file;
    file.put(0x020B, {0, 0}).put(0x020C, {-500, 1000}).fillWith(kRed);
    file.put(0x041B, {-500, 500, -250, 0});
    const auto picture = MetafilePicture::fromBytes(file.bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->format(), MetafilePicture::Format::Wmf);
    EXPECT_EQ(picture->naturalSize(), QSizeF(1000, 500));
    EXPECT_EQ(extentOf(drawn(file.bytes(), {100, 50})), QRect(0, 25, 50, 25));
}

TEST(MetafileFrame, RecordBoundsServeWithoutAnyOther) {
    WmfFile file;
    file.fillWith(kRed).put(0x041B, {60, 90, 20, 10});
    const auto picture = MetafilePicture::fromBytes(file.bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->naturalSize(), QSizeF(80, 40));
    EXPECT_EQ(extentOf(drawn(file.bytes(), {80, 40})), QRect(0, 0, 80, 40));
}

TEST(MetafileFrame, EverySizeShowsTheSamePicture) {
    EmfFile file(kStage);
    file.fillWith(kRed).put(42, {10, 10, 90, 60}).drawWith(QColor(0, 90, 0), 5);
    file.points16(87, {{10, 90}, {50, 70}, {90, 90}});
    const QImage small = drawn(file.bytes(), {86, 86});
    for (const int factor : {7, 20}) {
        const QImage large = drawn(file.bytes(), QSize(86, 86) * factor);
        double worst = 0;
        for (int y = 0; y < 86; ++y) {
            for (int x = 0; x < 86; ++x) {
                const double mean = coverage(large.copy(x * factor, y * factor, factor, factor)) /
                                    (factor * factor);
                worst = std::max(worst, std::abs(qAlpha(small.pixel(x, y)) / 255.0 - mean));
            }
        }
        // Where a line covers itself, at its corner, a small picture counts the edge twice.
        EXPECT_LT(worst, 0.3) << factor;
        EXPECT_NEAR(coverage(small), coverage(large) / (factor * factor), 0.01 * coverage(small));
    }
}

TEST(MetafileClips, RectanglesNestAndHolesStay) {
    EmfFile file(kStage);
    file.fillWith(kRed).put(33, {}).put(30, {10, 10, 90, 90}).put(30, {0, 0, 50, 100});
    file.put(29, {20, 20, 40, 40}).put(43, {0, 0, 100, 100}).put(34, {-1});
    const QImage image = drawn(file.bytes(), kStage);
    EXPECT_NEAR(coverage(image), 40 * 80 - 20 * 20, 0.01);
    EXPECT_EQ(pixelAt(image, 30, 30).alpha(), 0);

    file.put(43, {60, 0, 100, 5});
    EXPECT_NEAR(coverage(drawn(file.bytes(), kStage)), 40 * 80 - 20 * 20 + 40 * 5, 0.01);
}

TEST(MetafileClips, PathsClipByTheirMode) {
    const auto area = [](std::int64_t mode) {
        EmfFile file(kStage);
        file.fillWith(kRed).put(30, {0, 0, 60, 100}).put(59, {});
        file.points16(86, {{40, 0}, {100, 0}, {100, 100}, {40, 100}}).put(60, {});
        file.put(67, {mode}).put(43, {0, 0, 100, 100});
        return coverage(drawn(file.bytes(), kStage));
    };
    EXPECT_NEAR(area(1), 20 * 100, 0.01);
    EXPECT_NEAR(area(2), 100 * 100, 0.01);
    EXPECT_NEAR(area(3), 80 * 100, 0.01);
    EXPECT_NEAR(area(4), 40 * 100, 0.01);
    EXPECT_NEAR(area(5), 60 * 100, 0.01);
}

TEST(MetafileClips, RegionsMoveAndTheMetaRegionLasts) {
    const Bytes region =
        Bytes().u32(48).u32(5).u32(32).u32(1).u32(1).u32(16).zeros(16).i32(10).i32(10).i32(50).i32(
            50);
    EmfFile file(kStage);
    file.fillWith(kRed).record(75, region).put(26, {20, 0}).put(28, {}).put(75, {0, 5});
    file.put(43, {0, 0, 100, 100});
    EXPECT_EQ(extentOf(drawn(file.bytes(), kStage)), QRect(30, 10, 40, 40));
}

TEST(MetafileClips, WindowsRegionsAreSelectedAndPainted) {
    WmfFile file(QRect(0, 0, 100, 100));
    file.fillWith(kRed);
    // Two scans: rows 10 to 20 from 10 to 90, rows 20 to 90 from 40 to 60.
    Bytes region;
    region.zeros(10).u16(2).u16(2).zeros(8);
    region.u16(2).i16(10).i16(20).i16(10).i16(90).u16(2);
    region.u16(2).i16(20).i16(90).i16(40).i16(60).u16(2);
    file.record(0x06FF, region).put(0x012B, {2});
    EXPECT_NEAR(coverage(drawn(file.bytes(), kStage)), 80 * 10 + 20 * 70, 0.01);
}

}  // namespace
}  // namespace vellora
