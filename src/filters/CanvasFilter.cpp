#include "filters/CanvasFilter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "base/Random.h"
#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {50, 0, 5, label::kRange},
    {},
    {},
}};

/// The rows of a picture as they were before it is overwritten from the top.
class OriginalRows {
public:
    /// @param reach  How many rows above the current one can still be asked for.
    OriginalRows(const cv::Mat& picture, int reach)
        : m_picture(picture),
          m_rowBytes(picture.elemSize() * static_cast<std::size_t>(picture.cols)),
          m_kept(reach + 1),
          m_copies(m_rowBytes * static_cast<std::size_t>(m_kept)) {}

    /// To be called before row y is overwritten.
    void keep(int y) {
        m_current = y;
        std::memcpy(copyOf(y), m_picture.ptr(y), m_rowBytes);
    }

    [[nodiscard]] const uchar* row(int y) { return y > m_current ? m_picture.ptr(y) : copyOf(y); }

private:
    [[nodiscard]] uchar* copyOf(int y) {
        return m_copies.data() + m_rowBytes * static_cast<std::size_t>(y % m_kept);
    }

    cv::Mat m_picture;
    std::size_t m_rowBytes;
    int m_kept;
    int m_current = -1;
    std::vector<uchar> m_copies;
};

/// The remainder of a generator's value by a fixed divisor, without a division.
class Remainder {
public:
    explicit Remainder(std::uint32_t divisor)
        : m_divisor(divisor), m_reciprocal((1ULL << 32U) / divisor + 1) {}

    // Exact, because value and divisor stay below 2^16: larger divisors leave every value as it is.
    [[nodiscard]] std::int64_t of(std::uint32_t value) const {
        return m_divisor > kRandMax ? value : value - ((value * m_reciprocal) >> 32U) * m_divisor;
    }

private:
    std::uint64_t m_divisor;
    std::uint64_t m_reciprocal;
};

template <int Channels>
void displace(cv::Mat& picture, std::int64_t range) {
    const Remainder span(static_cast<std::uint32_t>(std::abs(2 * range + 1)));
    const auto reach = std::min<std::int64_t>(std::abs(range), picture.rows - 1);
    OriginalRows original(picture, static_cast<int>(reach));
    RandomRun random;
    const auto move = [&] { return span.of(static_cast<std::uint32_t>(random.next())) - range; };
    for (int y = 0; y < picture.rows; ++y) {
        original.keep(y);
        uchar* pixel = picture.ptr(y);
        for (int x = 0; x < picture.cols; ++x, pixel += Channels) {
            const std::int64_t fromX = x + move();
            const std::int64_t fromY = y + move();
            const bool insideX = fromX >= 0 && fromX < picture.cols;
            const bool insideY = fromY >= 0 && fromY < picture.rows;
            const uchar* source = original.row(static_cast<int>(insideY ? fromY : y)) +
                                  Channels * (insideX ? fromX : x);
            std::memcpy(pixel, source, Channels);
        }
    }
}

/// Draws what `displace` would: a picture of another kind stays as it is, the sequence does not.
void drawOnly(const cv::Mat& picture) {
    RandomRun random;
    for (std::size_t i = 0; i < 2 * picture.total(); ++i) {
        random.next();
    }
}

}  // namespace

CCanvasFilter::CCanvasFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {5}) {}

bool CCanvasFilter::Apply(IplImage** image) {
    cv::Mat picture = matView(image);
    if (picture.empty() || picture.depth() != CV_8U) {
        return false;
    }
    return runsInMemory([&] {
        if (picture.channels() == 3) {
            displace<3>(picture, factor(0));
        } else if (picture.channels() == 1) {
            displace<1>(picture, factor(0));
        } else {
            drawOnly(picture);
        }
    });
}

const char16_t* CCanvasFilter::GetName() const {
    return u"Canvas";
}

}  // namespace vellora
