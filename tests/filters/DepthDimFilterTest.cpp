#include <cmath>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>

#include "filters/SummedRows.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;
using test::noise;

cv::Mat filteredIn(const std::array<float, 4>& region, const cv::Mat& picture) {
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"Depth Dim"));
    filter->SetROI(region[0], region[1], region[2], region[3]);
    return filtered(*filter, picture);
}

// A summed-area table of the whole picture, and four look-ups for every pixel.
cv::Mat dimmed(const cv::Mat& source, const std::array<float, 4>& region) {
    const int width = source.cols;
    const int height = source.rows;
    float cx = 0.5F;
    float cy = 0.5F;
    float sx = 1;
    float sy = 1;
    if (region != std::array<float, 4>{}) {
        cx = region[0] + region[2] * 0.5F;
        cy = region[1] + region[3] * 0.5F;
        sx = region[2] * 4;
        sy = region[3] * 4;
    }
    cv::Mat sums(height, width, CV_32SC3, cv::Scalar::all(0));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            cv::Vec3i sum = source.at<cv::Vec3b>(y, x);
            sum += x > 0 ? sums.at<cv::Vec3i>(y, x - 1) : cv::Vec3i();
            sums.at<cv::Vec3i>(y, x) = sum;
        }
    }
    for (int y = 1; y < height; ++y) {
        sums.row(y) += sums.row(y - 1);
    }
    cv::Mat result = source.clone();
    for (int y = 0; y < height; ++y) {
        const double v = (static_cast<double>(y) / height - cy) / sy;
        const double pv = std::pow(v, 2.0);
        for (int x = 0; x < width; ++x) {
            const double u = (static_cast<double>(x) / width - cx) / sx;
            const auto r = static_cast<float>(std::sqrt(std::pow(u, 2.0) + pv) * 0.02);
            const int rx = static_cast<int>(static_cast<double>(width) * r);
            const int ry = static_cast<int>(static_cast<double>(height) * r);
            const int x0 = std::clamp(x - rx - 1, 0, width - 1);
            const int y0 = std::clamp(y - ry - 1, 0, height - 1);
            const int x1 = std::clamp(x + rx, 0, width - 1);
            const int y1 = std::clamp(y + ry, 0, height - 1);
            const int area = x0 * y0 - x1 * y0 - x0 * y1 + x1 * y1;
            const cv::Vec3i sum = sums.at<cv::Vec3i>(y0, x0) - sums.at<cv::Vec3i>(y0, x1) -
                                  sums.at<cv::Vec3i>(y1, x0) + sums.at<cv::Vec3i>(y1, x1);
            for (int c = 0; c < 3 && area != 0; ++c) {
                const double mean = sum[c] * (1.0 / area);
                result.at<cv::Vec3b>(y, x)[c] = static_cast<uchar>(std::min(mean, 255.0));
            }
        }
    }
    return result;
}

TEST(DepthDimFilterTest, FollowsItsFormulas) {
    for (const cv::Size size :
         {cv::Size(600, 450), cv::Size(1001, 333), cv::Size(77, 901), cv::Size(1, 40),
          cv::Size(40, 1), cv::Size(1, 1), cv::Size(3, 2), cv::Size(2, 9000)}) {
        const cv::Mat picture = noise(size.width, size.height, 20);
        // Flat colours are whole multiples of every area.
        const cv::Mat flat(size, CV_8UC3, cv::Scalar(255, 77, 1));
        for (const std::array<float, 4>& region :
             std::vector<std::array<float, 4>>{{},
                                               {0.375F, 0.375F, 0.25F, 0.25F},
                                               {0.1F, 0.7F, 0.2F, 0.1F},
                                               {0.4F, 0.4F, 0.01F, 0.02F},
                                               {-0.2F, 0.5F, -0.3F, 0.4F}}) {
            SCOPED_TRACE(testing::Message() << size << testing::PrintToString(region));
            EXPECT_TRUE(identical(filteredIn(region, picture), dimmed(picture, region)));
            EXPECT_TRUE(identical(filteredIn(region, flat), dimmed(flat, region)));
        }
    }
}

