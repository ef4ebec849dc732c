#include "filters/Contour.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>

#include <opencv2/core/hal/intrin.hpp>
#include <opencv2/imgproc.hpp>

namespace vellora {
namespace {

/// Of the 11 x 11 gradient kernels. Their neighbours and those of the thickened lines add two.
constexpr int kRadius = ContourMap::kReach - 2;

/// B + G + R of every pixel.
cv::Mat1f summedChannels(const cv::Mat& picture) {
    cv::Mat1f sums(picture.size());
    for (int y = 0; y < picture.rows; ++y) {
        const uchar* pixel = picture.ptr(y);
        float* sum = sums[y];
        for (int x = 0; x < picture.cols; ++x, pixel += 3) {
            sum[x] = static_cast<float>(pixel[0] + pixel[1] + pixel[2]);
        }
    }
    return sums;
}

/// Gradients of some rows of a picture, with one column repeated at either side and room for whole
/// vectors at the end of a row.
class Gradients {
public:
    Gradients(const cv::Mat1f& brightness, int first, int last, const cv::Mat1f& smooth,
              const cv::Mat1f& slope)
        : m_first(first),
          m_alongX(filtered(brightness.rowRange(first, last), slope, smooth)),
          m_alongY(filtered(brightness.rowRange(first, last), smooth, slope)) {}

    /// Rows of the picture, limited to those that are held, at column 0.
    [[nodiscard]] const float* alongX(int y) const { return m_alongX[rowOf(y)] + 1; }
    [[nodiscard]] const float* alongY(int y) const { return m_alongY[rowOf(y)] + 1; }

private:
    static cv::Mat1f filtered(const cv::Mat1f& brightness, const cv::Mat1f& kernelX,
                              const cv::Mat1f& kernelY) {
        const int width = brightness.cols;
        cv::Mat1f padded(brightness.rows, width + 2 + cv::v_float32x4::nlanes);
        cv::Mat inner = padded.colRange(1, width + 1);
        cv::sepFilter2D(brightness, inner, CV_32F, kernelX, kernelY, cv::Point(-1, -1), 0,
                        cv::BORDER_REPLICATE);
        padded.col(1).copyTo(padded.col(0));
        for (int x = width + 1; x < padded.cols; ++x) {
            padded.col(width).copyTo(padded.col(x));
        }
        return padded;
    }

    [[nodiscard]] int rowOf(int y) const { return std::clamp(y - m_first, 0, m_alongX.rows - 1); }

    int m_first;
    cv::Mat1f m_alongX;
    cv::Mat1f m_alongY;
};

/// Four pixels at a time: whether the gradients before and behind a pixel, in the one of eight
/// directions that its own gradient takes, are below a threshold along that direction.
class EdgePoints {
public:
    EdgePoints(const Gradients& gradients, int y)
        : m_aboveX(gradients.alongX(y - 1)),
          m_aboveY(gradients.alongY(y - 1)),
          m_ownX(gradients.alongX(y)),
          m_ownY(gradients.alongY(y)),
          m_belowX(gradients.alongX(y + 1)),
          m_belowY(gradients.alongY(y + 1)) {}

    /// For each edge point 255 less its strength, for other pixels 0.
    [[nodiscard]] cv::v_int32x4 values(int x, const cv::v_float32x4& threshold) const {
        const cv::v_float32x4 gradientX = cv::v_load(m_ownX + x);
        const cv::v_float32x4 gradientY = cv::v_load(m_ownY + x);
        const cv::v_float32x4 projection = largerProjection(x, gradientX, gradientY);
        const cv::v_float32x4 value =
            cv::v_setall_f32(255.0F) - cv::v_magnitude(gradientX, gradientY);
        return cv::v_round(cv::v_select(projection < threshold, value, cv::v_setzero_f32()));
    }

private:
    [[nodiscard]] cv::v_float32x4 largerProjection(int x, const cv::v_float32x4& gradientX,
                                                   const cv::v_float32x4& gradientY) const {
        const cv::v_float32x4 zero = cv::v_setzero_f32();
        const cv::v_float32x4 one = cv::v_setall_f32(1.0F);
        const cv::v_float32x4 signX = cv::v_select(gradientX < zero, zero - one, one);
        const cv::v_float32x4 signY = cv::v_select(gradientY > zero, one, zero - one);
        const auto along = [](const float* a, const float* b, const cv::v_float32x4& sign) {
            return cv::v_max(cv::v_load(a) * sign, cv::v_load(b) * sign);
        };
        const cv::v_float32x4 level = along(m_ownX + x - 1, m_ownX + x + 1, signX);
        const cv::v_float32x4 upright = along(m_aboveY + x, m_belowY + x, signY);
        const cv::v_float32x4 falling = diagonal(m_aboveX + x - 1, m_aboveY + x - 1,
                                                 m_belowX + x + 1, m_belowY + x + 1, signX, signY);
        const cv::v_float32x4 rising = diagonal(m_aboveX + x + 1, m_aboveY + x + 1,
                                                m_belowX + x - 1, m_belowY + x - 1, signX, signY);
        // Tangents of 22.5 and 67.5 degrees. A gradient without a horizontal part has an infinite
        // ratio or, where it is zero, none: both are upright.
        constexpr float kFlat = std::numbers::sqrt2_v<float> - 1.0F;
        constexpr float kSteep = std::numbers::sqrt2_v<float> + 1.0F;
        const cv::v_float32x4 ratio = cv::v_abs(gradientY / gradientX);
        const cv::v_float32x4 slanted = cv::v_select(signX == signY, falling, rising);
        return cv::v_select(ratio <= cv::v_setall_f32(kFlat), level,
                            cv::v_select(ratio <= cv::v_setall_f32(kSteep), slanted, upright));
    }

