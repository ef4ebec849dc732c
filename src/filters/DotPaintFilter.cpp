#include "filters/DotPaintFilter.h"

namespace vellora {
CDotPaintFilter::CDotPaintFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CDotPaintFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CDotPaintFilter::GetName() const {
    return u"Dot Paint";
}

}  // namespace vellora
