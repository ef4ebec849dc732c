#pragma once

#include <cstdint>

namespace vellora {

/// The module-wide random generator: values 0 to `kRandMax`, a linear congruential sequence modulo
/// 2^32 whose upper bits are handed out. All random filters draw from it, in a fixed order, so a
/// seed repeats a picture. Safe to call from several threads (the sequence is then shared).
inline constexpr int kRandMax = 32767;

int Rand();
void Srand(std::uint32_t seed);

/// Seeds the generator from the clock in whole seconds, or from the fixed clock when one is set.
void seedFromClock();

/// Replaces the clock that `seedFromClock` reads, so that a render can be repeated.
void setFixedClock(std::uint32_t seconds);
void clearFixedClock();

/// A draw below `extent`, made as (Rand() * extent) >> 15. Extents beyond the generator's 32768
/// steps take two values, so that every position can be reached.
int randBelow(int extent);

/// Many draws in a row: goes on where the module's generator stands and hands its own place back
/// when it ends. Meanwhile nothing else on the same thread may draw.
class RandomRun {
public:
    RandomRun();
    ~RandomRun();
    RandomRun(const RandomRun&) = delete;
    RandomRun& operator=(const RandomRun&) = delete;

    /// As `Rand`.
    int next() {
        m_state = m_state * 214013U + 2531011U;
        return static_cast<int>((m_state >> 16U) & 0x7FFFU);
    }

    /// As `randBelow`.
    int below(int extent) {
        constexpr int kSteps = kRandMax + 1;
        if (extent <= kSteps) {
            return static_cast<int>((static_cast<std::int64_t>(next()) * extent) >> 15);
        }
        const std::int64_t high = next();
        const std::int64_t wide = high * kSteps + next();
        return static_cast<int>((wide * extent) >> 30);
    }

    /// The place in the sequence, and the way back to it.
    [[nodiscard]] std::uint32_t place() const { return m_state; }
    void goBack(std::uint32_t place) { m_state = place; }

private:
    std::uint32_t m_state;
};

}  // namespace vellora
