#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vellora/host/ImageObj.h>
#include <vellora/host/Language.h>
#include <vellora/host/PhotoFile.h>
#include <vellora/model/DVDImageProps.h>

#include "base/JpegScans.h"
#include "base/PhotoDecoder.h"
#include "base/PictureReader.h"

namespace vellora {
namespace {

struct PictureReaderTest : testing::Test {
    QTemporaryDir folder;

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QString write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static PictureKind kindOf(const QString& file) {
        QImageReader reader(file);
        return preparePicture(reader);
    }
    /// A file of which only the start takes place.
    QString sparse(const char* name, const QByteArray& start, qint64 size) const {
        QFile file(write(name, start));
        EXPECT_TRUE(file.resize(size));
        return file.fileName();
    }
};

TEST_F(PictureReaderTest, GoesByTheContent) {
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (const char* format : {"PNG", "JPG", "BMP", "TIFF"}) {
        ASSERT_TRUE(picture.save(path("picture.svg"), format));
        EXPECT_EQ(kindOf(path("picture.svg")), PictureKind::Readable) << format;
    }
    EXPECT_EQ(kindOf(write("text.png", "a shopping list")), PictureKind::NoPicture);
    EXPECT_EQ(kindOf(path("missing.png")), PictureKind::NoPicture);
    EXPECT_EQ(kindOf(folder.path()), PictureKind::NoPicture);
    const QByteArray claims = "P6 20000 20000 255\n";
    EXPECT_EQ(kindOf(write("claims.ppm", claims)), PictureKind::TooLarge);
}

// A drawing would show any picture of the computer, or wait for a pipe for ever.
TEST_F(PictureReaderTest, NoDrawingIsReadUnderTheNameOfAPicture) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const QByteArray drawing =
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        "width='9' height='9'><rect width='9' height='9'/><image width='9' height='9' "
        "xlink:href='" +
        path("pipe").toUtf8() + "'/></svg>";
    for (const char* name : {"photo.jpg", "photo.png", "photo"}) {
        const QString file = write(name, drawing);
        EXPECT_EQ(kindOf(file), PictureKind::NoPicture);
        EXPECT_EQ(decodeWithQt(file).image, nullptr);
        PhotoInfo info;
        QString reason;
        EXPECT_FALSE(ReadPhotoInfo(file, &info, &reason));
        EXPECT_EQ(reason, QStringLiteral("is not a picture that can be read"));
        EXPECT_TRUE(CDVDImageProps::NaturalSize(file, &reason).isEmpty());
        EXPECT_EQ(reason, QStringLiteral("not a picture that can be read"));
    }
    const QDir program(QCoreApplication::applicationDirPath());
    ASSERT_TRUE(program.mkpath(QStringLiteral("lang")));
    QFile::remove(program.filePath(QStringLiteral("lang/drawing-test.png")));
    ASSERT_TRUE(
        QFile::copy(path("photo.png"), program.filePath(QStringLiteral("lang/drawing-test.png"))));
    CImageObj::SetLanguageString(write("language.ini", "[IMAGE]\n1=drawing-test.png\n"));
    ASSERT_NE(LanguageImage(1), nullptr);
    EXPECT_TRUE(LanguageImage(1)->isNull());
    CImageObj::SetLanguageString({});
}

TEST_F(PictureReaderTest, AnEndlessFileIsNoPicture) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_EQ(kindOf(path("pipe")), PictureKind::NoPicture);
    EXPECT_FALSE(fileHasExcessiveScans(path("pipe")));
    constexpr qint64 kEndless = 200LL << 30;
    const QByteArray jpeg("\xFF\xD8\xFF\xE0\x00\x04\x00\x00", 8);
    const QString photo = sparse("endless.jpg", jpeg, kEndless);
    EXPECT_EQ(decodeJpeg(photo).image, nullptr);
    EXPECT_EQ(decodeWithQt(photo).image, nullptr);
    EXPECT_FALSE(fileHasExcessiveScans(photo));
    // The reader of this format loads all of a file to tell its size.
    const QByteArray webp("RIFF\xFF\xFF\xFF\x7FWEBPVP8 \xFF\xFF\xFF\x7F", 20);
    EXPECT_EQ(kindOf(sparse("endless.webp", webp, kEndless)), PictureKind::NoPicture);
}

TEST_F(PictureReaderTest, ALargeTiffFileIsRead) {
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(path("pages.tif")));
    QFile file(path("pages.tif"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(kMaxPictureBytes + 1));
    file.close();
    EXPECT_EQ(kindOf(path("pages.tif")), PictureKind::Readable);
}

}  // namespace
}  // namespace vellora
