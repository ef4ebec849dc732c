#include "filters/BlackWhiteFilter.h"

namespace vellora {
CBlackWhiteFilter::CBlackWhiteFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CBlackWhiteFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CBlackWhiteFilter::GetName() const {
    return u"Black&White";
}

}  // namespace vellora
