#include "filters/DepthDimFilter.h"

#include <algorithm>
#include <cstring>
#include <new>

#include <opencv2/core/hal/intrin.hpp>

#include "base/AbortFlag.h"
#include "filters/DepthFocus.h"
#include "filters/HaloBands.h"
#include "filters/ImagePreflight.h"
#include "filters/SummedRows.h"

namespace vellora {
namespace {

/// The sums at the corners of a box.
struct Corners {
    const std::uint32_t* upperLeft;
    const std::uint32_t* upperRight;
    const std::uint32_t* lowerLeft;
    const std::uint32_t* lowerRight;
    std::ptrdiff_t toNextRow;

    /// The sums over the boxes of four values, the first of them i values on.
    [[nodiscard]] cv::v_int32x4 sums(int i) const {
        return cv::v_reinterpret_as_s32(cv::v_load(upperLeft + i) - cv::v_load(upperRight + i) -
                                        cv::v_load(lowerLeft + i) + cv::v_load(lowerRight + i));
    }

    /// Asks the memory for the sums that the row below mostly needs at the same place. The rows of
    /// sums jump where the boxes grow, more often than the processor foresees.
    void fetchNextRow(int i) const {
        __builtin_prefetch(upperLeft + i + toNextRow);
        __builtin_prefetch(lowerRight + i + toNextRow);
    }
};

/// Multiplies sums by the reciprocal of an area, in double precision, and cuts the fraction off.
class PreciseMeans {
public:
    explicit PreciseMeans(double area) : m_share(cv::v_setall_f64(1.0 / area)) {}
    [[nodiscard]] cv::v_int32x4 operator()(const cv::v_int32x4& sums) const {
        return cv::v_combine_low(cv::v_trunc(cv::v_cvt_f64(sums) * m_share),
                                 cv::v_trunc(cv::v_cvt_f64_high(sums) * m_share));
    }

private:
    cv::v_float64x2 m_share;
};

/// The same in single precision, for the areas where `isExact`.
class QuickMeans {
public:
    /// Sums of a small area plus a half are exact, and the error of a mean, below 2^-15, is less
    /// than what half a unit of the sum is worth: means are cut off where they should be. The
    /// precise ones are too, unless the reciprocal was rounded down so far that whole means come
    /// out a little too small; then the mean of 1 does.
    static bool isExact(double area) {
        constexpr double kSmallArea = 1 << 14;
        return area < kSmallArea && area * (1.0 / area) == 1.0;
    }

    explicit QuickMeans(double area) : m_share(cv::v_setall_f32(static_cast<float>(1.0 / area))) {}
    [[nodiscard]] cv::v_int32x4 operator()(const cv::v_int32x4& sums) const {
        return cv::v_trunc((cv::v_cvt_f32(sums) + cv::v_setall_f32(0.5F)) * m_share);
    }

private:
    cv::v_float32x4 m_share;
};

/// Stores the means of the boxes of some pixels with three values each.
template <class Means>
void storeMeans(const Corners& corners, const Means& means, uchar* values, int count) {
    const auto wordsAt = [&](int i) {
        return cv::v_pack(means(corners.sums(i)), means(corners.sums(i + 4)));
    };
    const auto storeSixteen = [&](int i) {
        corners.fetchNextRow(i);
        cv::v_store(values + i, cv::v_pack_u(wordsAt(i), wordsAt(i + 8)));
    };
    const auto store = [&](int i, std::size_t bytes) {
        const cv::v_int16x8 words = cv::v_pack(means(corners.sums(i)), cv::v_setzero_s32());
        const std::uint32_t four = cv::v_reinterpret_as_u32(cv::v_pack_u(words, words)).get0();
        std::memcpy(values + i, &four, bytes);
    };
    // The last values are stored a second time where they do not fill a step.
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        storeSixteen(i);
    }
    if (count >= 16) {
        storeSixteen(count - 16);
        return;
    }
    for (; i + 4 <= count; i += 4) {
        store(i, 4);
    }
    if (count >= 4) {
        store(count - 4, 4);
    } else {
        store(0, 3);
    }
}

/// Dims a picture in place: a row is only overwritten when the sums over all rows that its boxes
/// reach are taken.
class DepthDimmer {
public:
    DepthDimmer(cv::Mat& picture, const FilterRegion& region)
        : m_picture(picture), m_focus(region, picture.size()), m_reach(m_focus.largestDown()) {}

