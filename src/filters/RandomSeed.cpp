#include <vellora/filters/RandomSeed.h>

#include "base/Random.h"

namespace vellora {

void FixRandomSeed(std::uint32_t seed) {
    Srand(seed);
    setFixedClock(seed);
}

void ReleaseRandomSeed() {
    clearFixedClock();
}

}  // namespace vellora
