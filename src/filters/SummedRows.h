#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <opencv2/core.hpp>

#include "base/LargePages.h"

namespace vellora {

/// The latest rows of a summed-area table over a blue-green-red picture.
///
/// An entry holds, for each channel, the sum of all values above and to the left, the entry's own
/// row and column included. Sums are kept modulo 2^32, which leaves the sum over any box of up to
/// `kLargestBox` pixels exact, however large the picture is.
class SummedRows {
public:
    static constexpr int kChannels = 3;

    /// Boxes of this many pixels have sums below 2^31.
    static constexpr std::int64_t kLargestBox = 0x7FFFFFFF / 255;

    /// @param picture   Size of the picture.
    /// @param firstRow  The row that is added first.
    /// @param kept      How many of the latest rows can be asked for; 2 or more.
    SummedRows(cv::Size picture, int firstRow, int kept);

    /// Adds the next row of the picture.
    void add(const uchar* bgr);

    /// The row that `add` takes next.
    [[nodiscard]] int nextRow() const { return m_next; }

    [[nodiscard]] const std::uint32_t* row(int y) const {
        return m_rows[static_cast<std::size_t>(y)];
    }

    /// How far a row's sums mostly lie before those of the next row.
    [[nodiscard]] std::ptrdiff_t toNextRow() const {
        return static_cast<std::ptrdiff_t>(m_rowLength);
    }

    /// Adds the sums over the pixels right of column x0 up to x1, below row y0 up to y1, to three
    /// totals. The box may have any size.
    void addBox(int x0, int y0, int x1, int y1, double* totals) const;

private:
    int m_width;
    int m_next;
    std::size_t m_kept;
    std::size_t m_rowLength;
    LargeVector<std::uint32_t> m_sums;
    std::vector<std::uint32_t*> m_rows;  // of the picture, those that are kept
};

}  // namespace vellora
