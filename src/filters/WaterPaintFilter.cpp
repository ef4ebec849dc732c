#include "filters/WaterPaintFilter.h"

#include <algorithm>

#include "base/ImageView.h"
#include "filters/Dabs.h"
#include "filters/ImagePreflight.h"
#include "filters/Watercolour.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 30, 65, label::kWaterSize},
    {},
    {},
}};

}  // namespace

CWaterPaintFilter::CWaterPaintFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {65}) {}

bool CWaterPaintFilter::Apply(IplImage** image) {
    cv::Mat target = bgrView(image);
    if (target.empty()) {
        return false;
    }
    const ImagePtr copy = copyImage(target);
    if (copy == nullptr) {
        return false;
    }
    paintWatercolour(cv::cvarrToMat(copy.get()), target, static_cast<float>(factor(0)) / 100.0F);
    return true;
}

const char16_t* CWaterPaintFilter::GetName() const {
    return u"Water Paint";
}

}  // namespace vellora
