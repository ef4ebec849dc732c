#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <random>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zlib.h>

#include "model/ClipPicture.h"
#include "model/SvgSource.h"
#include "support/Mutation.h"
#include "writer/Writers.h"

namespace vellora {
namespace {

const QString kOtherFiles = QStringLiteral("the picture refers to other files");
const QString kTooLarge = QStringLiteral("the picture is too large");
const QString kTooDeep = QStringLiteral("the picture is nested too deeply");
const QString kTooMuchWork = QStringLiteral("the picture takes too much work to draw");
const QString kUnusable = QStringLiteral("not a usable SVG picture");

QByteArray svg(const QByteArray& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='100' height='100'>" +
           content + "</svg>";
}

QByteArray zipped(const QByteArray& data) {
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, 15 + 16, 9, Z_DEFAULT_STRATEGY);
    QByteArray result(
        static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(data.size()))),
        Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.constData()));
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.chop(stream.avail_out);
    deflateEnd(&stream);
    return result;
}

/// An image element with these bytes in it.
QByteArray image(const QByteArray& bytes, const QByteArray& kind = "image/png") {
    return "<image width='100' height='100' xlink:href='data:" + kind + ";base64," +
           bytes.toBase64() + "'/>";
}

QByteArray png(QSize size, QRgb colour) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

/// A path of lines between points that are all over a square.
QByteArray crossings(int count, int from, int to) {
    std::mt19937 random(1);
    QByteArray points = "M0 0";
    for (int i = 0; i < count; ++i) {
        const auto any = [&] {
            return QByteArray::number(from + static_cast<int>(random() % unsigned(to - from)));
        };
        points += " L" + any() + ' ' + any();
    }
    return "d='" + points + "'";
}

