#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "base/ImageView.h"
#include "base/JpegEncoder.h"
#include "base/ModuleState.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

constexpr QRgb kBack = qRgb(10, 20, 30);
constexpr QRgb kPhoto = qRgb(200, 100, 50);

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

struct DVDImageTest : testing::Test {
    QTemporaryDir folder;
    std::unique_ptr<_PHOTO_LIST_NODE> node;
    CDVDAlbumImage album;
    CDVDImage image;

    void bindPhoto(int width, int height) {
        node = test::record(colourFile(QStringLiteral("photo"), width, height, kPhoto));
        image.BindNode(node.get(), &album);
        image.SetBackgroundColor(makeColorRef(10, 20, 30));
        image.GetProcessor()->Rebuild(false);
    }

    ~DVDImageTest() override { image.BindNode(nullptr, nullptr); }

    QString colourFile(const QString& name, int width, int height, QRgb colour) {
        return test::writePng(folder, name + QStringLiteral(".png"),
                              cv::Mat(height, width, CV_8UC3,
                                      cv::Scalar(qBlue(colour), qGreen(colour), qRed(colour))));
    }

    void addClip(CSpriteHolder& holder, const QString& name, QRgb colour, QRect place) {
        auto* clip = new CDVDImageProps(&holder, colourFile(name, 4, 4, colour));
        clip->SetPosition(place.x(), place.y());
        clip->SetSize(place.width(), place.height());
        ASSERT_EQ(holder.AddSprite(clip, false), 1);
    }

    /// The rectangle of the canvas that the photo covers.
    QRect photoArea(int fitMode) {
        const QImage picture =
            image.Compose(image.GetCanvasWidth(), image.GetCanvasHeight(), fitMode);
        QRect area;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) != kBack) {
                    area |= QRect(x, y, 1, 1);
                }
            }
        }
        return area;
    }
};

// A photo alone goes into the file without a surface; nothing else may.
TEST_F(DVDImageTest, SavesWhatItComposes) {
    const auto expectAsComposed = [this](const char* what, int fitMode) {
        SCOPED_TRACE(what);
        const QString saved = folder.filePath(QStringLiteral("saved.jpg"));
        const QString composed = folder.filePath(QStringLiteral("composed.jpg"));
        EXPECT_EQ(image.SaveAsJpeg(saved, 90, fitMode), 1);
        QImage surface = image.Compose(image.GetCanvasWidth(), image.GetCanvasHeight(), fitMode);
        ASSERT_TRUE(writeJpeg(composed, matView(surface), 90));
        EXPECT_EQ(bytesOf(saved), bytesOf(composed));
    };
    bindPhoto(333, 222);
    expectAsComposed("a wider canvas", 0);
    image.SetCanvasSize(333, 222);
    expectAsComposed("the photo alone", 0);
    expectAsComposed("the photo alone", 1);
    addClip(album, QStringLiteral("album"), qRgb(0, 255, 0), QRect(100, 100, 200, 200));
    expectAsComposed("a clip of the album", 0);
    node->suppress_sprites = 1;
    expectAsComposed("suppressed clips", 0);
    album.RemoveSprite(*album.GetSprites().begin(), true);
    node->suppress_sprites = 0;
    addClip(image, QStringLiteral("own"), qRgb(0, 0, 255), QRect(50, 50, 100, 100));
    expectAsComposed("a clip of its own", 0);
}

TEST_F(DVDImageTest, PlacesPhotosOnTheCanvas) {
    bindPhoto(300, 200);
    EXPECT_EQ(photoArea(0), QRect(234, 188, 300, 200));
    EXPECT_EQ(photoArea(1), QRect(234, 188, 300, 200));

    bindPhoto(1920, 1080);
    image.GetProcessor()->ReleaseImages();
    image.GetProcessor()->Rebuild(false);
    EXPECT_EQ(photoArea(0), QRect(0, 72, 768, 432));
    EXPECT_EQ(photoArea(1), QRect(0, 0, 768, 576));
}

// Scaled as a whole it would have 2,160,000 x 1,080 pixels.
TEST_F(DVDImageTest, AStripeOfAPhotoFillsTheCanvas) {
    bindPhoto(2000, 1);
    image.SetCanvasSize(1920, 1080);
    EXPECT_EQ(photoArea(1), QRect(0, 0, 1920, 1080));
    bindPhoto(1, 3000);
    EXPECT_EQ(photoArea(1), QRect(0, 0, 1920, 1080));
}

