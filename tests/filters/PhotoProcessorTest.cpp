#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>
#include <opencv2/imgproc/imgproc_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>

#include "base/ImageView.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::gradient;
using test::identical;
using test::noise;
using test::record;
using test::writePng;

cv::Mat mirrored(const cv::Mat& picture, int code) {
    cv::Mat result;
    cv::flip(picture, result, code);
    return result;
}

/// The quarter turn as documented, called directly.
cv::Mat turned(const cv::Mat& picture, int degrees) {
    const float a = degrees == 180 ? -1.0F : 0.0F;
    const float b = degrees == 90 ? 1.0F : degrees == 270 ? -1.0F : 0.0F;
    float values[] = {a,  b, static_cast<float>(picture.cols) * 0.5F,
                      -b, a, static_cast<float>(picture.rows) * 0.5F};
    const CvMat matrix = cvMat(2, 3, CV_32F, values);
    cv::Mat result(degrees == 180 ? picture.rows : picture.cols,
                   degrees == 180 ? picture.cols : picture.rows, CV_8UC3);
    const CvMat from = cvMat(picture);
    CvMat to = cvMat(result);
    cvGetQuadrangleSubPix(&from, &to, &matrix);
    return result;
}

struct PhotoProcessorTest : testing::Test {
    QTemporaryDir folder;
    std::unique_ptr<_PHOTO_LIST_NODE> node;
    CPhotoProcessor processor;

    void use(const cv::Mat& picture) {
        node = record(writePng(folder, "photo.png", picture));
        processor.SetNode(node.get());
    }
    [[nodiscard]] cv::Mat working() const {
        return processor.GetWorking() != nullptr ? cv::cvarrToMat(processor.GetWorking(), true)
                                                 : cv::Mat();
    }
    cv::Mat rebuilt(bool scaled) {
        processor.ReleaseImages();
        processor.Rebuild(scaled);
        return working();
    }
    COpencvFilterInterface* addFilter(const char16_t* name, int cropStep = 0) {
        COpencvFilterInterface* filter = CreateFilterByName(name);
        filter->crop_step = cropStep;
        processor.AddFilterToChain(filter);
        return filter;
    }
};

TEST_F(PhotoProcessorTest, DecodesAtFullOrPreviewSize) {
    const cv::Mat photo = noise(1600, 900);
    use(photo);
    EXPECT_TRUE(identical(rebuilt(false), photo));
    cv::Mat reduced;
    cv::resize(photo, reduced, {599, 337}, 0, 0, cv::INTER_AREA);
    EXPECT_TRUE(identical(rebuilt(true), reduced));
    processor.Rebuild(false);
    EXPECT_EQ(processor.GetWidth(), 599) << "a picture that is there is used as it is";
    EXPECT_EQ(node->changed, 0);
}

TEST_F(PhotoProcessorTest, FlipsBeforeItTurnsByTheRecordsAngle) {
    const cv::Mat photo = noise(40, 30);
    use(photo);
    node->flip_x = 1;
    node->rotation = 90;
    EXPECT_TRUE(identical(rebuilt(false), turned(mirrored(photo, 1), 90)));
    EXPECT_EQ(node->changed, 1);
    node->flip_x = 0;
    node->flip_y = 1;
    node->rotation = 180;
    EXPECT_TRUE(identical(rebuilt(false), turned(mirrored(photo, 0), 180)));
    node->flip_y = 2;
    node->rotation = 45;
    EXPECT_TRUE(identical(rebuilt(false), photo)) << "only 1 flips, only quarters turn";
}

TEST_F(PhotoProcessorTest, AQuarterTurnMovesPixelsClockwise) {
    cv::Mat photo(60, 80, CV_8UC3, cv::Scalar::all(0));
    photo(cv::Rect(0, 0, 20, 20)).setTo(cv::Scalar::all(255));
    use(photo);
    node->rotation = 90;
    const cv::Mat right = rebuilt(false);
    EXPECT_EQ(right.size(), cv::Size(60, 80));
    EXPECT_EQ(right.at<cv::Vec3b>(5, 54)[0], 255);
    EXPECT_EQ(right.at<cv::Vec3b>(5, 5)[0], 0);
    node->rotation = 270;
    EXPECT_EQ(rebuilt(false).at<cv::Vec3b>(74, 5)[0], 255);
    node->rotation = 180;
    EXPECT_EQ(rebuilt(false).at<cv::Vec3b>(54, 74)[0], 255);
}

