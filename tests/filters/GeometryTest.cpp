#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include "base/ImageView.h"
#include "filters/Geometry.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

cv::Mat turned(const cv::Mat& picture, int degrees) {
    const ImagePtr image = copyImage(picture);
    const ImagePtr result = rotatedQuarter(*image, degrees);
    return result != nullptr ? cv::cvarrToMat(result.get(), true) : cv::Mat();
}

TEST(GeometryTest, TurnsPicturesOfAnyLengthAlike) {
    constexpr int kLength = 33000;
    constexpr int kPart = 1000;
    const cv::Mat panorama = test::noise(kLength, 5);
    const cv::Mat part = panorama.colRange(0, kPart).clone();
    // All but the last column of the part, whose neighbour is cut off.
    EXPECT_TRUE(test::identical(turned(panorama, 90).rowRange(0, kPart - 1).clone(),
                                turned(part, 90).rowRange(0, kPart - 1).clone()));
    EXPECT_TRUE(
        test::identical(turned(panorama, 180).colRange(kLength - kPart + 1, kLength).clone(),
                        turned(part, 180).colRange(1, kPart).clone()));
    EXPECT_TRUE(
        test::identical(turned(panorama, 270).rowRange(kLength - kPart + 1, kLength).clone(),
                        turned(part, 270).rowRange(1, kPart).clone()));
}

}  // namespace
}  // namespace vellora
