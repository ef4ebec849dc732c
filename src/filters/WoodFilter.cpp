#include "filters/WoodFilter.h"

#include <opencv2/core/hal/intrin.hpp>
#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
namespace {

// The truncated mean of three values is 128 or more exactly when their sum is 384 or more.
constexpr int kWhiteSum = 384;

/// 255 where the sum is large enough and 0 elsewhere, into the first plane.
void splitLevels(cv::Mat (&planes)[3]) {
    const auto count = static_cast<int>(planes[0].total());
    uchar* blue = planes[0].data;
    const uchar* green = planes[1].data;
    const uchar* red = planes[2].data;
    const cv::v_uint16x8 limit = cv::v_setall_u16(kWhiteSum - 1);
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        cv::v_uint16x8 low[3];
        cv::v_uint16x8 high[3];
        cv::v_expand(cv::v_load(blue + i), low[0], high[0]);
        cv::v_expand(cv::v_load(green + i), low[1], high[1]);
        cv::v_expand(cv::v_load(red + i), low[2], high[2]);
        const cv::v_uint16x8 whiteLow = low[0] + low[1] + low[2] > limit;
        const cv::v_uint16x8 whiteHigh = high[0] + high[1] + high[2] > limit;
        // Packing limits the all-ones lanes to 255.
        cv::v_store(blue + i, cv::v_pack(whiteLow, whiteHigh));
    }
    for (; i < count; ++i) {
        blue[i] = blue[i] + green[i] + red[i] >= kWhiteSum ? 255 : 0;
    }
}

}  // namespace

CWoodFilter::CWoodFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CWoodFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    return runsInMemory([&] {
        forEachRowBand(picture, [](cv::Mat& rows) {
            cv::Mat planes[3];
            cv::split(rows, planes);
            splitLevels(planes);
            cv::cvtColor(planes[0], rows, cv::COLOR_GRAY2BGR);
        });
    });
}

const char16_t* CWoodFilter::GetName() const {
    return u"Wood";
}

}  // namespace vellora
