#include "filters/DepthDimFilter.h"

#include <new>

namespace vellora {

CDepthDimFilter::CDepthDimFilter() {
    is_art_effect = static_cast<std::int32_t>(FilterCategory::ArtEffect);
}

bool CDepthDimFilter::Apply(IplImage** /*image*/) {
    return false;
}

COpencvFilterInterface* CDepthDimFilter::Clone() const {
    auto* clone = new (std::nothrow) CDepthDimFilter;
    if (clone != nullptr) {
        clone->m_region = m_region;
    }
    return clone;
}

const char16_t* CDepthDimFilter::GetName() const {
    return u"Depth Dim";
}

bool CDepthDimFilter::HasROI() const {
    return true;
}

void CDepthDimFilter::SetROI(float x, float y, float cx, float cy) {
    m_region = {x, y, cx, cy};
}

void CDepthDimFilter::GetROI(float* x, float* y, float* cx, float* cy) const {
    *x = m_region.roi_x;
    *y = m_region.roi_y;
    *cx = m_region.roi_cx;
    *cy = m_region.roi_cy;
}

}  // namespace vellora
