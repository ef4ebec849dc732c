#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <jpeglib.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include "base/ImageView.h"
#include "base/JpegEncoder.h"
#include "base/JpegScans.h"
#include "base/PhotoDecoder.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::gradient;
using test::identical;

cv::Mat pixelsOf(const DecodedPhoto& photo) {
    return photo.image != nullptr ? cv::cvarrToMat(photo.image.get()) : cv::Mat();
}

/// Writes an inverted CMYK file, as the common tools do, with one flat colour.
void writeCmyk(const QString& path, int width, int height, std::array<JSAMPLE, 4> ink) {
    jpeg_compress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    FILE* file = std::fopen(QFile::encodeName(path).constData(), "wb");
    jpeg_stdio_dest(&codec, file);
    codec.image_width = static_cast<JDIMENSION>(width);
    codec.image_height = static_cast<JDIMENSION>(height);
    codec.input_components = 4;
    codec.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, 100, TRUE);
    jpeg_start_compress(&codec, TRUE);
    std::vector<JSAMPLE> row;
    for (int x = 0; x < width; ++x) {
        row.insert(row.end(), ink.begin(), ink.end());
    }
    while (codec.next_scanline < codec.image_height) {
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&codec, rows, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    std::fclose(file);
}

/// Writes a grey progressive file that brings every coefficient by a scan of its own, and that in
/// `steps` scans of a bit each.
/// @return The number of scans.
int writeManyScans(const QString& path, const cv::Mat& grey, int steps) {
    std::vector<jpeg_scan_info> script;
    for (int coefficient = 0; coefficient < DCTSIZE2; ++coefficient) {
        for (int bit = steps - 1; bit >= 0; --bit) {
            const int bitBefore = bit == steps - 1 ? 0 : bit + 1;
            script.push_back({1, {0}, coefficient, coefficient, bitBefore, bit});
        }
    }
    jpeg_compress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    FILE* file = std::fopen(QFile::encodeName(path).constData(), "wb");
    jpeg_stdio_dest(&codec, file);
    codec.image_width = static_cast<JDIMENSION>(grey.cols);
    codec.image_height = static_cast<JDIMENSION>(grey.rows);
    codec.input_components = 1;
    codec.in_color_space = JCS_GRAYSCALE;
    jpeg_set_defaults(&codec);
    codec.scan_info = script.data();
    codec.num_scans = static_cast<int>(script.size());
    jpeg_start_compress(&codec, TRUE);
    while (codec.next_scanline < codec.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(grey.ptr(static_cast<int>(codec.next_scanline)));
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    std::fclose(file);
    return static_cast<int>(script.size());
}

/// The checksum of a PNG chunk (CRC-32 of ISO 3309).
std::uint32_t crc32(const QByteArray& bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~crc;
}

QByteArray bigEndian(std::uint32_t value) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

struct PhotoDecoderTest : testing::Test {
    QTemporaryDir folder;

    QString path(const QString& name) { return folder.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

TEST_F(PhotoDecoderTest, ReadsJpegBytesAsQtDoes) {
    cv::Mat picture = gradient(301, 203);
    cv::GaussianBlur(picture, picture, {5, 5}, 0);
    ASSERT_TRUE(writeJpeg(path("a.jpg"), picture, 95));
    const QImage reference = QImage(path("a.jpg")).convertToFormat(QImage::Format_BGR888);
    const DecodedPhoto photo = decodeJpeg(path("a.jpg"));
    EXPECT_FALSE(photo.damaged);
    const cv::Mat expected(reference.height(), reference.width(), CV_8UC3,
                           const_cast<uchar*>(reference.constBits()),
                           static_cast<std::size_t>(reference.bytesPerLine()));
    EXPECT_TRUE(identical(pixelsOf(photo), expected));
    EXPECT_LT(cv::norm(pixelsOf(photo), picture, cv::NORM_L1) / (301.0 * 203 * 3), 6);
}

TEST_F(PhotoDecoderTest, SpreadsGreyAndConvertsInk) {
    QImage grey(20, 10, QImage::Format_Grayscale8);
    grey.fill(QColor(77, 77, 77));
    ASSERT_TRUE(grey.save(path("grey.jpg"), "JPEG", 100));
    EXPECT_EQ(pixelsOf(decodeJpeg(path("grey.jpg"))).at<cv::Vec3b>(5, 5), cv::Vec3b(77, 77, 77));
    // Inverted ink: full cyan is 0 in the first channel, no black is 255.
    writeCmyk(path("ink.jpg"), 16, 16, {0, 255, 255, 255});
    const cv::Vec3b cyan = pixelsOf(decodeJpeg(path("ink.jpg"))).at<cv::Vec3b>(8, 8);
    EXPECT_NEAR(cyan[0], 255, 2);
    EXPECT_NEAR(cyan[1], 255, 2);
    EXPECT_NEAR(cyan[2], 0, 2);
    writeCmyk(path("dark.jpg"), 16, 16, {255, 255, 255, 128});
    EXPECT_NEAR(pixelsOf(decodeJpeg(path("dark.jpg"))).at<cv::Vec3b>(8, 8)[1], 128, 2);
}

TEST_F(PhotoDecoderTest, SecondLoaderReducesDepthAndDropsAlpha) {
    QImage deep(3, 2, QImage::Format_RGBA64);
    deep.fill(QColor::fromRgba64(0x8080, 0x4040, 0xFFFF, 0x0000));
    ASSERT_TRUE(deep.save(path("deep.png")));
    EXPECT_FALSE(decodeJpeg(path("deep.png")).image);
    EXPECT_EQ(pixelsOf(decodeWithQt(path("deep.png"))).at<cv::Vec3b>(1, 2),
              cv::Vec3b(255, 64, 128));
    QImage indexed(4, 4, QImage::Format_Mono);
    indexed.fill(1);
    ASSERT_TRUE(indexed.save(path("mono.bmp")));
    EXPECT_EQ(pixelsOf(decodeWithQt(path("mono.bmp"))).at<cv::Vec3b>(0, 0),
              cv::Vec3b(255, 255, 255));
    const cv::Mat picture = gradient(37, 21);
    for (const char* name : {"a.png", "a.bmp", "a.tif"}) {
        ASSERT_TRUE(imageView(picture).save(path(name)));
        EXPECT_TRUE(identical(pixelsOf(decodeWithQt(path(name))), picture)) << name;
    }
}

TEST_F(PhotoDecoderTest, KeepsWhatATruncatedFileHolds) {
    ASSERT_TRUE(writeJpeg(path("whole.jpg"), gradient(400, 400), 90));
    QFile whole(path("whole.jpg"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    write("half.jpg", bytes.left(bytes.size() / 2));
    const DecodedPhoto half = decodeJpeg(path("half.jpg"));
    EXPECT_TRUE(half.damaged);
    ASSERT_EQ(pixelsOf(half).size(), cv::Size(400, 400));
    EXPECT_EQ(pixelsOf(half).at<cv::Vec3b>(3, 200),
              pixelsOf(decodeJpeg(path("whole.jpg"))).at<cv::Vec3b>(3, 200));
    // Any cut is survived, whatever comes of it.
    for (qsizetype cut = 0; cut < bytes.size(); cut += 61) {
        write("cut.jpg", bytes.left(cut));
        const DecodedPhoto photo = decodeJpeg(path("cut.jpg"));
        EXPECT_TRUE(photo.image == nullptr || photo.damaged) << cut;
    }
}

// A small file could ask for thousands of walks through a large picture.
TEST_F(PhotoDecoderTest, ReadsNoMoreScansThanAnyoneNeeds) {
    cv::Mat grey;
    cv::cvtColor(gradient(200, 150), grey, cv::COLOR_BGR2GRAY);
    const QString usual = folder.filePath(QStringLiteral("usual.jpg"));
    ASSERT_EQ(writeManyScans(usual, grey, 1), 64);
    const DecodedPhoto complete = decodeJpeg(usual);
    EXPECT_FALSE(complete.damaged);
    EXPECT_FALSE(fileHasExcessiveScans(usual));
    EXPECT_TRUE(identical(pixelsOf(complete), pixelsOf(decodeWithQt(usual))));

    const QString endless = folder.filePath(QStringLiteral("endless.jpg"));
    ASSERT_EQ(writeManyScans(endless, grey, 8), 512);
    const DecodedPhoto coarse = decodeJpeg(endless);
    EXPECT_TRUE(coarse.damaged);
    EXPECT_TRUE(fileHasExcessiveScans(endless));
    ASSERT_EQ(pixelsOf(coarse).size(), grey.size());
    // What stands behind the picture, or in a segment of it, is no scan.
    QFile file(usual);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray picture = file.readAll();
    const QByteArray others = QByteArray("\xFF\xDA\x00\x02", 4).repeated(500);
    EXPECT_FALSE(hasExcessiveScans(picture + others));
    QByteArray segment("\xFF\xEF\x07\xD2", 4);
    EXPECT_FALSE(hasExcessiveScans(picture.first(2) + segment + others + picture.mid(2)));
    EXPECT_TRUE(hasExcessiveScans(picture.first(2) + others + picture.mid(2)));
    // The low frequencies come first.
    EXPECT_NEAR(cv::mean(pixelsOf(coarse))[0], cv::mean(grey)[0], 1);
    EXPECT_FALSE(identical(pixelsOf(coarse), pixelsOf(complete)));
}

TEST_F(PhotoDecoderTest, RefusesWhatIsNoPicture) {
    write("empty.jpg", {});
    write("text.jpg", "this is a shopping list");
    write("marker.jpg", "\xFF\xD8\xFF");
    for (const char* name : {"empty.jpg", "text.jpg", "marker.jpg", "missing.jpg", "."}) {
        EXPECT_FALSE(decodeJpeg(path(name)).image) << name;
        EXPECT_FALSE(decodeWithQt(path(name)).image) << name;
    }
    // A small file that claims 30,000 x 30,000 pixels.
    ASSERT_TRUE(QImage(1, 1, QImage::Format_RGB32).save(path("one.png")));
    QFile one(path("one.png"));
    ASSERT_TRUE(one.open(QIODevice::ReadOnly));
    QByteArray bytes = one.readAll();
    bytes.replace(16, 8, QByteArray::fromHex("0000753000007530"));
    bytes.replace(29, 4, bigEndian(crc32(bytes.mid(12, 17))));
    write("huge.png", bytes);
    ASSERT_EQ(QImageReader(path("huge.png")).size(), QSize(30'000, 30'000));
    EXPECT_FALSE(decodeWithQt(path("huge.png")).image);
}

TEST_F(PhotoDecoderTest, BothLoadersTakeFiftyMegapixels) {
    const QSize size(8192, 6144);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 30));
    ASSERT_TRUE(picture.save(path("large.jpg"), "JPEG", 90));
    ASSERT_TRUE(picture.save(path("large.bmp")));
    EXPECT_EQ(pixelsOf(decodeJpeg(path("large.jpg"))).size(), cv::Size(8192, 6144));
    EXPECT_EQ(pixelsOf(decodeWithQt(path("large.bmp"))).at<cv::Vec3b>(6143, 8191),
              cv::Vec3b(30, 20, 10));
}

TEST_F(PhotoDecoderTest, WritingKeepsTheOldFileWhenItFails) {
    EXPECT_FALSE(writeJpeg(path("no/such/folder.jpg"), gradient(8, 8), 90));
    ASSERT_TRUE(writeJpeg(path("a.jpg"), gradient(8, 8), 90));
    EXPECT_FALSE(writeJpeg(path("a.jpg"), cv::Mat(), 90));
    EXPECT_FALSE(writeJpeg(path("a.jpg"), cv::Mat(1, 65501, CV_8UC3), 90));
    EXPECT_TRUE(decodeJpeg(path("a.jpg")).image);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.jpg"});
    EXPECT_TRUE(writeJpeg(path("b.jpg"), gradient(8, 8), 100'000));
    EXPECT_TRUE(writeJpeg(path("b.jpg"), gradient(8, 8), -5));
}

}  // namespace
}  // namespace vellora
