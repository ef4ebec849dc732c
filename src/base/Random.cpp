#include "base/Random.h"

#include <atomic>
#include <ctime>

namespace vellora {
namespace {

constexpr std::int64_t kNoFixedClock = -1;

std::atomic<std::uint32_t> g_state{1};
std::atomic<std::int64_t> g_fixedClock{kNoFixedClock};

}  // namespace

int Rand() {
    // Relaxed load and store: a draw costs no more than with a plain variable.
    const std::uint32_t next = g_state.load(std::memory_order_relaxed) * 214013U + 2531011U;
    g_state.store(next, std::memory_order_relaxed);
    return static_cast<int>((next >> 16U) & 0x7FFFU);
}

void Srand(std::uint32_t seed) {
    g_state.store(seed, std::memory_order_relaxed);
}

void seedFromClock() {
    const std::int64_t fixed = g_fixedClock.load(std::memory_order_relaxed);
    Srand(static_cast<std::uint32_t>(fixed == kNoFixedClock ? std::time(nullptr) : fixed));
}

void setFixedClock(std::uint32_t seconds) {
    g_fixedClock.store(seconds, std::memory_order_relaxed);
}

void clearFixedClock() {
    g_fixedClock.store(kNoFixedClock, std::memory_order_relaxed);
}

int randBelow(int extent) {
    constexpr int kSteps = kRandMax + 1;
    if (extent <= kSteps) {
        return static_cast<int>((static_cast<std::int64_t>(Rand()) * extent) >> 15);
    }
    const std::int64_t high = Rand();
    const std::int64_t wide = high * kSteps + Rand();
    return static_cast<int>((wide * extent) >> 30);
}

}  // namespace vellora
