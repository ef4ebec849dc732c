#include "filters/InverseFilter.h"

namespace vellora {
CInverseFilter::CInverseFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CInverseFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CInverseFilter::GetName() const {
    return u"Inverse";
}

}  // namespace vellora
