#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <limits>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageSpriteArray.h>

namespace vellora {
namespace {

struct SpritesTest : testing::Test {
    CDVDAlbumImage owner;
    CDVDImageProps sprite{&owner};
    QTemporaryDir folder;

    void SetUp() override {
        sprite.SetPosition(10, 20);
        sprite.SetSize(100, 40);
    }
};

TEST_F(SpritesTest, HandlesRunClockwiseFromTheTopLeft) {
    const QPoint expected[] = {{10, 20},  {60, 20}, {110, 20}, {110, 40},
                               {110, 60}, {60, 60}, {10, 60},  {10, 40}};
    EXPECT_EQ(sprite.GetHandleCount(), 8);
    for (int index = 1; index <= 8; ++index) {
        EXPECT_EQ(sprite.GetHandlePoint({0, 0}, index), expected[index - 1]) << index;
        EXPECT_EQ(sprite.GetHandlePoint({-5, 7}, index), expected[index - 1] + QPoint(-5, 7));
    }
    EXPECT_EQ(sprite.GetHandlePoint({0, 0}, 9), QPoint(10, 20));
    EXPECT_EQ(sprite.GetHandlePoint({0, 0}, 0), QPoint(10, 20));
}

TEST_F(SpritesTest, HitsHandlesBeforeTheBodyAndExcludesFarEdges) {
    EXPECT_EQ(sprite.HitTest({}, {109, 59}, false), kHitBody);
    EXPECT_EQ(sprite.HitTest({}, {110, 59}, false), kHitNothing);
    EXPECT_EQ(sprite.HitTest({}, {10, 20}, false), kHitBody);
    EXPECT_EQ(sprite.HitTest({}, {107, 37}, true), 4);
    EXPECT_EQ(sprite.HitTest({}, {109, 59}, true), 5);
    EXPECT_EQ(sprite.HitTest({}, {113, 43}, true), kHitNothing) << "3 right and below is outside";
    EXPECT_EQ(sprite.HitTest({}, {7, 17}, true), 1);
    sprite.SetSize(4, 4);
    EXPECT_EQ(sprite.HitTest({}, {11, 21}, true), 1) << "the first of overlapping handles wins";
}

TEST_F(SpritesTest, CursorsFollowTheHitCode) {
    using enum SpriteCursor;
    const SpriteCursor expected[] = {Move,     SizeNWSE, SizeNWSE, SizeNS, SizeNESW, SizeWE,
                                     SizeNWSE, SizeNS,   SizeNESW, SizeWE, SizeNWSE};
    for (int hit = -1; hit <= 9; ++hit) {
        EXPECT_EQ(sprite.GetHandleCursor(hit), expected[hit + 1]) << hit;
    }
}

TEST_F(SpritesTest, RectangleTestsNormaliseReversedRectangles) {
    EXPECT_TRUE(sprite.IntersectsRect({}, {200, 100, 100, 50}));
    EXPECT_FALSE(sprite.IntersectsRect({}, {110, 20, 200, 60}));
    EXPECT_TRUE(sprite.IsInsideRect({}, {110, 60, 10, 20}));
    EXPECT_FALSE(sprite.IsInsideRect({}, {11, 20, 200, 200}));
    sprite.SetSize(-100, -40);
    EXPECT_TRUE(sprite.IsInsideRect({}, {-90, -20, 10, 20}));
}

TEST_F(SpritesTest, OnlyRealChangesMarkTheOwner) {
    CDVDAlbumImage fresh;
    CDVDImageProps other(&fresh);
    other.SetPosition(0, 0);
    other.SetSize(100, 40);
    other.SetAlbumFlag(false);
    other.SetCanvasSize(1200, 900);
    EXPECT_FALSE(fresh.IsChanged());
    other.SetAlbumFlag(true);
    EXPECT_TRUE(fresh.IsChanged());
}

TEST_F(SpritesTest, ComparisonIgnoresSizeAndCaseOfPaths) {
    CDVDImageProps a(&owner, "C:\\Clips\\Star.WMF");
    CDVDImageProps b(&owner, "c:\\clips\\star.wmf");
    b.SetSize(7, 7);
    EXPECT_TRUE(a.IsEqual(b));
    EXPECT_FALSE(a.IsNotEqual(b));
    b.SetAlbumFlag(true);
    EXPECT_TRUE(a.IsNotEqual(b));
    const CDVDImageProps copy(b);
    EXPECT_TRUE(copy.IsEqual(b));
    EXPECT_EQ(copy.GetSize(), QSize(7, 7));
    EXPECT_FALSE(a.IsEqual(CDVDImageProps(&owner, "c:\\clips\\moon.wmf")));
}

TEST_F(SpritesTest, SurvivesExtremeGeometry) {
    constexpr int kLow = std::numeric_limits<int>::min();
    constexpr int kHigh = std::numeric_limits<int>::max();
    for (const int place : {kLow, kHigh}) {
        for (const int size : {kLow, kHigh}) {
            sprite.SetPosition(place, place);
            sprite.SetSize(size, size);
            for (int index = 1; index <= 8; ++index) {
                EXPECT_NO_THROW(static_cast<void>(sprite.GetHandlePoint({kHigh, kLow}, index)));
            }
            EXPECT_EQ(sprite.HitTest({}, {0, 0}, false), kHitNothing);
            EXPECT_TRUE(sprite.IsInsideRect({}, {kLow, kLow, kHigh, kHigh}));
        }
    }
}

struct SpriteArrayTest : testing::Test {
    CDVDImageProps a{nullptr};
    CDVDImageProps b{nullptr};
    CDVDImageProps c{nullptr};
    CDVDImageProps stranger{nullptr};
    CDVDImageSpriteArray sprites;

