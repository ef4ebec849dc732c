#include <cmath>
#include <memory>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include <vellora/filters/FilterCatalogue.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::gradient;
using test::identical;
using test::noise;

/// The photo in the colours of its outlines.
cv::Mat outlineColours(const cv::Mat& picture, float saturation) {
    cv::Mat hsv;
    cv::cvtColor(picture, hsv, cv::COLOR_BGR2HSV);
    for (auto it = hsv.begin<cv::Vec3b>(); it != hsv.end<cv::Vec3b>(); ++it) {
        (*it)[1] = cv::saturate_cast<uchar>(static_cast<float>((*it)[1]) * saturation);
        (*it)[2] = cv::saturate_cast<uchar>(static_cast<float>((*it)[2]) * 0.8F);
    }
    cv::cvtColor(hsv, hsv, cv::COLOR_HSV2BGR);
    return hsv;
}

/// The gradient kernel as it is given: all 121 weights.
cv::Mat1d kernel(double sigma, bool alongColumns) {
    cv::Mat1d weights(11, 11);
    double sum = 0;
    for (int i = -5; i <= 5; ++i) {
        for (int j = -5; j <= 5; ++j) {
            const double g = std::exp(-(i * i + j * j) / (sigma * sigma));
            weights(i + 5, j + 5) = g * -2 * (alongColumns ? j : i) / (sigma * sigma);
            sum += g;
        }
    }
    weights /= sum;
    return weights;
}

/// 255 less the strength for edge points, else 0; the direction is found from the angle.
cv::Mat1b edgePoints(const cv::Mat& picture, double sigma, double threshold) {
    cv::Mat1d brightness(picture.size());
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            const auto pixel = picture.at<cv::Vec3b>(y, x);
            brightness(y, x) = pixel[0] + pixel[1] + pixel[2];
        }
    }
    cv::Mat1d gx;
    cv::Mat1d gy;
    cv::filter2D(brightness, gx, CV_64F, kernel(sigma, true), {-1, -1}, 0, cv::BORDER_REPLICATE);
    cv::filter2D(brightness, gy, CV_64F, kernel(sigma, false), {-1, -1}, 0, cv::BORDER_REPLICATE);
    cv::Mat1b points(picture.size(), 0);
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            const double eighth = std::round(std::atan2(gy(y, x), gx(y, x)) / (CV_PI / 4));
            const double stepX = std::cos(eighth * CV_PI / 4);
            const double stepY = std::sin(eighth * CV_PI / 4);
            bool below = true;
            for (const int side : {-1, 1}) {
                const int nx = std::clamp(x + side * cvRound(stepX), 0, picture.cols - 1);
                const int ny = std::clamp(y + side * cvRound(stepY), 0, picture.rows - 1);
                below = below && gx(ny, nx) * stepX + gy(ny, nx) * stepY < threshold;
            }
            if (below) {
                points(y, x) = cv::saturate_cast<uchar>(255 - std::hypot(gx(y, x), gy(y, x)));
            }
        }
    }
    return points;
}

cv::Mat contoured(const cv::Mat& picture, int kernelSize, int threshold, int saturation) {
    const cv::Mat1b points = edgePoints(picture, kernelSize / 10.0, threshold);
    cv::Mat map;
    const cv::Mat1f spread = cv::Mat1f({3, 3}, {20, 60, 20, 60, 255, 60, 20, 60, 20});
    cv::filter2D(255 - points, map, CV_32F, spread, {-1, -1}, 0, cv::BORDER_REPLICATE);
    map.convertTo(map, CV_8U, 1.0 / 255);
    map = 255 - map;
    const cv::Mat colours = outlineColours(picture, static_cast<float>(saturation) / 100);
    cv::Mat result = picture.clone();
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            const double share = map.at<uchar>(y, x);
            for (int c = 0; c < 3; ++c) {
                auto& value = result.at<cv::Vec3b>(y, x)[c];
                value = cv::saturate_cast<uchar>(
                    cvRound(value * share / 255) +
                    cvRound(colours.at<cv::Vec3b>(y, x)[c] * (255 - share) / 255));
            }
        }
    }
    return result;
}

