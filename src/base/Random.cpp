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
    return RandomRun().next();
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
    return RandomRun().below(extent);
}

// Relaxed load and store: a draw costs no more than with a plain variable.
RandomRun::RandomRun() : m_state(g_state.load(std::memory_order_relaxed)) {}

RandomRun::~RandomRun() {
    g_state.store(m_state, std::memory_order_relaxed);
}

}  // namespace vellora
