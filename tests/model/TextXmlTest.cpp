#include <memory>

#include <gtest/gtest.h>

#include <vellora/model/DVDImageText.h>
#include <vellora/text/EffectCatalogue.h>

#include "xml/LORXMLNodeWrite.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

const QString kAssets = QStringLiteral(VELLORA_ASSETS_DIR);

struct TextXmlTest : testing::Test {
    CDVDImageText text{nullptr, kAssets};

    static QString saved(const CDVDImageText& sprite) {
        EXPECT_EQ(BeginXMLDocument(), 1);
        WriteXMLHeader();
        EXPECT_EQ(sprite.Save(3), 1);
        QString xml = XMLBuffer();
        WriteXMLBuffer();
        return xml;
    }
    static std::unique_ptr<CDVDImageText> loaded(const QString& xml) {
        CXMLParse reader;
        EXPECT_EQ(reader.OpenText(xml.toUtf8()), 1) << xml.toStdString();
        auto sprite = std::make_unique<CDVDImageText>(nullptr, kAssets);
        EXPECT_EQ(sprite->Load(reader, "//text"), 1);
        return sprite;
    }
};

TEST_F(TextXmlTest, WritesTheDocumentedForm) {
    text.SetText("a < b & c");
    text.SetPosition(-5, 12);
    TextStyle style;
    style.colour = 0x336699;
    style.effect.face.type = kGradientBrush;
    style.effect.face.colour1 = 0x336699;
    style.effect.shadow = style.effect.emboss = 1;
    style.effect.shadow_offset = 4;
    style.effect.shadow_angle = 270;
    style.effect.shadow_order = 1;
    style.effect.shadow_brush.type = 9;
    style.effect.emboss_size = 3;
    style.effect.emboss_brush.type = kTextureBrush;
    style.effect.emboss_brush.SetTextureName("a&b.png");
    text.SetStyle(style);
    EXPECT_EQ(saved(text).toStdString(),
              R"(<?xml version="1.0" encoding="UTF-8" ?>
            <text x0="-5" y0="12" font="Arial" color="0x336699" size="24" bold="0" italic="0" )"
              R"(underline="0" align="0" shadow="1" s_color="0x000000" so_x="2" so_y="2">)"
              R"(a &lt; b &amp; c
                <text_effect font_name="Arial" font_size="24" bold="false" italic="false" )"
              R"(underline="false" shadow="true" border="false" halo="false" emboss="true">
                    <face style="gradient">
                        <color color1="0x996633" color2="0x000000" angle="0"/>
                    </face>
                    <shadow offset="4" angle="270">
                    </shadow>
                    <emboss size="3" angle="0" style="texture">
                        <file name="a&amp;b.png"/>
                    </emboss>
                </text_effect>
            </text>
)");
}

TEST_F(TextXmlTest, EveryTextComesBack) {
    const QString texts[] = {
        "",
        " ",
        "plain",
        "  leading and trailing  ",
        "\n",
        "\n\n  \n",
        "line\nbreaks\r\nof all\rkinds\n",
        "\ttabs\t",
        "\n                ",
        "looks like indentation\n                ",
        "<b>&amp;</b> ]]> \"quoted\" 'too' &lt; &#65; <![CDATA[x]]> <!-- no -->",
        QString::fromUtf8("\U0001F600\u05E9\u05DC\u05D5\u05DD e\u0301 \u00A0\u2028"),
        "$[F] $[d]",
    };
    for (const QString& typed : texts) {
        text.SetText(typed);
        const auto back = loaded(saved(text));
        EXPECT_EQ(back->GetText(), typed) << typed.toStdString();
        EXPECT_EQ(saved(*back), saved(text));
    }
}

TEST_F(TextXmlTest, EveryStyleComesBack) {
    text.SetText("x");
    int number = 0;
    for (const auto& entry : LoadEffectCatalogue(kAssets)) {
        TextStyle style;
        style.TakeEffect(entry.effect);
        style.align = ++number % 3;
        style.colour = 0xFF000000U + static_cast<COLORREF>(number);
        style.shadow_x = -number;
        text.SetStyle(style);
        text.SetPosition(number, -number);
        const auto back = loaded(saved(text));
        TextStyle expected = style;
        expected.effect.shadow_order = 0;  // has no place in project files
        if (style.effect.face.type != kSolidBrush) {
            expected.effect.face.colour = 0xFFFFFF;  // of a new text, as the file does not say
        }
        EXPECT_EQ(back->GetStyle(), expected) << entry.name.toStdString();
        EXPECT_EQ(back->GetPosition(), QPoint(number, -number));
    }
}

