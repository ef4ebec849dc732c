#include <vellora/filters/FilterInterface.h>

namespace vellora {

std::int32_t* COpencvFilterInterface::GetFactorOne() {
    return nullptr;
}

std::int32_t* COpencvFilterInterface::GetFactorTwo() {
    return nullptr;
}

std::int32_t* COpencvFilterInterface::GetFactorThree() {
    return nullptr;
}

bool COpencvFilterInterface::HasROI() const {
    return false;
}

void COpencvFilterInterface::SetROI(float, float, float, float) {}

void COpencvFilterInterface::GetROI(float* x, float* y, float* cx, float* cy) const {
    *x = *y = *cx = *cy = 0.0F;
}

}  // namespace vellora