TEST_F(PhotoProcessorTest, ReplaysFiltersBetweenCropSteps) {
    const cv::Mat photo = noise(500, 400);
    use(photo);
    *addFilter(u"Brightness Contrast", 0)->GetFactorOne() = 40;
    addFilter(u"Grey", 1);
    processor.AddCropRecord({10, 20, 300, 200, false, false, 0});
    processor.AddCropRecord({0, 0, 0, 50, false, false, 0});
    processor.AddCropRecord({5, 6, 100, 90, false, false, 0});
    addFilter(u"Inverse", 7);

    cv::Mat expected = test::filtered(u"Brightness Contrast", photo, {40, 0});
    expected = expected(cv::Rect(10, 20, 300, 200)).clone();
    expected = test::filtered(u"Grey", expected);
    expected = expected(cv::Rect(5, 6, 100, 90)).clone();
    expected = test::filtered(u"Inverse", expected);
    EXPECT_TRUE(identical(rebuilt(false), expected));
}

TEST_F(PhotoProcessorTest, AFilterWithALaterStepHoldsBackThoseBehindIt) {
    const cv::Mat photo = noise(200, 100);
    use(photo);
    addFilter(u"Grey", 5);
    *addFilter(u"Rotate", 0)->GetFactorOne() = 600;
    processor.AddCropRecord({20, 10, 100, 50, false, false, 0});
    cv::Mat expected = test::filtered(u"Grey", photo(cv::Rect(20, 10, 100, 50)).clone());
    expected = test::filtered(u"Rotate", expected, {600});
    EXPECT_TRUE(identical(rebuilt(false), expected));
}

TEST_F(PhotoProcessorTest, BringsThePictureToEachRecordedState) {
    const cv::Mat photo = noise(120, 80);
    use(photo);
    COpencvFilterInterface* filter = addFilter(u"Carve");
    filter->FlipX = true;
    filter->Angle = 270;
    CropRecord crop{3, 4, 40, 50, true, true, 90};
    processor.AddCropRecord(crop);
    node->flip_y = 1;
    node->rotation = 90;

    cv::Mat expected = turned(mirrored(photo, 1), 270);
    {
        ImagePtr image = copyImage(expected);
        IplImage* raw = image.get();
        filter->Apply(&raw);
        expected = cv::cvarrToMat(raw, true);
    }
    // From 270 to 90: 90 - 270 + 360 = 180 degrees.
    expected = turned(mirrored(expected, 0), 180)(cv::Rect(3, 4, 40, 50)).clone();
    // The photo's flips are (0, 1); its angle equals the one reached.
    expected = mirrored(expected, 1);
    EXPECT_TRUE(identical(rebuilt(false), expected));

    // An angle that differs from the one reached is applied whole, not as a difference.
    node->rotation = 180;
    EXPECT_TRUE(identical(rebuilt(false), turned(expected, 180)));
    node->rotation = 0;
    EXPECT_TRUE(identical(rebuilt(false), expected));
}

