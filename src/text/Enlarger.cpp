#include "text/Enlarger.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

/// The cubic through the samples, with the slope of their neighbours' difference.
std::array<float, 4> cubicWeights(float t) {
    const float t2 = t * t;
    const float t3 = t2 * t;
    return {-0.5F * t3 + t2 - 0.5F * t, 1.5F * t3 - 2.5F * t2 + 1.0F,
            -1.5F * t3 + 2.0F * t2 + 0.5F * t, 0.5F * t3 - 0.5F * t2};
}

}  // namespace

Enlarger::Taps Enlarger::tapsAt(int pixel, Enlargement enlargement) {
    const double sample = (pixel + 0.5 - enlargement.origin) / enlargement.factor - 0.5;
    const double before = std::floor(sample);
    return {static_cast<int>(before) - 1, cubicWeights(static_cast<float>(sample - before))};
}

Enlarger::Enlarger(const QImage& small, Enlargement across, Enlargement down, const QRect& target)
    : m_small(small),
      m_down(down),
      m_empty(static_cast<std::size_t>(target.width()), 0.0F),
      m_result(static_cast<std::size_t>(target.width())) {
    m_columns.reserve(static_cast<std::size_t>(target.width()));
    for (int x = target.left(); x <= target.right(); ++x) {
        m_columns.push_back(tapsAt(x, across));
    }
}

const std::vector<float>& Enlarger::enlargedRow(int sampleY) {
    if (sampleY < 0 || sampleY >= m_small.height()) {
        return m_empty;
    }
    CachedRow& row = m_rows[static_cast<std::size_t>(sampleY) % m_rows.size()];
    if (row.sampleY == sampleY) {
        return row.values;
    }
    // Two empty samples on either side let every tap read.
    std::vector<float> padded(static_cast<std::size_t>(m_small.width()) + 4, 0.0F);
    std::copy_n(m_small.constScanLine(sampleY), m_small.width(), padded.begin() + 2);
    row.sampleY = sampleY;
    row.values.resize(m_columns.size());
    for (std::size_t x = 0; x < m_columns.size(); ++x) {
        const Taps& taps = m_columns[x];
        const int first = std::clamp(taps.first + 2, 0, m_small.width());
        const float* samples = padded.data() + first;
        row.values[x] = first == taps.first + 2
                            ? samples[0] * taps.weights[0] + samples[1] * taps.weights[1] +
                                  samples[2] * taps.weights[2] + samples[3] * taps.weights[3]
                            : 0.0F;
    }
    return row.values;
}

const std::vector<quint8>& Enlarger::row(int y) {
    const Taps taps = tapsAt(y, m_down);
    const float* rows[4];
    for (int i = 0; i < 4; ++i) {
        rows[i] = enlargedRow(taps.first + i).data();
    }
    const auto [w0, w1, w2, w3] = taps.weights;
    quint8* out = m_result.data();
    const std::size_t width = m_result.size();
    for (std::size_t x = 0; x < width; ++x) {
        const float value =
            rows[0][x] * w0 + rows[1][x] * w1 + rows[2][x] * w2 + rows[3][x] * w3 + 0.5F;
        out[x] = static_cast<quint8>(static_cast<int>(std::min(std::max(value, 0.0F), 255.0F)));
    }
    return m_result;
}

}  // namespace vellora
