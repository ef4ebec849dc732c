#pragma once

#include <vellora/base/Types.h>

namespace vellora {

/// Runs the body of an exported operation: no exception passes to the host, a failed allocation
/// among them becomes `E_FAIL`.
template <class Body>
STATUS guarded(Body body) noexcept {
    try {
        return body();
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace vellora
