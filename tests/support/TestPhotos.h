#pragma once

#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>

#include <opencv2/core.hpp>

#include <vellora/base/ImagePtr.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/FilterInterface.h>

namespace vellora::test {

/// A picture in which every pixel differs from its neighbours in a known way: blue grows with the
/// column, green with the row, red with both.
cv::Mat gradient(int width, int height);

/// Reproducible noise.
cv::Mat noise(int width, int height, std::uint64_t seed = 1);

/// Writes a picture as PNG (lossless) and returns its path.
QString writePng(const QTemporaryDir& folder, const QString& name, const cv::Mat& bgr);

/// A zero-filled host record of a photo.
std::unique_ptr<_PHOTO_LIST_NODE> record(const QString& path);

/// Applies a filter to a copy of the picture; fails the test when the filter refuses.
cv::Mat filtered(COpencvFilterInterface& filter, const cv::Mat& picture);

/// As above, with a filter made by name and its factors set.
cv::Mat filtered(const char16_t* name, const cv::Mat& picture,
                 std::initializer_list<std::int32_t> factors = {});

/// Whether two pictures have the same size and bytes.
bool identical(const cv::Mat& a, const cv::Mat& b);

}  // namespace vellora::test
