#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QTemporaryDir>
#include <limits>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vellora/text/EffectCatalogue.h>

#include "text/TextBrushMaker.h"
#include "text/TextureCache.h"

namespace vellora {
namespace {

TextBrushSettings gradientSettings(std::int32_t percent, std::int32_t angle = 0) {
    TextBrushSettings settings;
    settings.type = kGradientBrush;
    settings.colour1 = 0x0000FF;
    settings.colour2 = 0xFF0000;
    settings.angle = angle;
    settings.position_percent = percent;
    return settings;
}

QGradientStops stopsOf(TextBrushSettings& settings) {
    const QBrush brush = MakeTextBrush(QRectF(0, 0, 100, 50), settings, {});
    return brush.gradient() != nullptr ? brush.gradient()->stops() : QGradientStops();
}

TEST(MakeTextBrush, PaintsUnknownKindsAsSolid) {
    for (const std::int32_t type : {0, 7, -1, std::numeric_limits<std::int32_t>::max()}) {
        TextBrushSettings settings = TextBrushSettings::Solid(0xFF8040C0);
        settings.type = type;
        const QBrush brush = MakeTextBrush(QRectF(0, 0, 10, 10), settings, {});
        EXPECT_EQ(brush.style(), Qt::SolidPattern);
        EXPECT_EQ(brush.color(), QColor(0xC0, 0x40, 0x80)) << "opaque, red in the low byte";
    }
}

TEST(MakeTextBrush, PutsTheTurnOfAGradientWhereItIsAsked) {
    const QColor first(255, 0, 0);
    const QColor second(0, 0, 255);
    struct {
        std::int32_t percent, stored;
        double turn;
    } cases[] = {{45, 45, 0.45}, {130, 40, 0.40}, {95, 5, 0.05}, {89, 89, 0.89}};
    for (const auto& [percent, stored, turn] : cases) {
        TextBrushSettings settings = gradientSettings(percent);
        const QGradientStops stops = stopsOf(settings);
        EXPECT_EQ(settings.position_percent, stored);
        ASSERT_EQ(stops.size(), 4);
        EXPECT_EQ(stops[0], QGradientStop(0.0, first));
        EXPECT_EQ(stops[1].second, first);
        EXPECT_NEAR(stops[1].first, turn, 1e-9);
        EXPECT_EQ(stops[2].second, second);
        EXPECT_NEAR(stops[2].first, turn + 0.05, 1e-9);
        EXPECT_EQ(stops[3], QGradientStop(1.0, second));
    }
    // A percent that reduces to nothing turns at once; the next brush is smooth.
    TextBrushSettings settings = gradientSettings(90);
    EXPECT_EQ(stopsOf(settings).size(), 3);
    EXPECT_EQ(settings.position_percent, 0);
    EXPECT_EQ(stopsOf(settings),
              QGradientStops({QGradientStop(0.0, first), QGradientStop(1.0, second)}));
    for (const std::int32_t hostile : {-5, -95, std::numeric_limits<std::int32_t>::min()}) {
        settings = gradientSettings(hostile, hostile);
        EXPECT_FALSE(stopsOf(settings).isEmpty());
    }
}

TEST(MakeTextBrush, RunsAGradientFromCornerToCorner) {
    const auto line = [](std::int32_t angle) {
        TextBrushSettings settings = gradientSettings(0, angle);
        const QBrush brush = MakeTextBrush(QRectF(10, 20, 200, 100), settings, {});
        return *static_cast<const QLinearGradient*>(brush.gradient());
    };
    const auto expectPoint = [](QPointF point, double x, double y) {
        EXPECT_NEAR(point.x(), x, 1e-6);
        EXPECT_NEAR(point.y(), y, 1e-6);
    };
    expectPoint(line(0).start(), 10, 70);
    expectPoint(line(0).finalStop(), 210, 70);
    expectPoint(line(90).start(), 110, 20);
    expectPoint(line(450).finalStop(), 110, 120);
    expectPoint(line(180).start(), 210, 70);
    // At 45 degrees the ends lie level with the corners: half of (200 + 100) / sqrt 2 from the
    // middle along the diagonal.
    expectPoint(line(45).start(), 110 - 75, 70 - 75);
    expectPoint(line(45).finalStop(), 110 + 75, 70 + 75);
    TextBrushSettings settings = gradientSettings(0);
    EXPECT_EQ(MakeTextBrush(QRectF(), settings, {}).style(), Qt::NoBrush);
}

struct TextureTest : testing::Test {
    QTemporaryDir base;
    TextBrushSettings settings;

