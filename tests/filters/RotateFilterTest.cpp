#include <cmath>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;
using test::noise;

/// The turn written straight from its definition, one pixel at a time.
cv::Mat turnedScalar(const cv::Mat& source, int factor) {
    const double theta = (factor - 500.0) / 1000.0 * 2.0 * M_PI;
    const auto c = static_cast<float>(std::cos(theta));
    const auto s = static_cast<float>(std::sin(theta));
    const int w = source.cols;
    const int h = source.rows;
    const auto at = [&](int x, int y, int channel) {
        const bool inside = x >= 0 && y >= 0 && x < w && y < h;
        return inside ? static_cast<float>(source.at<cv::Vec3b>(y, x)[channel]) : 128.0F;
    };
    cv::Mat result(source.size(), source.type());
    for (int x = 0; x < w; ++x) {
        for (int y = 0; y < h; ++y) {
            const float midX = static_cast<float>(w - 1) * 0.5F;
            const float midY = static_cast<float>(h - 1) * 0.5F;
            const float dx = static_cast<float>(x) - midX;
            const float dy = static_cast<float>(y) - midY;
            const float sx = midX + dx * c - dy * s;
            const float sy = midY + dx * s + dy * c;
            const int x0 = static_cast<int>(std::floor(sx));
            const int y0 = static_cast<int>(std::floor(sy));
            const float fx = sx - static_cast<float>(x0);
            const float fy = sy - static_cast<float>(y0);
            for (int k = 0; k < 3; ++k) {
                const float p00 = at(x0, y0, k);
                const float p10 = at(x0 + 1, y0, k);
                const float p01 = at(x0, y0 + 1, k);
                const float p11 = at(x0 + 1, y0 + 1, k);
                const float value = fx + fy <= 1
                                        ? p00 + (p10 - p00) * fx + (p01 - p00) * fy
                                        : p11 + (p10 - p11) * (1 - fy) + (p01 - p11) * (1 - fx);
                result.at<cv::Vec3b>(y, x)[k] = cv::saturate_cast<uchar>(value);
            }
        }
    }
    return result;
}

TEST(RotateFilterTest, MatchesItsDefinition) {
    const cv::Mat picture = noise(61, 40);
    for (const int factor : {0, 137, 250, 499, 500, 547, 750, 1000}) {
        EXPECT_LE(cv::norm(filtered(u"Rotate", picture, {factor}), turnedScalar(picture, factor),
                           cv::NORM_INF),
                  0)
            << factor;
    }
}

TEST(RotateFilterTest, LeavesContentAtRestAndGreyCorners) {
    const cv::Mat picture = noise(80, 60);
    EXPECT_TRUE(identical(filtered(u"Rotate", picture, {500}), picture));
    const cv::Mat turned = filtered(u"Rotate", picture, {625});
    EXPECT_EQ(turned.at<cv::Vec3b>(0, 0), cv::Vec3b(128, 128, 128));
    EXPECT_EQ(turned.at<cv::Vec3b>(59, 79), cv::Vec3b(128, 128, 128));
    cv::Mat half;
    cv::flip(picture, half, -1);
    // Half a turn meets the pixels but for rounding in single precision.
    EXPECT_LE(cv::norm(filtered(u"Rotate", picture, {1000}), half, cv::NORM_INF), 1);
}

TEST(RotateFilterTest, TurnsLargePicturesAtReducedResolution) {
    const cv::Mat picture = noise(2000, 1000);
    cv::Mat work;
    cv::resize(picture, work, cv::Size(1000, 500), 0, 0, cv::INTER_LINEAR);
    cv::Mat expected;
    cv::resize(filtered(u"Rotate", work, {560}), expected, picture.size(), 0, 0, cv::INTER_LINEAR);
    EXPECT_TRUE(identical(filtered(u"Rotate", picture, {560}), expected));
    EXPECT_EQ(filtered(u"Rotate", noise(1, 5000), {560}).size(), cv::Size(1, 5000));
}

}  // namespace
}  // namespace vellora
