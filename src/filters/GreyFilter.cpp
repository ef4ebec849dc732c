#include "filters/GreyFilter.h"

#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
CGreyFilter::CGreyFilter() : PlainFilter(FilterCategory::Adjustment) {}

bool CGreyFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory([&] {
        forEachRowBand(pixels, [](cv::Mat& rows) {
            cv::Mat grey;
            cv::cvtColor(rows, grey, cv::COLOR_RGB2GRAY);
            cv::cvtColor(grey, rows, cv::COLOR_GRAY2BGR);
        });
    });
}

const char16_t* CGreyFilter::GetName() const {
    return u"Grey";
}

}  // namespace vellora
