#include <cmath>
#include <memory>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/RandomSeed.h>

#include "base/Random.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;
using test::noise;

class SnowFilterTest : public testing::Test {
protected:
    ~SnowFilterTest() override { ReleaseRandomSeed(); }
};

using RainFilterTest = SnowFilterTest;

void dropFlakes(cv::Mat& picture, int count, float softness) {
    const int radius = std::min(picture.cols, picture.rows) * 25 / 767;
    cv::Mat1f weights(2 * radius + 1, 2 * radius + 1, 1.0F);
    for (int dy = -radius; radius > 0 && dy <= radius; ++dy) {
        for (int dx = -radius; dx <= radius; ++dx) {
            const long double squared = dx * dx + dy * dy;
            weights(dy + radius, dx + radius) =
                squared > radius * radius
                    ? 0.0F
                    : static_cast<float>(
                          std::exp(-squared / (radius * radius) / softness / softness));
        }
    }
    for (int i = 0; i < count; ++i) {
        const int x = Rand() * picture.cols >> 15;
        const int y = Rand() * picture.rows >> 15;
        for (int dy = -radius; dy <= radius; ++dy) {
            for (int dx = -radius; dx <= radius; ++dx) {
                if (x + dx < 0 || x + dx >= picture.cols || y + dy < 0 || y + dy >= picture.rows) {
                    continue;
                }
                for (int c = 0; c < 3; ++c) {
                    auto& value = picture.at<cv::Vec3b>(y + dy, x + dx)[c];
                    const double weight = weights(dy + radius, dx + radius);
                    value = static_cast<uchar>(255 - (1 - weight) * (255 - value));
                }
            }
        }
    }
}

TEST_F(SnowFilterTest, FollowsItsFormulas) {
    for (const cv::Size size :
         {cv::Size(600, 450), cv::Size(101, 93), cv::Size(20, 30), cv::Size(9, 1)}) {
        SCOPED_TRACE(testing::Message() << size);
        const cv::Mat picture = noise(size.width, size.height, 3) * 0.7;
        cv::Mat expected = picture.clone();
        Srand(123);
        dropFlakes(expected, 300, static_cast<float>(1 / std::sqrt(5.0)));
        dropFlakes(expected, 40, static_cast<float>(1 / std::sqrt(10.0)));
        dropFlakes(expected, 20, static_cast<float>(1 / std::sqrt(50.0)));
        const int next = Rand();
        FixRandomSeed(123);
        EXPECT_TRUE(identical(filtered(u"Snow", picture), expected));
        EXPECT_EQ(Rand(), next);
    }
}

TEST_F(SnowFilterTest, WhitensAndStartsItsSequenceAnew) {
    const cv::Mat black(120, 90, CV_8UC3, cv::Scalar::all(0));
    FixRandomSeed(186648);
    const cv::Mat one = filtered(u"Snow", black, {1, 0, -5});
    // Radius 2: the centre is white, a neighbour moves by exp(-5 / 4).
    double brightest = 0;
    cv::Point centre;
    cv::Mat plane;
    cv::extractChannel(one, plane, 0);
    cv::minMaxLoc(plane, nullptr, &brightest, nullptr, &centre);
    EXPECT_EQ(brightest, 255);
    EXPECT_EQ(cv::countNonZero(plane), 13);
    EXPECT_EQ(plane.at<uchar>(centre.y, centre.x + 1), static_cast<int>(255 * std::exp(-5.0 / 4)));
    EXPECT_EQ(plane.at<uchar>(centre.y + 2, centre.x), static_cast<int>(255 * std::exp(-5.0)));
    Rand();
    EXPECT_TRUE(identical(filtered(u"Snow", black, {1, 0, -5}), one));
}

TEST_F(SnowFilterTest, TinyPicturesGetSinglePixels) {
    FixRandomSeed(2);
    const cv::Mat snowed =
        filtered(u"Snow", cv::Mat(30, 30, CV_8UC3, cv::Scalar::all(0)), {3, 0, 0});
    cv::Mat plane;
    cv::extractChannel(snowed, plane, 1);
    EXPECT_EQ(cv::countNonZero(plane), 3);
    EXPECT_EQ(cv::countNonZero(plane == 255), 3);
}

