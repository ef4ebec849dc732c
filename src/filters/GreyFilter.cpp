#include "filters/GreyFilter.h"

namespace vellora {
CGreyFilter::CGreyFilter() : PlainFilter(FilterCategory::Adjustment) {}

bool CGreyFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CGreyFilter::GetName() const {
    return u"Grey";
}

}  // namespace vellora
