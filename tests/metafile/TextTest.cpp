#include <gtest/gtest.h>

#include "metafile/MetafileBytes.h"

namespace vellora {
namespace {

constexpr QSize kStage(200, 200);
const QColor kInk(10, 20, 150);

struct TextSetting {
    QString text = QStringLiteral("HHHH");
    int height = -40;
    int angle = 0;
    int weight = 400;
    std::uint32_t align = 24;
    QPoint at{20, 100};
    QString face = QStringLiteral("Liberation Sans");
    std::vector<int> advances{};
    bool opaque = false;
    std::uint32_t options = 0;
    QRect box{};
    unsigned charSet = 0;
    bool underline = false;
};

QByteArray textFile(const TextSetting& setting) {
    EmfFile file(kStage);
    Bytes font;
    font.u32(1).i32(setting.height).i32(0).i32(setting.angle).i32(setting.angle);
    font.i32(setting.weight).u8(0).u8(setting.underline).u8(0).u8(setting.charSet).zeros(4);
    for (qsizetype i = 0; i < 32; ++i)
        font.u16(i < setting.face.size() ? setting.face[i].unicode() : 0);
    file.record(82, font).put(37, {1}).put(22, {setting.align}).put(18, {setting.opaque ? 2 : 1});
    file.put(24, {10 | (20 << 8) | (150 << 16)}).put(25, {0x0000FFFF});
    const auto length = static_cast<std::uint32_t>(setting.text.size());
    const std::uint32_t advancesAt = 76 + (length * 2 + 3) / 4 * 4;
    Bytes run;
    run.zeros(16).u32(1).zeros(8).i32(setting.at.x()).i32(setting.at.y()).u32(length).u32(76);
    run.u32(setting.options).i32(setting.box.left()).i32(setting.box.top());
    run.i32(setting.box.left() + setting.box.width());
    run.i32(setting.box.top() + setting.box.height());
    run.u32(setting.advances.empty() ? 0 : advancesAt);
    for (const QChar c : setting.text)
        run.u16(c.unicode());
    run.padTo(4);
    for (const int advance : setting.advances)
        run.i32(advance);
    return file.record(84, run).bytes();
}

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

QRect extentOf(const TextSetting& setting) {
    return extentOf(drawn(textFile(setting), kStage));
}

TEST(MetafileText, LettersHaveTheHeightTheRecordGives) {
    // Capitals of this family are 0.729 of the em of 2,048 units: 1,409 / 2,048 = 0.688.
    const QRect letters = extentOf(TextSetting{});
    EXPECT_NEAR(letters.height(), 40 * 0.688, 1.5);
    EXPECT_NEAR(letters.bottom() + 1, 100, 1);
    EXPECT_GE(letters.left(), 20);
    // A positive height is the cell's, with the ascent and descent of 0.905 and 0.212 em.
    EXPECT_NEAR(extentOf({.height = 40}).height(), 40 / 1.117 * 0.688, 1.5);
}

TEST(MetafileText, EscapementTurnsCounterClockwise) {
    const QRect flat = extentOf(TextSetting{});
    const QRect up = extentOf({.angle = 900, .at = {100, 180}});
    EXPECT_NEAR(up.width(), flat.height(), 1);
    EXPECT_NEAR(up.height(), flat.width(), 1);
    EXPECT_LE(up.bottom(), 180);
    EXPECT_NEAR(up.right() + 1, 100, 1);
    const QRect slanted = extentOf({.angle = 450, .at = {20, 180}});
    EXPECT_NEAR(slanted.width(), slanted.height(), 2);
}

TEST(MetafileText, AlignmentMovesTheLine) {
    const QRect left = extentOf({.at = {100, 100}});
    const QRect right = extentOf({.align = 24 | 2, .at = {100, 100}});
    const QRect centre = extentOf({.align = 24 | 6, .at = {100, 100}});
    EXPECT_LE(right.right(), 100);
    EXPECT_NEAR(centre.center().x(), 100, 2);
    EXPECT_NEAR(left.width(), right.width(), 1);
    const QRect top = extentOf({.align = 0, .at = {20, 50}});
    EXPECT_NEAR(top.top(), 50 + 40 * (0.905 - 0.688), 1.5);
    EXPECT_LE(extentOf({.align = 8, .at = {20, 150}}).bottom(), 150 - 40 * 0.2);
}

TEST(MetafileText, AdvancesSetTheLettersApart) {
    const QImage image = drawn(
        textFile({.text = QStringLiteral("II"), .at = {20, 100}, .advances = {100, 10}}), kStage);
    EXPECT_EQ(extentOf(image).width() > 95, true);
    EXPECT_EQ(pixelAt(image, 70, 85).alpha(), 0);
}

TEST(MetafileText, BoldAndUnderlineAddInk) {
    const double plain = coverage(drawn(textFile({}), kStage));
    EXPECT_GT(coverage(drawn(textFile({.weight = 700}), kStage)), plain * 1.2);
    EXPECT_GT(coverage(drawn(textFile({.underline = true}), kStage)), plain * 1.05);
}

TEST(MetafileText, BackgroundsAndBoxes) {
    const QColor yellow(255, 255, 0);
    const QImage cell = drawn(textFile({.opaque = true}), kStage);
    EXPECT_EQ(pixelAt(cell, 21, 70), yellow);
    const QImage box = drawn(textFile({.options = 2, .box = {10, 120, 50, 30}}), kStage);
    EXPECT_EQ(pixelAt(box, 12, 122), yellow);
    EXPECT_EQ(pixelAt(box, 62, 122).alpha(), 0);
    const QImage clipped = drawn(textFile({.options = 4, .box = {0, 0, 60, 200}}), kStage);
    EXPECT_LE(extentOf(clipped).right(), 60);
    EXPECT_GT(coverage(clipped), 50);
}

TEST(MetafileText, SignFontsShowTheirSignsAndNeverBoxes) {
    // The same sign from a font of pictures, written as a letter, and from Unicode.
    const QImage star = drawn(textFile({.text = QString(QChar(0xF0AB)),
                                        .height = -100,
                                        .face = QStringLiteral("Wingdings"),
                                        .charSet = 2}),
                              kStage);
    const QImage same = drawn(
        textFile({.text = QString(QChar(0x2605)), .height = -100, .face = QStringLiteral("X")}),
        kStage);
    ASSERT_FALSE(star.isNull());
    EXPECT_GT(coverage(star), 500);
    EXPECT_NEAR(coverage(star), coverage(same), 0.02 * coverage(same));

    const QImage greek = drawn(textFile({.text = QStringLiteral("a"),
                                         .height = -100,
                                         .face = QStringLiteral("Symbol"),
                                         .charSet = 2}),
                               kStage);
    EXPECT_GT(coverage(greek), 300);
    // A character that no font holds leaves nothing.
    QString reason;
    EXPECT_TRUE(drawn(textFile({.text = QString(QChar(0xE123)), .height = -100}), kStage, &reason)
                    .isNull());
    EXPECT_EQ(reason, QStringLiteral("the metafile draws nothing"));
}

TEST(MetafileText, ByteTextFollowsTheCharacterSet) {
    const auto file = [](unsigned charSet, char letter) {
        WmfFile wmf(QRect(0, 0, 200, 200));
        Bytes font;
        font.i16(-100).i16(0).i16(0).i16(0).i16(400).zeros(3).u8(charSet).zeros(4);
        font.raw(QByteArray("Liberation Sans")).u8(0);
        wmf.record(0x02FB, font).put(0x012D, {0}).put(0x012E, {24}).put(0x0102, {1});
        wmf.record(0x0521,
                   Bytes().u16(1).u8(static_cast<unsigned char>(letter)).u8(0).i16(150).i16(20));
        return coverage(drawn(wmf.bytes(), kStage));
    };
    // 0xC6 is the letter of "AE" joined in the west and a Zhe in Cyrillic.
    EXPECT_GT(file(0, '\xC6'), 1000);
    EXPECT_GT(file(204, '\xC6'), 1000);
    EXPECT_GT(std::abs(file(0, '\xC6') - file(204, '\xC6')), 10);
}

}  // namespace
}  // namespace vellora
