#pragma once

#include <QImage>
#include <array>
#include <vector>

namespace vellora {

/// Where the samples of a small picture lie in the pixels of a large one.
struct Enlargement {
    double origin;  ///< Where the first sample's near edge lies.
    double factor;  ///< Pixels per sample, at least 1.
};

/// Enlarges coverage by cubic interpolation, row by row. Beyond its edges the small picture is
/// empty.
class Enlarger {
public:
    /// @param small   One byte per pixel; must outlive this.
    /// @param target  The pixels wanted.
    Enlarger(const QImage& small, Enlargement across, Enlargement down, const QRect& target);

    /// One row of the target: a coverage for each of its columns. Rows are asked for downwards.
    const std::vector<quint8>& row(int y);

private:
    struct Taps {
        int first;  ///< Sample of the first weight.
        std::array<float, 4> weights;
    };

    static Taps tapsAt(int pixel, Enlargement enlargement);
    const std::vector<float>& enlargedRow(int sampleY);

    const QImage& m_small;
    Enlargement m_down;
    std::vector<Taps> m_columns;
    struct CachedRow {
        int sampleY = -1;
        std::vector<float> values;
    };
    std::array<CachedRow, 4> m_rows;
    std::vector<float> m_empty;
    std::vector<quint8> m_result;
};

}  // namespace vellora
