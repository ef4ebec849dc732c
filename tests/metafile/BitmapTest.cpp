#include <QBuffer>

#include <gtest/gtest.h>

#include "metafile/Dib.h"
#include "metafile/MetafileBytes.h"

namespace vellora {
namespace {

constexpr QSize kStage(100, 100);
const QColor kRed(255, 0, 0);
const QColor kGreen(0, 255, 0);
const QColor kBlue(0, 0, 255);
const QColor kWhite(255, 255, 255);

struct Dib {
    Bytes header;
    Bytes pixels;
};

Bytes dibHeader(int width, int height, unsigned bits, std::uint32_t compression = 0,
                std::uint32_t colors = 0) {
    Bytes header;
    header.u32(40).i32(width).i32(height).u16(1).u16(bits).u32(compression);
    return header.zeros(12).u32(colors).u32(0);
}

Bytes& addColors(Bytes& header, std::initializer_list<QColor> colors) {
    for (const QColor& color : colors)
        header.u8(static_cast<unsigned>(color.blue()))
            .u8(static_cast<unsigned>(color.green()))
            .u8(static_cast<unsigned>(color.red()))
            .u8(0);
    return header;
}

metafile::RecordView viewOf(const QByteArray& bytes) {
    return {reinterpret_cast<const unsigned char*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

QImage decoded(const Bytes& header, const Bytes& pixels) {
    metafile::BitmapBudget budget;
    metafile::DibSource source;
    source.info = viewOf(header.bytes());
    source.bits = viewOf(pixels.bytes());
    return metafile::decodeDib(source, budget);
}

/// Rows from the top, a letter for each pixel; a dot is open.
std::string lettersOf(const QImage& image) {
    std::string letters;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            letters += color.alpha() == 0   ? '.'
                       : color == kRed      ? 'r'
                       : color == kGreen    ? 'g'
                       : color == kBlue     ? 'b'
                       : color == kWhite    ? 'w'
                       : color == Qt::black ? 'k'
                                            : '?';
        }
        letters += '/';
    }
    return letters;
}

TEST(MetafileDib, EveryDepthReadsBottomUpRows) {
    Bytes one = dibHeader(3, 2, 1);
    addColors(one, {kRed, kBlue});
    EXPECT_EQ(lettersOf(decoded(one, Bytes().u8(0x40).zeros(3).u8(0xA0).zeros(3))), "brb/rbr/");

    Bytes four = dibHeader(3, 2, 4, 0, 3);
    addColors(four, {kRed, kGreen, kBlue});
    EXPECT_EQ(lettersOf(decoded(four, Bytes().u8(0x01).u8(0x20).zeros(2).u8(0x21).u8(0).zeros(2))),
              "bgr/rgb/");

    Bytes eight = dibHeader(2, 2, 8, 0, 2);
    addColors(eight, {kRed, kGreen});
    EXPECT_EQ(lettersOf(decoded(eight, Bytes().u8(0).u8(1).zeros(2).u8(1).u8(9).zeros(2))),
              "gk/rg/");

    EXPECT_EQ(lettersOf(decoded(dibHeader(2, 1, 16), Bytes().u16(0x7C00).u16(0x001F))), "rb/");
    EXPECT_EQ(lettersOf(decoded(dibHeader(1, 2, 24),
                                Bytes().u8(255).u8(0).u8(0).u8(9).u8(0).u8(255).u8(0))),
              "g/b/");
    EXPECT_EQ(lettersOf(decoded(dibHeader(2, 1, 32), Bytes().u32(0x00FF0000).u32(0x000000FF))),
              "rb/");
}

TEST(MetafileDib, TopDownRowsBitFieldsAndOldHeaders) {
    EXPECT_EQ(lettersOf(decoded(dibHeader(1, -2, 32), Bytes().u32(0xFF0000).u32(0x0000FF))),
              "r/b/");
    Bytes fields = dibHeader(2, 1, 16, 3);
    fields.u32(0xF800).u32(0x07E0).u32(0x001F);
    EXPECT_EQ(lettersOf(decoded(fields, Bytes().u16(0x07E0).u16(0xFFFF))), "gw/");
    Bytes core;
    core.u32(12).u16(2).u16(1).u16(1).u16(1);
    core.u8(0).u8(0).u8(255).u8(255).u8(0).u8(0);
    EXPECT_EQ(lettersOf(decoded(core, Bytes().u8(0x40).zeros(3))), "rb/");
}

TEST(MetafileDib, RunLengthsWithStepsAndLiteralPixels) {
    Bytes header = dibHeader(4, 3, 8, 1, 3);
    addColors(header, {kRed, kGreen, kBlue});
    // Two red; end of line; one right and none up, three literal pixels; end of line; end.
    Bytes data;
    data.u8(2).u8(0).u8(0).u8(0);
    data.u8(0).u8(2).u8(1).u8(0).u8(0).u8(3).u8(2).u8(1).u8(2).u8(0).u8(0).u8(0);
    data.u8(9).u8(1).u8(0).u8(1);
    EXPECT_EQ(lettersOf(decoded(header, data)), "gggg/.bgb/rr../");

    Bytes half = dibHeader(4, 1, 4, 2, 3);
    addColors(half, {kRed, kGreen, kBlue});
    EXPECT_EQ(lettersOf(decoded(half, Bytes().u8(3).u8(0x12).u8(1).u8(0x00).u8(0).u8(1))), "gbgr/");
}

TEST(MetafileDib, EmbeddedPngAndJpeg) {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(kRed);
    for (const auto& [format, compression] : {std::pair("PNG", 5U), std::pair("JPG", 4U)}) {
        QByteArray file;
        QBuffer buffer(&file);
        ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, format));
        const QImage image = decoded(dibHeader(8, 8, 0, compression), Bytes().raw(file));
        ASSERT_EQ(image.size(), picture.size());
        EXPECT_GT(image.pixelColor(4, 4).red(), 250);
    }
}

