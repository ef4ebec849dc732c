#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>

#include "base/ImageView.h"
#include "ui/canvas/CanvasFixture.h"
#include "ui/canvas/CanvasLayers.h"

namespace vellora {
namespace {

/// A picture in which each pixel differs from its neighbours.
QImage pattern(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, (x ^ y) % 256));
        }
    }
    return image;
}

class CanvasLayersTest : public test::CanvasFixture {
protected:
    void openPattern(int width, int height) {
        const QString path = m_folder.filePath(QStringLiteral("pattern.png"));
        ASSERT_TRUE(pattern(width, height).save(path));
        openFile(path);
    }
};

TEST_F(CanvasLayersTest, AFineSurfaceShowsEveryPixelOfThePhoto) {
    openPattern(1200, 900);
    CanvasLayers layers(m_session);
    const QImage fine = layers.composed(2.0);
    ASSERT_EQ(fine.size(), QSize(1200, 900));
    EXPECT_EQ(fine, pattern(1200, 900));
    EXPECT_EQ(layers.composed(1.5).size(), QSize(900, 675));
    EXPECT_EQ(layers.composed(1.0).size(), QSize(600, 450));
}

TEST_F(CanvasLayersTest, AFineSurfaceShowsTheEditsOfThePhoto) {
    openPattern(1200, 900);
    CanvasLayers layers(m_session);
    m_session.flipX();
    EXPECT_TRUE(m_session.commitPicture({100, 100, 400, 325}));
    EXPECT_EQ(m_session.placedPhoto(), (Rect{150, 112, 450, 338}));
    m_session.rotateRight();
    m_node->changed = 0;
    const QImage fine = layers.composed(2.0);
    EXPECT_EQ(m_node->changed, 0) << "showing is no edit";
    EXPECT_EQ(m_record->GetProcessor()->GetCropCount(), 1);
    EXPECT_EQ(m_record->GetProcessor()->GetWidth(), 225) << "the preview stays what it was";
    // The photo in full size, edited the same way, has exactly the pixels shown.
    CPhotoProcessor full;
    full.SetNode(m_node.get());
    full.AddCropRecord(*m_record->GetProcessor()->GetCrop(0));
    full.Rebuild(false);
    ASSERT_EQ(full.GetWidth(), 450);
    const QImage expected = imageView(cv::cvarrToMat(full.GetWorking()));
    const Rect placed = m_session.placedPhoto();
    EXPECT_EQ(placed, (Rect{187, 75, 413, 375}));
    EXPECT_EQ(fine.copy(2 * placed.left, 2 * placed.top, 100, 600),
              expected.copy(0, 0, 100, 600).convertToFormat(QImage::Format_RGB32));
}

TEST_F(CanvasLayersTest, TheLiveFilterIsAppliedToTheFinePicture) {
    openPattern(1200, 900);
    const std::unique_ptr<COpencvFilterInterface> inverse(CreateFilterByName(u"Inverse"));
    CanvasLayers layers(m_session);
    layers.composed(2.0);
    m_record->GetProcessor()->SetCurrentFilter(inverse.get());
    layers.invalidateFilter();
    QImage expected = pattern(1200, 900);
    expected.invertPixels();
    EXPECT_EQ(layers.composed(2.0), expected);
    m_record->GetProcessor()->SetCurrentFilter(nullptr);
    layers.invalidateFilter();
    EXPECT_EQ(layers.composed(2.0), pattern(1200, 900));
}

TEST_F(CanvasLayersTest, APreviewOnePixelShortIsNotStretched) {
    openPattern(1600, 1200);  // reduced to 599 x 449
    ASSERT_EQ(m_record->GetProcessor()->GetWidth(), 599);
    m_record->SetBackgroundColor(0x00FF00FF);
    CanvasLayers layers(m_session);
    const QImage image = layers.composed(1.0);
    EXPECT_EQ(image.pixelColor(599, 449), QColor(255, 0, 255)) << "the colour of the mat around";
    m_record->SetCanvasSize(600, 450);
    EXPECT_EQ(image, m_record->Compose(600, 450, 0).convertToFormat(image.format()));
}

TEST_F(CanvasLayersTest, ASmallPhotoKeepsItsSizeInUnits) {
    openPattern(300, 200);
    CanvasLayers layers(m_session);
    const QImage image = layers.composed(2.0);
    EXPECT_EQ(image.pixelColor(298, 300), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(902, 300), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(600, 248), QColor(Qt::black));
    EXPECT_NE(image.pixelColor(600, 400), QColor(Qt::black));
    EXPECT_EQ(layers.composed(1.0).copy(150, 125, 300, 200), pattern(300, 200));
}

TEST_F(CanvasLayersTest, SpritesAreDrawnAtTheResolutionOfTheSurface) {
    open(Qt::white);
    QFile svg(m_folder.filePath(QStringLiteral("half.svg")));
    ASSERT_TRUE(svg.open(QIODevice::WriteOnly));
    svg.write(
        "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'>"
        "<rect width='2' height='4' fill='#f00'/></svg>");
    svg.close();
    auto clip = std::make_unique<CDVDImageProps>(m_record.get(), svg.fileName());
    clip->SetPosition(101, 101);
    clip->SetSize(51, 50);
    m_session.addSprite(std::move(clip));
    CanvasLayers layers(m_session);
    const QImage image = layers.composed(2.0);
    EXPECT_EQ(image.pixelColor(202, 250), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(252, 250), QColor(Qt::red)) << "half of 51 units are 51 pixels";
    EXPECT_EQ(image.pixelColor(253, 250), QColor(Qt::white));
}

}  // namespace
}  // namespace vellora
