#include "filters/WoodFilter.h"

#include <opencv2/core/hal/intrin.hpp>

#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// The truncated mean of three values is 128 or more exactly when their sum is 384 or more.
constexpr int kWhiteSum = 384;

void woodRow(uchar* row, int width) {
    const cv::v_uint16x8 limit = cv::v_setall_u16(kWhiteSum - 1);
    int x = 0;
    for (; x + 16 <= width; x += 16) {
        uchar* pixels = row + 3 * x;
        cv::v_uint8x16 channel[3];
        cv::v_load_deinterleave(pixels, channel[0], channel[1], channel[2]);
        cv::v_uint16x8 low[3];
        cv::v_uint16x8 high[3];
        for (int c = 0; c < 3; ++c) {
            cv::v_expand(channel[c], low[c], high[c]);
        }
        const cv::v_uint16x8 whiteLow = low[0] + low[1] + low[2] > limit;
        const cv::v_uint16x8 whiteHigh = high[0] + high[1] + high[2] > limit;
        // Packing limits the all-ones lanes to 255.
        const cv::v_uint8x16 level = cv::v_pack(whiteLow, whiteHigh);
        cv::v_store_interleave(pixels, level, level, level);
    }
    for (; x < width; ++x) {
        uchar* pixel = row + 3 * x;
        const uchar level = pixel[0] + pixel[1] + pixel[2] >= kWhiteSum ? 255 : 0;
        pixel[0] = pixel[1] = pixel[2] = level;
    }
}

}  // namespace

CWoodFilter::CWoodFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CWoodFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    for (int y = 0; y < picture.rows; ++y) {
        woodRow(picture.ptr(y), picture.cols);
    }
    return true;
}

const char16_t* CWoodFilter::GetName() const {
    return u"Wood";
}

}  // namespace vellora
