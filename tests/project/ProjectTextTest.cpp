#include <QStringEncoder>

#include <gtest/gtest.h>

#include <vellora/model/DVDImageText.h>

#include "support/ProjectFixture.h"

namespace vellora {
namespace {

using test::ProjectDocument;

const CDVDImageText& textOf(ProjectDocument& document, int index) {
    return dynamic_cast<const CDVDImageText&>(*document.photo(0).GetSprites().GetAt(index));
}

/// The text of a sprite after loading the inside of its element.
QString loadedText(const std::string& inside) {
    ProjectDocument document(1);
    document.load(
        "<ZEV_Photo_Info><Image_Data id='0' sprite_count='1'><Sprite_Data id='0' "
        "type='text'><text>" +
        inside + "</text></Sprite_Data></Image_Data></ZEV_Photo_Info>");
    return textOf(document, 0).GetText();
}

TEST(ProjectText, WhateverWasTypedComesBack) {
    const QStringList typed{
        "",
        " ",
        "\n",
        "\t",
        "\r\n",
        " lead, inner   and trail  ",
        "two\nlines\r\nand\rthree\n",
        "\n\n   \t\n",
        "a & b < c > d \"e\" 'f'",
        "&lt; &amp;amp; &#65; &nope; &",
        "]]> <![CDATA[x]]> <!-- y --> <?z?>",
        "</text><text_effect/>",
        "ends like the file's own indentation\n                ",
        "\n                ",
        "ends in a carriage return\r",
        u"\u05D0\u05D1 e\u0301 \U0001F468\u200D\U0001F469 \uFFFD \u0085 \u2028"_qs,
        QString(100'000, QChar('x')),
    };
    ProjectDocument document(1);
    for (const QString& text : typed) {
        auto* sprite = new CDVDImageText(nullptr);
        sprite->SetText(text);
        document.photo(0).AddSprite(sprite, false);
    }
    const std::string saved = document.saved();
    ProjectDocument again(1);
    again.load(saved);
    ASSERT_EQ(again.photo(0).GetSprites().GetSize(), typed.size());
    for (int i = 0; i < typed.size(); ++i) {
        EXPECT_EQ(textOf(again, i).GetText(), typed[i]) << i;
    }
    EXPECT_EQ(again.saved(), saved);
}

TEST(ProjectText, OtherLineEndsOfTheFileChangeNoText) {
    ProjectDocument document(1);
    for (const char* text : {"one line", "two\nlines\n", "\n", "", "blanks\n                "}) {
        auto* sprite = new CDVDImageText(nullptr);
        sprite->SetText(text);
        document.photo(0).AddSprite(sprite, false);
    }
    const std::string saved = document.saved();
    const QString rewritten = QString::fromStdString(saved).replace("\n", "\r\n");
    const QByteArray wide =
        QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom)(rewritten);
    for (const std::string& file : {rewritten.toStdString(), wide.toStdString()}) {
        ProjectDocument again(1);
        again.load(file);
        EXPECT_EQ(again.saved(), saved);
    }
}

TEST(ProjectText, CharactersThatNoFileHoldsAreDroppedOnTheWayIn) {
    ProjectDocument document(1);
    auto* sprite = new CDVDImageText(nullptr);
    sprite->SetText(QString("a\x01"
                            "b") +
                    QChar(0xD800) + "c" + QChar(0xDC00) + QChar(0xFFFE));
    EXPECT_EQ(sprite->GetText(), "abc");
    document.photo(0).AddSprite(sprite, false);
    ProjectDocument again(1);
    again.load(document.saved());
    EXPECT_EQ(textOf(again, 0).GetText(), "abc");
}

TEST(ProjectText, TakesOffWhatTheWriterPutBetweenAndNoMore) {
    EXPECT_EQ(loadedText("x<text_effect/>"), "x");
    EXPECT_EQ(loadedText("  <text_effect/>"), "  ") << "blanks alone";
    EXPECT_EQ(loadedText("\n<text_effect/>"), "\n");
    EXPECT_EQ(loadedText("x\n                <text_effect/>\n            "), "x");
    EXPECT_EQ(loadedText("\n                <text_effect/>\n            "), "");
    EXPECT_EQ(loadedText("x\n\n                <text_effect/>"), "x\n");
    EXPECT_EQ(loadedText("x\n               <text_effect/>"), "x\n               ");
    EXPECT_EQ(loadedText("x\n                "), "x\n                ") << "no effect follows";
    EXPECT_EQ(loadedText(" "), " ");
    EXPECT_EQ(loadedText(""), "");
}

TEST(ProjectText, TextsAreMeasuredWhenAskedFor) {
    ProjectDocument document(1);
    document.load(
        "<ZEV_Photo_Info><Image_Data id='0' sprite_count='1'><Sprite_Data id='0' "
        "type='text'><text size='60'>Hello</text></Sprite_Data></Image_Data>"
        "</ZEV_Photo_Info>");
    const QSize large = textOf(document, 0).GetSize();
    EXPECT_GT(large.width(), 100);
    EXPECT_GT(large.height(), 60);
}

TEST(ProjectText, StylesAreSharedAndStaySeparate) {
    ProjectDocument document(1);
    const std::string sprite = "type='text'><text size='60'>Hello</text></Sprite_Data>";
    document.load("<ZEV_Photo_Info><Image_Data id='0' sprite_count='2'><Sprite_Data id='0' " +
                  sprite + "<Sprite_Data id='1' " + sprite + "</Image_Data></ZEV_Photo_Info>");
    EXPECT_EQ(&textOf(document, 0).GetStyle(), &textOf(document, 1).GetStyle());
    TextStyle style = textOf(document, 0).GetStyle();
    style.size = 20;
    dynamic_cast<CDVDImageText*>(document.photo(0).GetSprites().GetAt(0))->SetStyle(style);
    EXPECT_EQ(textOf(document, 0).GetStyle().size, 20);
    EXPECT_EQ(textOf(document, 1).GetStyle().size, 60);
    EXPECT_EQ(CDVDImageText(nullptr).GetStyle(), TextStyle());
}

}  // namespace
}  // namespace vellora
