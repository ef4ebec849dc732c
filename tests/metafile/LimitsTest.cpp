#include <QElapsedTimer>

#include <gtest/gtest.h>

#include "metafile/Limits.h"
#include "metafile/MetafileBytes.h"
#include "metafile/MetafilePicture.h"

namespace vellora {
namespace {

constexpr QSize kStage(100, 100);
const QColor kRed(200, 30, 40);

EmfFile redFile() {
    return EmfFile(kStage).fillWith(kRed);
}

QString reasonOf(const QByteArray& file) {
    QString reason;
    EXPECT_EQ(MetafilePicture::fromBytes(file, &reason), nullptr);
    return reason;
}

/// What stands before a broken record is drawn, and what stands behind it too when `goesOn`.
void expectSurvival(EmfFile file, bool goesOn) {
    file.put(43, {50, 0, 60, 10});
    const QImage image = drawn(file.bytes(), kStage);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(pixelAt(image, 5, 5), kRed);
    EXPECT_EQ(pixelAt(image, 55, 5).alpha(), goesOn ? 255 : 0);
}

TEST(MetafileLimits, ShortRecordsAreSkipped) {
    for (const std::uint32_t type : {42U, 45U, 81U, 82U, 84U, 86U, 91U, 95U, 114U, 118U}) {
        SCOPED_TRACE(type);
        expectSurvival(redFile().put(43, {0, 0, 10, 10}).put(type, {1}), true);
    }
}

TEST(MetafileLimits, SizesThatDoNotAdvanceEndTheFile) {
    for (const std::uint32_t size : {0U, 4U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EmfFile file = redFile().put(43, {0, 0, 10, 10});
        QByteArray bytes = file.put(43, {50, 0, 60, 10}).bytes();
        const qsizetype at = bytes.size() - 20 - 24 + 4;
        for (int i = 0; i < 4; ++i)
            bytes[at + i] = static_cast<char>(size >> (8 * i));
        const QImage image = drawn(bytes, kStage);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(pixelAt(image, 5, 5), kRed);
        EXPECT_EQ(pixelAt(image, 55, 5).alpha(), 0);
    }
    WmfFile wmf(QRect(0, 0, 100, 100));
    wmf.fillWith(kRed).put(0x041B, {10, 10, 0, 0});
    QByteArray bytes = wmf.put(0x041B, {10, 60, 0, 50}).bytes();
    bytes[bytes.size() - 6 - 14] = 2;
    EXPECT_NEAR(coverage(drawn(bytes, kStage)), 100, 0.01);
}

TEST(MetafileLimits, CountsBeyondTheRecordAreRefused) {
    for (const std::uint32_t type : {3U, 4U, 86U, 87U, 88U}) {
        const Bytes points = Bytes().zeros(16).u32(0x40000001).i32(1).i32(2).i32(3).i32(4);
        expectSurvival(redFile().put(43, {0, 0, 10, 10}).record(type, points), true);
    }
    for (const std::uint32_t type : {8U, 90U, 91U}) {
        const Bytes rings = Bytes().zeros(16).u32(0x40000000).u32(4).u32(0xFFFFFFFF).i32(3).i32(4);
        expectSurvival(redFile().put(43, {0, 0, 10, 10}).record(type, rings), true);
    }
    const Bytes mesh = Bytes().zeros(16).u32(0x10000000).u32(0x20000000).u32(2).zeros(32);
    expectSurvival(redFile().put(43, {0, 0, 10, 10}).record(118, mesh), true);
    const Bytes region = Bytes().u32(48).u32(5).u32(32).u32(1).u32(0x0FFFFFFF).zeros(40);
    EmfFile clipped = redFile().put(43, {0, 0, 10, 10}).put(33, {});
    expectSurvival(clipped.record(75, region).put(34, {-1}), true);
}

TEST(MetafileLimits, ObjectsOutsideTheTableAreIgnored) {
    EmfFile file = redFile().put(43, {0, 0, 10, 10});
    for (const std::int64_t handle : {0LL, 9'999LL, 0x7FFFFFFFLL, 0x800000FFLL})
        file.put(37, {handle}).put(40, {handle}).put(39, {handle, 0, 0, 0}).put(48, {handle});
    expectSurvival(file, true);
    WmfFile wmf(QRect(0, 0, 100, 100));
    wmf.fillWith(kRed).put(0x012D, {-1}).put(0x01F0, {900}).put(0x041B, {10, 10, 0, 0});
    EXPECT_EQ(pixelAt(drawn(wmf.bytes(), kStage), 5, 5), kRed);
}

TEST(MetafileLimits, SavesBeyondTheDeepestAreForgotten) {
    EmfFile file = redFile();
    for (int i = 0; i < 100'000; ++i)
        file.put(33, {});
    file.put(12, {40, 0}).put(34, {static_cast<std::int64_t>(metafile::kMaxSaves) + 1});
    file.put(43, {0, 0, 10, 10});
    EXPECT_EQ(pixelAt(drawn(file.bytes(), kStage), 45, 5), kRed);
    EXPECT_EQ(pixelAt(drawn(file.put(34, {static_cast<std::int64_t>(metafile::kMaxSaves)})
                                .put(43, {0, 0, 10, 10})
                                .bytes(),
                            kStage),
                      5, 5),
              kRed);
}

TEST(MetafileLimits, TooManyRecords) {
    QByteArray bytes = redFile().put(43, {0, 0, 10, 10}).bytes();
    bytes.chop(20);
    const QByteArray save = Bytes().u32(33).u32(8).bytes();
    bytes += save.repeated(metafile::kMaxRecords);
    EXPECT_EQ(reasonOf(bytes), QStringLiteral("the metafile holds too many records"));
}

TEST(MetafileLimits, TooMuchWork) {
    QElapsedTimer time;
    time.start();
    // Whole-frame fills, and a line of points that never ends.
    EmfFile fills = redFile();
    for (int i = 0; i < 20'000; ++i)
        fills.put(42, {0, 0, 100, 100});
    EXPECT_EQ(reasonOf(fills.bytes()), QStringLiteral("the metafile takes too much work to draw"));

    EmfFile lines(kStage);
    lines.drawWith(kRed, 3);
    Bytes points;
    points.zeros(16).u32(50'000);
    for (int i = 0; i < 50'000; ++i)
        points.i16(i * 7919 % 100).i16(i * 3571 % 100);
    for (int i = 0; i < 200; ++i)
        lines.record(87, points);
    EXPECT_EQ(reasonOf(lines.bytes()), QStringLiteral("the metafile takes too much work to draw"));
    EXPECT_LT(time.elapsed(), 30'000);
}

TEST(MetafileLimits, FarCoordinatesAndWidePensAreBounded) {
    EmfFile file(kStage);
    file.drawWith(kRed, 2'000'000'000).put(27, {-2'000'000'000, -2'000'000'000});
    file.put(54, {2'000'000'000, 2'000'000'000});
    QElapsedTimer time;
    time.start();
    EXPECT_NEAR(coverage(drawn(file.bytes(), kStage)), 10'000, 10);

    // A dotted line of two billion dots is drawn solid.
    EmfFile dots(kStage);
    dots.drawWith(kRed, 2, 2 | 0x0200).put(27, {0, 50}).put(54, {2'000'000'000, 50});
    EXPECT_NEAR(coverage(drawn(dots.bytes(), kStage)), 2 * 100, 1);

    EmfFile far = redFile();
    far.record(3, Bytes()
                      .zeros(16)
                      .u32(3)
                      .i32(-2'000'000'000)
                      .i32(50)
                      .i32(2'000'000'000)
                      .i32(-2'000'000'000)
                      .i32(2'000'000'000)
                      .i32(2'000'000'000));
    EXPECT_NEAR(coverage(drawn(far.bytes(), kStage)), 10'000, 150);
    EXPECT_LT(time.elapsed(), 5'000);
}

TEST(MetafileLimits, ClipsDeeperThanKeptTakeBoxes) {
    EmfFile file = redFile();
    for (int i = 0; i < 40; ++i) {
        file.put(59, {}).points16(86, {{10, 10}, {90, 10}, {90, 90}, {10, 90}, {10, 11}});
        file.put(60, {}).put(67, {1});
    }
    file.put(43, {0, 0, 100, 100});
    EXPECT_NEAR(coverage(drawn(file.bytes(), kStage)), 80 * 80, 2);
}

TEST(MetafileLimits, TransformsThatAreNoNumbersAreIgnored) {
    Bytes broken;
    for (const std::uint32_t bits : {0x7FC00000U, 0U, 0U, 0x7F800000U, 0U, 0xFF800000U})
        broken.u32(bits);
    expectSurvival(redFile().put(43, {0, 0, 10, 10}).record(35, broken), true);
}

TEST(MetafileLimits, FilesThatAreNoneSayWhy) {
    EXPECT_EQ(reasonOf({}), QStringLiteral("not a metafile"));
    EXPECT_EQ(reasonOf(QByteArray(4'000, 'x')), QStringLiteral("not a metafile"));
    EXPECT_EQ(reasonOf(EmfFile(kStage).bytes()), QStringLiteral("the metafile draws nothing"));
    EmfFile plus(kStage);
    plus.record(70, Bytes().u32(16).u32(0x2B464D45).u32(0x00014001).zeros(8));
    EXPECT_EQ(reasonOf(plus.bytes()), QStringLiteral("the metafile holds GDI+ records only"));
    plus.fillWith(kRed).put(43, {0, 0, 10, 10});
    EXPECT_EQ(pixelAt(drawn(plus.bytes(), kStage), 5, 5), kRed);
}

}  // namespace
}  // namespace vellora
