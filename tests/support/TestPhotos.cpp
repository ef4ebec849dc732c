#include "support/TestPhotos.h"

#include <QImage>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/filters/FilterCatalogue.h>

#include "base/ImageView.h"

namespace vellora::test {

cv::Mat gradient(int width, int height) {
    cv::Mat picture(height, width, CV_8UC3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.at<cv::Vec3b>(y, x) = {static_cast<uchar>(x * 255 / std::max(1, width - 1)),
                                           static_cast<uchar>(y * 255 / std::max(1, height - 1)),
                                           static_cast<uchar>((x * 7 + y * 13) % 256)};
        }
    }
    return picture;
}

cv::Mat noise(int width, int height, std::uint64_t seed) {
    cv::Mat picture(height, width, CV_8UC3);
    cv::RNG(seed).fill(picture, cv::RNG::UNIFORM, 0, 256);
    return picture;
}

QString writePng(const QTemporaryDir& folder, const QString& name, const cv::Mat& bgr) {
    const QString path = folder.filePath(name);
    EXPECT_TRUE(imageView(bgr).save(path, "PNG"));
    return path;
}

std::unique_ptr<_PHOTO_LIST_NODE> record(const QString& path) {
    auto node = std::make_unique<_PHOTO_LIST_NODE>();
    setHostText(node->path, path);
    return node;
}

cv::Mat filtered(COpencvFilterInterface& filter, const cv::Mat& picture) {
    ImagePtr image = copyImage(picture);
    IplImage* raw = image.release();
    EXPECT_TRUE(filter.Apply(&raw));
    image.reset(raw);
    return cv::cvarrToMat(raw, true);
}

cv::Mat filtered(const char16_t* name, const cv::Mat& picture,
                 std::initializer_list<std::int32_t> factors) {
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(name));
    std::int32_t* targets[] = {filter->GetFactorOne(), filter->GetFactorTwo(),
                               filter->GetFactorThree()};
    std::size_t k = 0;
    for (const std::int32_t value : factors) {
        *targets[k++] = value;
    }
    return filtered(*filter, picture);
}

bool identical(const cv::Mat& a, const cv::Mat& b) {
    return a.size() == b.size() && a.type() == b.type() && cv::norm(a, b, cv::NORM_INF) == 0;
}

}  // namespace vellora::test
