#pragma once

#include <algorithm>

#include <opencv2/core.hpp>

namespace vellora {

/// Calls `work` for bands of whole rows that together cover the image, on OpenCV's thread pool.
///
/// A band is small enough to stay in the cache between several passes over it. Work that treats
/// each row by itself gives the same bytes at any thread count.
template <class Work>
void forEachRowBand(cv::Mat& image, Work work) {
    constexpr int kBandBytes = 96 * 1024;
    const int rowBytes = std::max(1, static_cast<int>(image.cols * image.elemSize()));
    const int bandRows = std::max(1, kBandBytes / rowBytes);
    const int bands = (image.rows + bandRows - 1) / bandRows;
    cv::parallel_for_(cv::Range(0, bands), [&](const cv::Range& range) {
        for (int band = range.start; band < range.end; ++band) {
            const int first = band * bandRows;
            cv::Mat rows = image.rowRange(first, std::min(first + bandRows, image.rows));
            work(rows);
        }
    });
}

}  // namespace vellora