TEST(MetafileDib, BrokenBitmapsAreRefused) {
    const Bytes row = Bytes().zeros(12);
    EXPECT_TRUE(decoded(dibHeader(2, 3, 24), row).isNull());
    EXPECT_TRUE(decoded(dibHeader(2, 0, 24), row).isNull());
    EXPECT_TRUE(decoded(dibHeader(-2, 1, 24), row).isNull());
    EXPECT_TRUE(decoded(dibHeader(2, 1, 7), row).isNull());
    EXPECT_TRUE(decoded(dibHeader(100'000, 1, 1), Bytes().zeros(20'000)).isNull());
    EXPECT_TRUE(decoded(dibHeader(30'000, 30'000, 8, 1), row).isNull());
    EXPECT_TRUE(decoded(Bytes().u32(40), row).isNull());
    // Padding behind the last row may be missing.
    EXPECT_FALSE(decoded(dibHeader(1, 2, 24), Bytes().zeros(7)).isNull());
}

TEST(MetafileDib, AllBitmapsOfAFileShareOneBudget) {
    const QByteArray header = dibHeader(8'000, 4'000, 8, 1).bytes();
    const QByteArray end = Bytes().u8(0).u8(1).bytes();
    metafile::DibSource source;
    source.info = viewOf(header);
    source.bits = viewOf(end);
    metafile::BitmapBudget budget;
    EXPECT_FALSE(metafile::decodeDib(source, budget).isNull());
    EXPECT_FALSE(metafile::decodeDib(source, budget).isNull());
    EXPECT_TRUE(metafile::decodeDib(source, budget).isNull());
}

/// A 2 x 2 bitmap: red and green above, blue and white below.
Dib quarters() {
    Dib dib;
    dib.header = dibHeader(2, 2, 32);
    dib.pixels.u32(0x0000FF).u32(0xFFFFFF).u32(0xFF0000).u32(0x00FF00);
    return dib;
}

Bytes stretchRecord(const Dib& dib, QRect source, QRect target, std::uint32_t rop) {
    Bytes record;
    record.zeros(16).i32(target.x()).i32(target.y()).i32(source.x()).i32(source.y());
    record.i32(source.width()).i32(source.height());
    record.u32(80).u32(40).u32(120).u32(static_cast<std::uint32_t>(dib.pixels.size())).u32(0);
    record.u32(rop).i32(target.width()).i32(target.height());
    return record.raw(dib.header.bytes()).raw(dib.pixels.bytes());
}

QImage stretched(const Dib& dib, QRect source, QRect target, std::uint32_t rop = 0x00CC0020) {
    return drawn(EmfFile(kStage).record(81, stretchRecord(dib, source, target, rop)).bytes(),
                 kStage);
}

TEST(MetafileBitmaps, SourcesAreCutStretchedAndMirrored) {
    const QImage whole = stretched(quarters(), {0, 0, 2, 2}, {0, 0, 100, 100});
    EXPECT_EQ(pixelAt(whole, 10, 10), kRed);
    EXPECT_EQ(pixelAt(whole, 90, 10), kGreen);
    EXPECT_EQ(pixelAt(whole, 10, 90), kBlue);
    EXPECT_EQ(pixelAt(whole, 90, 90), kWhite);

    // The lowest row of the file is row 0.
    const QImage row = stretched(quarters(), {0, 0, 1, 1}, {20, 20, 40, 40});
    EXPECT_EQ(pixelAt(row, 40, 40), kBlue);
    EXPECT_NEAR(coverage(row), 40 * 40, 1);

    const QImage mirrored = stretched(quarters(), {0, 0, 2, 2}, {100, 0, -100, 100});
    EXPECT_EQ(pixelAt(mirrored, 10, 10), kGreen);
    EXPECT_EQ(pixelAt(mirrored, 90, 90), kBlue);
}

