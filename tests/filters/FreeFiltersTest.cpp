// Properties of the filters whose pixels are ours to choose.

#include <chrono>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include <vellora/base/ImagePtr.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/filters/RandomSeed.h>

#include "base/ImageView.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::identical;
using Factors = std::initializer_list<std::int32_t>;

std::unique_ptr<COpencvFilterInterface> makeFilter(const char16_t* name, Factors factors = {}) {
    std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name));
    std::int32_t* const targets[] = {filter->GetFactorOne(), filter->GetFactorTwo(),
                                     filter->GetFactorThree()};
    std::size_t k = 0;
    for (const std::int32_t value : factors) {
        *targets[k++] = value;
    }
    return filter;
}

/// Unlike `test::filtered` it does not expect true, which "Wave" never returns.
cv::Mat painted(const char16_t* name, const cv::Mat& picture, Factors factors = {}) {
    FixRandomSeed(5);
    IplImage* image = copyImage(picture).release();
    const bool result = makeFilter(name, factors)->Apply(&image);
    EXPECT_EQ(result, std::u16string_view(name) != u"Wave");
    const ImagePtr owner(image);
    ReleaseRandomSeed();
    return cv::cvarrToMat(image, true);
}

/// Sky, hills, a disc and a dark post: smooth areas, soft and hard edges.
cv::Mat scene(int width, int height) {
    cv::Mat picture(height, width, CV_8UC3);
    for (int y = 0; y < height; ++y) {
        const double v = (y + 0.5) / height;
        for (int x = 0; x < width; ++x) {
            const double u = (x + 0.5) / width;
            cv::Vec3b colour(static_cast<uchar>(230 - 130 * v), static_cast<uchar>(150 + 30 * v),
                             static_cast<uchar>(90 + 140 * v));
            if (std::hypot((u - 0.7) * width / height, v - 0.25) < 0.12) {
                colour = {190, 240, 250};
            }
            if (v > 0.62 + 0.08 * std::sin(9 * u)) {
                colour = {60, static_cast<uchar>(100 + 60 * u), 70};
            }
            if (u > 0.2 && u < 0.25 && v > 0.3) {
                colour = {25, 35, 50};
            }
            picture.at<cv::Vec3b>(y, x) = colour;
        }
    }
    return picture;
}

double meanOf(const cv::Mat& picture) {
    const cv::Scalar mean = cv::mean(picture);
    return (mean[0] + mean[1] + mean[2]) / 3.0;
}

double distance(const cv::Mat& a, const cv::Mat& b) {
    return cv::norm(a, b, cv::NORM_L1) / static_cast<double>(a.total() * 3);
}

double spread(const cv::Mat& picture) {
    cv::Scalar mean;
    cv::Scalar deviation;
    cv::meanStdDev(picture, mean, deviation);
    return (deviation[0] + deviation[1] + deviation[2]) / 3.0;
}

double roughness(const cv::Mat& picture) {
    cv::Mat laplacian;
    cv::Laplacian(picture, laplacian, CV_32F);
    return cv::norm(laplacian, cv::NORM_L1) / static_cast<double>(laplacian.total());
}

class FreeFilterTest : public testing::TestWithParam<const char16_t*> {};

TEST_P(FreeFilterTest, PaintsPicturesOfAnyShape) {
    for (const cv::Size size : {cv::Size(1, 1), cv::Size(1, 9), cv::Size(9, 1), cv::Size(2, 2),
                                cv::Size(33, 17), cv::Size(3, 700), cv::Size(5000, 2)}) {
        const cv::Mat picture = scene(size.width, size.height);
        EXPECT_EQ(painted(GetParam(), picture).size(), size);
    }
    const cv::Mat picture = scene(301, 203);
    EXPECT_GT(distance(painted(GetParam(), picture), picture), 1.0) << "nothing happened";
}