TEST(DepthDimFilterTest, KeepsTheFocusAndPixelsWithoutABox) {
    const cv::Mat picture = noise(600, 450, 21);
    const cv::Mat result = filteredIn({}, picture);
    EXPECT_EQ(result.at<cv::Vec3b>(225, 300), picture.at<cv::Vec3b>(225, 300));
    EXPECT_TRUE(identical(filteredIn({0.375F, 0.375F, 0.25F, 0.25F}, picture), result));
    // The corner's box: 8 columns and 6 rows reach out, the first of either is dropped.
    const cv::Scalar mean = cv::mean(picture(cv::Rect(1, 1, 8, 6)));
    EXPECT_EQ(result.at<cv::Vec3b>(0, 0)[1], static_cast<uchar>(mean[1]));
    // The focus in the corner: boxes of no pixel there.
    const cv::Mat corner = filteredIn({-0.5F, -0.5F, 1, 1}, picture);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(corner.at<cv::Vec3b>(0, i), picture.at<cv::Vec3b>(0, i));
        EXPECT_EQ(corner.at<cv::Vec3b>(i, 0), picture.at<cv::Vec3b>(i, 0));
    }
}

TEST(DepthDimFilterTest, TakesRegionsWithoutASizeOrANumber) {
    constexpr float kInfinite = std::numeric_limits<float>::infinity();
    constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    const cv::Mat picture = noise(90, 60, 22);
    // Everything but the focus is infinitely far from it: the mean of all but the first row and
    // column.
    const cv::Mat far = filteredIn({0.5F, 0.5F, 0, 0}, picture);
    const cv::Scalar mean = cv::mean(picture(cv::Rect(1, 1, 89, 59)));
    EXPECT_EQ(far.at<cv::Vec3b>(0, 0)[0], static_cast<uchar>(mean[0]));
    EXPECT_EQ(far.at<cv::Vec3b>(30, 45), picture.at<cv::Vec3b>(30, 45));
    for (const float value : {kInfinite, -kInfinite, kNone, 1e30F, -1e-30F}) {
        EXPECT_EQ(filteredIn({value, 0.1F, 0.2F, 0.3F}, picture).size(), picture.size());
        EXPECT_EQ(filteredIn({0.1F, 0.1F, value, 0.3F}, picture).size(), picture.size());
        EXPECT_EQ(filteredIn({value, value, value, value}, picture).size(), picture.size());
    }
}

// A picture of 20 megapixels: its sum of 5.1 thousand million needs more than 32 bits.
TEST(DepthDimFilterTest, SumsOverLargePicturesDoNotOverflow) {
    cv::Mat picture(4000, 5000, CV_8UC3, cv::Scalar(255, 254, 250));
    picture.rowRange(3000, 4000).setTo(cv::Scalar(255, 254, 10));
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"Depth Dim"));
    filter->SetROI(0.5F, 0.5F, 1e-6F, 1e-6F);
    const cv::Mat result = filtered(*filter, picture);
    const double mean = (2999 * 250.0 + 1000 * 10.0) / 3999;
    EXPECT_EQ(result.at<cv::Vec3b>(0, 0), cv::Vec3b(255, 254, static_cast<uchar>(mean)));
    EXPECT_EQ(result.at<cv::Vec3b>(3999, 4999), cv::Vec3b(255, 254, static_cast<uchar>(mean)));
}

TEST(SummedRowsTest, KeepsTheLatestRows) {
    const cv::Mat picture = noise(17, 9, 3);
    SummedRows sums(picture.size(), 2, 3);
    for (int y = 2; y < 8; ++y) {
        sums.add(picture.ptr(y));
    }
    double totals[3] = {0, 0, 1000};
    sums.addBox(4, 5, 16, 7, totals);
    const cv::Scalar expected = cv::sum(picture(cv::Rect(5, 6, 12, 2)));
    EXPECT_EQ(totals[0], expected[0]);
    EXPECT_EQ(totals[1], expected[1]);
    EXPECT_EQ(totals[2], expected[2] + 1000);
}

}  // namespace
}  // namespace vellora
