#include "filters/OilPaintFilter.h"

#include <array>
#include <cstdint>
#include <vector>

#include "base/Random.h"
#include "filters/ImagePreflight.h"
#include "filters/Strokes.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 30, label::kStrokeSize},
    {},
    {},
}};

constexpr std::uint32_t kWhite = 0xFFFFFF;

/// A slanted stroke whose two sides wander at random.
std::vector<BrushOffset> slantedStroke(int halfLength) {
    RandomRun random;
    const auto steps = static_cast<std::size_t>(2 * halfLength + 1);
    std::vector<int> high(steps);
    std::vector<int> low(steps);
    high[0] = random.next() * 5 / kRandMax + 5;
    low[0] = random.next() * 5 / kRandMax - 10;
    for (std::size_t k = 1; k < steps; ++k) {
        high[k] = high[k - 1] + random.below(3) - 1;
        low[k] = low[k - 1] + random.below(3) - 1;
    }
    std::vector<BrushOffset> offsets;
    for (int dx = -halfLength; dx <= halfLength; ++dx) {
        for (int dy = -halfLength; dy <= halfLength; ++dy) {
            const int along = dx + dy;
            if (std::abs(along) > halfLength) {
                continue;
            }
            const auto k = static_cast<std::size_t>(along + halfLength);
            if (low[k] < dx - dy && dx - dy < high[k]) {
                offsets.push_back({dx, dy});
            }
        }
    }
    return offsets;
}

/// Truncated division of up to 255 times the divisor.
class Divider {
public:
    Divider() {
        for (std::size_t divisor = 2; divisor < kTableSize; ++divisor) {
            m_reciprocals[divisor] = static_cast<std::uint32_t>((1ULL << 32U) / divisor + 1);
        }
    }

    /// @param divisor  2 or more.
    [[nodiscard]] std::uint32_t quotient(std::uint64_t value, std::uint32_t divisor) const {
        return static_cast<std::uint32_t>(
            divisor < kTableSize ? value * m_reciprocals[divisor] >> 32U : value / divisor);
    }

private:
    // The reciprocal is at most 1 too large: with it a quotient is exact while value times divisor
    // stays below 2^32, thus while 255 times the divisor squared does.
    static constexpr std::size_t kTableSize = 4096;

    std::array<std::uint32_t, kTableSize> m_reciprocals{};
};

/// A pixel and the number of strokes that have touched it, together for one memory access.
struct Cell {
    std::uint32_t colour = kWhite;  // blue in the low byte
    std::uint32_t strokes = 0;
};

class OilPainter {
public:
    OilPainter(cv::Mat& picture, const Brush& brush)
        : m_picture(picture), m_brush(brush), m_cells(picture.total()) {}

    void paint() {
        layStrokes();
        for (int y = 0; y < m_picture.rows; ++y) {
            auto* row = m_picture.ptr<cv::Vec3b>(y);
            const Cell* cells = rowOf(y);
            for (int x = 0; x < m_picture.cols; ++x) {
                // A pixel that is still white keeps the colour of the photo.
                if (cells[x].colour != kWhite) {
                    row[x] = unpacked(cells[x].colour);
                }
            }
        }
    }

private:
    void layStrokes() {
        RandomRun random;
        auto remaining = static_cast<std::int64_t>(m_picture.total());
        while (remaining > kUnpaintedLeft) {
            const int x = random.below(m_picture.cols);
            const int y = random.below(m_picture.rows);
            remaining -= std::max<std::int64_t>(layStroke({x, y}), 1);
        }
    }

    /// Returns the number of pixels that were white before.
    std::int64_t layStroke(cv::Point centre) {
        const std::uint32_t colour = packed(m_picture.at<cv::Vec3b>(centre));
        std::int64_t fresh = 0;
        m_brush.forEachSpan(centre, m_picture.size(), [&](int y, int begin, int end) {
            Cell* const last = rowOf(y) + end;
            for (Cell* cell = rowOf(y) + begin; cell != last; ++cell) {
                if (cell->colour == kWhite) {
                    cell->colour = colour;
                    ++fresh;
                } else {
                    cell->colour = mixed(*cell, colour);
                }
                ++cell->strokes;
            }
        });
        return fresh;
    }

    /// The mean of all strokes on a cell and one more.
    [[nodiscard]] std::uint32_t mixed(const Cell& cell, std::uint32_t colour) const {
        const std::uint64_t strokes = cell.strokes;
        const auto mix = [&](unsigned shift) {
            const std::uint64_t sum =
                (cell.colour >> shift & 0xFFU) * strokes + (colour >> shift & 0xFFU);
            return m_divider.quotient(sum, cell.strokes + 1) << shift;
        };
        return mix(0) | mix(8) | mix(16);
    }

    static std::uint32_t packed(const cv::Vec3b& pixel) {
        return pixel[0] | static_cast<std::uint32_t>(pixel[1]) << 8U |
               static_cast<std::uint32_t>(pixel[2]) << 16U;
    }

    static cv::Vec3b unpacked(std::uint32_t colour) {
        return {static_cast<uchar>(colour), static_cast<uchar>(colour >> 8U),
                static_cast<uchar>(colour >> 16U)};
    }

    Cell* rowOf(int y) {
        return m_cells.data() +
               static_cast<std::size_t>(y) * static_cast<std::size_t>(m_picture.cols);
    }

    cv::Mat& m_picture;
    const Brush& m_brush;
    std::vector<Cell> m_cells;
    Divider m_divider;
};

}  // namespace

COilPaintFilter::COilPaintFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {30}) {}

bool COilPaintFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    const Brush brush(slantedStroke(strokeHalfLength(factor(0) / 6)));
    return brush.pixelCount() == 0 || runsInMemory([&] { OilPainter(picture, brush).paint(); });
}

const char16_t* COilPaintFilter::GetName() const {
    return u"Oil Paint";
}

}  // namespace vellora
