#include "filters/SmoothFilter.h"

#include <algorithm>

#include <opencv2/imgproc.hpp>

#include "filters/HaloBands.h"
#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {10, 0, 5, label::kAmount},
    {},
    {},
}};

// The work grows with the amount; a larger one from a file blurs as this one does.
constexpr int kLargestAmount = 127;

/// Blurs in bands, which spares a copy of the whole picture. Sums of whole numbers do not depend on
/// where a band begins.
void blur(cv::Mat& picture, int amount) {
    const cv::Size aperture(2 * amount + 1, 2 * amount + 1);
    const int bandRows = 128 + 8 * amount;
    if (picture.rows < 2 * bandRows) {
        cv::GaussianBlur(picture, picture, aperture, 0, 0, cv::BORDER_REPLICATE);
        return;
    }
    const HaloBands bands(picture, amount, amount, picture.rows / bandRows);
    bands.forEachGroup([&](const auto& group) {
        cv::Mat old;
        cv::Mat blurred;
        for (const HaloBands::Band* band : group) {
            bands.copyOut(*band, old);
            cv::GaussianBlur(old, blurred, aperture, 0, 0, cv::BORDER_REPLICATE);
            const int first = band->above.rows;
            blurred.rowRange(first, first + band->last - band->first)
                .copyTo(picture.rowRange(band->first, band->last));
        }
    });
}

}  // namespace

CSmoothFilter::CSmoothFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {5}) {}

bool CSmoothFilter::Apply(IplImage** image) {
    cv::Mat picture = matView(image);
    if (picture.empty() || picture.depth() != CV_8U) {
        return false;
    }
    const int amount = std::min(factor(0), kLargestAmount);
    return amount <= 0 || runsInMemory([&] { blur(picture, amount); });
}

const char16_t* CSmoothFilter::GetName() const {
    return u"Gauss Smooth";
}

}  // namespace vellora
