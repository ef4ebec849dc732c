#include "base/LargePages.h"

#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace vellora {

void preferLargePages([[maybe_unused]] void* data, [[maybe_unused]] std::size_t size) {
#ifdef __linux__
    constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20U;
    const auto begin = reinterpret_cast<std::uintptr_t>(data);
    const std::uintptr_t first = (begin + kLargePage - 1) / kLargePage * kLargePage;
    const std::uintptr_t last = (begin + size) / kLargePage * kLargePage;
    if (first < last) {
        madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
    }
#endif
}

}  // namespace vellora
