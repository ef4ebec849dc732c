#include <vellora/filters/FilterAbort.h>

#include "base/AbortFlag.h"

namespace vellora {

void CancelFilter() noexcept {
    requestAbort();
}

}  // namespace vellora
