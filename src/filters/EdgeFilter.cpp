#include "filters/EdgeFilter.h"

#include <vector>

#include <opencv2/imgproc.hpp>

#include "filters/Contour.h"
#include "filters/HaloBands.h"
#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 30, label::kKernelSize},
    {50, 0, 10, label::kContourThreshold},
    {400, 0, 400, label::kSaturation},
}};

/// What each byte of hue, saturation and value becomes.
cv::Mat outlineColours(float saturation) {
    cv::Mat1b bytes(1, 256);
    for (int i = 0; i < bytes.cols; ++i) {
        bytes(0, i) = static_cast<uchar>(i);
    }
    cv::Mat1b planes[3] = {bytes, {}, {}};
    bytes.convertTo(planes[1], CV_8U, saturation);
    bytes.convertTo(planes[2], CV_8U, 0.8);
    cv::Mat table;
    cv::merge(planes, 3, table);
    return table;
}

/// Shows the photo where the map is high and the outline colours where it is low.
void drawOutlines(cv::Mat& rows, const cv::Mat1b& ground, const cv::Mat& colours) {
    cv::Mat outline;
    cv::cvtColor(rows, outline, cv::COLOR_BGR2HSV);
    cv::LUT(outline, colours, outline);
    cv::cvtColor(outline, outline, cv::COLOR_HSV2BGR);
    cv::Mat share;
    cv::merge(std::vector<cv::Mat>(3, ground), share);
    cv::multiply(rows, share, rows, 1.0 / 255);
    cv::bitwise_not(share, share);
    cv::multiply(outline, share, outline, 1.0 / 255);
    cv::add(outline, rows, rows);
}

void drawContour(cv::Mat& picture, double sigma, int threshold, float saturation) {
    constexpr int kBandRows = 96;
    constexpr int kReach = ContourMap::kReach;
    const cv::Mat colours = outlineColours(saturation);
    const HaloBands bands(picture, kReach, kReach, picture.rows / kBandRows);
    bands.forEachGroup([&](const auto& group) {
        cv::Mat old;
        for (const HaloBands::Band* band : group) {
            bands.copyOut(*band, old);
            const int first = band->above.rows;
            const ContourMap contour(old, sigma, threshold);
            cv::Mat rows = picture.rowRange(band->first, band->last);
            drawOutlines(rows, contour.ground(first, first + rows.rows), colours);
        }
    });
}

}  // namespace

CEdgeFilter::CEdgeFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {30, 300, 40}) {}

bool CEdgeFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (!picture.empty()) {
        const float sigma = static_cast<float>(factor(0)) / 10.0F;
        const float saturation = static_cast<float>(factor(2)) / 100.0F;
        runsInMemory([&] { drawContour(picture, sigma, factor(1), saturation); });
    }
    return true;
}

const char16_t* CEdgeFilter::GetName() const {
    return u"Contour";
}

}  // namespace vellora
