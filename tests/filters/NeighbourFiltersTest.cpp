#include <cmath>
#include <memory>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>
#include <opencv2/imgproc/imgproc_c.h>

#include <vellora/filters/FilterCatalogue.h>

#include "base/Random.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::gradient;
using test::identical;
using test::noise;

uchar clamp255(double value) {
    return static_cast<uchar>(value < 0 ? 0 : value > 255 ? 255 : value);
}

cv::Mat grey(std::initializer_list<std::initializer_list<int>> rows) {
    cv::Mat picture(static_cast<int>(rows.size()), static_cast<int>(rows.begin()->size()), CV_8UC3);
    int y = 0;
    for (const auto& row : rows) {
        int x = 0;
        for (const int value : row) {
            picture.at<cv::Vec3b>(y, x++) = cv::Vec3b::all(static_cast<uchar>(value));
        }
        ++y;
    }
    return picture;
}

const cv::Size kSizes[] = {{1, 1}, {9, 1}, {1, 9}, {2, 2}, {37, 19}, {101, 37}};

// From the bottom right, with the partner up and to the left.
cv::Mat carved(cv::Mat picture, int brightness, int depth) {
    for (int y = picture.rows - 1; y >= 0; --y) {
        for (int x = picture.cols - 1; x >= 0; --x) {
            const auto partner =
                picture.at<cv::Vec3b>(y - depth < 0 ? 0 : y - depth, x - depth < 0 ? 0 : x - depth);
            for (int c = 0; c < 3; ++c) {
                auto& value = picture.at<cv::Vec3b>(y, x)[c];
                // The first pixel is its own partner.
                value = clamp255(value - partner[c] + brightness);
            }
        }
    }
    return picture;
}

// From the top left, with the partner down and to the right.
cv::Mat embossed(cv::Mat picture, int brightness, int depth) {
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            const auto partner = picture.at<cv::Vec3b>(std::min(y + depth, picture.rows - 1),
                                                       std::min(x + depth, picture.cols - 1));
            for (int c = 0; c < 3; ++c) {
                auto& value = picture.at<cv::Vec3b>(y, x)[c];
                value = clamp255(value - partner[c] + brightness);
            }
        }
    }
    return picture;
}

TEST(ReliefTest, SubtractsThePartnerOnEitherSide) {
    // By hand: 50 - 10 + 64, and so on; at the edge the partner is the pixel itself.
    EXPECT_TRUE(
        identical(filtered(u"Carve", grey({{10, 20}, {30, 50}})), grey({{64, 74}, {84, 104}})));
    EXPECT_TRUE(
        identical(filtered(u"Embossment", grey({{10, 20}, {30, 50}})), grey({{24, 34}, {44, 64}})));
    for (const cv::Size size : kSizes) {
        const cv::Mat picture = noise(size.width, size.height, 5);
        for (const auto& [brightness, depth] :
             {std::array{64, 1}, std::array{0, 5}, std::array{255, 2}, std::array{100, 40}}) {
            SCOPED_TRACE(testing::Message() << size << ' ' << brightness << ' ' << depth);
            EXPECT_TRUE(identical(filtered(u"Carve", picture, {brightness, depth}),
                                  carved(picture.clone(), brightness, depth)));
            EXPECT_TRUE(identical(filtered(u"Embossment", picture, {brightness, depth}),
                                  embossed(picture.clone(), brightness, depth)));
        }
    }
}

