#include "filters/Relief.h"

#include <algorithm>
#include <cstdint>

#include <opencv2/core/hal/intrin.hpp>

namespace vellora {
namespace {

// Differences lie within +-255, so a larger brightness gives the same picture.
constexpr int kBrightnessLimit = 510;

/// row[i] - partner[i] + brightness for rows that do not overlap.
void reliefBytes(uchar* row, const uchar* partner, int count, int brightness) {
    int i = 0;
    const cv::v_int16x8 add = cv::v_setall_s16(static_cast<short>(brightness));
    for (; i + 16 <= count; i += 16) {
        cv::v_uint16x8 low;
        cv::v_uint16x8 high;
        cv::v_uint16x8 partnerLow;
        cv::v_uint16x8 partnerHigh;
        cv::v_expand(cv::v_load(row + i), low, high);
        cv::v_expand(cv::v_load(partner + i), partnerLow, partnerHigh);
        const auto differ = [&add](const cv::v_uint16x8& own, const cv::v_uint16x8& other) {
            return cv::v_reinterpret_as_s16(own) - cv::v_reinterpret_as_s16(other) + add;
        };
        cv::v_store(row + i, cv::v_pack_u(differ(low, partnerLow), differ(high, partnerHigh)));
    }
    for (; i < count; ++i) {
        row[i] = cv::saturate_cast<uchar>(row[i] - partner[i] + brightness);
    }
}

/// As `reliefBytes`, with one partner pixel for a run of pixels.
void reliefAgainstOne(uchar* row, const uchar* partner, int pixels, int channels, int brightness) {
    for (int x = 0; x < pixels; ++x) {
        for (int c = 0; c < channels; ++c, ++row) {
            *row = cv::saturate_cast<uchar>(*row - partner[c] + brightness);
        }
    }
}

/// A row whose partners lie in another row: the order of its pixels does not matter.
void reliefRow(uchar* row, const uchar* partner, int width, int channels, int offset,
               int brightness) {
    const int shift = std::min(std::abs(offset), width);
    const int inside = width - shift;
    const int skipped = shift * channels;
    if (offset < 0) {
        reliefAgainstOne(row, partner, shift, channels, brightness);
        reliefBytes(row + skipped, partner, inside * channels, brightness);
    } else {
        const int bytes = inside * channels;
        reliefBytes(row, partner + skipped, bytes, brightness);
        reliefAgainstOne(row + bytes, partner + static_cast<std::ptrdiff_t>(width - 1) * channels,
                         shift, channels, brightness);
    }
}

/// A row that holds its own partners: pixels are taken in the order of the scan.
void reliefWithin(uchar* row, int width, int channels, int offset, int brightness,
                  ReliefScan scan) {
    const bool forward = scan == ReliefScan::TopLeftFirst;
    for (int step = 0; step < width; ++step) {
        const int x = forward ? step : width - 1 - step;
        uchar* pixel = row + static_cast<std::ptrdiff_t>(x) * channels;
        const uchar* partner =
            row + static_cast<std::ptrdiff_t>(std::clamp(x + offset, 0, width - 1)) * channels;
        for (int c = 0; c < channels; ++c) {
            pixel[c] = cv::saturate_cast<uchar>(pixel[c] - partner[c] + brightness);
        }
    }
}

}  // namespace

void applyRelief(cv::Mat& image, int offset, int brightness, ReliefScan scan) {
    const int width = image.cols;
    const int height = image.rows;
    const int channels = image.channels();
    const int add = std::clamp(brightness, -kBrightnessLimit, kBrightnessLimit);
    const int columns = std::clamp(offset, -width, width);
    const int rows = std::clamp(offset, -height, height);
    for (int step = 0; step < height; ++step) {
        const int y = scan == ReliefScan::TopLeftFirst ? step : height - 1 - step;
        const int partnerY = std::clamp(y + rows, 0, height - 1);
        if (partnerY == y) {
            reliefWithin(image.ptr(y), width, channels, columns, add, scan);
        } else {
            reliefRow(image.ptr(y), image.ptr(partnerY), width, channels, columns, add);
        }
    }
}

}  // namespace vellora
