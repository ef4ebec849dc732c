#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <limits>

#include <gtest/gtest.h>

#include <vellora/base/HostText.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/text/EffectCatalogue.h>
#include <vellora/text/PhotoTextEffect.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

const QString kAssets = QStringLiteral(VELLORA_ASSETS_DIR);

TextStyle styleOfSize(std::int32_t size) {
    TextStyle style;
    style.size = style.effect.font_size = size;
    return style;
}

/// Draws the text on a grey canvas of that width.
QImage drawn(CDVDImageText& text, int width, int mode = kDrawPlain, QPoint offset = {}) {
    QImage canvas(width, width * 3 / 4, QImage::Format_RGB32);
    canvas.fill(qRgb(100, 100, 100));
    QPainter painter(&canvas);
    text.SetCanvasSize(canvas.width(), canvas.height());
    EXPECT_EQ(text.Draw(painter, offset, mode), 1);
    EXPECT_TRUE(painter.transform().isIdentity());
    EXPECT_FALSE(painter.hasClipping());
    return canvas;
}

QRect inkOf(const QImage& canvas) {
    QRect ink;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            if (canvas.pixel(x, y) != qRgb(100, 100, 100)) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

struct DVDImageTextTest : testing::Test {
    CDVDAlbumImage owner;
    CDVDImageText text{&owner, kAssets};
};

TEST_F(DVDImageTextTest, StartsAsWhiteArialWithAShadow) {
    EXPECT_EQ(text.GetKind(), kTextSprite);
    EXPECT_EQ(text.GetName(), kAssets);
    EXPECT_EQ(text.GetSize(), QSize(100, 40));
    const TextStyle& style = text.GetStyle();
    EXPECT_EQ(style.GetFont(), "Arial");
    EXPECT_EQ(style.colour, 0xFFFFFFU);
    EXPECT_EQ(style.size, 24);
    EXPECT_EQ(style.shadow, 1);
    EXPECT_EQ(style.shadow_colour, 0U);
    EXPECT_EQ(style.shadow_x, 2);
    EXPECT_EQ(style.shadow_y, 2);
    EXPECT_EQ(style.align + style.bold + style.italic + style.underline, 0);
    EXPECT_EQ(style.effect.GetFontName(), "Arial");
    EXPECT_EQ(style.effect.font_size, 24);
    EXPECT_EQ(style.effect.face, TextBrushSettings::Solid(0xFFFFFF));
    EXPECT_EQ(style.effect.shadow + style.effect.border + style.effect.halo + style.effect.emboss,
              0);
}

TEST_F(DVDImageTextTest, OnlyARealChangeOfStyleMarksTheOwner) {
    TextStyle style = text.GetStyle();
    text.SetStyle(style);
    style.SetFont("ARIAL");
    text.SetStyle(style);
    EXPECT_FALSE(owner.IsChanged()) << "the letter case of the font is no change";
    text.SetText("typed");
    EXPECT_FALSE(owner.IsChanged());
    style.SetFont("Georgia");
    style.size = 48;
    text.SetStyle(style);
    EXPECT_TRUE(owner.IsChanged());
    EXPECT_EQ(text.GetStyle().effect.GetFontName(), "Georgia");
    EXPECT_EQ(text.GetStyle().effect.font_size, 48);

    CDVDAlbumImage second;
    text.SetOwner(&second);
    text.SetStyle(style);
    EXPECT_FALSE(second.IsChanged()) << "the same style once more";
    style.effect.halo = 1;
    text.SetStyle(style);
    EXPECT_TRUE(second.IsChanged());
}

TEST_F(DVDImageTextTest, MeasuresTheShownTextAtTheEffectsSize) {
    text.SetText("Summer");
    const QSizeF layout = CPhotoTextEffect::Measure(
        CPhotoTextEffect::LayoutFont("Arial", false, false, false), "Summer");
    EXPECT_EQ(text.GetSize(), QSize(static_cast<int>(layout.width() * 0.2),
                                    static_cast<int>(layout.height() * 0.2)));
    text.SetStyle(styleOfSize(240));
    EXPECT_EQ(text.GetSize(),
              QSize(static_cast<int>(layout.width() * 2), static_cast<int>(layout.height() * 2)));
    text.SetDisplayText("Sum");
    EXPECT_LT(text.GetSize().width(), layout.width() * 2 - 100);
    EXPECT_EQ(text.GetText(), "Summer");
    text.SetDisplayText({});
    EXPECT_EQ(text.GetSize().width(), static_cast<int>(layout.width() * 2));
    TextStyle bold = text.GetStyle();
    bold.bold = 1;
    text.SetStyle(bold);
    EXPECT_GT(text.GetSize().width(), layout.width() * 2);
    text.SetText({});
    EXPECT_EQ(text.GetSize(), QSize(100, 40)) << "an emptied text can still be taken hold of";
}

TEST_F(DVDImageTextTest, ComparesTextAndStyle) {
    text.SetText("Day");
    text.SetDisplayText("shown");
    text.SetPosition(30, 40);
    const CDVDImageText copy(text);
    EXPECT_TRUE(copy.IsEqual(text));
    EXPECT_EQ(copy.GetDisplayText(), "shown");
    EXPECT_EQ(copy.GetName(), kAssets);
    EXPECT_EQ(copy.GetSize(), text.GetSize());
    text.SetText("day");
    EXPECT_TRUE(copy.IsNotEqual(text));
    text.SetText("Day");
    text.SetDisplayText("another");
    EXPECT_TRUE(copy.IsEqual(text));
    TextStyle style = text.GetStyle();
    style.effect.emboss_angle = 45;
    text.SetStyle(style);
    EXPECT_FALSE(copy.IsEqual(text));
    EXPECT_TRUE(static_cast<const CDVDImageSprite&>(copy).IsEqual(text)) << "same place and kind";
}

TEST_F(DVDImageTextTest, IsHitFromItsShadowsOriginOn) {
    text.SetText("Day");
    text.SetPosition(50, 60);
    const QSize size = text.GetSize();
    EXPECT_EQ(text.GetTextOrigin(), QPoint(52, 62));
    EXPECT_TRUE(text.ContainsPoint({50, 60}));
    EXPECT_FALSE(text.ContainsPoint({50 + size.width(), 60}));
    TextStyle style = text.GetStyle();
    style.shadow_x = -7;
    text.SetStyle(style);
    EXPECT_TRUE(text.ContainsPoint({43, 60}));
    EXPECT_FALSE(text.ContainsPoint({42, 60}));
    EXPECT_FALSE(text.ContainsPoint({43 + size.width(), 60})) << "the size stays";
    style.shadow = 0;
    text.SetStyle(style);
    EXPECT_EQ(text.GetTextOrigin(), QPoint(50, 60));
    style.shadow = 1;
    style.shadow_x = std::numeric_limits<std::int32_t>::max();
    style.shadow_y = std::numeric_limits<std::int32_t>::min();
    text.SetStyle(style);
    EXPECT_FALSE(text.ContainsPoint({0, 0}));
}

TEST_F(DVDImageTextTest, DropsWhatNoFileCanHold) {
    text.SetText(QString("a") + QChar(1) + "b\t\n" + QChar(0xD800) + "c" + QChar(0xFFFF) +
                 QString::fromUtf8("\U0001F600"));
    EXPECT_EQ(text.GetText(), QString::fromUtf8("ab\t\nc\U0001F600"));
}

TEST_F(DVDImageTextTest, DrawsWhereItStands) {
    text.SetText("HHHH");
    text.SetPosition(60, 90);
    const QRect ink = inkOf(drawn(text, 600));
    const QRect box(QPoint(60, 90), text.GetSize());
    EXPECT_TRUE(box.contains(ink));
    EXPECT_NEAR(ink.left(), 60 + 32.0 / 6 + 2, 2) << "a sixth of the em, and the side bearing";
    const QRect twice = inkOf(drawn(text, 1200));
    EXPECT_NEAR(twice.left(), 2 * ink.left(), 2);
    EXPECT_NEAR(twice.bottom(), 2 * ink.bottom(), 2);
    const QRect moved = inkOf(drawn(text, 600, kDrawPlain, {-20, 10}));
    EXPECT_EQ(moved, ink.translated(-20, 10));
}

TEST_F(DVDImageTextTest, KeepsItsShapeAtEverySize) {
    text.SetText("Summer\n2026");
    text.SetPosition(33, 21);
    for (const auto& entry : LoadEffectCatalogue(kAssets)) {
        TextStyle style;
        style.TakeEffect(entry.effect);
        style.size = style.effect.font_size = 60;
        text.SetStyle(style);
        const QImage small = drawn(text, 600);
        const QImage large =
            drawn(text, 2400).scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        double sum = 0;
        int covered = 1;
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width(); ++x) {
                const int a = qGreen(small.pixel(x, y));
                const int b = qGreen(large.pixel(x, y));
                covered += a != 100 || b != 100 ? 1 : 0;
                sum += std::abs(a - b);
            }
        }
        EXPECT_LT(sum / covered, 6.0) << entry.name.toStdString();
    }
}

