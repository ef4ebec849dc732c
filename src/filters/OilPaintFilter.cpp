#include "filters/OilPaintFilter.h"

#include <cstdint>
#include <vector>

#include <opencv2/core/hal/intrin.hpp>

#include "base/LargePages.h"
#include "base/Random.h"
#include "filters/ImagePreflight.h"
#include "filters/StrokePlan.h"
#include "filters/StrokeTiles.h"
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

/// A colour, blue in the low byte, and in the high byte the number of strokes that have touched the
/// pixel. From 255 on it does not matter how many: the mean of so many and one more stays as it is
/// or falls by one level.
using Cell = std::uint32_t;

constexpr Cell kColourMask = 0xFFFFFF;
constexpr Cell kOneStroke = 0x1000000;
constexpr Cell kManyStrokes = 255 * kOneStroke;

std::uint32_t packed(const cv::Vec3b& pixel) {
    return pixel[0] | static_cast<std::uint32_t>(pixel[1]) << 8U |
           static_cast<std::uint32_t>(pixel[2]) << 16U;
}

cv::Vec3b unpacked(std::uint32_t colour) {
    return {static_cast<uchar>(colour), static_cast<uchar>(colour >> 8U),
            static_cast<uchar>(colour >> 16U)};
}

/// Lays one colour over cells, again and again.
class Paint {
public:
    explicit Paint(std::uint32_t colour)
        : m_colour(colour), m_levels(levelsOf(colour) + cv::v_setall_f32(0.5F)) {}

    void layOver(Cell& cell) const {
        const Cell colour = (cell & kColourMask) == kWhite ? m_colour : mixed(cell);
        const Cell strokes = cell & kManyStrokes;
        cell = colour | (strokes == kManyStrokes ? strokes : strokes + kOneStroke);
    }

private:
    static cv::v_float32x4 levelsOf(std::uint32_t colour) {
        const std::uint64_t bytes = colour;
        cv::v_uint16x8 words;
        cv::v_uint16x8 unused;
        cv::v_expand(cv::v_reinterpret_as_u8(cv::v_uint64x2(bytes, 0)), words, unused);
        cv::v_uint32x4 low;
        cv::v_uint32x4 high;
        cv::v_expand(words, low, high);
        return cv::v_cvt_f32(cv::v_reinterpret_as_s32(low));
    }

    /// The mean of all strokes on a cell and this one, truncated. Half a level more than the sum
    /// lies far enough from whole multiples of the number of strokes for single precision to
    /// truncate the quotient as whole numbers would.
    [[nodiscard]] std::uint32_t mixed(Cell cell) const {
        const auto strokes = static_cast<float>(static_cast<int>(cell / kOneStroke));
        const cv::v_float32x4 sum =
            cv::v_muladd(levelsOf(cell), cv::v_setall_f32(strokes), m_levels);
        const cv::v_int32x4 mean = cv::v_trunc(sum * cv::v_setall_f32(1.0F / (strokes + 1.0F)));
        const cv::v_int16x8 words = cv::v_pack(mean, mean);
        return cv::v_reinterpret_as_u32(cv::v_pack_u(words, words)).get0() & kColourMask;
    }

    std::uint32_t m_colour;
    cv::v_float32x4 m_levels;
};

/// A canvas of cells that lie together tile by tile.
class OilPainter {
public:
    OilPainter(cv::Mat& picture, const Brush& brush)
        : m_picture(picture), m_brush(brush), m_cells(picture.total(), kWhite) {}

    void paint() {
        // Enough strokes at a time for a tile to be worth fetching, in memory that is small next to
        // that of the cells.
        const std::size_t batch = m_picture.total() / 16 + 65536;
        StrokePlan plan(m_picture, m_brush, StrokePlan::Layers::Many);
        for (auto strokes = plan.next(batch); !strokes.empty(); strokes = plan.next(batch)) {
            StrokeTiles(m_picture.size(), m_brush, strokes)
                .forEachTile([this](const StrokeTile& tile, const auto& touching) {
                    layStrokes(tile, touching);
                });
        }
        StrokeTiles(m_picture.size(), m_brush, {})
            .forEachTile([this](const StrokeTile& tile, const auto&) { show(tile); });
    }

private:
    void layStrokes(const StrokeTile& tile, const auto& strokes) {
        const cv::Rect area({}, tile.area.size());
        for (const Stroke* stroke : strokes) {
            const Paint paint(packed(stroke->colour));
            m_brush.forEachSpan(stroke->centre - tile.area.tl(), area,
                                [&](int y, int begin, int end) {
                                    Cell* row = rowOf(tile, y);
                                    for (int x = begin; x < end; ++x) {
                                        paint.layOver(row[x]);
                                    }
                                });
        }
    }

    /// A cell that is still white leaves the colour of the photo.
    void show(const StrokeTile& tile) {
        for (int y = 0; y < tile.area.height; ++y) {
            auto* pixels = m_picture.ptr<cv::Vec3b>(tile.area.y + y) + tile.area.x;
            const Cell* cells = rowOf(tile, y);
            for (int x = 0; x < tile.area.width; ++x) {
                if (const Cell colour = cells[x] & kColourMask; colour != kWhite) {
                    pixels[x] = unpacked(colour);
                }
            }
        }
    }

    Cell* rowOf(const StrokeTile& tile, int y) {
        return m_cells.data() + tile.firstPixel +
               static_cast<std::size_t>(y) * static_cast<std::size_t>(tile.area.width);
    }

    cv::Mat& m_picture;
    const Brush& m_brush;
    LargeVector<Cell> m_cells;
};

}  // namespace

COilPaintFilter::COilPaintFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {30}) {}

bool COilPaintFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    return runsInMemory([&] {
        const Brush brush(slantedStroke(strokeHalfLength(factor(0) / 6)));
        if (brush.pixelCount() != 0) {
            OilPainter(picture, brush).paint();
        }
    });
}

const char16_t* COilPaintFilter::GetName() const {
    return u"Oil Paint";
}

}  // namespace vellora
