#include "filters/SummedRows.h"

#include <cstring>

#include <opencv2/core/hal/intrin.hpp>

namespace vellora {
namespace {

/// A pixel and the first byte of the next one, at any address.
cv::v_uint32x4 fourBytes(const uchar* bgr) {
    std::uint32_t bytes;
    std::memcpy(&bytes, bgr, sizeof(bytes));
    const cv::v_uint16x8 words = cv::v_expand_low(cv::v_reinterpret_as_u8(cv::v_setall_u32(bytes)));
    return cv::v_expand_low(words);
}

}  // namespace

SummedRows::SummedRows(cv::Size picture, int firstRow, int kept)
    : m_width(picture.width),
      m_next(firstRow),
      m_kept(static_cast<std::size_t>(kept)),
      m_rowLength(static_cast<std::size_t>(picture.width) * kChannels + 1),
      m_sums(m_rowLength * m_kept),
      m_rows(static_cast<std::size_t>(picture.height)) {}

void SummedRows::add(const uchar* bgr) {
    const auto y = static_cast<std::size_t>(m_next);
    // The slot before that of the first row still is a row of zeros.
    const std::uint32_t* above = m_sums.data() + m_rowLength * ((y + m_kept - 1) % m_kept);
    std::uint32_t* sums = m_sums.data() + m_rowLength * (y % m_kept);
    m_rows[y] = sums;
    // The fourth lane reaches into the next pixel, which is written after it, or past the end.
    cv::v_uint32x4 rowSum = cv::v_setzero_u32();
    for (int x = 0; x < m_width - 1; ++x, bgr += 3, sums += kChannels, above += kChannels) {
        rowSum += fourBytes(bgr);
        cv::v_store(sums, rowSum + cv::v_load(above));
    }
    rowSum += cv::v_uint32x4(bgr[0], bgr[1], bgr[2], 0);
    cv::v_store(sums, rowSum + cv::v_load(above));
    ++m_next;
}

void SummedRows::addBox(int x0, int y0, int x1, int y1, double* totals) const {
    const int width = x1 - x0;
    const int height = y1 - y0;
    if (static_cast<std::int64_t>(width) * height > kLargestBox) {
        const bool split = width > height;
        const int middleX = split ? x0 + width / 2 : x1;
        const int middleY = split ? y1 : y0 + height / 2;
        addBox(x0, y0, middleX, middleY, totals);
        addBox(split ? middleX : x0, split ? y0 : middleY, x1, y1, totals);
        return;
    }
    const auto left = static_cast<std::size_t>(x0) * kChannels;
    const auto right = static_cast<std::size_t>(x1) * kChannels;
    const std::uint32_t* upper = row(y0);
    const std::uint32_t* lower = row(y1);
    for (std::size_t c = 0; c < 3; ++c) {
        totals[c] += upper[left + c] - upper[right + c] - lower[left + c] + lower[right + c];
    }
}

}  // namespace vellora