// Single precision rounds differently here and there: nearly all bytes agree, the others closely.
void expectClose(const cv::Mat& result, const cv::Mat& expected) {
    ASSERT_EQ(result.size(), expected.size());
    cv::Mat difference;
    cv::absdiff(result, expected, difference);
    const auto total = static_cast<double>(difference.total() * 3);
    EXPECT_LE(cv::countNonZero(difference.reshape(1) > 1), 0.001 * total + 1);
    EXPECT_LE(cv::countNonZero(difference.reshape(1)), 0.02 * total + 1);
}

TEST(EdgeFilterTest, FollowsItsFormulas) {
    for (const cv::Size size :
         {cv::Size(150, 131), cv::Size(33, 7), cv::Size(1, 9), cv::Size(9, 1), cv::Size(1, 1)}) {
        cv::Mat picture = gradient(size.width, size.height);
        cv::circle(picture, {size.width / 2, size.height / 2}, 20, cv::Scalar(20, 200, 90),
                   cv::FILLED);
        cv::GaussianBlur(picture, picture, {3, 3}, 0);
        for (const auto& [kernelSize, threshold, saturation] :
             {std::array{30, 300, 40}, std::array{30, 10, 400}, std::array{10, 50, 0},
              std::array{100, 5, 100}}) {
            SCOPED_TRACE(testing::Message() << size << kernelSize << ' ' << threshold);
            expectClose(filtered(u"Contour", picture, {kernelSize, threshold, saturation}),
                        contoured(picture, kernelSize, threshold, saturation));
        }
    }
}

// A dark square on a bright ground: its outline is darkened, ground and inside stay.
TEST(EdgeFilterTest, DarkensOutlinesAndLeavesLevelGround) {
    cv::Mat picture(100, 120, CV_8UC3, cv::Scalar::all(200));
    picture(cv::Rect(40, 30, 40, 40)).setTo(cv::Scalar::all(100));
    const cv::Mat result = filtered(u"Contour", picture, {30, 10, 400});
    EXPECT_EQ(result.at<cv::Vec3b>(10, 10), cv::Vec3b::all(200));
    EXPECT_EQ(result.at<cv::Vec3b>(50, 60), cv::Vec3b::all(100));
    EXPECT_EQ(result.at<cv::Vec3b>(50, 39), cv::Vec3b::all(160));
    EXPECT_EQ(result.at<cv::Vec3b>(50, 40), cv::Vec3b::all(80));
    EXPECT_EQ(result.at<cv::Vec3b>(29, 60), cv::Vec3b::all(160));
    EXPECT_EQ(result.at<cv::Vec3b>(70, 60), cv::Vec3b::all(160));
    // A higher threshold leaves weaker outlines out.
    EXPECT_NE(filtered(u"Contour", picture, {30, 50, 400}).at<cv::Vec3b>(50, 36),
              cv::Vec3b::all(160));
}

TEST(EdgeFilterTest, TakesAnyFactorAndImage) {
    constexpr int kMost = 2'147'483'647;
    const cv::Mat picture = noise(50, 40, 2);
    for (const int factor : {0, kMost, -kMost - 1, 1}) {
        for (const auto& factors : {std::array{factor, 10, 400}, std::array{30, factor, 400},
                                    std::array{30, 10, factor}}) {
            EXPECT_EQ(filtered(u"Contour", picture, {factors[0], factors[1], factors[2]}).size(),
                      picture.size());
        }
    }
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"Contour"));
    IplImage* none = nullptr;
    EXPECT_TRUE(filter->Apply(nullptr));
    EXPECT_TRUE(filter->Apply(&none));
    cv::Mat plane(5, 5, CV_8U, cv::Scalar(9));
    IplImage header = cvIplImage(plane);
    IplImage* image = &header;
    EXPECT_TRUE(filter->Apply(&image));
    EXPECT_EQ(cv::countNonZero(plane == 9), 25);
}

}  // namespace
}  // namespace vellora
