#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include <opencv2/core.hpp>

#include "base/LargePages.h"

namespace vellora {

/// One bit per pixel that no stroke has coloured yet.
class BarePixels {
public:
    /// All pixels are bare.
    explicit BarePixels(cv::Size size)
        : m_rowWords((static_cast<std::size_t>(size.width) + kBits - 1) / kBits),
          m_words(m_rowWords * static_cast<std::size_t>(size.height), ~std::uint64_t{0}) {}

    /// The number of bare pixels in row y, columns begin up to but not including end.
    [[nodiscard]] int countSpan(int y, int begin, int end) const {
        int count = 0;
        const std::uint64_t* row = rowOf(y);
        forEachWord(begin, end, [&](std::size_t i, std::uint64_t mask) {
            count += std::popcount(row[i] & mask);
        });
        return count;
    }

    /// As `countSpan`; the pixels are bare no longer.
    int coverSpan(int y, int begin, int end) {
        int count = 0;
        std::uint64_t* row = rowOf(y);
        forEachWord(begin, end, [&](std::size_t i, std::uint64_t mask) {
            const std::uint64_t bare = row[i] & mask;
            if (bare != 0) {
                count += std::popcount(bare);
                row[i] ^= bare;
            }
        });
        return count;
    }

    /// Calls `take(x)` for the bare pixels of a span, which then are bare no longer.
    template <class Take>
    void takeSpan(int y, int begin, int end, Take take) {
        std::uint64_t* row = rowOf(y);
        forEachWord(begin, end, [&](std::size_t i, std::uint64_t mask) {
            std::uint64_t bare = row[i] & mask;
            row[i] ^= bare;
            for (; bare != 0; bare &= bare - 1) {
                take(static_cast<int>(i * kBits) + std::countr_zero(bare));
            }
        });
    }

private:
    static constexpr std::size_t kBits = 64;

    /// Calls `use(i, mask)` for the words of a row that hold the span.
    template <class Use>
    static void forEachWord(int begin, int end, Use use) {
        const auto first = static_cast<std::size_t>(begin);
        const auto last = static_cast<std::size_t>(end) - 1;
        std::uint64_t mask = ~std::uint64_t{0} << (first % kBits);
        for (std::size_t i = first / kBits; i < last / kBits; ++i) {
            use(i, mask);
            mask = ~std::uint64_t{0};
        }
        use(last / kBits, mask & (~std::uint64_t{0} >> (kBits - 1 - last % kBits)));
    }

    [[nodiscard]] const std::uint64_t* rowOf(int y) const {
        return m_words.data() + m_rowWords * static_cast<std::size_t>(y);
    }

    [[nodiscard]] std::uint64_t* rowOf(int y) {
        return m_words.data() + m_rowWords * static_cast<std::size_t>(y);
    }

    std::size_t m_rowWords;
    LargeVector<std::uint64_t> m_words;
};

}  // namespace vellora
