#include "filters/BlackWhiteFilter.h"

#include <algorithm>

#include <opencv2/core.hpp>
#include <opencv2/core/hal/intrin.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
namespace {

void spreadMaxima(uchar* row, int width) {
    int x = 0;
#if CV_SIMD128
    constexpr int kPixels = 16;
    for (; x + kPixels <= width; x += kPixels, row += 3 * kPixels) {
        cv::v_uint8x16 blue;
        cv::v_uint8x16 green;
        cv::v_uint8x16 red;
        cv::v_load_deinterleave(row, blue, green, red);
        const cv::v_uint8x16 largest = cv::v_max(cv::v_max(blue, green), red);
        cv::v_store_interleave(row, largest, largest, largest);
    }
#endif
    for (; x < width; ++x, row += 3) {
        const uchar largest = std::max({row[0], row[1], row[2]});
        row[0] = row[1] = row[2] = largest;
    }
}

}  // namespace

CBlackWhiteFilter::CBlackWhiteFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CBlackWhiteFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    forEachRowBand(pixels, [](cv::Mat& rows) {
        for (int y = 0; y < rows.rows; ++y) {
            spreadMaxima(rows.ptr<uchar>(y), rows.cols);
        }
    });
    return true;
}

const char16_t* CBlackWhiteFilter::GetName() const {
    return u"Black&White";
}

}  // namespace vellora