    static cv::v_float32x4 diagonal(const float* firstX, const float* firstY, const float* secondX,
                                    const float* secondY, const cv::v_float32x4& signX,
                                    const cv::v_float32x4& signY) {
        const cv::v_float32x4 unit = cv::v_setall_f32(1.0F / std::numbers::sqrt2_v<float>);
        const cv::v_float32x4 first = cv::v_load(firstX) * signX + cv::v_load(firstY) * signY;
        const cv::v_float32x4 second = cv::v_load(secondX) * signX + cv::v_load(secondY) * signY;
        return cv::v_max(first, second) * unit;
    }

    const float* m_aboveX;
    const float* m_aboveY;
    const float* m_ownX;
    const float* m_ownY;
    const float* m_belowX;
    const float* m_belowY;
};

}  // namespace

ContourMap::ContourMap(const cv::Mat& picture, double sigma, int threshold)
    : m_brightness(summedChannels(picture)),
      m_smooth(1, 2 * kRadius + 1),
      m_slope(1, 2 * kRadius + 1),
      m_threshold(static_cast<float>(threshold)) {
    // The kernels g(i) * g(j) * -2j / sigma^2 and g(i) * g(j) * -2i / sigma^2, over the sum of all
    // g(i) * g(j), as products of a row and a column. Without a width there is no gradient.
    const double squared = sigma * sigma;
    const auto bell = [squared](int i) {
        return squared > 0 ? std::exp(-i * i / squared) : (i == 0 ? 1.0 : 0.0);
    };
    double sum = 0;
    for (int i = -kRadius; i <= kRadius; ++i) {
        sum += bell(i);
    }
    for (int i = -kRadius; i <= kRadius; ++i) {
        const double share = bell(i) / sum;
        m_smooth(0, i + kRadius) = static_cast<float>(share);
        m_slope(0, i + kRadius) = static_cast<float>(squared > 0 ? share * -2 * i / squared : 0.0);
    }
}

cv::Mat1b ContourMap::edgePoints(int first, int last) const {
    constexpr int kLanes = cv::v_float32x4::nlanes;
    const int height = m_brightness.rows;
    const int width = m_brightness.cols;
    const Gradients gradients(m_brightness, std::max(first - 1, 0), std::min(last + 1, height),
                              m_smooth, m_slope);
    cv::Mat1b points(last - first, width);
    const cv::v_float32x4 threshold = cv::v_setall_f32(m_threshold);
    for (int y = first; y < last; ++y) {
        const EdgePoints edges(gradients, y);
        uchar* row = points[y - first];
        for (int x = 0; x < width; x += kLanes) {
            const cv::v_int32x4 values = edges.values(x, threshold);
            const cv::v_int16x8 narrow = cv::v_pack(values, values);
            const cv::v_uint8x16 bytes = cv::v_pack_u(narrow, narrow);
            const std::uint32_t four = cv::v_reinterpret_as_u32(bytes).get0();
            std::memcpy(row + x, &four, static_cast<std::size_t>(std::min(kLanes, width - x)));
        }
    }
    return points;
}

cv::Mat1b ContourMap::ground(int first, int last) const {
    constexpr float kCorner = 20.0F / 255;
    constexpr float kSide = 60.0F / 255;
    const cv::Mat1f kernel({3, 3},
                           {kCorner, kSide, kCorner, kSide, 1.0F, kSide, kCorner, kSide, kCorner});
    const int firstPoint = std::max(first - 1, 0);
    cv::Mat1b points = edgePoints(firstPoint, std::min(last + 1, m_brightness.rows));
    cv::bitwise_not(points, points);
    cv::Mat1b thickened;
    cv::filter2D(points.rowRange(first - firstPoint, last - firstPoint), thickened, CV_8U, kernel,
                 cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
    cv::bitwise_not(thickened, thickened);
    return thickened;
}

}  // namespace vellora
