#include "filters/EdgeFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 30, label::kKernelSize},
    {50, 0, 10, label::kContourThreshold},
    {400, 0, 400, label::kSaturation},
}};

}  // namespace

CEdgeFilter::CEdgeFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {30, 300, 40}) {}

bool CEdgeFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CEdgeFilter::GetName() const {
    return u"Contour";
}

}  // namespace vellora