    void SetUp() override {
        for (CDVDImageProps* sprite : {&a, &b, &c}) {
            sprites.Add(sprite);
        }
    }
    void expectOrder(std::initializer_list<CDVDImageSprite*> expected) {
        EXPECT_EQ(std::vector<CDVDImageSprite*>(sprites.begin(), sprites.end()),
                  std::vector<CDVDImageSprite*>(expected));
    }
};

TEST_F(SpriteArrayTest, MovesSpritesUpAndDown) {
    EXPECT_EQ(sprites.BringForward(&a), 1);
    expectOrder({&b, &a, &c});
    EXPECT_EQ(sprites.SendBackward(&c), 1);
    expectOrder({&b, &c, &a});
    EXPECT_EQ(sprites.BringToFront(&b), 1);
    expectOrder({&c, &a, &b});
    EXPECT_EQ(sprites.SendToBack(&b), 1);
    expectOrder({&b, &c, &a});
    EXPECT_TRUE(sprites.IsBottom(&b));
    EXPECT_TRUE(sprites.IsTop(&a));
    EXPECT_FALSE(sprites.IsTop(&b));
    // Already there: found, and nothing moves.
    EXPECT_EQ(sprites.BringForward(&a) + sprites.BringToFront(&a), 2);
    EXPECT_EQ(sprites.SendBackward(&b) + sprites.SendToBack(&b), 2);
    expectOrder({&b, &c, &a});
}

TEST_F(SpriteArrayTest, AnswersForStrangers) {
    for (CDVDImageSprite* unknown :
         {static_cast<CDVDImageSprite*>(&stranger), static_cast<CDVDImageSprite*>(nullptr)}) {
        EXPECT_EQ(sprites.IndexOf(unknown), -1);
        EXPECT_EQ(sprites.BringForward(unknown), 0);
        EXPECT_EQ(sprites.SendBackward(unknown), 0);
        EXPECT_EQ(sprites.BringToFront(unknown), 0);
        EXPECT_EQ(sprites.SendToBack(unknown), 0);
        EXPECT_EQ(sprites.Remove(unknown), 0);
        EXPECT_FALSE(sprites.IsTop(unknown));
        EXPECT_FALSE(sprites.IsBottom(unknown));
    }
    EXPECT_EQ(sprites.IndexOf(&c), 2);
    EXPECT_EQ(sprites.Remove(&b), 1);
    expectOrder({&a, &c});
    EXPECT_THROW(static_cast<void>(sprites.GetAt(2)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(sprites.GetAt(-1)), std::out_of_range);
}

struct ArtClipTest : testing::Test {
    QTemporaryDir folder;
    QImage canvas{1200, 900, QImage::Format_RGB32};

    /// Draws a clip at (100, 50) of 200 x 100 units on a canvas of twice the stage's size.
    void draw(const QString& file, int mode = kDrawPlain) {
        canvas.fill(Qt::white);
        CDVDImageProps clip(nullptr, file);
        clip.SetPosition(100, 50);
        clip.SetSize(200, 100);
        clip.SetCanvasSize(1200, 900);
        QPainter painter(&canvas);
        EXPECT_EQ(clip.Draw(painter, {0, 0}, mode), file.isEmpty() ? 0 : 1);
        EXPECT_TRUE(painter.transform().isIdentity());
    }
    QRgb at(int x, int y) { return canvas.pixel(x, y); }
    bool isBlank() {
        QImage blank(canvas.size(), canvas.format());
        blank.fill(Qt::white);
        return canvas == blank;
    }
};

TEST_F(ArtClipTest, StretchesPicturesAndKeepsTheirAlpha) {
    QImage picture(20, 10, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            picture.setPixel(x, y, qRgba(255, 0, 0, x < 5 ? 255 : 128));
        }
    }
    for (const char* name : {"clip.png", "clip.tif"}) {
        ASSERT_TRUE(picture.save(folder.filePath(name)));
        draw(folder.filePath(name));
        EXPECT_EQ(at(220, 150), qRgb(255, 0, 0)) << name;
        EXPECT_NEAR(qGreen(at(350, 150)), 127, 2) << name;
        EXPECT_EQ(at(550, 150), qRgb(255, 255, 255)) << name;
        EXPECT_EQ(at(199, 150), qRgb(255, 255, 255)) << name;
        EXPECT_EQ(at(220, 99), qRgb(255, 255, 255)) << name;
        EXPECT_EQ(at(220, 299), qRgb(255, 0, 0)) << name;
        EXPECT_EQ(at(220, 300), qRgb(255, 255, 255)) << name;
    }
    for (const char* name : {"clip.bmp", "clip.jpg"}) {
        ASSERT_TRUE(picture.convertToFormat(QImage::Format_RGB32).save(folder.filePath(name)));
        draw(folder.filePath(name));
        EXPECT_GT(qRed(at(220, 150)), 240) << name;
    }
}

TEST_F(ArtClipTest, RendersVectorsAtTheSizeAtWhichTheyAreShown) {
    QFile file(folder.filePath("clip.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10">)"
               R"(<rect x="5" y="0" width="5" height="10" fill="#00f"/></svg>)");
    file.close();
    draw(file.fileName());
    // Scaled twentyfold, the edges stay as sharp as a pixel.
    EXPECT_EQ(at(299, 150), qRgb(255, 255, 255));
    EXPECT_EQ(at(300, 150), qRgb(0, 0, 255));
    EXPECT_EQ(at(399, 150), qRgb(0, 0, 255));
    EXPECT_EQ(at(400, 150), qRgb(255, 255, 255));
    EXPECT_EQ(CDVDImageProps::NaturalSize(file.fileName()), QSizeF(20, 10));
}

TEST_F(ArtClipTest, ReducesLargePicturesWithoutLosingDetail) {
    // One-pixel stripes average to grey instead of aliasing.
    QImage stripes(4000, 2000, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(stripes.scanLine(y));
        for (int x = 0; x < stripes.width(); ++x) {
            row[x] = x % 2 == 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
        }
    }
    ASSERT_TRUE(stripes.save(folder.filePath("stripes.png")));
    draw(folder.filePath("stripes.png"));
    EXPECT_NEAR(qRed(at(333, 177)), 128, 2);
    EXPECT_NEAR(qRed(at(334, 178)), 128, 2);
}

TEST_F(ArtClipTest, DrawsNothingWithoutAUsableFile) {
    QFile broken(folder.filePath("broken.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    for (const QString& file : {QString(), folder.filePath("missing.png"), folder.path(),
                                folder.filePath("broken.png")}) {
        draw(file);
        EXPECT_TRUE(isBlank()) << file.toStdString();
    }
    QString reason;
    EXPECT_TRUE(CDVDImageProps::NaturalSize(folder.filePath("missing.png"), &reason).isEmpty());
    EXPECT_EQ(reason, "no such file");
}

TEST_F(ArtClipTest, ReadsAFileAgainWhenItHasChanged) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder.filePath("clip.png")));
    draw(folder.filePath("clip.png"));
    EXPECT_EQ(at(300, 200), qRgb(255, 0, 0));
    QImage larger(3, 3, QImage::Format_RGB32);
    larger.fill(Qt::green);
    ASSERT_TRUE(larger.save(folder.filePath("clip.png")));
    QFile file(folder.filePath("clip.png"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime);
    file.close();
    draw(folder.filePath("clip.png"));
    EXPECT_EQ(at(300, 200), qRgb(0, 255, 0));
}

TEST_F(ArtClipTest, MarksASelectedSprite) {
    QImage picture(2, 2, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    ASSERT_TRUE(picture.save(folder.filePath("clip.png")));
    draw(folder.filePath("clip.png"), kDrawSelected);
    // Handle 5 at (300, 150) units is the square from 297 to 304, twice that in pixels, of colour
    // (0, 168, 255) at alpha 200 over white.
    EXPECT_NEAR(qRed(at(606, 306)), 55, 2);
    EXPECT_NEAR(qGreen(at(606, 306)), 187, 2);
    EXPECT_EQ(qBlue(at(606, 306)), 255);
    EXPECT_EQ(at(609, 309), qRgb(255, 255, 255));
    draw(folder.filePath("clip.png"), kDrawPlain);
    EXPECT_TRUE(isBlank());
}

}  // namespace
}  // namespace vellora
