#include "filters/WaveFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 400, 730, label::kWaveLength},
    {100, 0, 20, label::kWaveHeight},
    {100, 0, 75, label::kRefraction},
}};

}  // namespace

CWaveFilter::CWaveFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {730, 65, 70}) {}

bool CWaveFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CWaveFilter::GetName() const {
    return u"Wave";
}

}  // namespace vellora
