#include <QElapsedTimer>
#include <QPainter>
#include <random>

#include <gtest/gtest.h>

#include "metafile/MetafileBytes.h"
#include "metafile/MetafilePicture.h"
#include "support/Mutation.h"
#include "writer/Writers.h"

namespace vellora {
namespace {

using test::mutate;
using test::mutationCount;

/// Small files that hold every kind of record a clip is likely to hold.
std::vector<QByteArray> samples(bool enhanced) {
    clipgen::Drawing drawing(QSizeF(120, 90));
    QPainterPath path;
    path.addEllipse(QRectF(10, 10, 60, 50));
    path.addRoundedRect(QRectF(40, 30, 70, 50), 8, 8);
    drawing.paint(path, QColor(240, 200, 40), {QColor(60, 20, 0), 3});
    drawing.outline(path, {QColor(0, 90, 160), 2, clipgen::Line::Dashes::Dash});
    drawing.text({.text = QStringLiteral("Ab"), .at = {20, 60}, .size = 30, .angle = 20});
    QImage image(5, 4, QImage::Format_RGB32);
    image.fill(QColor(10, 120, 60));
    drawing.picture(image, QRectF(5, 5, 30, 30));
    if (!enhanced) {
        WmfFile small;
        small.put(0x020C, {100, 100}).drawWith(QColor(Qt::red), 3, 1).put(0x001E, {});
        small.put(0x0416, {90, 90, 5, 5}).put(0x061C, {20, 20, 80, 90, 10, 10});
        small.put(0x0817, {10, 50, 50, 90, 90, 90, 10, 10}).put(0x0127, {-1});
        Bytes region;
        region.zeros(10).u16(1).u16(2).zeros(8).u16(2).i16(10).i16(20).i16(10).i16(90).u16(2);
        small.record(0x06FF, region).put(0x012B, {2});
        return {writeWmf(drawing), small.bytes()};
    }
    EmfFile small(QSize(100, 100));
    small.drawWith(QColor(Qt::red), 3, 0x2201).put(33, {}).put(30, {5, 5, 90, 90}).put(59, {});
    small.points16(85, {{10, 50}, {10, 10}, {90, 10}, {90, 50}}).put(61, {}).put(60, {});
    small.put(63, {0, 0, 0, 0}).put(47, {10, 10, 90, 90, 90, 50, 50, 10}).put(34, {-1});
    Bytes fill;
    fill.zeros(16).u32(2).u32(1).u32(0).i32(0).i32(0).u32(0).u32(0).i32(50).i32(50).u32(0xFF00);
    small.record(118, fill.u32(0).u32(0).u32(1));
    small.record(
        75,
        Bytes().u32(48).u32(3).u32(32).u32(1).u32(1).u32(16).zeros(16).i32(10).i32(10).i32(50).i32(
            50));
    small.put(43, {0, 0, 100, 100});
    return {writeEmf(drawing), small.bytes()};
}

void playMutations(bool enhanced) {
    constexpr qint64 longest = 10'000;
    const std::vector<QByteArray> files = samples(enhanced);
    for (const QByteArray& file : files)
        ASSERT_NE(MetafilePicture::fromBytes(file), nullptr);
    QImage image(120, 90, QImage::Format_ARGB32_Premultiplied);
    int drawable = 0;
    for (int seed = 0; seed < mutationCount(); ++seed) {
        std::mt19937 random(static_cast<unsigned>(seed));
        QByteArray bytes = files[static_cast<std::size_t>(seed) % files.size()];
        mutate(bytes, random);
        QElapsedTimer time;
        time.start();
        if (const auto picture = MetafilePicture::fromBytes(bytes)) {
            image.fill(Qt::transparent);
            QPainter painter(&image);
            picture->draw(painter, QRectF(image.rect()));
            ++drawable;
        }
        ASSERT_LT(time.elapsed(), longest) << "seed " << seed;
    }
    EXPECT_GT(drawable, mutationCount() / 4);
}

TEST(MetafileMutations, WindowsMetafilesSurvive) {
    playMutations(false);
}

TEST(MetafileMutations, EnhancedMetafilesSurvive) {
    playMutations(true);
}

}  // namespace
}  // namespace vellora