// The preview and the reduced full-size picture show the same cut, also after several crops.
TEST_F(PhotoProcessorTest, PreviewAndFullSizeShowTheSameCut) {
    cv::Mat photo = gradient(2400, 1500);
    cv::GaussianBlur(photo, photo, {31, 31}, 0);
    for (const int rotation : {0, 90, 180}) {
        SCOPED_TRACE(rotation);
        use(photo);
        node->rotation = rotation;
        CPhotoProcessor fresh;
        fresh.SetNode(node.get());
        fresh.Rebuild(true);
        ASSERT_TRUE(fresh.Crop(30, 40, 180, 260));
        ASSERT_TRUE(fresh.Crop(20, 10, 100, 200));
        const cv::Mat shown = cv::cvarrToMat(fresh.GetWorking(), true);

        fresh.ReleaseImages();
        fresh.Rebuild(true);
        EXPECT_TRUE(identical(cv::cvarrToMat(fresh.GetWorking()), shown))
            << "replaying gives what the user saw";

        fresh.ReleaseImages();
        fresh.Rebuild(false);
        const cv::Mat full = cv::cvarrToMat(fresh.GetWorking());
        const double factor = static_cast<double>(full.cols) / shown.cols;
        EXPECT_NEAR(factor, static_cast<double>(full.rows) / shown.rows, 0.1);
        cv::Mat reduced;
        cv::resize(full, reduced, shown.size(), 0, 0, cv::INTER_AREA);
        cv::Mat difference;
        cv::absdiff(reduced, shown, difference);
        EXPECT_LT(cv::mean(cv::mean(difference))[0], 3.0);
    }
}

// A replay turns by the record's own angle and mirrors first; the picture that is shown need not.
TEST_F(PhotoProcessorTest, TheDetailedPictureShowsWhatThePreviewShows) {
    using Edits = std::vector<std::function<void(CPhotoProcessor&)>>;
    const auto right = [](CPhotoProcessor& p) { p.RotateRight(); };
    const auto left = [](CPhotoProcessor& p) { p.RotateLeft(); };
    const auto flipX = [](CPhotoProcessor& p) { p.ToggleFlipX(); };
    const auto flipY = [](CPhotoProcessor& p) { p.ToggleFlipY(); };
    const auto crop = [](CPhotoProcessor& p) { ASSERT_TRUE(p.Crop(30, 40, 200, 160)); };
    const auto invert = [](CPhotoProcessor& p) {
        const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"Inverse"));
        p.SetCurrentFilter(filter.get());
        ASSERT_TRUE(p.ApplyCurrentFilter());
        p.SetCurrentFilter(nullptr);
    };
    use(gradient(1200, 900));
    for (const Edits& edits :
         {Edits{}, Edits{right, flipX}, Edits{flipY, left, flipX, right, right},
          Edits{right, crop, right}, Edits{invert, right, flipY, crop, left, invert, left}}) {
        SCOPED_TRACE(edits.size());
        node->rotation = node->flip_x = node->flip_y = 0;
        processor.ReleaseImages();
        processor.Rebuild(true);
        processor.RestoreOriginal();
        for (const auto& edit : edits) {
            edit(processor);
        }
        node->changed = 0;
        const cv::Mat shown = working();
        const ImagePtr detailed = processor.MakeDetailed(2.0);
        ASSERT_NE(detailed, nullptr);
        EXPECT_TRUE(identical(working(), shown));
        EXPECT_EQ(node->changed, 0);
        EXPECT_NEAR(detailed->width, 2 * shown.cols, 4);
        EXPECT_NEAR(detailed->height, 2 * shown.rows, 4);
        cv::Mat reduced;
        cv::resize(cv::cvarrToMat(detailed.get()), reduced, shown.size(), 0, 0, cv::INTER_AREA);
        cv::Mat difference;
        cv::absdiff(reduced, shown, difference);
        // Half a pixel more or less; where a colour starts again it jumps.
        EXPECT_LT(cv::mean(difference)[0] + cv::mean(difference)[1], 8);
    }
}

TEST_F(PhotoProcessorTest, CropsAreCutAtThePicturesEdges) {
    const cv::Mat photo = noise(100, 80);
    use(photo);
    processor.AddCropRecord({60, 50, 500, 500, false, false, 0});
    EXPECT_TRUE(identical(rebuilt(false), photo(cv::Rect(60, 50, 40, 30))));
    processor.AddCropRecord({-10, -10, 20, 20, false, false, 0});
    EXPECT_TRUE(identical(rebuilt(false), photo(cv::Rect(60, 50, 10, 10))));
    constexpr int kHuge = std::numeric_limits<int>::max();
    for (const CropRecord& outside :
         {CropRecord{200, 0, 10, 10, false, false, 0}, CropRecord{kHuge, kHuge, kHuge, kHuge},
          CropRecord{-kHuge, -kHuge, 5, 5}, CropRecord{0, 0, -5, 5}}) {
        processor.AddCropRecord(outside);
        EXPECT_EQ(rebuilt(false).size(), cv::Size(10, 10)) << "the step is skipped";
    }
}

