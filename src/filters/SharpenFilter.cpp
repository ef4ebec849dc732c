#include "filters/SharpenFilter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include <opencv2/core/hal/intrin.hpp>

#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {150, 1, 50, label::kAmount},
    {},
    {},
}};

/// How far a value moves, for each distance 0..255 from its partner.
using Steps = std::array<int, 256>;

Steps sharpenSteps(std::int32_t amount) {
    const double gain = amount / 100.0;
    Steps steps;
    for (int distance = 0; distance < 256; ++distance) {
        // A step over 255 ends at the limit wherever it starts.
        steps[static_cast<std::size_t>(distance)] =
            static_cast<int>(std::clamp(distance * gain, -255.0, 255.0));
    }
    return steps;
}

/// Steps as a product: distance * whole + (distance * part >> 16), limited to 255.
struct StepProduct {
    std::uint16_t whole;
    std::uint16_t part;
};

/// The product that equals the steps at every distance. A few amounts have none, because the
/// rounding of the gain shows at some distances and not at others.
std::optional<StepProduct> findProduct(const Steps& steps, std::int32_t amount) {
    if (amount < 0 || amount >= 10000) {
        return std::nullopt;
    }
    const int whole = amount / 100;
    const auto fraction = static_cast<std::uint32_t>(amount % 100);
    for (std::uint32_t part = (fraction << 16U) / 100; part <= (fraction << 16U) / 100 + 1;
         ++part) {
        bool equal = true;
        for (int distance = 0; distance < 256 && equal; ++distance) {
            const auto below = (static_cast<std::uint32_t>(distance) * part) >> 16U;
            const int product = distance * whole + static_cast<int>(below);
            equal = std::min(product, 255) == steps[static_cast<std::size_t>(distance)];
        }
        if (equal) {
            return StepProduct{static_cast<std::uint16_t>(whole), static_cast<std::uint16_t>(part)};
        }
    }
    return std::nullopt;
}

/// Sharpens the leading values of a row, as many as fill whole vectors, and returns their number.
int sharpenVectors(uchar* row, const uchar* partner, int count, const StepProduct& product) {
    const cv::v_uint16x8 whole = cv::v_setall_u16(product.whole);
    const cv::v_uint16x8 part = cv::v_setall_u16(product.part);
    const auto step = [&](const cv::v_uint16x8& distance) {
        return cv::v_reinterpret_as_s16(cv::v_mul_wrap(distance, whole) +
                                        cv::v_mul_hi(distance, part));
    };
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const cv::v_uint8x16 own = cv::v_load(row + i);
        const cv::v_uint8x16 other = cv::v_load(partner + i);
        cv::v_uint16x8 low;
        cv::v_uint16x8 high;
        cv::v_expand(cv::v_absdiff(own, other), low, high);
        const cv::v_uint8x16 move = cv::v_pack_u(step(low), step(high));
        cv::v_store(row + i, cv::v_select(own >= other, own + move, own - move));
    }
    return i;
}

void sharpenValues(uchar* row, const uchar* partner, int first, int count, const Steps& steps) {
    for (int i = first; i < count; ++i) {
        const int difference = row[i] - partner[i];
        const int step = steps[static_cast<std::size_t>(std::abs(difference))];
        row[i] = cv::saturate_cast<uchar>(difference < 0 ? row[i] - step : row[i] + step);
    }
}

}  // namespace

CSharpenFilter::CSharpenFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {50}) {}

bool CSharpenFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    const Steps steps = sharpenSteps(factor(0));
    const std::optional<StepProduct> product = findProduct(steps, factor(0));
    const int count = 3 * (picture.cols - 1);
    // From the bottom row up, so that the row above is not yet changed.
    for (int y = picture.rows - 1; y >= 1; --y) {
        uchar* row = picture.ptr(y) + 3;
        const uchar* partner = picture.ptr(y - 1);
        const int done = product ? sharpenVectors(row, partner, count, *product) : 0;
        sharpenValues(row, partner, done, count, steps);
    }
    return true;
}

const char16_t* CSharpenFilter::GetName() const {
    return u"Sharpen";
}

}  // namespace vellora
