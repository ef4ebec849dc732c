#include "filters/InverseFilter.h"

#include <opencv2/core.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
CInverseFilter::CInverseFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CInverseFilter::Apply(IplImage** image) {
    cv::Mat pixels = matView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory(
        [&] { forEachRowBand(pixels, [](cv::Mat& rows) { cv::bitwise_not(rows, rows); }); });
}

const char16_t* CInverseFilter::GetName() const {
    return u"Inverse";
}

}  // namespace vellora