TEST_F(DVDImageTextTest, CutsLayersAtItsRoom) {
    text.SetText("HH");
    text.SetPosition(100, 100);
    TextStyle style = styleOfSize(48);
    style.effect.emboss = 1;
    style.effect.emboss_size = 2000;
    for (const std::int32_t angle : {0, 90, 180, 270}) {
        style.effect.emboss_angle = angle;
        text.SetStyle(style);
        const QRect ink = inkOf(drawn(text, 600));
        const QSize size = text.GetSize();
        EXPECT_GE(ink.left(), 100);
        EXPECT_GE(ink.top(), 100);
        EXPECT_LE(ink.right(), 100 + size.width() * 1.2 + 1);
        EXPECT_LE(ink.bottom(), 100 + size.height() * 1.2 + 1);
        if (angle == 0) {
            EXPECT_NEAR(ink.right(), 100 + size.width() * 1.2, 2);
        }
    }
}

TEST_F(DVDImageTextTest, MarksASelectedText) {
    text.SetText("HHHH");
    text.SetPosition(100, 100);
    const QSize size = text.GetSize();
    const auto handleColour = [&](const QImage& canvas, QPoint at) {
        return canvas.pixelColor(at).blue() > 200;
    };
    const QImage preview = drawn(text, 600, kDrawSelected);
    EXPECT_TRUE(handleColour(preview, {100, 100}));
    EXPECT_TRUE(handleColour(preview, {100 + size.width(), 100 + size.height()}));
    // On a larger canvas the handles stay at the points of the design space.
    const QImage output = drawn(text, 1200, kDrawSelectedToo);
    EXPECT_TRUE(handleColour(output, {100, 100}));
    EXPECT_FALSE(handleColour(output, {200, 200}));
    bool isOutlined = false;
    for (int y = 220; y < 250; ++y) {
        isOutlined = isOutlined || output.pixelColor(200, y).red() < 60;
    }
    EXPECT_TRUE(isOutlined) << "the dashes of the outline are scaled";
}

