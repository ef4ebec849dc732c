#include <cmath>
#include <functional>
#include <memory>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include <vellora/filters/FilterCatalogue.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;
using test::noise;

cv::Mat pixel(int blue, int green, int red) {
    return {1, 1, CV_8UC3, cv::Scalar(blue, green, red)};
}

cv::Vec3b filteredPixel(const char16_t* name, cv::Vec3b colour,
                        std::initializer_list<std::int32_t> factors = {}) {
    return filtered(name, pixel(colour[0], colour[1], colour[2]), factors).at<cv::Vec3b>(0, 0);
}

/// Recomputes a picture pixel by pixel.
cv::Mat recomputed(cv::Mat picture, const std::function<cv::Vec3b(cv::Vec3b)>& formula) {
    for (auto it = picture.begin<cv::Vec3b>(); it != picture.end<cv::Vec3b>(); ++it) {
        *it = formula(*it);
    }
    return picture;
}

int clamp255(int value) {
    return value < 0 ? 0 : value > 255 ? 255 : value;
}

// An odd width, wider than any vector, so that heads and tails of rows are covered.
const cv::Mat kNoise = noise(101, 37);

TEST(ColourFiltersTest, ColorMatrixOffsetsAndClamps) {
    EXPECT_EQ(filteredPixel(u"Color Matrix", {255, 255, 255}), cv::Vec3b(255, 255, 255));
    EXPECT_EQ(filteredPixel(u"Color Matrix", {0, 0, 0}), cv::Vec3b(0, 32, 64));
    for (const auto& [red, green, blue] : {std::array{64, 32, 0}, std::array{-100, 100, -1},
                                           std::array{2'000'000'000, -2'000'000'000, 255}}) {
        const cv::Mat expected = recomputed(kNoise.clone(), [&](cv::Vec3b p) {
            const auto sum = [](int value, int offset) {
                return static_cast<uchar>(clamp255(value + std::clamp(offset, -300, 300)));
            };
            return cv::Vec3b(sum(p[0], blue), sum(p[1], green), sum(p[2], red));
        });
        EXPECT_TRUE(identical(filtered(u"Color Matrix", kNoise, {red, green, blue}), expected));
    }
}

TEST(ColourFiltersTest, GreyKeepsItsBlueHeavyWeights) {
    EXPECT_EQ(filteredPixel(u"Grey", {255, 0, 0}), cv::Vec3b(76, 76, 76));
    EXPECT_EQ(filteredPixel(u"Grey", {0, 0, 255}), cv::Vec3b(29, 29, 29));
    cv::Mat grey;
    cv::cvtColor(kNoise, grey, cv::COLOR_RGB2GRAY);
    cv::Mat expected;
    cv::merge(std::vector<cv::Mat>{grey, grey, grey}, expected);
    EXPECT_TRUE(identical(filtered(u"Grey", kNoise), expected));
}

TEST(ColourFiltersTest, BlackWhiteSpreadsTheLargestChannel) {
    EXPECT_EQ(filteredPixel(u"Black&White", {10, 200, 30}), cv::Vec3b(200, 200, 200));
    const cv::Mat expected = recomputed(kNoise.clone(), [](cv::Vec3b p) {
        return cv::Vec3b::all(std::max({p[0], p[1], p[2]}));
    });
    EXPECT_TRUE(identical(filtered(u"Black&White", kNoise), expected));
}

TEST(ColourFiltersTest, BrightnessContrastTruncates) {
    EXPECT_EQ(filteredPixel(u"Brightness Contrast", {200, 0, 255}, {0, 50}),
              cv::Vec3b(236, 0, 255));
    EXPECT_TRUE(identical(filtered(u"Brightness Contrast", kNoise, {0, 0}), kNoise));
    const cv::Mat flat = filtered(u"Brightness Contrast", kNoise, {0, -90});
    double low = 0;
    double high = 0;
    cv::minMaxLoc(flat.reshape(1), &low, &high);
    EXPECT_GE(low, 127);
    EXPECT_LE(high, 128);
    for (const auto& [brightness, contrast] :
         {std::array{37, 25}, std::array{-60, -45}, std::array{200, 90}, std::array{0, 1}}) {
        const double gain =
            contrast < 1 ? std::cos(contrast * 0.017453292519943295) : contrast / 100.0 + 1;
        const cv::Mat expected = recomputed(kNoise.clone(), [&](cv::Vec3b p) {
            for (int c = 0; c < 3; ++c) {
                double v = clamp255(p[c] + brightness);
                v = (v - 128) * gain + 128;
                p[c] = static_cast<uchar>(v < 0 ? 0 : v > 255 ? 255 : v);
            }
            return p;
        });
        EXPECT_TRUE(
            identical(filtered(u"Brightness Contrast", kNoise, {brightness, contrast}), expected));
    }
}