TEST_F(TextXmlTest, ReadsForeignFiles) {
    const auto foreign = loaded(
        "<a><text so_y='3' y0='7' size=' 31' shadow='0' color='112233' font='Georgia'>Hi "
        "<![CDATA[<you>]]> &#x1F600;<text_effect font_size='50' font_name='Courier' "
        "halo='TRUE'><halo blur='4' size='-2' style='SOLID'><color color1='0xff0000'/></halo>"
        "</text_effect></text></a>");
    EXPECT_EQ(foreign->GetText(), QString::fromUtf8("Hi <you> \U0001F600"));
    EXPECT_EQ(foreign->GetPosition(), QPoint(0, 7));
    const TextStyle& style = foreign->GetStyle();
    EXPECT_EQ(style.size, 31);
    EXPECT_EQ(style.shadow, 0);
    EXPECT_EQ(style.shadow_x, 2) << "what is missing stays";
    EXPECT_EQ(style.shadow_y, 3);
    EXPECT_EQ(style.colour, 0x112233U);
    EXPECT_EQ(style.effect.GetFontName(), "Courier");
    EXPECT_EQ(style.effect.font_size, 50);
    EXPECT_EQ(style.effect.halo_size, -2);
    EXPECT_EQ(style.effect.halo_brush, TextBrushSettings::Solid(0x0000FF));
    EXPECT_EQ(style.effect.face, TextBrushSettings::Solid(0xFFFFFF));
}

TEST_F(TextXmlTest, WhatAnEffectLacksStaysAsInANewText) {
    const auto effect = [](const QString& face) {
        return loaded("<text>x<text_effect font_name='A' font_size='9'>" + face +
                      "</text_effect></text>")
            ->GetStyle()
            .effect;
    };
    TextEffectRecord expected = TextStyle::PlainEffect();
    expected.SetFontName("A");
    expected.font_size = 9;
    for (const char* face :
         {"", "<face/>", "<face><color color1='0xff0000'/></face>", "<face style='solid'/>",
          "<face style='solid'><color/></face>", "<face style='wavy'/>",
          "<face style='solid'><color color1='red'/></face>"}) {
        EXPECT_EQ(effect(face), expected) << face;
    }
    expected.face.type = kGradientBrush;
    EXPECT_EQ(effect("<face style='gradient'/>"), expected);
    expected.face.colour2 = 0x0000FF;
    EXPECT_EQ(effect("<face style='gradient'><color color2='0xff0000'/></face>"), expected);
}

TEST_F(TextXmlTest, ReadingIntoATextChangesWhatTheFileHolds) {
    TextStyle style;
    style.effect.bold = style.effect.shadow = style.effect.shadow_order = 1;
    style.effect.shadow_offset = 7;
    style.effect.face.type = kGradientBrush;
    style.effect.face.colour1 = 0x112233;
    style.effect.face.position_percent = 40;
    text.SetStyle(style);
    CXMLParse reader;
    ASSERT_EQ(reader.OpenText("<text><text_effect font_name='Arial' font_size='24' bold='false'>"
                              "<face style='gradient'><color color2='0xff0000' angle='5'/></face>"
                              "<shadow angle='90'/></text_effect></text>"),
              1);
    ASSERT_EQ(text.Load(reader, "text"), 1);
    TextEffectRecord expected = style.effect;
    expected.bold = 0;
    expected.face.colour2 = 0x0000FF;
    expected.face.angle = 5;
    expected.face.position_percent = 0;  // left out only where it is 0
    expected.shadow_angle = 90;
    EXPECT_EQ(text.GetStyle().effect, expected);
}

TEST_F(TextXmlTest, AnUnreadableEffectIsMadeFromTheStyle) {
    for (const char* effect :
         {"", "<text_effect font_name='X'/>", "<text_effect font_size='9'/>"}) {
        const auto back =
            loaded(QString("<text font='Georgia' size='30' bold='1' italic='1' "
                           "color='0xff8000' so_x='6' so_y='9' s_color='0xffffff'>t") +
                   effect + "</text>");
        const TextEffectRecord& made = back->GetStyle().effect;
        EXPECT_EQ(made.GetFontName(), "Georgia");
        EXPECT_EQ(made.font_size, 30);
        EXPECT_EQ(made.bold + made.italic + made.underline, 2);
        EXPECT_EQ(made.face, TextBrushSettings::Solid(0xFF8000));
        EXPECT_EQ(made.shadow, 1);
        EXPECT_EQ(made.shadow_offset, 6);
        EXPECT_EQ(made.shadow_angle, 45);
        EXPECT_EQ(made.shadow_brush, TextBrushSettings());
        EXPECT_EQ(back->GetText(), "t");
    }
    CXMLParse empty;
    CDVDImageText untouched(nullptr);
    untouched.SetText("kept");
    EXPECT_EQ(untouched.Load(empty, "//text"), 0);
    EXPECT_EQ(untouched.GetText(), "kept");
}

}  // namespace
}  // namespace vellora