TEST_F(PhotoProcessorTest, CropAppliesTheCurrentFilterFirstAndRecordsBoth) {
    use(noise(1200, 900));
    processor.Rebuild(true);
    const cv::Mat preview = working();
    const std::unique_ptr<COpencvFilterInterface> grey(CreateFilterByName(u"Grey"));
    processor.SetCurrentFilter(grey.get());
    node->rotation = 0;
    node->flip_x = 1;
    ASSERT_TRUE(processor.Crop(100, 50, 300, 200));
    EXPECT_TRUE(identical(working(),
                          test::filtered(u"Grey", preview(cv::Rect(100, 50, 300, 200)).clone())));
    ASSERT_EQ(processor.GetFilterCount(), 1);
    ASSERT_EQ(processor.GetCropCount(), 1);
    EXPECT_EQ(processor.GetFilter(0)->crop_step, 0);
    EXPECT_TRUE(processor.GetFilter(0)->FlipX);
    EXPECT_EQ(*processor.GetCrop(0), (CropRecord{100, 50, 300, 200, true, false, 0}));
    // Without a usable rectangle the filter alone is applied and recorded.
    EXPECT_TRUE(processor.Crop(0, 0, 0, 100));
    EXPECT_TRUE(processor.Crop(-1, 0, 10, 10));
    EXPECT_EQ(processor.GetFilterCount(), 3);
    EXPECT_EQ(processor.GetFilter(2)->crop_step, 1);
    EXPECT_EQ(processor.GetCropCount(), 1);
    EXPECT_EQ(processor.GetCrop(1), nullptr);
    EXPECT_EQ(processor.GetFilter(-1), nullptr);
}

TEST_F(PhotoProcessorTest, NoneIsNeverRecorded) {
    use(noise(30, 20));
    processor.Rebuild(true);
    const cv::Mat before = working();
    const std::unique_ptr<COpencvFilterInterface> none(CreateFilterByName(u"None"));
    processor.SetCurrentFilter(none.get());
    EXPECT_TRUE(processor.ApplyCurrentFilter());
    processor.SetCurrentFilter(nullptr);
    EXPECT_TRUE(processor.ApplyCurrentFilter());
    EXPECT_EQ(processor.GetFilterCount(), 0);
    EXPECT_TRUE(identical(working(), before));
}

TEST_F(PhotoProcessorTest, RestoreReturnsToThePhotoWithItsFlipsAndRotation) {
    const cv::Mat photo = noise(1000, 700);
    use(photo);
    for (const bool scaled : {true, false}) {
        node->flip_x = 0;
        node->rotation = 0;
        processor.ReleaseImages();
        processor.Rebuild(scaled);
        const cv::Mat plain = working();
        const std::unique_ptr<COpencvFilterInterface> grey(CreateFilterByName(u"Grey"));
        processor.SetCurrentFilter(grey.get());
        ASSERT_TRUE(processor.Crop(10, 10, 50, 50));
        processor.ToggleFlipX();
        processor.RotateLeft();
        EXPECT_EQ(node->flip_x, 1);
        EXPECT_EQ(node->rotation, 270);
        processor.RestoreOriginal();
        EXPECT_EQ(processor.GetFilterCount() + processor.GetCropCount(), 0);
        EXPECT_TRUE(identical(working(), turned(mirrored(plain, 1), 270))) << scaled;
    }
}

TEST_F(PhotoProcessorTest, QuarterTurnsWrapAround) {
    use(noise(20, 10));
    processor.Rebuild(true);
    for (const int expected : {90, 180, 270, 0}) {
        processor.RotateRight();
        EXPECT_EQ(node->rotation, expected);
    }
    for (const int expected : {270, 180, 90, 0}) {
        processor.RotateLeft();
        EXPECT_EQ(node->rotation, expected);
    }
    for (const int odd : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        node->rotation = odd;
        processor.RotateRight();
        node->rotation = odd;
        processor.RotateLeft();
    }
}

