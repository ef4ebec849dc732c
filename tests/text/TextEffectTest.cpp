#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <limits>

#include <gtest/gtest.h>

#include <vellora/text/PhotoTextEffect.h>

#include "text/EffectLayers.h"
#include "text/TextBrush.h"

namespace vellora {
namespace {

constexpr COLORREF kRed = 0x0000FF;
constexpr COLORREF kGreen = 0x00FF00;
constexpr COLORREF kBlue = 0xFF0000;
constexpr COLORREF kYellow = 0x00FFFF;
const QRgb kGround = qRgb(10, 20, 30);

TextBrushSettings gradient(COLORREF first, COLORREF second) {
    TextBrushSettings brush;
    brush.type = kGradientBrush;
    brush.colour1 = first;
    brush.colour2 = second;
    return brush;
}

TextBrushSettings texture(const QString& name = {}) {
    TextBrushSettings brush;
    brush.type = kTextureBrush;
    brush.SetTextureName(name);
    return brush;
}

/// Draws effects of a "text" that is the rectangle from (100, 100) to (200, 150), with bounds from
/// (50, 50) to (250, 200), at two pixels a unit. Its face is not painted, so that all else shows.
struct EffectLayersTest : testing::Test {
    TextEffectRecord effect;
    QImage picture{600, 500, QImage::Format_RGB32};

    void SetUp() override { effect.face = texture(); }

