#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "base/ImageView.h"
#include "base/ModuleState.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

/// One photo on disk, its host record and its node.
struct Photo {
    explicit Photo(const QString& path) : record(test::record(path)) {
        EXPECT_EQ(document.AddPhotoListNode(record.get(), &node), S_OK);
    }
    ~Photo() { ReleaseNode(node); }
    Photo(const Photo&) = delete;
    Photo& operator=(const Photo&) = delete;

    CDVDImage& edits() const { return *node->data->image; }

    /// The finished picture; empty when there is none.
    cv::Mat render(int width, int height) const {
        ImagePtr target;
        const IplImage* result = GetOutImg(node, width, height, [&](IplImage** out, int w, int h) {
            target = makeImage(w, h);
            *out = target.get();
        });
        EXPECT_EQ(result, target.get());
        return target != nullptr ? cv::cvarrToMat(target.get(), true) : cv::Mat();
    }

    void addClip(const QString& file, QRect place) const {
        auto* clip = new CDVDImageProps(&edits(), file);
        clip->SetPosition(place.x(), place.y());
        clip->SetSize(place.width(), place.height());
        edits().AddSprite(clip, false);
    }

    std::unique_ptr<_PHOTO_LIST_NODE> record;
    CImageObj document;
    _HNODE* node = nullptr;
};

struct OutputImageTest : testing::Test {
    QTemporaryDir folder;

    QString photo(int width, int height) {
        return test::writePng(folder, QStringLiteral("%1x%2.png").arg(width).arg(height),
                              test::gradient(width, height));
    }
    QString red() {
        return test::writePng(folder, QStringLiteral("red.png"),
                              cv::Mat(8, 8, CV_8UC3, cv::Scalar(0, 0, 255)));
    }
};

const cv::Vec3b kRed(0, 0, 255);

TEST_F(OutputImageTest, ReturnsTheProcessedPixelsUnchangedAtEverySize) {
    struct Case {
        int width, height;
        int asked;
    };
    for (const Case& size :
         {Case{400, 300, 1}, Case{1200, 900, 0}, Case{601, 451, 0}, Case{1600, 900, 0},
          Case{333, 1999, 0}, Case{1, 1, 1}, Case{599, 901, 0}, Case{1, 700, 0}}) {
        const Photo shown(photo(size.width, size.height));
        EXPECT_TRUE(test::identical(shown.render(size.asked, size.asked),
                                    test::gradient(size.width, size.height)))
            << size.width << " x " << size.height;
    }
}

TEST_F(OutputImageTest, CutsTheStageToThePhoto) {
    // A photo smaller than the stage lies at (100, 75) on it.
    const Photo small(photo(400, 300));
    small.addClip(red(), {100, 75, 20, 10});
    cv::Mat picture = small.render(0, 0);
    ASSERT_EQ(picture.size(), cv::Size(400, 300));
    EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), kRed);
    EXPECT_EQ(picture.at<cv::Vec3b>(9, 19), kRed);
    EXPECT_NE(picture.at<cv::Vec3b>(10, 19), kRed);
    EXPECT_NE(picture.at<cv::Vec3b>(9, 20), kRed);
    EXPECT_EQ(small.edits().GetCanvasWidth(), 600);
    EXPECT_EQ(small.edits().GetCanvasHeight(), 450);

    // At twice the stage a sprite doubles.
    const Photo large(photo(1200, 900));
    large.addClip(red(), {50, 40, 20, 10});
    picture = large.render(0, 0);
    ASSERT_EQ(picture.size(), cv::Size(1200, 900));
    EXPECT_EQ(picture.at<cv::Vec3b>(80, 100), kRed);
    EXPECT_EQ(picture.at<cv::Vec3b>(99, 139), kRed);
    EXPECT_NE(picture.at<cv::Vec3b>(79, 100), kRed);
    EXPECT_NE(picture.at<cv::Vec3b>(80, 140), kRed);
    EXPECT_EQ(large.edits().GetCanvasWidth(), 1200);

    // 1600 divided by the held 1600 / 600 is just below 600; the region starts 56 lines down.
    const Photo wide(photo(1600, 900));
    wide.addClip(red(), {0, 56, 30, 30});
    picture = wide.render(320, 240);
    ASSERT_EQ(picture.size(), cv::Size(599, 337));
    EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), kRed);
    EXPECT_NE(picture.at<cv::Vec3b>(30, 0), kRed);
    EXPECT_EQ(wide.edits().GetCanvasWidth(), 600);
    EXPECT_EQ(wide.edits().GetCanvasHeight(), 450);
}

TEST_F(OutputImageTest, AskedSizeOnlyChoosesTheDecodingAndTheFirstBuildIsKept) {
    const Photo shown(photo(1200, 900));
    const cv::Mat preview = shown.render(320, 240);
    ASSERT_EQ(preview.size(), cv::Size(600, 450));
    EXPECT_TRUE(test::identical(shown.render(0, 0), preview)) << "the first build is kept";
    ReleaseImgBuf(shown.node);
    EXPECT_TRUE(test::identical(shown.render(1, 1), preview));
    ReleaseImgBuf(shown.node);
    EXPECT_EQ(shown.render(0, 7).size(), cv::Size(1200, 900));
}

