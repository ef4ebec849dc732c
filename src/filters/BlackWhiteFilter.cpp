#include "filters/BlackWhiteFilter.h"

#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {

CBlackWhiteFilter::CBlackWhiteFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CBlackWhiteFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory([&] {
        forEachRowBand(pixels, [](cv::Mat& rows) {
            cv::Mat planes[3];
            cv::split(rows, planes);
            cv::max(planes[0], planes[1], planes[0]);
            cv::max(planes[0], planes[2], planes[0]);
            cv::cvtColor(planes[0], rows, cv::COLOR_GRAY2BGR);
        });
    });
}

const char16_t* CBlackWhiteFilter::GetName() const {
    return u"Black&White";
}

}  // namespace vellora
