#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <random>

#include <gtest/gtest.h>

#include <vellora/text/EffectCatalogue.h>

namespace vellora {
namespace {

const QString kAssets = QStringLiteral(VELLORA_ASSETS_DIR);

struct EffectCatalogueTest : testing::Test {
    QTemporaryDir base;
    int files = 0;

    /// Each catalogue in a folder of its own, so that none is taken for another.
    std::vector<TextEffectEntry> load(const QByteArray& xml) {
        const QDir folder(base.filePath(QString::number(files++)));
        EXPECT_TRUE(folder.mkpath("texteffect"));
        QFile file(folder.filePath("texteffect/effect_list.xml"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(xml);
        file.close();
        return LoadEffectCatalogue(folder.path());
    }
};

TEST_F(EffectCatalogueTest, ReadsEveryField) {
    const auto entries = load(R"(<?xml version="1.0"?><TEXT_EFFECT count="1">
<data id="0" font_name="Georgia" font_size="40" bold="TRUE" italic="1" underline="true"
      shadow="true" border="true" halo="True" emboss="true">
  <face style="Texture"><file name="wood.png"/></face>
  <shadow offset="4" angle="270" order="ONHALO" style="gradient">
    <color color1="0x996633" color2="0x0000ff" angle="30" grad_pos_percent="130"/></shadow>
  <border size="3" style="solid"><color color1="0x123456" color2="0xffffff"/></border>
  <halo size="7" blur="9" style="wavy"><color color1="0xffffff"/></halo>
  <emboss size="11" angle="-5" style="solid"/>
</data></TEXT_EFFECT>)");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, "Style 1");
    const TextEffectRecord& effect = entries[0].effect;
    EXPECT_EQ(effect.GetFontName(), "Georgia");
    EXPECT_EQ(effect.font_size, 40);
    EXPECT_EQ(effect.bold, 1);
    EXPECT_EQ(effect.italic, 0) << "on only when it says true";
    EXPECT_EQ(effect.underline, 1);
    EXPECT_EQ(effect.face.type, kTextureBrush);
    EXPECT_EQ(effect.face.GetTextureName(), "wood.png");
    EXPECT_EQ(effect.shadow + effect.border + effect.halo + effect.emboss, 4);
    EXPECT_EQ(effect.shadow_offset, 4);
    EXPECT_EQ(effect.shadow_angle, 270);
    EXPECT_EQ(effect.shadow_order, 1);
    EXPECT_EQ(effect.shadow_brush.type, kGradientBrush);
    EXPECT_EQ(effect.shadow_brush.colour1, 0x336699U);
    EXPECT_EQ(effect.shadow_brush.colour2, 0xFF0000U);
    EXPECT_EQ(effect.shadow_brush.angle, 30);
    EXPECT_EQ(effect.shadow_brush.position_percent, 130) << "reduced only when it is used";
    EXPECT_EQ(effect.border_size, 3);
    EXPECT_EQ(effect.border_brush, TextBrushSettings::Solid(0x563412));
    EXPECT_EQ(effect.halo_size, 7);
    EXPECT_EQ(effect.halo_blur, 9);
    EXPECT_EQ(effect.halo_brush, TextBrushSettings()) << "an unknown style";
    EXPECT_EQ(effect.emboss_size, 11);
    EXPECT_EQ(effect.emboss_angle, -5);
}

TEST_F(EffectCatalogueTest, ListsIdsInOrderUpToTheCount) {
    const auto entries = load(R"(<r><TEXT_EFFECT count="4">
<data id="2" font_name="C" font_size="3"/><data id="0" font_name="A" font_size="1" shadow="false">
<shadow offset="9"/></data><data id="1" font_name="B"/><data id="4" font_name="E" font_size="5"/>
<data id="0" font_name="twice" font_size="1"/></TEXT_EFFECT></r>)");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0].name + entries[1].name + entries[2].name, "Style 1Style 2Style 3");
    EXPECT_EQ(entries[0].effect.GetFontName(), "A");
    EXPECT_EQ(entries[0].effect.shadow_offset, 0) << "a layer that is off is not read";
    EXPECT_EQ(entries[1].effect, TextEffectRecord()) << "listed, but without font size";
    EXPECT_EQ(entries[2].effect.GetFontName(), "C");
    EXPECT_EQ(entries[3].name, "Style 4");
    EXPECT_EQ(entries[3].effect, TextEffectRecord()) << "listed, but not in the file";
}

TEST_F(EffectCatalogueTest, StaysEmptyWithoutAUsableFile) {
    EXPECT_TRUE(LoadEffectCatalogue(base.filePath("nowhere")).empty());
    for (const char* xml :
         {"", "no xml", "<TEXT_EFFECT><data id='0' font_name='A' font_size='1'/></TEXT_EFFECT>",
          "<OTHER count='1'><data id='0' font_name='A' font_size='1'/></OTHER>",
          "<TEXT_EFFECT count='-3'><data id='0' font_name='A' font_size='1'/></TEXT_EFFECT>",
          "<TEXT_EFFECT count='1'><data id='0' font_name='A' font_size='1'/>"}) {
        EXPECT_TRUE(load(xml).empty()) << xml;
    }
}

TEST_F(EffectCatalogueTest, AnEndlessCountIsBounded) {
    QByteArray many = "<TEXT_EFFECT count=\"2147483647\">";
    for (int i = 0; i < 6000; ++i) {
        many += "<data id=\"" + QByteArray::number(i) + "\"/>";
    }
    EXPECT_EQ(load(many + "</TEXT_EFFECT>").size(), 4096U);
    EXPECT_EQ(load("<TEXT_EFFECT count=\"2147483647\"><data id=\"3\"/></TEXT_EFFECT>").size(),
              4096U);
}

TEST_F(EffectCatalogueTest, IsReadAgainWhenTheFileChanges) {
    const QString path = base.filePath("texteffect/effect_list.xml");
    ASSERT_TRUE(QDir(base.path()).mkpath("texteffect"));
    for (int count = 1; count <= 3; ++count) {
        QByteArray xml = "<TEXT_EFFECT count=\"" + QByteArray::number(count) + "\">";
        for (int i = 0; i < count; ++i) {
            xml += "<data id=\"" + QByteArray::number(i) + "\" font_name=\"F\" font_size=\"9\"/>";
        }
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(xml + "</TEXT_EFFECT>");
        file.close();
        EXPECT_EQ(LoadEffectCatalogue(base.path()).size(), static_cast<std::size_t>(count));
    }
}

TEST_F(EffectCatalogueTest, MutatedFilesLoadAndDraw) {
    QFile file(kAssets + "/texteffect/effect_list.xml");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray original = file.readAll().first(6000) + "</TEXT_EFFECT>";
    const QByteArray pieces[] = {"-2147483648", "2147483647", "99999999999", "0x",      "\"", "<",
                                 "&",           "true",       "gradient",    "texture", "",   "/>",
                                 "\xFF",        "..",         "id=\"0\"",    "\0"};
    std::mt19937 random(2026);
    const auto below = [&](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<std::uint32_t>(limit));
    };
    static const QRegularExpression number("\"-?[0-9]+\"");
    for (int round = 0; round < 400; ++round) {
        QByteArray xml = original;
        for (qsizetype change = below(6); change >= 0; --change) {
            const QByteArray& piece = pieces[below(std::size(pieces))];
            if (change % 2 == 0) {
                // A number of the file becomes another one; the file stays readable.
                const auto match = number.match(QString::fromLatin1(xml), below(xml.size()));
                if (match.hasMatch()) {
                    xml.replace(match.capturedStart() + 1, match.capturedLength() - 2, piece);
                }
            } else {
                xml.replace(below(xml.size()), below(20), piece);
            }
        }
        const auto entries = load(xml);
        for (std::size_t i = 0; i < entries.size(); i += 5) {
            const QImage preview = PreviewTextEffect(kAssets, entries[i].effect, {60, 40}, "Ag");
            ASSERT_EQ(preview.size(), QSize(60, 40));
        }
    }
}

/// The catalogue that is shipped.
struct ShippedStylesTest : testing::Test {
    std::vector<TextEffectEntry> entries = LoadEffectCatalogue(kAssets);
};

TEST_F(ShippedStylesTest, UseEveryBrushLayerAndDirection) {
    ASSERT_GE(entries.size(), 24U);
    EXPECT_GE(ListTextures(kAssets).size(), 10);
    QSet<QString> seen;
    for (const auto& [name, effect] : entries) {
        const auto note = [&](const char* layer, std::int32_t on, const TextBrushSettings& brush) {
            if (on != 0) {
                seen.insert(QString("%1 %2").arg(layer).arg(brush.type));
            }
        };
        note("face", 1, effect.face);
        note("shadow", effect.shadow, effect.shadow_brush);
        note("border", effect.border, effect.border_brush);
        note("halo", effect.halo, effect.halo_brush);
        note("emboss", effect.emboss, effect.emboss_brush);
        if (effect.shadow != 0) {
            seen.insert(QString("shadow at %1").arg(effect.shadow_angle));
            seen.insert(QString("order %1").arg(effect.shadow_order));
        }
        if (effect.emboss != 0) {
            seen.insert(QString("emboss at %1").arg(effect.emboss_angle));
        }
        EXPECT_FALSE(effect.GetFontName().isEmpty()) << name.toStdString();
        EXPECT_TRUE(effect.border == 0 || effect.halo + effect.emboss > 0)
            << name.toStdString() << ": its border would not show";
        if (effect.face.type == kTextureBrush) {
            EXPECT_TRUE(ListTextures(kAssets).contains(effect.face.GetTextureName()))
                << name.toStdString();
        }
    }
    for (const char* layer : {"face", "shadow", "border", "halo", "emboss"}) {
        EXPECT_TRUE(seen.contains(QString("%1 0").arg(layer))) << layer;
        EXPECT_TRUE(seen.contains(QString("%1 1").arg(layer))) << layer;
    }
    EXPECT_TRUE(seen.contains("face 2") && seen.contains("order 0") && seen.contains("order 1"));
    for (int angle = 0; angle < 360; angle += 45) {
        EXPECT_TRUE(seen.contains(QString("shadow at %1").arg(angle))) << angle;
        EXPECT_TRUE(seen.contains(QString("emboss at %1").arg(angle))) << angle;
    }
}

double difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

TEST_F(ShippedStylesTest, DifferClearlyAndShowOnAnyGround) {
    std::vector<QImage> pictures;
    for (const auto& [name, effect] : entries) {
        for (const QColor& ground :
             {QColor(25, 25, 25), QColor(128, 128, 128), QColor(245, 245, 245)}) {
            QImage blank(120, 60, QImage::Format_ARGB32_Premultiplied);
            blank.fill(ground);
            const QImage picture = PreviewTextEffect(kAssets, effect, {120, 60}, "Abc", ground);
            EXPECT_GT(difference(picture, blank), 9)
                << name.toStdString() << " on " << ground.red();
            if (ground.red() == 128) {
                pictures.push_back(picture);
            }
        }
    }
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        for (std::size_t j = i + 1; j < pictures.size(); ++j) {
            EXPECT_GT(difference(pictures[i], pictures[j]), 4) << i + 1 << " and " << j + 1;
        }
    }
}

TEST(PreviewTextEffect, FitsItsPicture) {
    TextEffectRecord effect;
    effect.face = TextBrushSettings::Solid(0xFFFFFF);
    EXPECT_TRUE(PreviewTextEffect({}, effect, {0, 10}).isNull());
    EXPECT_TRUE(PreviewTextEffect({}, effect, {-5, 10}).isNull());
    for (const QString& sample : {QString("A rather long sample of a text"), QString("I")}) {
        const QImage picture = PreviewTextEffect({}, effect, {90, 75}, sample);
        ASSERT_EQ(picture.size(), QSize(90, 75));
        for (int i = 0; i < 75; ++i) {
            EXPECT_EQ(qAlpha(picture.pixel(0, i)) + qAlpha(picture.pixel(89, i)), 0);
        }
    }
    EXPECT_EQ(PreviewTextEffect({}, effect, {9, 9}, {}, Qt::red).pixelColor(4, 4), QColor(Qt::red));
}

}  // namespace
}  // namespace vellora
