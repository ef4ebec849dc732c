#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

#include <gtest/gtest.h>

#include "metafile/MetafileBytes.h"
#include "writer/Writers.h"

namespace vellora {
namespace {

constexpr QSize kPicture(240, 180);

clipgen::Drawing sample() {
    clipgen::Drawing drawing(kPicture);
    QPainterPath star;
    star.moveTo(60, 10);
    for (const QPointF point :
         {QPointF(90, 100), QPointF(15, 45), QPointF(105, 45), QPointF(30, 100)})
        star.lineTo(point);
    star.closeSubpath();
    star.setFillRule(Qt::WindingFill);
    drawing.paint(star, QColor(250, 200, 30), {QColor(120, 60, 0), 4});
    QPainterPath ring;
    ring.addEllipse(QPointF(175, 60), 45, 45);
    ring.addEllipse(QPointF(175, 60), 20, 25);
    drawing.fill(ring, QColor(40, 90, 200));
    QPainterPath bow(QPointF(15, 165));
    bow.cubicTo(60, 90, 120, 190, 225, 120);
    drawing.outline(bow, {QColor(180, 20, 60), 7});
    QPainterPath dashed(QPointF(15, 120));
    dashed.lineTo(225, 150);
    drawing.outline(dashed, {QColor(20, 20, 20), 3, clipgen::Line::Dashes::Dash});
    QPainterPath box;
    box.addRoundedRect(QRectF(130, 125, 60, 40), 12, 12);
    drawing.bands(box, {130, 125}, {190, 165}, {QColor(0, 120, 90), QColor(220, 255, 230)}, 8);
    QImage chequered(4, 4, QImage::Format_RGB32);
    for (int i = 0; i < 16; ++i)
        chequered.setPixelColor(i % 4, i / 4, (i + i / 4) % 2 == 0 ? Qt::black : Qt::white);
    drawing.picture(chequered.scaled(40, 40), QRectF(195, 5, 40, 40));
    return drawing;
}

QImage ofSvg(const clipgen::Drawing& drawing) {
    QSvgRenderer renderer(writeSvg(drawing));
    QImage image(kPicture, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

/// The mean difference of all channels, 0 to 1, and the share of pixels that differ clearly.
struct Difference {
    double mean = 0;
    double share = 0;
};

Difference between(const QImage& a, const QImage& b) {
    Difference difference;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            const int worst =
                std::max({std::abs(qAlpha(p) - qAlpha(q)), std::abs(qRed(p) - qRed(q)),
                          std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            difference.mean += worst / 255.0;
            difference.share += worst > 96 ? 1 : 0;
        }
    }
    const double pixels = static_cast<double>(a.width()) * a.height();
    return {difference.mean / pixels, difference.share / pixels};
}

TEST(MetafileFormats, OneDrawingLooksTheSameInThreeFormats) {
    const clipgen::Drawing drawing = sample();
    const QImage wmf = drawn(writeWmf(drawing), kPicture);
    const QImage emf = drawn(writeEmf(drawing), kPicture);
    const QImage svg = ofSvg(drawing);
    ASSERT_FALSE(wmf.isNull());
    ASSERT_FALSE(emf.isNull());
    ASSERT_GT(coverage(svg), 0.3 * kPicture.width() * kPicture.height());
    for (const auto& [a, b] :
         {std::pair(&wmf, &emf), std::pair(&wmf, &svg), std::pair(&emf, &svg)}) {
        const Difference difference = between(*a, *b);
        EXPECT_LT(difference.mean, 0.012);
        EXPECT_LT(difference.share, 0.003);
    }
}

TEST(MetafileFormats, TextHasTheSameSizeAndPlaceInThreeFormats) {
    clipgen::Drawing drawing(kPicture);
    drawing.text({.text = QStringLiteral("Summer"),
                  .at = {120, 110},
                  .centred = true,
                  .face = QStringLiteral("Liberation Sans"),
                  .size = 48,
                  .bold = true,
                  .angle = 12,
                  .color = QColor(150, 30, 90)});
    const QImage wmf = drawn(writeWmf(drawing), kPicture);
    const QImage emf = drawn(writeEmf(drawing), kPicture);
    const QImage svg = ofSvg(drawing);
    ASSERT_GT(coverage(svg), 2'000);
    EXPECT_LT(between(wmf, emf).share, 0.001);
    EXPECT_LT(between(wmf, svg).share, 0.02);
    EXPECT_NEAR(coverage(emf), coverage(svg), 0.04 * coverage(svg));
}

}  // namespace
}  // namespace vellora