TEST_P(FreeFilterTest, KeepsToTheRegionOfTheImage) {
    const cv::Mat picture = scene(121, 87);
    const ImagePtr image = copyImage(picture);
    const cv::Rect region(11, 7, 90, 61);
    cvSetImageROI(image.get(), cvRect(region.x, region.y, region.width, region.height));
    IplImage* raw = image.get();
    FixRandomSeed(5);
    makeFilter(GetParam())->Apply(&raw);
    ReleaseRandomSeed();
    cvResetImageROI(image.get());
    cv::Mat after = cv::cvarrToMat(image.get(), true);
    EXPECT_TRUE(identical(after(region), painted(GetParam(), picture(region).clone())));
    picture(region).copyTo(after(region));
    EXPECT_TRUE(identical(after, picture)) << "pixels outside the region changed";
}

TEST_P(FreeFilterTest, KeepsTheBrightness) {
    const cv::Mat picture = scene(320, 240);
    cv::Mat night;
    cv::Mat snow;
    picture.convertTo(night, -1, 0.16);
    picture.convertTo(snow, -1, 0.3, 170);
    for (const cv::Mat& photo : {picture, night, snow}) {
        for (const int factor : {30, 70, 100}) {
            if (makeFilter(GetParam())->GetFactorOne() == nullptr && factor != 30) {
                continue;
            }
            const cv::Mat result = makeFilter(GetParam())->GetFactorOne() == nullptr
                                       ? painted(GetParam(), photo)
                                       : painted(GetParam(), photo, {factor});
            EXPECT_NEAR(meanOf(result) / meanOf(photo), 1.0, 0.2) << "factor " << factor;
        }
    }
}

