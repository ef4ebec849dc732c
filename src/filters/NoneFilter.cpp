#include "filters/NoneFilter.h"

namespace vellora {
CNoneFilter::CNoneFilter() : PlainFilter(FilterCategory::Adjustment) {}

bool CNoneFilter::Apply(IplImage** image) {
    return image != nullptr && *image != nullptr;
}

const char16_t* CNoneFilter::GetName() const {
    return u"None";
}

}  // namespace vellora
