#include "filters/WaterPaintFilter.h"

#include "filters/PaintFromCopy.h"
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
    return paintFromCopy(image, [this](const cv::Mat& source, cv::Mat& target) {
        paintWatercolour(source, target, static_cast<float>(factor(0)) / 100.0F);
    });
}

const char16_t* CWaterPaintFilter::GetName() const {
    return u"Water Paint";
}

}  // namespace vellora