TEST_F(DVDImageTest, AnAlbumThatIsGoneCountsAsNone) {
    bindPhoto(600, 450);
    {
        CDVDAlbumImage shortLived;
        addClip(shortLived, QStringLiteral("clip"), qRgb(0, 0, 250), {0, 0, 100, 100});
        image.BindNode(node.get(), &shortLived);
        EXPECT_EQ(image.GetAlbum(), &shortLived);
    }
    EXPECT_EQ(image.GetAlbum(), nullptr);
    image.SetCanvasSize(600, 450);
    EXPECT_EQ(image.Compose(600, 450, 0).pixel(50, 50), kPhoto);
}

TEST_F(DVDImageTest, DrawsAlbumSpritesBeneathThePhotosOwn) {
    bindPhoto(1200, 900);
    image.SetCanvasSize(1200, 900);
    addClip(image, QStringLiteral("own"), qRgb(0, 0, 255), {100, 100, 50, 50});
    addClip(album, QStringLiteral("first"), qRgb(255, 0, 0), {120, 100, 50, 50});
    addClip(album, QStringLiteral("second"), qRgb(0, 255, 0), {140, 100, 50, 50});

    const QImage picture = image.Compose(1200, 900, 0);
    EXPECT_EQ(picture.pixel(199, 210), kPhoto);
    EXPECT_EQ(picture.pixel(299, 210), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(301, 210), qRgb(0, 255, 0));
    EXPECT_EQ(picture.pixel(379, 299), qRgb(0, 255, 0));
    EXPECT_EQ(picture.pixel(379, 300), kPhoto);

    node->suppress_sprites = 1;
    EXPECT_EQ(image.Compose(1200, 900, 0).pixel(299, 210), kPhoto);
}

TEST_F(DVDImageTest, ARegionMovesPhotoAndSprites) {
    bindPhoto(300, 200);
    image.SetCanvasSize(1200, 900);
    addClip(image, QStringLiteral("own"), qRgb(0, 0, 255), {60, 45, 10, 10});
    image.SetRegion(121, 91);
    const QImage picture = image.Compose(300, 200, 0);
    EXPECT_EQ(picture.pixel(0, 0), qRgb(0, 0, 255)) << "origin 121 / 2 truncates to 60 units";
    EXPECT_EQ(picture.pixel(19, 19), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(20, 19), kPhoto);
    EXPECT_EQ(picture.pixel(299, 199), kPhoto);
    image.ClearRegion();
    EXPECT_EQ(image.Compose(1200, 900, 0).pixel(0, 0), kBack);
}

TEST_F(DVDImageTest, EveryChangeOfTheListMarksThePhoto) {
    bindPhoto(30, 20);
    CDVDImageProps clip(nullptr, QStringLiteral("x.png"));
    const auto changed = [&] { return std::exchange(node->changed, 0); };
    changed();
    EXPECT_EQ(image.AddSprite(nullptr, false), 0);
    EXPECT_EQ(image.RemoveSprite(&clip, false), 0);
    EXPECT_EQ(changed(), 0);
    EXPECT_EQ(image.AddSprite(&clip, true), 1);
    EXPECT_EQ(changed(), 1);
    image.GetSprites().GetAt(0)->SetPosition(3, 4);
    EXPECT_EQ(changed(), 1);
    EXPECT_EQ(image.RemoveSprite(image.GetSprites().GetAt(0), true), 1);
    EXPECT_EQ(changed(), 1);
    EXPECT_EQ(image.ClearSprites(true), 1);
    EXPECT_EQ(changed(), 1);
}

TEST_F(DVDImageTest, StartsUnboundAndFollowsTheRecordOnRequest) {
    EXPECT_EQ(image.GetAngle(), -90);
    EXPECT_EQ(image.GetCanvasWidth(), 768);
    EXPECT_EQ(image.GetCanvasHeight(), 576);
    EXPECT_STREQ(image.GetRuntimeClass()->m_lpszClassName, "CDVDImage");
    image.SyncAngleFromNode();
    EXPECT_EQ(image.GetAngle(), -90);
    // Drawn without a photo: nothing but background.
    EXPECT_EQ(image.Compose(5, 5, 0).pixel(2, 2), qRgb(0, 0, 0));
    EXPECT_TRUE(image.Compose(0, 5, 0).isNull());

    bindPhoto(30, 20);
    node->rotation = 180;
    image.SyncAngleFromNode();
    EXPECT_EQ(image.GetAngle(), 180);
    EXPECT_EQ(currentBackground(), makeColorRef(10, 20, 30));
}

}  // namespace
}  // namespace vellora