TEST_F(OutputImageTest, RendersFiltersAndFlips) {
    const Photo shown(photo(40, 30));
    shown.record->flip_x = 1;
    shown.record->flip_y = 1;
    shown.edits().GetProcessor()->AddFilterToChain(CreateFilterByName(u"Inverse"));
    cv::Mat expected = test::gradient(40, 30);
    cv::bitwise_not(expected, expected);
    cv::flip(expected, expected, 0);
    cv::flip(expected, expected, 1);
    EXPECT_TRUE(test::identical(shown.render(0, 0), expected));
    EXPECT_EQ(shown.record->changed, 1) << "a flip during the build marks the photo";
}

TEST_F(OutputImageTest, FillsOnlyWhatTheHostSupplies) {
    const Photo shown(photo(64, 48));
    ImagePtr target = makeImage(10, 100);
    cv::Mat view = cv::cvarrToMat(target.get());
    view.setTo(cv::Scalar(9, 9, 9));
    EXPECT_EQ(GetOutImg(shown.node, 0, 0, [&](IplImage** out, int, int) { *out = target.get(); }),
              target.get());
    EXPECT_TRUE(test::identical(view(cv::Rect(0, 0, 10, 48)).clone(),
                                test::gradient(64, 48)(cv::Rect(0, 0, 10, 48)).clone()));
    EXPECT_EQ(view.at<cv::Vec3b>(48, 0), cv::Vec3b(9, 9, 9));
    EXPECT_EQ(GetOutImg(shown.node, 0, 0, [](IplImage**, int, int) {}), nullptr);
    EXPECT_EQ(GetOutImg(shown.node, 0, 0, nullptr), nullptr);
}

TEST_F(OutputImageTest, GivesNothingForAPhotoThatCannotBeDecoded) {
    const QString broken = folder.filePath(QStringLiteral("broken.jpg"));
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a picture");
    file.close();
    for (const QString& path :
         {broken, folder.filePath(QStringLiteral("missing.png")), folder.path(), QString()}) {
        const Photo shown(path);
        bool called = false;
        EXPECT_EQ(GetOutImg(shown.node, 1, 1, [&](IplImage**, int, int) { called = true; }),
                  nullptr);
        EXPECT_FALSE(called);
        ReleaseImgBuf(shown.node);
    }
    EXPECT_EQ(GetOutImg(nullptr, 1, 1, nullptr), nullptr);
}

struct SaveNodeTest : OutputImageTest {
    QString output = folder.filePath(QStringLiteral("out.jpg"));

    QImage saved(Photo& shown, int width, int height, int mode, DWORD colour = 0) {
        QFile::remove(output);
        EXPECT_EQ(shown.document.SaveNodeToFile(output, 0, width, height, 95, 0, mode, colour),
                  S_OK);
        return QImage(output);
    }
};

TEST_F(SaveNodeTest, FitsExactlyInMode100AndStoresTheSize) {
    Photo shown(photo(1200, 900));
    EXPECT_EQ(saved(shown, 800, 800, 100).size(), QSize(800, 600));
    EXPECT_EQ(shown.record->output_width, 800);
    EXPECT_EQ(shown.record->output_height, 600);
    EXPECT_EQ(shown.edits().GetProcessor()->GetWorking(), nullptr) << "decoded again next time";

    EXPECT_EQ(saved(shown, 0, 500, 100).size(), QSize(1200, 900));
    EXPECT_EQ(saved(shown, 0, 0, 0).size(), QSize(1200, 900));
}

TEST_F(SaveNodeTest, FitsInsideOrFillsTheAskedSize) {
    Photo shown(photo(1200, 900));
    shown.record->rotation = 0;
    QImage inside = saved(shown, 600, 600, 0, makeColorRef(0, 200, 0));
    ASSERT_EQ(inside.size(), QSize(600, 600));
    EXPECT_NEAR(inside.pixelColor(300, 30).green(), 200, 4);
    EXPECT_NEAR(inside.pixelColor(300, 30).red(), 0, 4);
    EXPECT_EQ(currentBackground(), makeColorRef(0, 200, 0));
    EXPECT_EQ(shown.record->output_width, 0) << "only mode 100 stores a size";

    const QImage filled = saved(shown, 600, 600, 1, makeColorRef(0, 200, 0));
    ASSERT_EQ(filled.size(), QSize(600, 600));
    // An eighth of the picture lies outside at either side; blue grows from left to right.
    const QImage edge = filled.copy(0, 0, 40, 600).scaled(1, 1, {}, Qt::SmoothTransformation);
    EXPECT_NEAR(edge.pixelColor(0, 0).blue(), 255 * 120 / 800, 3);
}

TEST_F(SaveNodeTest, RefusesBadIndicesAndSurvivesUnwritablePaths) {
    Photo shown(photo(64, 48));
    for (const int bad : {-1, 1}) {
        EXPECT_EQ(shown.document.SaveNodeToFile(output, bad, 0, 0, 90, 0, 0, 0), E_FAIL);
    }
    EXPECT_EQ(shown.document.SaveNodeToFile(folder.filePath(QStringLiteral("no/such/dir.jpg")), 0,
                                            0, 0, 90, 0, 0, 0),
              S_OK);
    EXPECT_FALSE(QFile::exists(output));

    Photo missing(folder.filePath(QStringLiteral("missing.png")));
    EXPECT_EQ(missing.document.SaveNodeToFile(output, 0, 0, 0, 90, 0, 100, 0), S_OK);
    EXPECT_FALSE(QFile::exists(output)) << "there is no size to write";
}

}  // namespace
}  // namespace vellora
