#include "filters/WoodFilter.h"

namespace vellora {
CWoodFilter::CWoodFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CWoodFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CWoodFilter::GetName() const {
    return u"Wood";
}

}  // namespace vellora