    void dim() {
        // The sums over the rows next to a band are taken twice; bands are tall enough for that
        // to matter little.
        const int window = 2 * m_reach + 2;
        const int count = std::min(m_picture.rows / (4 * window), cv::getNumThreads());
        const HaloBands bands(m_picture, m_reach + 1, m_reach, count);
        bands.forEachGroup([&](const auto& group) {
            for (const HaloBands::Band* band : group) {
                dimBand(bands, *band);
            }
        });
    }

private:
    void dimBand(const HaloBands& bands, const HaloBands::Band& band) {
        const int kept = std::max(2, std::min(2 * m_reach + 2, m_picture.rows));
        SummedRows sums(m_picture.size(), std::max(band.first - m_reach - 1, 0), kept);
        for (int y = band.first; y < band.last; ++y) {
            const int lastNeeded = std::min(y + m_reach, m_picture.rows - 1);
            while (sums.nextRow() <= lastNeeded) {
                sums.add(bands.row(band, sums.nextRow()));
            }
            m_focus.forEachRun(y, [&](const DepthFocus::Run& run) { dimRun(sums, y, run); });
            if (abortRequested()) {
                m_picture.rowRange(y + 1, band.last).setTo(cv::Scalar::all(0));
                return;
            }
        }
    }

    void dimRun(const SummedRows& sums, int y, const DepthFocus::Run& run) {
        const cv::Range boxRows(std::max(y - run.down - 1, 0),
                                std::min(y + run.down, m_picture.rows - 1));
        // Boxes that the sides of the picture cut off differ in size from their neighbours.
        const int first = run.columns.start;
        const int last = run.columns.end;
        const int firstWhole = std::clamp(run.across + 1, first, last);
        const int lastWhole = std::clamp(m_picture.cols - run.across, firstWhole, last);
        for (int x = first; x < firstWhole; ++x) {
            dimAlike(sums, y, {x, x + 1}, run.across, boxRows);
        }
        if (firstWhole < lastWhole) {
            dimAlike(sums, y, {firstWhole, lastWhole}, run.across, boxRows);
        }
        for (int x = lastWhole; x < last; ++x) {
            dimAlike(sums, y, {x, x + 1}, run.across, boxRows);
        }
    }

    /// Dims pixels whose boxes all have the size of the first one's.
    void dimAlike(const SummedRows& sums, int y, cv::Range pixels, int reach, cv::Range boxRows) {
        const int x0 = std::max(pixels.start - reach - 1, 0);
        const int x1 = std::min(pixels.start + reach, m_picture.cols - 1);
        const std::int64_t area = static_cast<std::int64_t>(x1 - x0) * boxRows.size();
        uchar* values = m_picture.ptr(y) + 3 * static_cast<std::ptrdiff_t>(pixels.start);
        // A box without a pixel has no mean: the pixel stays as it is in the photo.
        if (area > SummedRows::kLargestBox) {
            for (int i = 0; i < pixels.size(); ++i, values += 3) {
                wideMean(sums, {x0 + i, boxRows.start}, {x1 + i, boxRows.end}, values);
            }
        } else if (area > 0) {
            const auto left = static_cast<std::ptrdiff_t>(x0) * SummedRows::kChannels;
            const auto right = static_cast<std::ptrdiff_t>(x1) * SummedRows::kChannels;
            const std::uint32_t* upper = sums.row(boxRows.start);
            const std::uint32_t* lower = sums.row(boxRows.end);
            const Corners corners{upper + left, upper + right, lower + left, lower + right,
                                  sums.toNextRow()};
            const auto divisor = static_cast<double>(area);
            if (QuickMeans::isExact(divisor)) {
                storeMeans(corners, QuickMeans(divisor), values, 3 * pixels.size());
            } else {
                storeMeans(corners, PreciseMeans(divisor), values, 3 * pixels.size());
            }
        }
    }

    static void wideMean(const SummedRows& sums, cv::Point upper, cv::Point lower, uchar* pixel) {
        double totals[3] = {};
        sums.addBox(upper.x, upper.y, lower.x, lower.y, totals);
        const double share = 1.0 / (static_cast<double>(lower.x - upper.x) * (lower.y - upper.y));
        for (int c = 0; c < 3; ++c) {
            pixel[c] = static_cast<uchar>(std::min(totals[c] * share, 255.0));
        }
    }

    cv::Mat& m_picture;
    DepthFocus m_focus;
    int m_reach;
};

}  // namespace

CDepthDimFilter::CDepthDimFilter() {
    is_art_effect = static_cast<std::int32_t>(FilterCategory::ArtEffect);
}

bool CDepthDimFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    clearAbort();
    return runsInMemory([&] { DepthDimmer(picture, m_region).dim(); });
}

COpencvFilterInterface* CDepthDimFilter::Clone() const {
    auto* clone = new (std::nothrow) CDepthDimFilter;
    if (clone != nullptr) {
        clone->m_region = m_region;
    }
    return clone;
}

const char16_t* CDepthDimFilter::GetName() const {
    return u"Depth Dim";
}

bool CDepthDimFilter::HasROI() const {
    return true;
}

void CDepthDimFilter::SetROI(float x, float y, float cx, float cy) {
    m_region = {x, y, cx, cy};
}

void CDepthDimFilter::GetROI(float* x, float* y, float* cx, float* cy) const {
    *x = m_region.roi_x;
    *y = m_region.roi_y;
    *cx = m_region.roi_cx;
    *cy = m_region.roi_cy;
}

}  // namespace vellora
