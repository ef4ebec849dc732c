#include "filters/RotateFilter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 0, 500, label::kRotateAngle},
    {},
    {},
}};

/// Larger pictures are turned at reduced resolution, which bounds the cost.
constexpr int kMaxSide = 1000;
constexpr uchar kUncovered = 128;

/// The picture turned about its centre; every output pixel is looked up in the source.
class Turner {
public:
    Turner(const cv::Mat& source, double angle)
        : m_source(source),
          m_cos(static_cast<float>(std::cos(angle))),
          m_sin(static_cast<float>(std::sin(angle))),
          m_centreX(static_cast<float>(source.cols - 1) * 0.5F),
          m_centreY(static_cast<float>(source.rows - 1) * 0.5F) {
        // One pixel of grey around the picture: neighbours outside need no test.
        cv::copyMakeBorder(source, m_framed, 1, 1, 1, 1, cv::BORDER_CONSTANT,
                           cv::Scalar::all(kUncovered));
    }

    void turnInto(cv::Mat& target) const {
        cv::parallel_for_(cv::Range(0, target.rows), [&](const cv::Range& rows) {
            for (int y = rows.start; y < rows.end; ++y) {
                turnRow(y, target.ptr<cv::Vec3b>(y));
            }
        });
    }

private:
    void turnRow(int y, cv::Vec3b* row) const {
        const float dy = static_cast<float>(y) - m_centreY;
        for (int x = 0; x < m_source.cols; ++x) {
            const float dx = static_cast<float>(x) - m_centreX;
            row[x] =
                sample(m_centreX + dx * m_cos - dy * m_sin, m_centreY + dx * m_sin + dy * m_cos);
        }
    }

    /// Interpolates in the triangle of neighbours that the point lies in.
    [[nodiscard]] cv::Vec3b sample(float sx, float sy) const {
        const float floorX = std::floor(sx);
        const float floorY = std::floor(sy);
        const int x0 = static_cast<int>(floorX);
        const int y0 = static_cast<int>(floorY);
        if (x0 < -1 || y0 < -1 || x0 >= m_source.cols || y0 >= m_source.rows) {
            return cv::Vec3b::all(kUncovered);
        }
        const float fx = sx - floorX;
        const float fy = sy - floorY;
        const auto* upper = m_framed.ptr<cv::Vec3b>(y0 + 1) + x0 + 1;
        const auto* lower = m_framed.ptr<cv::Vec3b>(y0 + 2) + x0 + 1;
        const bool upperLeft = fx + fy <= 1.0F;
        const cv::Vec3b& corner = upperLeft ? upper[0] : lower[1];
        const cv::Vec3b& alongX = upperLeft ? upper[1] : lower[0];
        const cv::Vec3b& alongY = upperLeft ? lower[0] : upper[1];
        const float weightX = upperLeft ? fx : 1.0F - fx;
        const float weightY = upperLeft ? fy : 1.0F - fy;
        cv::Vec3b result;
        for (int c = 0; c < 3; ++c) {
            const auto base = static_cast<float>(corner[c]);
            result[c] =
                cv::saturate_cast<uchar>(base + (static_cast<float>(alongX[c]) - base) * weightX +
                                         (static_cast<float>(alongY[c]) - base) * weightY);
        }
        return result;
    }

    const cv::Mat& m_source;
    float m_cos;
    float m_sin;
    float m_centreX;
    float m_centreY;
    cv::Mat m_framed;
};

cv::Mat turned(const cv::Mat& picture, double angle) {
    cv::Mat result(picture.size(), picture.type());
    Turner(picture, angle).turnInto(result);
    return result;
}

/// Turns a picture that is too large to be turned at its size.
void turnReduced(cv::Mat& pixels, double angle) {
    const float factor = std::min(static_cast<float>(kMaxSide) / static_cast<float>(pixels.cols),
                                  static_cast<float>(kMaxSide) / static_cast<float>(pixels.rows));
    const auto reduced = [factor](int side) {
        return std::max(1, static_cast<int>(std::lround(static_cast<double>(side) * factor)));
    };
    cv::Mat work;
    cv::resize(pixels, work, cv::Size(reduced(pixels.cols), reduced(pixels.rows)), 0, 0,
               cv::INTER_LINEAR);
    cv::resize(turned(work, angle), pixels, pixels.size(), 0, 0, cv::INTER_LINEAR);
}

}  // namespace

CRotateFilter::CRotateFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {500}) {}

bool CRotateFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    const double angle = (static_cast<double>(factor(0)) - 500.0) / 1000.0 * 2.0 * std::numbers::pi;
    return runsInMemory([&] {
        if (pixels.cols <= kMaxSide && pixels.rows <= kMaxSide) {
            Turner(pixels, angle).turnInto(pixels);
        } else {
            turnReduced(pixels, angle);
        }
    });
}

const char16_t* CRotateFilter::GetName() const {
    return u"Rotate";
}

}  // namespace vellora