TEST_F(PhotoProcessorTest, DrawsThePreviewWithTheCurrentFilter) {
    const cv::Mat photo = noise(300, 200);
    use(photo);
    processor.Rebuild(true);
    const std::unique_ptr<COpencvFilterInterface> grey(CreateFilterByName(u"Grey"));
    processor.SetCurrentFilter(grey.get());
    QImage canvas(300, 200, QImage::Format_BGR888);
    {
        QPainter painter(&canvas);
        processor.DrawTo(painter, {0, 0, 300, 200});
    }
    EXPECT_TRUE(identical(matView(canvas), test::filtered(u"Grey", photo)));
    EXPECT_TRUE(identical(working(), photo)) << "a preview records nothing";
    EXPECT_EQ(processor.GetFilterCount(), 0);

    processor.ReleaseImages();
    EXPECT_EQ(processor.GetCurrentFilter(), nullptr);
    processor.Rebuild(true);
    // A rectangle one pixel off does not resample; two pixels off it does.
    QImage larger(302, 202, QImage::Format_BGR888);
    larger.fill(Qt::white);
    {
        QPainter painter(&larger);
        processor.DrawTo(painter, {0, 0, 301, 201});
    }
    EXPECT_TRUE(identical(matView(larger)(cv::Rect(0, 0, 300, 200)), photo));
    EXPECT_EQ(larger.pixel(300, 0), qRgb(255, 255, 255));
    {
        QPainter painter(&larger);
        processor.DrawTo(painter, {0, 0, 302, 202});
    }
    cv::Mat resized;
    cv::resize(photo, resized, {302, 202}, 0, 0, cv::INTER_AREA);
    EXPECT_TRUE(identical(matView(larger), resized));
}

TEST_F(PhotoProcessorTest, FitCopyKeepsTheAspectRatio) {
    use(noise(599, 337));
    processor.Rebuild(true);
    EXPECT_EQ(processor.FitCopy(89, 89)->height, 337 * 89 / 599);
    EXPECT_EQ(processor.FitCopy(89, 89)->width, 89);
    EXPECT_EQ(processor.FitCopy(600, 40)->width, 599 * 40 / 337);
    EXPECT_EQ(processor.FitCopy(1, 1), nullptr) << "a vanishing side";
}

TEST_F(PhotoProcessorTest, EverythingIsHarmlessWithoutAPicture) {
    node = record(folder.filePath("missing.jpg"));
    for (_PHOTO_LIST_NODE* host : {static_cast<_PHOTO_LIST_NODE*>(nullptr), node.get()}) {
        CPhotoProcessor empty;
        empty.SetNode(host);
        empty.Rebuild(true);
        EXPECT_EQ(empty.GetWorking(), nullptr);
        empty.FlipWorkingX();
        empty.FlipWorkingY();
        empty.ToggleFlipX();
        empty.ToggleFlipY();
        empty.RotateLeft();
        empty.RotateRight();
        empty.RotateQuarter(90);
        EXPECT_EQ(empty.FitCopy(10, 10), nullptr);
        QImage canvas(10, 10, QImage::Format_BGR888);
        QPainter painter(&canvas);
        empty.DrawTo(painter, {0, 0, 10, 10});
        EXPECT_EQ(empty.Crop(0, 0, 10, 10), host == nullptr);
        EXPECT_EQ(empty.GetCropCount(), 0);
        empty.RestoreOriginal();
        empty.ReleaseImages();
    }
    processor.AddFilterToChain(nullptr);
    EXPECT_EQ(processor.GetFilterCount(), 0);
}

TEST_F(PhotoProcessorTest, AcceptsAPathThatFillsItsField) {
    use(noise(10, 10));
    std::fill(std::begin(node->path), std::end(node->path), u'x');
    EXPECT_TRUE(rebuilt(false).empty());
    node->rotation = 0x780078;  // the field behind the path does not continue it
    EXPECT_TRUE(rebuilt(false).empty());
}

}  // namespace
}  // namespace vellora
