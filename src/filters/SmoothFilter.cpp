#include "filters/SmoothFilter.h"

#include <algorithm>

#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {10, 0, 5, label::kAmount},
    {},
    {},
}};

// The work grows with the amount; a larger one from a file blurs as this one does.
constexpr int kLargestAmount = 127;

}  // namespace

CSmoothFilter::CSmoothFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {5}) {}

bool CSmoothFilter::Apply(IplImage** image) {
    cv::Mat picture = matView(image);
    if (picture.empty() || picture.depth() != CV_8U) {
        return false;
    }
    const int amount = std::min(factor(0), kLargestAmount);
    if (amount > 0) {
        const int side = 2 * amount + 1;
        cv::GaussianBlur(picture, picture, {side, side}, 0, 0, cv::BORDER_REPLICATE);
    }
    return true;
}

const char16_t* CSmoothFilter::GetName() const {
    return u"Gauss Smooth";
}

}  // namespace vellora
