#include "filters/ColorMatrixFilter.h"

#include <algorithm>
#include <array>

#include <opencv2/core.hpp>
#include <opencv2/core/hal/intrin.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, -100, 64, label::kRed},
    {100, -100, 32, label::kGreen},
    {100, -100, 0, label::kBlue},
}};

/// What is added to and taken from each byte, laid out for three vectors of whole pixels. An
/// offset beyond +-255 saturates every value as +-255 does.
class Offsets {
public:
    /// @param channels  Offsets of blue, green and red.
    explicit Offsets(const std::array<std::int32_t, 3>& channels) {
        for (std::size_t i = 0; i < kBlock; ++i) {
            const int offset = std::clamp(channels[i % 3], -255, 255);
            m_added[i] = static_cast<uchar>(std::max(offset, 0));
            m_taken[i] = static_cast<uchar>(std::max(-offset, 0));
        }
    }

    void applyTo(uchar* row, int bytes) const {
        int at = 0;
#if CV_SIMD128
        for (; at + static_cast<int>(kBlock) <= bytes; at += static_cast<int>(kBlock)) {
            for (std::size_t part = 0; part < kBlock; part += 16) {
                // Both operations saturate, and one of the two operands is always 0.
                const cv::v_uint8x16 values = cv::v_load(row + at + part);
                cv::v_store(row + at + part,
                            values + cv::v_load(&m_added[part]) - cv::v_load(&m_taken[part]));
            }
        }
#endif
        for (std::size_t i = 0; at < bytes; ++at, ++i) {
            row[at] = cv::saturate_cast<uchar>(row[at] + m_added[i] - m_taken[i]);
        }
    }

private:
    static constexpr std::size_t kBlock = 48;

    std::array<uchar, kBlock> m_added{};
    std::array<uchar, kBlock> m_taken{};
};

}  // namespace

CColorMatrixFilter::CColorMatrixFilter()
    : FactorFilter(kParams, FilterCategory::Adjustment, {64, 32, 0}) {}

bool CColorMatrixFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory([&] {
        const Offsets offsets({factor(2), factor(1), factor(0)});
        forEachRowBand(pixels, [&offsets](cv::Mat& rows) {
            for (int y = 0; y < rows.rows; ++y) {
                offsets.applyTo(rows.ptr<uchar>(y), rows.cols * 3);
            }
        });
    });
}

const char16_t* CColorMatrixFilter::GetName() const {
    return u"Color Matrix";
}

}  // namespace vellora