    void SetUp() override {
        settings.type = kTextureBrush;
        ASSERT_TRUE(QDir(base.path()).mkpath("texteffect/texture/inner"));
        save("texteffect/texture/a.png", Qt::red, 4);
        save("texteffect/texture/inner/deep.png", Qt::green, 4);
        save("texteffect/outside.png", Qt::blue, 4);
    }
    QString path(const QString& name) { return base.filePath(name); }
    void save(const QString& name, const QColor& colour, int side) {
        QImage picture(side, side, QImage::Format_RGB32);
        picture.fill(colour);
        ASSERT_TRUE(picture.save(path(name)));
    }
    QBrush brush(const QString& name, double detail = 1.0) {
        settings.SetTextureName(name);
        return MakeTextBrush(QRectF(0, 0, 10, 10), settings, TextureFolder(base.path()), detail);
    }
};

TEST_F(TextureTest, ComesFromTheTextureFolderOnly) {
    EXPECT_EQ(brush("a.png").textureImage().pixelColor(0, 0), QColor(Qt::red));
    for (const QString& name :
         {QString(), QString("missing.png"), QString("."), QString(".."), QString("inner"),
          QString("inner/deep.png"), QString("inner\\deep.png"), QString("../outside.png"),
          QString("..\\outside.png"), path("texteffect/outside.png"), QString("C:a.png"),
          QString("a.png") + QChar(0) + "/../outside.png"}) {
        const QBrush made = brush(name);
        EXPECT_TRUE(made.style() == Qt::NoBrush ||
                    made.textureImage().pixelColor(0, 0) == QColor(Qt::red))
            << name.toStdString();
    }
    EXPECT_EQ(texturePath(QString(), "a.png"), QString());
}

TEST_F(TextureTest, NothingThatIsNoPictureIsPainted) {
    const auto write = [&](const char* name, const QByteArray& bytes) {
        QFile file(path(QString("texteffect/texture/") + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    write("broken.png", "\x89PNG\r\n\x1a\nnothing more");
    write("empty.png", "");
    // Whoever reads it waits for ever.
    ASSERT_EQ(mkfifo(QFile::encodeName(path("texteffect/texture/pipe")).constData(), 0600), 0);
    write("names.png",
          "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
          "width='8' height='8'><image width='8' height='8' xlink:href='" +
              path("texteffect/texture/pipe").toUtf8() + "'/></svg>");
    EXPECT_EQ(brush("broken.png").style(), Qt::NoBrush);
    EXPECT_EQ(brush("empty.png").style(), Qt::NoBrush);
    EXPECT_EQ(brush("names.png").style(), Qt::NoBrush) << "a drawing may name other files";
}

TEST_F(TextureTest, AHugePictureKeepsItsSizeButNotItsPixels) {
    QImage huge(6000, 3, QImage::Format_RGB32);
    huge.fill(Qt::red);
    for (int y = 0; y < 3; ++y) {
        std::fill_n(reinterpret_cast<QRgb*>(huge.scanLine(y)) + 3000, 3000, qRgb(0, 0, 255));
    }
    ASSERT_TRUE(huge.save(path("texteffect/texture/huge.png")));
    const QBrush whole = brush("huge.png");
    EXPECT_EQ(whole.textureImage().size(), QSize(4096, 2));
    EXPECT_EQ(whole.transform().map(QPointF(4096, 2)), QPointF(6000, 3));
    EXPECT_EQ(whole.textureImage().pixelColor(2040, 0), QColor(Qt::red));
    EXPECT_EQ(whole.textureImage().pixelColor(2056, 0), QColor(Qt::blue));
    EXPECT_EQ(brush("huge.png", 0.5).textureImage().width(), 4096) << "no detail is lost";
    EXPECT_EQ(brush("huge.png", 0.3).textureImage().width(), 2048);
}

TEST_F(TextureTest, IsReadAgainWhenTheFileChanges) {
    EXPECT_EQ(brush("a.png").textureImage().size(), QSize(4, 4));
    save("texteffect/texture/a.png", Qt::yellow, 6);
    EXPECT_EQ(brush("a.png").textureImage().size(), QSize(6, 6));
    save("texteffect/texture/a.png", Qt::cyan, 6);
    QFile file(path("texteffect/texture/a.png"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addSecs(7), QFileDevice::FileModificationTime);
    file.close();
    EXPECT_EQ(brush("a.png").textureImage().pixelColor(0, 0), QColor(Qt::cyan));
    ASSERT_TRUE(QFile::remove(path("texteffect/texture/a.png")));
    EXPECT_EQ(brush("a.png").style(), Qt::NoBrush);
}

TEST_F(TextureTest, ShowsItsMeanWhenItIsReduced) {
    QImage board(33, 16, QImage::Format_RGB32);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 33; ++x) {
            board.setPixel(x, y, (x + y) % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        }
    }
    ASSERT_TRUE(board.save(path("texteffect/texture/board.png")));
    const QBrush reduced = brush("board.png", 0.25);
    EXPECT_EQ(reduced.textureImage().size(), QSize(8, 4));
    EXPECT_NEAR(qRed(reduced.textureImage().pixel(3, 2)), 128, 12);
    // Its period stays that of the whole picture.
    EXPECT_NEAR(reduced.transform().m11() * 8, 33, 1e-9);
    EXPECT_NEAR(reduced.transform().m22() * 4, 16, 1e-9);
    EXPECT_EQ(brush("board.png", 0.8).textureImage().size(), QSize(33, 16));
    EXPECT_FALSE(brush("board.png", 1e-12).textureImage().isNull());
}

TEST_F(TextureTest, ListsFilesByName) {
    save("texteffect/texture/B.png", Qt::red, 2);
    EXPECT_EQ(ListTextures(base.path()).size(), 2);
    EXPECT_TRUE(ListTextures(base.path()).contains("a.png"));
    EXPECT_TRUE(ListTextures(base.filePath("nowhere")).isEmpty());
#if defined(Q_OS_UNIX)
    for (const char* name : {"a:b.png", "wood: dark.png", "a\\b.png", "c d.png"}) {
        save(QString("texteffect/texture/") + name, Qt::red, 2);
    }
    EXPECT_EQ(ListTextures(base.path()).size(), 3) << "c d.png only";
    for (const QString& name : ListTextures(base.path())) {
        EXPECT_NE(brush(name).style(), Qt::NoBrush) << name.toStdString();
    }
#endif
}

}  // namespace
}  // namespace vellora