/// Like a map: short edges everywhere.
QByteArray map() {
    std::mt19937 random(1);
    const auto step = [&] { return (static_cast<int>(random() % 1'201U) - 600) / 1000.0; };
    QByteArray content;
    for (int shape = 0; shape < 1'000; ++shape) {
        double x = static_cast<double>(random() % 100U);
        double y = static_cast<double>(random() % 100U);
        QByteArray points = "M" + QByteArray::number(x) + ' ' + QByteArray::number(y);
        for (int i = 0; i < 50; ++i) {
            points +=
                " L" + QByteArray::number(x += step()) + ' ' + QByteArray::number(y += step());
        }
        content += "<path fill='#8a4' stroke='black' stroke-width='.1' d='" + points + "Z'/>";
    }
    return svg(content);
}

struct SvgClipTest : testing::Test {
    QTemporaryDir folder;
    QElapsedTimer time;

    void SetUp() override { time.start(); }
    void TearDown() override { EXPECT_LT(time.elapsed(), 60'000); }

    std::shared_ptr<const ClipPicture> load(const QByteArray& bytes, QString* reason = nullptr,
                                            const char* name = "clip.svg") {
        QFile file(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        // A cache would know a file of the same size and time.
        QFile::remove(folder.filePath(QStringLiteral("0") + QLatin1String(name)));
        const QString path = folder.filePath(QString::number(m_files++) + QLatin1String(name));
        EXPECT_TRUE(file.rename(path));
        return loadClip(path, reason);
    }
    QString reasonFor(const QByteArray& bytes) {
        QString reason;
        EXPECT_EQ(load(bytes, &reason), nullptr);
        return reason;
    }
    static QImage drawn(const ClipPicture& clip, QSize surface, const QRectF& target) {
        QImage picture(surface, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        clip.draw(painter, target);
        return picture;
    }

private:
    int m_files = 0;
};

TEST_F(SvgClipTest, DrawsOrdinaryClipsAsTheRendererDoes) {
    clipgen::Drawing drawing(QSizeF(240, 180));
    QPainterPath path;
    path.addEllipse(QRectF(10, 10, 160, 150));
    path.addRoundedRect(QRectF(40, 30, 170, 90), 8, 8);
    drawing.paint(path, QColor(240, 200, 40), {QColor(60, 20, 0), 3});
    drawing.outline(path, {QColor(0, 90, 160), 2, clipgen::Line::Dashes::Dash});
    drawing.text({.text = QStringLiteral("Summer"), .at = {20, 60}, .size = 30, .angle = 20});
    QImage picture(5, 4, QImage::Format_RGB32);
    picture.fill(QColor(10, 120, 60));
    drawing.picture(picture, QRectF(5, 5, 30, 30));
    const QByteArray far = svg(
        "<defs><linearGradient id='a'><stop offset='0' stop-color='red'/><stop offset='1' "
        "stop-color='blue'/></linearGradient><linearGradient id='b' xlink:href='#a'/><g id='s'>"
        "<circle cx='50' cy='50' r='20' fill='url(#b)'/></g></defs><style>.x,.y{opacity:.5}</style>"
        "<rect x='-9000' y='-9000' width='30000' height='30000' fill='#eef' stroke='red'/>"
        "<use xlink:href='#s'/><use xlink:href='#s' x='20' class='x'/>");
    constexpr QSize size(1'000, 800);
    for (const QByteArray& text : {writeSvg(drawing), far, map()}) {
        for (const QByteArray& bytes : {text, zipped(text)}) {
            QString reason;
            const auto clip = load(bytes, &reason, "clip.svgz");
            ASSERT_NE(clip, nullptr) << reason.toStdString();
            QSvgRenderer renderer(text);
            renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
            QImage expected(size, QImage::Format_ARGB32_Premultiplied);
            expected.fill(Qt::transparent);
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            renderer.render(&painter, QRectF(expected.rect()));
            painter.end();
            EXPECT_EQ(drawn(*clip, size, QRectF(expected.rect())), expected);
        }
    }
}

TEST_F(SvgClipTest, ReadsNoOtherFile) {
    const QString secret = folder.filePath(QStringLiteral("secret.png"));
    ASSERT_TRUE(QImage::fromData(png({4, 4}, qRgb(255, 0, 0))).save(secret));
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QByteArray& file :
         {secret.toUtf8(), pipe.toUtf8(), QByteArray("secret.png"), "file://" + secret.toUtf8(),
          QByteArray("data"), QByteArray("data:image/png,abc"), QByteArray("data.png;base64,"),
          "data:image/png;base64,AAAA,base64," + secret.toUtf8(),
          "data:" + secret.toUtf8() + ",x"}) {
        for (const char* name : {"xlink:href", "href", "a:href"}) {
            const QByteArray link = QByteArray(name) + "=' " + file + "'/>";
            EXPECT_EQ(reasonFor(svg("<image width='9' height='9' " + link)), kOtherFiles)
                << link.constData();
            EXPECT_EQ(reasonFor(svg("<v:image width='9' height='9' " + link)), kOtherFiles);
        }
    }
    EXPECT_EQ(reasonFor("<!DOCTYPE svg [<!ENTITY f '" + pipe.toUtf8() + "'>]>" +
                        svg("<image width='9' height='9' xlink:href='&f;'/>")),
              kOtherFiles);
    EXPECT_EQ(reasonFor("<?xml-stylesheet type=\"text/css\" href=\"" + pipe.toUtf8() + "\"?>" +
                        svg("<rect width='9' height='9'/>")),
              kOtherFiles);
    // An image without a file is skipped by the renderer.
    EXPECT_NE(load(svg("<image width='9' height='9'/><rect width='9' height='9'/>")), nullptr);
}

TEST_F(SvgClipTest, TakesImagesThatTheRendererCanDecodeAndNoDrawings) {
    const auto clip = load(svg(image(png({4, 4}, qRgb(0, 200, 0)))));
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(drawn(*clip, {50, 50}, QRectF(0, 0, 50, 50)).pixel(25, 25), qRgb(0, 200, 0));
    const QString broken = QStringLiteral("an image in the picture cannot be read");
    const QByteArray inner = svg("<image width='9' height='9' xlink:href='/dev/stdin'/>");
    EXPECT_EQ(reasonFor(svg(image(inner, "image/svg+xml"))), broken);
    EXPECT_EQ(reasonFor(svg(image(zipped(inner)))), broken);
    EXPECT_EQ(reasonFor(svg(image({}))), broken);
    QByteArray damaged = png({40, 40}, 0);
    damaged.replace(damaged.size() - 30, 8, "damaged!");
    EXPECT_EQ(reasonFor(svg(image(damaged))), broken);
    const QByteArray large = image(png({5'000, 5'000}, 0));
    EXPECT_NE(load(svg(large + large)), nullptr);
    EXPECT_EQ(reasonFor(svg(large + large + large)), kTooLarge);
}

TEST_F(SvgClipTest, BoundsWhatAFileMayHold) {
    EXPECT_EQ(reasonFor(zipped(svg(QByteArray("<g/>").repeated(5'000'000)))), kTooLarge);
    EXPECT_EQ(reasonFor(zipped(svg(QByteArray(200'000'000, ' ')))), kTooLarge);
    EXPECT_EQ(reasonFor(svg(QByteArray("<g/>").repeated(kMaxSvgElements))), kTooLarge);
    EXPECT_NE(load(svg(QByteArray("<g/>").repeated(kMaxSvgElements - 1))), nullptr);
    QFile huge(folder.filePath(QStringLiteral("huge.svg")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    ASSERT_TRUE(huge.resize(200LL << 30));
    huge.close();
    QString reason;
    EXPECT_EQ(loadClip(huge.fileName(), &reason), nullptr);
    EXPECT_EQ(reason, kTooLarge);
    const auto nested = [](int depth) {
        return svg(QByteArray("<g>").repeated(depth - 1) + QByteArray("</g>").repeated(depth - 1));
    };
    EXPECT_EQ(reasonFor(nested(kMaxSvgDepth + 1)), kTooDeep);
    EXPECT_NE(load(nested(kMaxSvgDepth)), nullptr);
    for (const QByteArray& text :
         {QByteArray(), QByteArray("no picture"), svg("<g>"), zipped(svg("")).chopped(12),
          zipped(zipped(svg("<rect width='9' height='9'/>"))), QByteArray("\x1F\x8B", 2),
          svg("").replace("100", "0"), svg("").replace("100", "1e999")}) {
        EXPECT_EQ(reasonFor(text), kUnusable) << text.left(200).constData();
    }
}

TEST_F(SvgClipTest, BoundsWhatReferencesMakeOfIt) {
    QByteArray laugh = "<rect id='g0' width='1' height='1'/>";
    QByteArray chain;
    QByteArray gradients;
    for (int i = 0; i < 9; ++i) {
        const QByteArray use = "<use xlink:href='#g" + QByteArray::number(i) + "'/>";
        laugh += "<g id='g" + QByteArray::number(i + 1) + "'>" + use.repeated(10) + "</g>";
    }
    for (int i = 0; i < 50'000; ++i) {
        const QByteArray link = "id='n" + QByteArray::number(i) + "' xlink:href='#n" +
                                QByteArray::number(i + 1) + "'/>";
        chain += "<use " + link;
        gradients += "<linearGradient " + link;
    }
    EXPECT_EQ(reasonFor(svg("<defs>" + laugh + "</defs>")), kTooMuchWork);
    EXPECT_EQ(reasonFor(svg(chain)), kTooDeep);
    EXPECT_EQ(reasonFor(svg(gradients + "<rect fill='url(#n0)' width='9' height='9'/>")), kTooDeep);
    EXPECT_EQ(reasonFor(svg("<g id='a'><use xlink:href='#b'/></g><g id='b'><use href='#a'/></g>")),
              QStringLiteral("the picture refers to itself"));
    QByteArray rules;
    for (int i = 0; i < 20'000; ++i) {
        rules += ".a" + QByteArray::number(i) + " .b{fill:red}";
    }
    EXPECT_EQ(reasonFor(svg("<style>" + rules + "</style>" +
                            QByteArray("<g class='b'/>").repeated(20'000))),
              kTooMuchWork);
}

TEST_F(SvgClipTest, BoundsTheWorkOfDrawing) {
    const QByteArray line = "fill='none' stroke='red' stroke-width='5'";
    for (const QByteArray& content :
         {QByteArray("<rect width='100' height='100' fill-opacity='.5'/>").repeated(50'000),
          "<path " + line + " d='M0 0" +
              QByteArray(" L100 100 L100 0 L0 100 L0 0").repeated(99'999) + "'/>",
          "<path " + crossings(5'000, 0, 100) + "/>",
          "<path " + line + ' ' + crossings(3'000, 0, 100) + "/>",
          "<path " + crossings(300, -100'000, 100'000) + "/>",
          "<path " + line + " stroke-dasharray='.00001' d='M0 5 L100 10'/>",
          QByteArray("<rect width='100' height='100' comp-op='soft-light'/>").repeated(500),
          "<defs>" + QByteArray(image(png({9, 9}, 0))).replace("<image", "<image id='i'") +
              "</defs>" + QByteArray("<use xlink:href='#i' transform='rotate(9)'/>").repeated(500),
          "<text y='50' font-size='5'>" + QByteArray("many words ").repeated(10'000) + "</text>"}) {
        EXPECT_EQ(reasonFor(svg(content)), kTooMuchWork) << content.left(100).constData();
    }
    EXPECT_LT(time.elapsed(), 20'000);
}

// A show may ask for any size.
TEST_F(SvgClipTest, DrawsAtAnySizeInBoundedTime) {
    const auto clip = load(svg("<path fill='red' " + crossings(800, 0, 100) +
                               "/><rect width='50' height='100' fill='blue'/>"));
    ASSERT_NE(clip, nullptr);
    constexpr double kSize = 1.0e6;
    const QRectF target(300 - kSize / 2, 200 - kSize / 2, kSize, kSize);
    const QImage picture = drawn(*clip, {600, 400}, target.translated(kSize / 100, 0));
    EXPECT_EQ(picture.pixel(300, 200), qRgb(0, 0, 255));
    EXPECT_EQ(drawn(*clip, {600, 400}, target.translated(kSize, 0)).pixel(300, 200), 0);
    EXPECT_LT(time.elapsed(), 20'000);
}

TEST_F(SvgClipTest, WeighsWhatItHolds) {
    const auto small = load(svg("<rect width='9' height='9'/>"));
    const auto large = load(map());
    const auto pictures = load(svg(image(png({3'000, 1'000}, 0))));
    ASSERT_TRUE(small != nullptr && large != nullptr && pictures != nullptr);
    EXPECT_LT(small->bytes(), 10'000);
    EXPECT_GT(large->bytes(), map().size() + 1'000 * 500);
    EXPECT_GT(pictures->bytes(), 4 * 3'000 * 1'000);
}

TEST_F(SvgClipTest, SurvivesMutations) {
    const QByteArray text =
        "<?xml version='1.0'?><!DOCTYPE svg [<!ENTITY e '10'>]>" +
        svg("<style>.c{fill:#f00;stroke:blue}</style><defs><radialGradient id='g' cx='50%' "
            "cy='50%' r='50%' fx='50%' fy='50%'><stop offset='0' "
            "stop-color='red'/></radialGradient>"
            "<g id='u'><circle cx='&e;' cy='9' r='8' class='c' stroke-dasharray='2 1'/></g></defs>"
            "<use xlink:href='#u' transform='rotate(9) scale(2)'/><text x='5' y='60'>Ab</text>"
            "<path d='M10 10 C20 20 30 5 40 40 A5 5 0 0 1 9 9 Z' fill='url(#g)'/>" +
            image(png({3, 2}, 0)));
    const QByteArray samples[] = {text, zipped(text)};
    int drawable = 0;
    for (int seed = 0; seed < test::mutationCount(); ++seed) {
        std::mt19937 random(static_cast<unsigned>(seed));
        QByteArray bytes = samples[seed % 8 == 0 ? 1 : 0];
        test::mutate(bytes, random);
        QElapsedTimer one;
        one.start();
        if (const auto clip = load(bytes)) {
            drawn(*clip, {120, 90}, QRectF(0, 0, 120, 90));
            ++drawable;
        }
        ASSERT_LT(one.elapsed(), 10'000) << "seed " << seed;
    }
    EXPECT_GT(drawable, test::mutationCount() / 50);
    time.restart();
}

}  // namespace
}  // namespace vellora