TEST_P(FreeFilterTest, TakesFactorsFarOutOfRange) {
    const cv::Mat picture = scene(200, 150);
    const auto start = std::chrono::steady_clock::now();
    for (const std::int32_t value : {2'000'000'000, -2'000'000'000, 0, -1, 1}) {
        const auto filter = makeFilter(GetParam());
        for (std::int32_t* slot :
             {filter->GetFactorOne(), filter->GetFactorTwo(), filter->GetFactorThree()}) {
            if (slot != nullptr) {
                *slot = value;
            }
        }
        ImagePtr image = copyImage(picture);
        IplImage* raw = image.get();
        filter->Apply(&raw);
        EXPECT_EQ(raw, image.get());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_P(FreeFilterTest, GivesTheSameBytesAtAnyThreadCount) {
    const cv::Mat picture = scene(1203, 817);
    const int before = cv::getNumThreads();
    cv::setNumThreads(1);
    const cv::Mat expected = painted(GetParam(), picture);
    for (const int threads : {2, 4}) {
        cv::setNumThreads(threads);
        EXPECT_TRUE(identical(painted(GetParam(), picture), expected)) << threads << " threads";
    }
    cv::setNumThreads(before);
}

TEST_P(FreeFilterTest, LooksAlikeInThePreviewAndAtFullSize) {
    const cv::Mat full = scene(1800, 1350);
    cv::Mat preview;
    cv::resize(full, preview, {600, 450}, 0, 0, cv::INTER_AREA);
    cv::Mat reduced;
    cv::resize(painted(GetParam(), full), reduced, preview.size(), 0, 0, cv::INTER_AREA);
    const cv::Mat small = painted(GetParam(), preview);
    // The change is the same mark at the same place, not just one of the same kind.
    cv::Mat fullChange;
    cv::Mat smallChange;
    cv::subtract(reduced, preview, fullChange, {}, CV_32F);
    cv::subtract(small, preview, smallChange, {}, CV_32F);
    for (cv::Mat* change : {&fullChange, &smallChange}) {
        cv::blur(*change, *change, {5, 5});
    }
    const double likeness =
        fullChange.dot(smallChange) / (cv::norm(fullChange) * cv::norm(smallChange) + 1e-9);
    EXPECT_GT(likeness, 0.6);
}

/// The sum of differences from each column to the next.
std::vector<double> columnJumps(const cv::Mat& picture) {
    cv::Mat lines;
    picture.convertTo(lines, CV_32F);
    std::vector<double> jumps;
    for (int x = 1; x < lines.cols; ++x) {
        jumps.push_back(cv::norm(lines.col(x), lines.col(x - 1), cv::NORM_L1) / lines.rows);
    }
    return jumps;
}

TEST_P(FreeFilterTest, LeavesNoSeamsOrBorders) {
    // Where no column of the photo differs from another, a seam would be the strongest of all.
    const cv::Mat plain(1300, 1300, CV_8UC3, cv::Scalar(110, 130, 150));
    cv::Mat mottled;
    cv::GaussianBlur(test::noise(1300, 1300), mottled, {}, 5.0);
    mottled.convertTo(mottled, -1, 9.0, -128.0 * 8.0);
    for (const cv::Mat& picture : {plain, mottled}) {
        const cv::Mat result = painted(GetParam(), picture);
        for (const cv::Mat& lines : {result, cv::Mat(result.t())}) {
            std::vector<double> jumps = columnJumps(lines);
            std::sort(jumps.begin(), jumps.end());
            EXPECT_LT(jumps.back(), 1.7 * jumps[jumps.size() / 2] + 0.5);
        }
    }
    const cv::Mat result = painted(GetParam(), plain);
    EXPECT_NEAR(meanOf(result.colRange(0, 6)), meanOf(result.colRange(20, 1280)), 12.0);
}

INSTANTIATE_TEST_SUITE_P(All, FreeFilterTest,
                         testing::Values(u"Wave", u"Mist", u"Water Paint", u"Hard Pastels",
                                         u"Dot Paint"),
                         [](const auto& info) {
                             std::string name;
                             for (const char16_t letter : std::u16string_view(info.param)) {
                                 if (letter != u' ') {
                                     name += static_cast<char>(letter);
                                 }
                             }
                             return name;
                         });

TEST(WaveFilterTest, IsStillWaterWithoutWavesAndNeverReportsSuccess) {
    const cv::Mat picture = scene(201, 99);
    EXPECT_TRUE(identical(painted(u"Wave", picture, {730, 0, 70}), picture));
    EXPECT_GT(distance(painted(u"Wave", picture, {730, 20, 75}), picture), 1.0);
    EXPECT_GT(distance(painted(u"Wave", picture, {730, 100, 100}), picture),
              distance(painted(u"Wave", picture, {730, 20, 75}), picture));
    EXPECT_FALSE(makeFilter(u"Wave")->Apply(nullptr));
}

TEST(WaveFilterTest, IsRecordedAndReplayedAllTheSame) {
    const QTemporaryDir folder;
    const cv::Mat picture = scene(120, 90);
    const auto node = test::record(test::writePng(folder, QStringLiteral("p.png"), picture));
    CPhotoProcessor processor;
    processor.SetNode(node.get());
    processor.AddFilterToChain(CreateFilterByName(u"Wave"));
    processor.AddFilterToChain(CreateFilterByName(u"Grey"));
    processor.Rebuild(false);
    const cv::Mat replayed = cv::cvarrToMat(processor.GetWorking());
    EXPECT_TRUE(identical(replayed, test::filtered(u"Grey", painted(u"Wave", picture))));
}

TEST(MistFilterTest, ThickensWithItsDensityAndLeavesThePhotoReadable) {
    const cv::Mat picture = scene(400, 300);
    const double thin = distance(painted(u"Mist", picture, {20}), picture);
    const double middle = distance(painted(u"Mist", picture, {60}), picture);
    const cv::Mat densest = painted(u"Mist", picture, {100});
    EXPECT_GT(thin, 1.0);
    EXPECT_GT(middle, 1.3 * thin);
    EXPECT_GT(distance(densest, picture), middle);
    // What was brighter than its surroundings still is, and by a visible step.
    EXPECT_GT(spread(densest), 0.3 * spread(picture));
    const auto at = [&](double u, double v) {
        return meanOf(
            densest(cv::Rect(static_cast<int>(u * 400) - 3, static_cast<int>(v * 300) - 3, 7, 7)));
    };
    EXPECT_GT(at(0.28, 0.5) - at(0.225, 0.5), 12.0) << "the post cannot be seen";
}

TEST(MistFilterTest, DriftsWithTheClockButRepeatsUnderAFixedSeed) {
    const cv::Mat picture = scene(300, 225);
    const auto misty = [&](std::uint32_t seed) {
        FixRandomSeed(seed);
        const cv::Mat result = test::filtered(u"Mist", picture);
        ReleaseRandomSeed();
        return result;
    };
    const cv::Mat first = misty(1);
    EXPECT_TRUE(identical(misty(1), first));
    EXPECT_GT(distance(misty(2), first), 0.5);
}

TEST(WaterPaintFilterTest, RunsTogetherMoreWithMoreWater) {
    cv::Mat grainy = scene(400, 300);
    grainy += cv::Scalar::all(20);
    grainy -= test::noise(400, 300) / 6;
    EXPECT_LT(roughness(painted(u"Water Paint", grainy, {65})), 0.6 * roughness(grainy));
    const cv::Mat source = scene(400, 300);
    EXPECT_GT(distance(painted(u"Water Paint", source, {100}), source),
              distance(painted(u"Water Paint", source, {30}), source));
}

TEST(WaterPaintFilterTest, DarkensTheRimOfAWash) {
    cv::Mat picture(450, 600, CV_8UC3, cv::Scalar(200, 200, 200));
    picture.colRange(300, 600).setTo(cv::Scalar(110, 110, 110));
    const cv::Mat result = painted(u"Water Paint", picture, {65});
    EXPECT_LT(meanOf(result.colRange(301, 303)) + 8.0, meanOf(result.colRange(340, 580)));
}

TEST(HardPastelsFilterTest, ShowsGrainAndDirectedStrokes) {
    const cv::Mat plain(300, 400, CV_8UC3, cv::Scalar(110, 130, 150));
    EXPECT_GT(roughness(painted(u"Hard Pastels", plain, {25, 50, 40})),
              1.5 * roughness(painted(u"Hard Pastels", plain, {25, 50, 0})));
    // Strokes rise to the right: along them the picture changes less than across.
    cv::Mat rubbed;
    painted(u"Hard Pastels", plain, {60, 50, 0}).convertTo(rubbed, CV_32F);
    const cv::Rect middle(10, 10, 380, 280);
    const double along = cv::norm(rubbed(middle), rubbed(middle + cv::Point(4, -6)), cv::NORM_L1);
    const double across = cv::norm(rubbed(middle), rubbed(middle + cv::Point(6, 4)), cv::NORM_L1);
    EXPECT_LT(along, 0.8 * across);
}

TEST(DotPaintFilterTest, LeavesNoHole) {
    // A chessboard of single pixels: dots are as grey as their surroundings, what shows of the
    // photo is black or white.
    cv::Mat chess(240, 320, CV_8UC3);
    for (int y = 0; y < chess.rows; ++y) {
        for (int x = 0; x < chess.cols; ++x) {
            chess.at<cv::Vec3b>(y, x) = cv::Vec3b::all((x + y) % 2 == 0 ? 0 : 255);
        }
    }
    double low = 0;
    double high = 0;
    cv::minMaxLoc(painted(u"Dot Paint", chess).reshape(1), &low, &high);
    EXPECT_GT(low, 60);
    EXPECT_LT(high, 195);
}

TEST(DotPaintFilterTest, VariesItsDots) {
    const cv::Mat plain(300, 400, CV_8UC3, cv::Scalar(110, 130, 150));
    const cv::Mat result = painted(u"Dot Paint", plain);
    EXPECT_GT(spread(result), 4.0);
    EXPECT_LT(spread(result), 25.0);
}

}  // namespace
}  // namespace vellora