TEST(ColourFiltersTest, HslOffsetsEachPlaneWithoutWrappingTheHue) {
    for (const auto& [hue, saturation, lightness] :
         {std::array{0, 0, 0}, std::array{40, -80, 25}, std::array{180, 0, 0},
          std::array{-180, 255, -255}}) {
        cv::Mat hls;
        cv::cvtColor(kNoise, hls, cv::COLOR_BGR2HLS);
        hls = recomputed(hls, [&](cv::Vec3b p) {
            return cv::Vec3b(static_cast<uchar>(std::clamp(p[0] + hue, 0, 180)),
                             static_cast<uchar>(clamp255(p[1] + lightness)),
                             static_cast<uchar>(clamp255(p[2] + saturation)));
        });
        cv::Mat expected;
        cv::cvtColor(hls, expected, cv::COLOR_HLS2BGR);
        EXPECT_TRUE(identical(filtered(u"HSL", kNoise, {hue, saturation, lightness}), expected));
    }
}

TEST(ColourFiltersTest, InverseTakesAnyChannelCountTheOthersOnlyThree) {
    EXPECT_EQ(filteredPixel(u"Inverse", {0, 100, 255}), cv::Vec3b(255, 155, 0));
    IplImage* single = cvCreateImage(cvSize(5, 3), IPL_DEPTH_8U, 1);
    cvSet(single, cvScalar(10));
    for (const char16_t* name :
         {u"Color Matrix", u"Grey", u"Black&White", u"Brightness Contrast", u"HSL"}) {
        const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name));
        IplImage* none = nullptr;
        EXPECT_FALSE(filter->Apply(nullptr));
        EXPECT_FALSE(filter->Apply(&none));
        EXPECT_FALSE(filter->Apply(&single));
        EXPECT_EQ(CV_IMAGE_ELEM(single, uchar, 2, 4), 10);
    }
    const std::unique_ptr<COpencvFilterInterface> inverse(CreateFilterByName(u"Inverse"));
    EXPECT_TRUE(inverse->Apply(&single));
    EXPECT_EQ(CV_IMAGE_ELEM(single, uchar, 2, 4), 245);
    IplImage* none = nullptr;
    EXPECT_FALSE(inverse->Apply(&none));
    cvReleaseImage(&single);
}

// Regions of larger pictures, single rows and columns, and the bytes at any thread count.
TEST(ColourFiltersTest, StayInsideTheImageAndRepeatAtAnyThreadCount) {
    for (const char16_t* name : {u"Color Matrix", u"Grey", u"Black&White", u"Brightness Contrast",
                                 u"HSL", u"Inverse", u"Rotate"}) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(name)));
        const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name));
        if (filter->GetFactorOne() != nullptr) {
            *filter->GetFactorOne() = 33;
        }
        for (const cv::Size size : {cv::Size(1, 1), cv::Size(1, 9), cv::Size(9, 1),
                                    cv::Size(33, 17), cv::Size(700, 500)}) {
            cv::Mat wide = noise(size.width + 2, size.height + 2, 7);
            const cv::Mat before = wide.clone();
            const cv::Rect inner(1, 1, size.width, size.height);
            cv::Mat part = wide(inner);
            IplImage header = cvIplImage(part);
            IplImage* image = &header;
            ASSERT_TRUE(filter->Apply(&image));
            EXPECT_TRUE(identical(wide(inner), filtered(*filter, before(inner))));
            wide(inner).setTo(0);
            cv::Mat frame = before.clone();
            frame(inner).setTo(0);
            EXPECT_TRUE(identical(wide, frame));
        }
        const cv::Mat large = noise(640, 480, 3);
        const cv::Mat expected = filtered(*filter, large);
        const int threads = cv::getNumThreads();
        for (const int count : {1, 2, 4}) {
            cv::setNumThreads(count);
            EXPECT_TRUE(identical(filtered(*filter, large), expected));
        }
        cv::setNumThreads(threads);
    }
}

}  // namespace
}  // namespace vellora
