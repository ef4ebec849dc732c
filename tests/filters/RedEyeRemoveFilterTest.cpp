#include <limits>
#include <memory>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;

struct RedEyeRemoveFilterTest : testing::Test {
    std::unique_ptr<COpencvFilterInterface> filter{CreateFilterByName(u"Red Eye Removal")};
    cv::Mat red{10, 20, CV_8UC3, cv::Scalar(40, 40, 200)};
};

TEST_F(RedEyeRemoveFilterTest, PullsDominantRedDownToTheMean) {
    filter->SetROI(0, 0, 1, 1);
    EXPECT_EQ(filtered(*filter, red).at<cv::Vec3b>(9, 19), cv::Vec3b(40, 40, 40));
    const cv::Mat dull(3, 3, CV_8UC3, cv::Scalar(40, 40, 70));
    EXPECT_TRUE(identical(filtered(*filter, dull), dull));
    // The mean of 40 and 41 is truncated; without green and blue any red is too much.
    const cv::Mat odd(1, 1, CV_8UC3, cv::Scalar(40, 41, 200));
    EXPECT_EQ(filtered(*filter, odd).at<cv::Vec3b>(0, 0), cv::Vec3b(40, 41, 40));
    const cv::Mat pure(1, 1, CV_8UC3, cv::Scalar(0, 0, 9));
    EXPECT_EQ(filtered(*filter, pure).at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 0));
    const cv::Mat black(1, 1, CV_8UC3, cv::Scalar(0, 0, 0));
    EXPECT_TRUE(identical(filtered(*filter, black), black));
}

TEST_F(RedEyeRemoveFilterTest, KeepsToItsRegion) {
    EXPECT_TRUE(identical(filtered(*filter, red), red)) << "a fresh filter has no region";
    filter->SetROI(0.25F, 0.5F, 0.5F, 2.0F);
    cv::Mat expected = red.clone();
    expected(cv::Rect(5, 5, 10, 5)).setTo(cv::Scalar(40, 40, 40));
    EXPECT_TRUE(identical(filtered(*filter, red), expected));
    filter->SetROI(0.25F, 0.5F, -0.1F, 0.5F);
    EXPECT_EQ(filtered(*filter, red).at<cv::Vec3b>(0, 0), cv::Vec3b(40, 40, 40))
        << "a negative fraction stands for the whole image";
}

TEST_F(RedEyeRemoveFilterTest, SurvivesAnyRegion) {
    const float infinite = std::numeric_limits<float>::infinity();
    const float unknown = std::numeric_limits<float>::quiet_NaN();
    for (const float start : {0.0F, 5.0F, 1e30F, infinite, unknown}) {
        for (const float extent : {0.0F, 1e30F, infinite, unknown}) {
            filter->SetROI(start, start, extent, extent);
            EXPECT_EQ(filtered(*filter, red).size(), red.size());
        }
    }
}

}  // namespace
}  // namespace vellora