    void draw() {
        picture.fill(kGround);
        QPainter painter(&picture);
        painter.scale(2, 2);
        QPainterPath outline;
        outline.setFillRule(Qt::WindingFill);
        outline.addRect(100, 100, 100, 50);
        TextCanvas canvas(painter);
        drawEffectLayers(canvas, {}, outline, QRectF(50, 50, 200, 150), effect);
        canvas.paint();
    }
    QRgb at(double x, double y) {
        return picture.pixel(static_cast<int>(2 * x), static_cast<int>(2 * y));
    }
    bool isBare(double x, double y) { return at(x, y) == kGround; }
};

QRgb rgb(COLORREF colour) {
    return qRgb(redOf(colour), greenOf(colour), blueOf(colour));
}

struct Direction {
    int angle;
    int dx, dy;
};
constexpr Direction kDirections[] = {{0, 1, 0},    {45, 1, 1},    {90, 0, 1},   {135, -1, 1},
                                     {180, -1, 0}, {225, -1, -1}, {270, 0, -1}, {315, 1, -1}};

TEST_F(EffectLayersTest, ASharpShadowFallsInEachDirection) {
    effect.shadow = 1;
    effect.shadow_order = 1;
    effect.shadow_offset = 4;
    effect.shadow_brush = TextBrushSettings::Solid(kRed);
    std::vector<Direction> directions(std::begin(kDirections), std::end(kDirections));
    directions.push_back({30, 1, 1});  // any other angle
    directions.push_back({-45, 1, 1});
    directions.push_back({360, 1, 1});
    for (const auto& [angle, dx, dy] : directions) {
        effect.shadow_angle = angle;
        draw();
        const double x = 100 + 4 * dx;
        const double y = 100 + 4 * dy;
        EXPECT_EQ(at(x, y), rgb(kRed)) << angle;
        EXPECT_TRUE(isBare(x - 0.5, y) && isBare(x, y - 0.5)) << angle;
        EXPECT_EQ(at(x + 99.5, y + 49.5), rgb(kRed)) << angle;
        EXPECT_TRUE(isBare(x + 100, y + 49) && isBare(x + 99, y + 50)) << angle;
    }
}

TEST_F(EffectLayersTest, AnExtrusionReachesInEachDirection) {
    effect.emboss = 1;
    effect.emboss_size = 3;
    effect.emboss_brush = TextBrushSettings::Solid(kGreen);
    std::vector<Direction> directions(std::begin(kDirections), std::end(kDirections));
    directions.push_back({30, 0, 0});  // any other angle stays in place
    for (const auto& [angle, dx, dy] : directions) {
        effect.emboss_angle = angle;
        draw();
        // A pen of 2 along the left edge, moved by 1 to 3 units.
        const double low = 100 + std::min(dx, 3 * dx) - 1;
        const double high = 100 + std::max(dx, 3 * dx) + 1;
        EXPECT_EQ(at(low, 125), rgb(kGreen)) << angle;
        EXPECT_TRUE(isBare(low - 0.5, 125)) << angle;
        EXPECT_EQ(at(high - 0.5, 125), rgb(kGreen)) << angle;
        EXPECT_TRUE(isBare(high, 125)) << angle;
        const double top = 100 + std::min(dy, 3 * dy) - 1;
        EXPECT_EQ(at(150, top), rgb(kGreen)) << angle;
        EXPECT_TRUE(isBare(150, top - 0.5)) << angle;
        EXPECT_TRUE(isBare(150, 125)) << "only the outline is extruded";
    }
}

TEST_F(EffectLayersTest, ABorderNeedsAHaloOrAnExtrusion) {
    effect.border = 1;
    effect.border_size = 6;
    effect.border_brush = TextBrushSettings::Solid(kBlue);
    effect.shadow = 1;
    effect.shadow_order = 1;
    effect.shadow_brush = TextBrushSettings::Solid(kRed);
    draw();
    EXPECT_TRUE(isBare(98, 125)) << "the shadow's painter has no border";
    EXPECT_EQ(at(101, 125), rgb(kRed));
    effect.shadow = 0;
    effect.halo = 1;
    effect.halo_size = 1;
    effect.halo_brush = TextBrushSettings::Solid(kYellow);
    draw();
    EXPECT_TRUE(isBare(96.5, 125));
    EXPECT_EQ(at(97, 125), rgb(kBlue));
    EXPECT_EQ(at(102.5, 125), rgb(kBlue)) << "the border lies over the halo";
    EXPECT_EQ(at(103, 125), rgb(kYellow)) << "a halo without blur fills the text";
    EXPECT_TRUE(isBare(97, 97)) << "corners are round";
    effect.halo_size = 0;
    draw();
    EXPECT_TRUE(isBare(97, 125)) << "a halo without size draws no border either";
}

TEST_F(EffectLayersTest, AWidenedOutlineFeedsHaloAndSecondBorder) {
    effect.border = 1;
    effect.border_size = 6;
    effect.border_brush = TextBrushSettings::Solid(kBlue);
    effect.emboss = 1;  // of size 0: it only widens
    effect.halo = 1;
    effect.halo_size = 1;
    effect.halo_brush = TextBrushSettings::Solid(kYellow);
    draw();
    EXPECT_TRUE(isBare(95.5, 125));
    EXPECT_EQ(at(96, 125), rgb(kBlue)) << "3 outside the outline widened by 1";
    EXPECT_EQ(at(103.5, 125), rgb(kBlue));
    EXPECT_TRUE(isBare(104, 125)) << "what is filled is the line, not the text";
    effect.border_size = 1;
    draw();
    // A thin border runs along both sides of the widened outline, the halo shows between them.
    EXPECT_EQ(at(98.5, 125), rgb(kBlue));
    EXPECT_EQ(at(99, 125), rgb(kBlue));
    EXPECT_EQ(at(99.5, 125), rgb(kYellow));
    EXPECT_EQ(at(100, 125), rgb(kYellow));
    EXPECT_EQ(at(100.5, 125), rgb(kBlue));
    EXPECT_TRUE(isBare(98, 125) && isBare(101.5, 125));
    effect.face = TextBrushSettings::Solid(kRed);
    draw();
    EXPECT_EQ(at(100, 125), rgb(kRed)) << "the face is never widened";
    EXPECT_EQ(at(99.5, 125), rgb(kYellow));
}

TEST_F(EffectLayersTest, LayersLieInOrder) {
    effect.shadow = 1;
    effect.shadow_brush = TextBrushSettings::Solid(kRed);
    effect.emboss = 1;
    effect.emboss_size = 20;
    effect.emboss_angle = 0;
    effect.emboss_brush = TextBrushSettings::Solid(kGreen);
    draw();
    EXPECT_EQ(at(210, 125), rgb(kGreen)) << "the soft shadow lies beneath the extrusion";
    EXPECT_EQ(at(190, 125), rgb(kRed));
    effect.shadow_order = 1;
    effect.shadow_offset = 20;
    draw();
    EXPECT_EQ(at(210, 125), rgb(kRed)) << "the sharp one lies over it";
    effect.halo = 1;
    effect.halo_size = 30;
    effect.halo_blur = 2;
    effect.halo_brush = TextBrushSettings::Solid(kYellow);
    draw();
    EXPECT_EQ(at(210, 125), rgb(kRed)) << "and over the halo";
    EXPECT_EQ(at(110, 125), rgb(kYellow)) << "which lies over the extrusion";
    effect.shadow_order = 0;
    draw();
    EXPECT_EQ(at(210, 125), rgb(kYellow));
    effect.face = TextBrushSettings::Solid(kBlue);
    draw();
    EXPECT_EQ(at(150, 125), rgb(kBlue));
}

TEST_F(EffectLayersTest, TheSoftShadowIsAGlowOfTwoThroughAFifth) {
    effect.shadow = 1;
    effect.shadow_offset = 10;
    effect.shadow_angle = 0;
    effect.shadow_brush = TextBrushSettings::Solid(kRed);
    draw();
    EXPECT_EQ(at(160, 125), rgb(kRed));
    // The grown edge at 108 lies 2/5 inside the sample from 105 to 110: the slope passes half
    // way near it and is over a sample and a half farther.
    EXPECT_NEAR(qRed(at(108, 125)), 128, 50);
    EXPECT_NEAR(qRed(at(99, 125)), qRed(kGround), 12);
    EXPECT_GT(qRed(at(113, 125)), 230);
}

TEST_F(EffectLayersTest, TexturesAreOnlyForFaces) {
    effect.border = 1;
    effect.border_size = 6;
    effect.border_brush = texture("any.png");
    effect.emboss = 1;
    effect.emboss_size = 5;
    effect.emboss_angle = 0;
    effect.emboss_brush = TextBrushSettings::Solid(kGreen);
    effect.halo = 1;
    effect.halo_size = 3;
    effect.halo_blur = 2;
    effect.halo_brush = texture("any.png");
    draw();
    EXPECT_TRUE(isBare(94, 125)) << "a border of texture is not drawn";
    EXPECT_EQ(at(150, 125), rgb(kGreen)) << "the painter keeps the brush of the layer before";
    effect = {};
    effect.face = texture();
    effect.shadow = 1;
    effect.shadow_order = 1;
    effect.shadow_brush = texture("any.png");
    draw();
    EXPECT_EQ(at(150, 125), qRgb(255, 255, 255));
}

TEST_F(EffectLayersTest, GradientsRunOverTheBounds) {
    effect.halo = 1;
    effect.halo_size = 1;
    effect.halo_brush = gradient(0x000000, 0x0000FF);
    draw();
    EXPECT_NEAR(qRed(at(100, 125)), 255 * 50 / 200, 3);
    EXPECT_NEAR(qRed(at(199, 125)), 255 * 149 / 200, 3);
    effect.border = 1;
    effect.border_size = 4;
    effect.border_brush = gradient(0x000000, 0x00FF00);
    effect.border_brush.position_percent = 50;  // has no effect on a border
    draw();
    EXPECT_NEAR(qGreen(at(150, 99)), 128, 3);
    EXPECT_NEAR(qGreen(at(120, 99)), 255 * 70 / 200, 3);
}

TEST_F(EffectLayersTest, AnyNumberDraws) {
    constexpr std::int32_t kExtremes[] = {std::numeric_limits<std::int32_t>::min(), -1, 10'000,
                                          std::numeric_limits<std::int32_t>::max()};
    effect.shadow = effect.border = effect.halo = effect.emboss = 1;
    effect.face = gradient(kRed, kBlue);
    effect.halo_brush = effect.border_brush = effect.emboss_brush = effect.shadow_brush =
        gradient(kBlue, kGreen);
    QElapsedTimer timer;
    timer.start();
    for (const std::int32_t size : kExtremes) {
        for (const std::int32_t angle : {0, 135, 225, kExtremes[0]}) {
            for (const std::int32_t order : {0, 1}) {
                effect.shadow_offset = effect.border_size = effect.halo_size = size;
                effect.emboss_size = size;
                effect.shadow_angle = effect.emboss_angle = angle;
                effect.face.angle = effect.halo_brush.angle = angle;
                effect.face.position_percent = effect.halo_brush.position_percent = size;
                effect.shadow_order = order;
                effect.halo_blur = angle == 0 ? 1 : size;
                draw();
            }
        }
    }
    EXPECT_LT(timer.elapsed(), 20'000);
}

/// A painter that turns shows the same text, turned.
TEST(PhotoTextEffect, DrawsOnPaintersThatTurn) {
    const QFont font = CPhotoTextEffect::LayoutFont("Arial", true, false, false);
    TextEffectRecord effect;
    effect.face = TextBrushSettings::Solid(0xFFFFFF);
    const auto ink = [&](double degrees) {
        QImage picture(300, 300, QImage::Format_RGB32);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.translate(150, 150);
        painter.rotate(degrees);
        painter.scale(0.3, 0.3);
        CPhotoTextEffect::Draw(painter, {}, font, {0, 0}, "Turn", effect);
        painter.end();
        double sum = 0;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 300; ++x) {
                sum += qGreen(picture.pixel(x, y));
            }
        }
        return sum / 255;
    };
    EXPECT_GT(ink(0), 500);
    EXPECT_NEAR(ink(90), ink(0), ink(0) * 0.03);
    EXPECT_NEAR(ink(217), ink(0), ink(0) * 0.03);
}

}  // namespace
}  // namespace vellora