TEST_F(DVDImageTextTest, DrawsHostileSizesInBoundedTime) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    TextStyle style;
    TextEffectRecord& effect = style.effect;
    effect.emboss = effect.halo = effect.border = effect.shadow = 1;
    effect.emboss_angle = 45;
    effect.border_size = 9;
    QElapsedTimer timer;
    timer.start();
    for (const QString& typed : {QString("A"), QString("Wide text\n").repeated(30)}) {
        text.SetText(typed);
        for (const std::int32_t size : {100'000, 1, 3000, 0, -24, kMost, -kMost - 1}) {
            for (const std::int32_t layer : {10'000, kMost, -kMost - 1}) {
                style.size = effect.font_size = size;
                effect.emboss_size = effect.halo_size = layer;
                effect.halo_blur = layer == 10'000 ? 1 : layer;
                effect.shadow_offset = layer;
                text.SetStyle(style);
                text.SetPosition(size < 0 ? layer : -3, layer < 0 ? layer : 5);
                drawn(text, 1200);
                EXPECT_GE(text.GetSize().width(), size < 0 ? -kMost - 1 : 0);
            }
        }
    }
    text.SetPosition(0, 0);
    text.SetText(QString("every glyph of it shows ").repeated(400));
    style = styleOfSize(1);
    text.SetStyle(style);
    drawn(text, 1200);
    EXPECT_LT(timer.elapsed(), 60'000) << "seconds on an idle machine, hours without bounds";
}

struct TextInPhotoTest : testing::Test {
    std::unique_ptr<_PHOTO_LIST_NODE> photo = test::record("/photos/Trip/beach.jpg");
    CDVDImage record;

    void SetUp() override { record.BindNode(photo.get(), nullptr); }
};

TEST_F(TextInPhotoTest, ComposingExpandsMacros) {
    auto* text = new CDVDImageText(nullptr);
    text->SetText("$[f] $[p]/$[P]");
    record.AddSprite(text, false);
    QImage canvas(600, 450, QImage::Format_RGB32);
    canvas.fill(Qt::black);
    record.SetCanvasSize(600, 450);
    QPainter painter(&canvas);
    record.DrawSprites(painter);
    EXPECT_EQ(text->GetDisplayText(), "beach 1/0");
    EXPECT_EQ(text->GetText(), "$[f] $[p]/$[P]");
    setHostText(photo->path, QStringLiteral("/photos/Trip/a much longer name.jpg"));
    const int before = text->GetSize().width();
    record.DrawSprites(painter);
    EXPECT_GT(text->GetSize().width(), before) << "measured anew";
}

TEST_F(TextInPhotoTest, ARecordCopiesTexts) {
    CDVDImageText text(nullptr, kAssets);
    text.SetText("copied");
    EXPECT_EQ(record.AddSprite(&text, true), 1);
    const auto* copy = dynamic_cast<CDVDImageText*>(record.GetSprites().GetAt(0));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->GetText(), "copied");
    EXPECT_EQ(copy->GetOwner(), &record);
    EXPECT_EQ(photo->changed, 1);
}

}  // namespace
}  // namespace vellora
