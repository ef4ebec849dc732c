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

// Whole factors, so that the edges of a part are those of the whole.
TEST(GeometryTest, MakesOnlyWhatShowsOfALargePlace) {
    const struct {
        cv::Size picture;
        Rect place;
        Rect visible;
    } cases[] = {{{50, 20}, {-2000, -700, 3000, 1300}, {0, 0, 600, 450}},
                 {{4000, 30}, {-900, 10, 1100, 25}, {0, 0, 300, 200}},
                 {{30, 7}, {0, 0, 30, 70}, {0, 65, 40, 90}}};
    for (const auto& [size, place, visible] : cases) {
        const cv::Mat picture = test::noise(size.width, size.height, 3);
        const ImagePtr whole = resizedByArea(picture, {place.width(), place.height()});
        const PlacedImage part = resizedInto(picture, place, visible);
        ASSERT_NE(part.image, nullptr);
        EXPECT_LT(part.image->width * part.image->height, place.width() * place.height() / 2);
        const cv::Rect shown =
            cv::Rect(visible.left, visible.top, visible.width(), visible.height()) &
            cv::Rect(place.left, place.top, place.width(), place.height());
        const cv::Rect inPart(shown.x - part.left, shown.y - part.top, shown.width, shown.height);
        const cv::Rect inWhole(shown.x - place.left, shown.y - place.top, shown.width,
                               shown.height);
        EXPECT_TRUE(test::identical(cv::cvarrToMat(part.image.get())(inPart).clone(),
                                    cv::cvarrToMat(whole.get())(inWhole).clone()));
    }
    EXPECT_EQ(resizedInto(test::noise(9, 9), {0, 0, 90, 90}, {90, 0, 200, 90}).image, nullptr);
}

}  // namespace
}  // namespace vellora