TEST(MetafileBitmaps, MaskAndPaintLeaveTheGroundOpen) {
    const QImage kept = stretched(quarters(), {0, 0, 2, 2}, {0, 0, 100, 100}, 0x008800C6);
    EXPECT_EQ(pixelAt(kept, 90, 90).alpha(), 0);
    EXPECT_EQ(pixelAt(kept, 10, 10), kRed);
    const QImage inverted = stretched(quarters(), {0, 0, 2, 2}, {0, 0, 100, 100}, 0x00330008);
    EXPECT_EQ(pixelAt(inverted, 10, 10), QColor(0, 255, 255));
    const QImage black = stretched(quarters(), {0, 0, 2, 2}, {10, 10, 50, 50}, 0x00000042);
    EXPECT_EQ(pixelAt(black, 30, 30), QColor(Qt::black));
    EXPECT_NEAR(coverage(black), 2500, 0.01);
}

Bytes blendRecord(std::uint32_t value, const Dib& dib) {
    Bytes record;
    record.zeros(16).i32(0).i32(0).i32(100).i32(100).u32(value).i32(0).i32(0).zeros(24).u32(0);
    record.u32(0).u32(108).u32(40).u32(148).u32(static_cast<std::uint32_t>(dib.pixels.size()));
    record.i32(2).i32(2);
    return record.raw(dib.header.bytes()).raw(dib.pixels.bytes());
}

TEST(MetafileBitmaps, BlendingAndColourKeys) {
    Dib clear;
    clear.header = dibHeader(2, 2, 32);
    clear.pixels.u32(0).u32(0).u32(0xFFFF0000).u32(0x80800000);
    // Half of the picture's own alpha.
    const QImage blended = drawn(
        EmfFile(kStage).record(114, blendRecord(0x01000000 | (128 << 16), clear)).bytes(), kStage);
    EXPECT_NEAR(pixelAt(blended, 5, 5).alpha(), 128, 2);
    EXPECT_NEAR(pixelAt(blended, 95, 5).alpha(), 64, 3);
    EXPECT_EQ(pixelAt(blended, 5, 95).alpha(), 0);

    const QImage keyed =
        drawn(EmfFile(kStage).record(116, blendRecord(0x0000FF00, quarters())).bytes(), kStage);
    EXPECT_EQ(pixelAt(keyed, 95, 5).alpha(), 0);
    EXPECT_EQ(pixelAt(keyed, 5, 5), kRed);
}

TEST(MetafileBitmaps, WindowsRecordsFindTheirBitmaps) {
    const Dib dib = quarters();
    const auto place = [&](unsigned function, Bytes head) {
        WmfFile file(QRect(0, 0, 100, 100));
        head.raw(dib.header.bytes()).raw(dib.pixels.bytes());
        return lettersOf(drawn(file.record(function, head).bytes(), kStage).copy(40, 40, 2, 2));
    };
    // Bitmaps two units wide at (40, 40), and stretched to 80 with their middle there.
    EXPECT_EQ(place(0x0940, Bytes().u32(0x00CC0020).i16(0).i16(0).i16(2).i16(2).i16(40).i16(40)),
              "rg/bw/");
    EXPECT_EQ(
        place(0x0D33, Bytes().u16(0).u16(2).u16(0).i16(0).i16(0).i16(2).i16(2).i16(40).i16(40)),
        "rg/bw/");
    EXPECT_EQ(
        place(0x0B41,
              Bytes().u32(0x00CC0020).i16(1).i16(1).i16(1).i16(0).i16(80).i16(80).i16(0).i16(0)),
        "bb/bb/");
    EXPECT_EQ(place(0x0F43, Bytes()
                                .u32(0x00CC0020)
                                .u16(0)
                                .i16(1)
                                .i16(1)
                                .i16(1)
                                .i16(0)
                                .i16(80)
                                .i16(80)
                                .i16(0)
                                .i16(0)),
              "rr/rr/");
}

TEST(MetafileBitmaps, PatternsTileInPixelsOfTheFile) {
    const Dib dib = quarters();
    WmfFile file(QRect(0, 0, 100, 100));
    file.record(0x0142, Bytes().u16(5).u16(0).raw(dib.header.bytes()).raw(dib.pixels.bytes()));
    file.put(0x012D, {0}).record(0x061D, Bytes().u32(0x00F00021).i16(100).i16(100).i16(0).i16(0));
    const QImage image = drawn(file.bytes(), kStage);
    EXPECT_NEAR(coverage(image), 10'000, 0.01);
    EXPECT_EQ(lettersOf(image.copy(0, 0, 4, 2)), "rgrg/bwbw/");
}

TEST(MetafileBitmaps, PalettesColourIndexedBitmaps) {
    WmfFile file(QRect(0, 0, 100, 100));
    Bytes palette;
    palette.u16(0x300).u16(2).u8(0).u8(255).u8(0).u8(0).u8(255).u8(0).u8(0).u8(0);
    Bytes dib = dibHeader(1, 1, 1);
    dib.u16(1).u16(0).u8(0x80).zeros(3);
    Bytes blit;
    blit.u32(0x00CC0020).u16(1).i16(1).i16(1).i16(0).i16(0).i16(100).i16(100).i16(0).i16(0);
    file.record(0x00F7, palette).put(0x0234, {0}).record(0x0F43, blit.raw(dib.bytes()));
    EXPECT_EQ(pixelAt(drawn(file.bytes(), kStage), 50, 50), kGreen);
}

}  // namespace
}  // namespace vellora