TEST(ReliefTest, TakesFlatPicturesSinglePlanesAndAnyFactor) {
    const cv::Mat flat(31, 50, CV_8UC3, cv::Scalar(9, 90, 200));
    const cv::Mat level(31, 50, CV_8UC3, cv::Scalar::all(64));
    for (const char16_t* name : {u"Carve", u"Embossment"}) {
        EXPECT_TRUE(identical(filtered(name, flat), level));
        for (const int depth : {0, 5, 2'147'483'647}) {
            EXPECT_TRUE(identical(filtered(name, flat, {64, depth}), level));
        }
        for (const int depth : {-2'147'483'647 - 1, -7}) {
            EXPECT_EQ(filtered(name, flat, {2'147'483'647, depth}).at<cv::Vec3b>(20, 20),
                      cv::Vec3b::all(255));
        }
        const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name));
        const cv::Mat picture = noise(45, 21, 6);
        cv::Mat plane;
        cv::extractChannel(picture, plane, 1);
        IplImage header = cvIplImage(plane);
        IplImage* image = &header;
        EXPECT_TRUE(filter->Apply(&image));
        cv::Mat expected;
        cv::extractChannel(filtered(name, picture), expected, 1);
        EXPECT_TRUE(identical(plane, expected));
        cv::Mat four(4, 4, CV_8UC4, cv::Scalar::all(7));
        header = cvIplImage(four);
        EXPECT_TRUE(filter->Apply(&image));
        EXPECT_EQ(cv::sum(four)[3], 16 * 7);
    }
}

TEST(SharpenFilterTest, MovesAwayFromTheUpperLeftNeighbour) {
    // 50 + (50 - 10) / 2 = 70; the first row and column stay.
    EXPECT_TRUE(
        identical(filtered(u"Sharpen", grey({{10, 20}, {30, 50}})), grey({{10, 20}, {30, 70}})));
    for (const cv::Size size : kSizes) {
        const cv::Mat picture = noise(size.width, size.height, 7);
        for (const int amount : {0, 1, 7, 29, 50, 57, 100, 113, 150, 9999, 20000, -40}) {
            SCOPED_TRACE(testing::Message() << size << ' ' << amount);
            cv::Mat expected = picture.clone();
            for (int y = size.height - 1; y >= 1; --y) {
                for (int x = size.width - 1; x >= 1; --x) {
                    for (int c = 0; c < 3; ++c) {
                        auto& p = expected.at<cv::Vec3b>(y, x)[c];
                        const int q = expected.at<cv::Vec3b>(y - 1, x - 1)[c];
                        p = clamp255(p + std::trunc((p - q) * (amount / 100.0)));
                    }
                }
            }
            EXPECT_TRUE(identical(filtered(u"Sharpen", picture, {amount}), expected));
        }
    }
}

TEST(SmoothFilterTest, BlursAsTheLibraryFunctionDoes) {
    for (const cv::Size size : kSizes) {
        const cv::Mat picture = noise(size.width, size.height, 8);
        for (const int amount : {1, 5, 10}) {
            cv::Mat expected = picture.clone();
            CvMat header = cvMat(expected);
            cvSmooth(&header, &header, CV_GAUSSIAN, 2 * amount + 1, 2 * amount + 1, 0, 0);
            EXPECT_TRUE(identical(filtered(u"Gauss Smooth", picture, {amount}), expected))
                << size << ' ' << amount;
        }
        for (const int amount : {0, -3}) {
            EXPECT_TRUE(identical(filtered(u"Gauss Smooth", picture, {amount}), picture));
        }
    }
    filtered(u"Gauss Smooth", noise(40, 30), {2'000'000'000});
}

TEST(WoodFilterTest, SplitsAtTheTruncatedMean) {
    const cv::Mat white(1, 1, CV_8UC3, cv::Scalar(127, 128, 130));
    const cv::Mat black(1, 1, CV_8UC3, cv::Scalar(127, 127, 128));
    EXPECT_EQ(filtered(u"Wood", white).at<cv::Vec3b>(0, 0), cv::Vec3b::all(255));
    EXPECT_EQ(filtered(u"Wood", black).at<cv::Vec3b>(0, 0), cv::Vec3b::all(0));
    const cv::Mat picture = noise(101, 37, 9);
    cv::Mat expected = picture.clone();
    for (auto it = expected.begin<cv::Vec3b>(); it != expected.end<cv::Vec3b>(); ++it) {
        const double mean = ((*it)[0] + (*it)[1] + (*it)[2]) / 3.0;
        *it = cv::Vec3b::all(static_cast<int>(mean) >= 128 ? 255 : 0);
    }
    EXPECT_TRUE(identical(filtered(u"Wood", picture), expected));
}

TEST(CanvasFilterTest, DrawsTwoNumbersForEveryPixel) {
    for (const cv::Size size : kSizes) {
        const cv::Mat picture = noise(size.width, size.height, 10);
        for (const int range : {0, 1, 5, 50, 20'000, -2, 2'147'483'647, -2'147'483'647 - 1}) {
            SCOPED_TRACE(testing::Message() << size << ' ' << range);
            cv::Mat expected = picture.clone();
            Srand(77);
            const std::int64_t span = 2 * static_cast<std::int64_t>(range) + 1;
            for (int y = 0; y < size.height; ++y) {
                for (int x = 0; x < size.width; ++x) {
                    std::int64_t dx = Rand() % span - range;
                    std::int64_t dy = Rand() % span - range;
                    dx = x + dx < 0 || x + dx >= size.width ? 0 : dx;
                    dy = y + dy < 0 || y + dy >= size.height ? 0 : dy;
                    expected.at<cv::Vec3b>(y, x) =
                        picture.at<cv::Vec3b>(static_cast<int>(y + dy), static_cast<int>(x + dx));
                }
            }
            const int next = Rand();
            Srand(77);
            EXPECT_TRUE(identical(filtered(u"Canvas", picture, {range}), expected));
            EXPECT_EQ(Rand(), next);
        }
    }
}

TEST(CanvasFilterTest, TakesSinglePlanesAndDrawsForOthersToo) {
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"Canvas"));
    const cv::Mat picture = noise(45, 21, 6);
    cv::Mat plane;
    cv::extractChannel(picture, plane, 2);
    IplImage header = cvIplImage(plane);
    IplImage* image = &header;
    Srand(4);
    cv::Mat expected;
    cv::extractChannel(filtered(*filter, picture), expected, 2);
    const int next = Rand();
    Srand(4);
    EXPECT_TRUE(filter->Apply(&image));
    EXPECT_TRUE(identical(plane, expected));
    cv::Mat four(21, 45, CV_8UC4, cv::Scalar::all(7));
    header = cvIplImage(four);
    Srand(4);
    EXPECT_TRUE(filter->Apply(&image));
    EXPECT_EQ(Rand(), next);
    EXPECT_EQ(cv::sum(four)[3], 21 * 45 * 7);
}

}  // namespace
}  // namespace vellora