TEST_F(RainFilterTest, FollowsItsFormulas) {
    for (const auto& [shortest, longest, drops] :
         {std::array{15, 730, 65}, std::array{1, 1, 500}, std::array{40, 5, 300},
          std::array{-30, 20, 200}, std::array{0, 0, 100}}) {
        for (const cv::Size size : {cv::Size(101, 77), cv::Size(1, 50), cv::Size(64, 1)}) {
            SCOPED_TRACE(testing::Message() << size << shortest << ' ' << longest << ' ' << drops);
            const cv::Mat picture = noise(size.width, size.height, 4);
            cv::Mat expected = picture.clone();
            Srand(31);
            const float stretch = 1.0198039F;
            for (int i = 0; i < drops; ++i) {
                const auto x0 = static_cast<float>(std::trunc(Rand() * (1.0 / 32768) * size.width));
                const auto y0 =
                    static_cast<float>(std::trunc(Rand() * (1.0 / 32768) * size.height));
                const double span = static_cast<double>(longest) - shortest;
                const int length = static_cast<int>(Rand() / 32767.0 * span + shortest);
                for (int t = -length; t < length; ++t) {
                    const int x = static_cast<int>(x0 - static_cast<double>(0.2F) * t / stretch);
                    const int y = static_cast<int>(y0 + t / static_cast<double>(stretch));
                    if (x >= 0 && x < size.width && y >= 0 && y < size.height) {
                        for (int c = 0; c < 3; ++c) {
                            auto& value = expected.at<cv::Vec3b>(y, x)[c];
                            value = static_cast<uchar>(255 - (255 - value) / 1.1);
                        }
                    }
                }
            }
            const int next = Rand();
            Srand(31);
            EXPECT_TRUE(
                identical(filtered(u"Rain", picture, {shortest, longest, drops}), expected));
            EXPECT_EQ(Rand(), next);
        }
    }
}

TEST_F(RainFilterTest, LightensAlongASlant) {
    const cv::Mat black(400, 400, CV_8UC3, cv::Scalar::all(0));
    Srand(186648);
    const cv::Mat rained = filtered(u"Rain", black, {60, 60, 1});
    cv::Mat1b plane;
    cv::extractChannel(rained, plane, 2);
    // A pixel that was hit once is 23; some are hit twice, where two steps fall on one row.
    EXPECT_GE(cv::countNonZero(plane == 23), 100);
    std::vector<cv::Point> lit;
    cv::findNonZero(plane, lit);
    // Rows grow as columns shrink, by one column in five rows.
    EXPECT_NEAR(lit.back().x - lit.front().x, -(lit.back().y - lit.front().y) / 5.0, 2.5);
    const cv::Mat white(9, 9, CV_8UC3, cv::Scalar::all(255));
    EXPECT_TRUE(identical(filtered(u"Rain", white, {5, 9, 50}), white));
}

// Counts and lengths as no slider gives them end soon, and still rain or snow.
TEST_F(RainFilterTest, HostileFactorsEnd) {
    constexpr int kMost = 2'147'483'647;
    for (const cv::Size size : {cv::Size(1, 1), cv::Size(300, 200), cv::Size(1, 5000)}) {
        const cv::Mat black(size, CV_8UC3, cv::Scalar::all(0));
        EXPECT_GT(cv::mean(filtered(u"Rain", black, {kMost, kMost, kMost}))[0], 200);
        EXPECT_GT(cv::mean(filtered(u"Rain", black, {1, 1, kMost}))[0], 50);
        EXPECT_GT(cv::mean(filtered(u"Snow", black, {kMost, kMost, kMost}))[0], 240);
        EXPECT_TRUE(identical(filtered(u"Rain", black, {5, -kMost, -kMost - 1}), black));
        EXPECT_TRUE(identical(filtered(u"Snow", black, {-kMost, 0, -1}), black));
    }
}

}  // namespace
}  // namespace vellora
