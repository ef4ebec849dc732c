#include "filters/DepthDimFilter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <vector>

#include <opencv2/core/hal/intrin.hpp>

#include "base/AbortFlag.h"
#include "filters/HaloBands.h"
#include "filters/ImagePreflight.h"
#include "filters/SummedRows.h"

namespace vellora {
namespace {

/// How far the box around a pixel reaches, from the pixel's distance to the focus.
class Focus {
public:
    Focus(const FilterRegion& region, cv::Size picture)
        : m_width(picture.width), m_height(picture.height) {
        float centreX = 0.5F;
        float centreY = 0.5F;
        float spreadX = 1.0F;
        float spreadY = 1.0F;
        if (region.roi_x != 0 || region.roi_y != 0 || region.roi_cx != 0 || region.roi_cy != 0) {
            centreX = region.roi_x + region.roi_cx * 0.5F;
            centreY = region.roi_y + region.roi_cy * 0.5F;
            spreadX = region.roi_cx * 4.0F;
            spreadY = region.roi_cy * 4.0F;
        }
        m_columns = squaredDistances(picture.width, centreX, spreadX);
        m_rows = squaredDistances(picture.height, centreY, spreadY);
    }

    /// The number of rows that the largest box reaches up and down.
    [[nodiscard]] int largestReach() const {
        const double farthest = *std::max_element(m_columns.begin(), m_columns.end()) +
                                *std::max_element(m_rows.begin(), m_rows.end());
        return reach(m_height, static_cast<float>(std::sqrt(farthest) * kStrength));
    }

    /// The reach of the boxes of a row: columns to either side, rows up and down.
    void rowReaches(int y, int* columns, int* rows) const {
        const double rowDistance = m_rows[static_cast<std::size_t>(y)];
        int x = 0;
        for (; x + 4 <= m_width; x += 4) {
            const auto at = static_cast<std::size_t>(x);
            if (!roughReaches(at, rowDistance, columns + x, rows + x)) {
                exactReaches(at, at + 4, rowDistance, columns, rows);
            }
        }
        exactReaches(static_cast<std::size_t>(x), m_columns.size(), rowDistance, columns, rows);
    }

private:
    static constexpr double kStrength = 0.02;

    /// Of the columns or rows from the focus. A spread of 0 puts all but the focus infinitely far.
    static std::vector<double> squaredDistances(int extent, float centre, float spread) {
        std::vector<double> distances(static_cast<std::size_t>(extent));
        for (std::size_t i = 0; i < distances.size(); ++i) {
            const double distance = (static_cast<double>(i) / extent - centre) / spread;
            distances[i] = std::isnan(distance) ? 0.0 : distance * distance;
        }
        return distances;
    }

    /// A reach beyond the whole picture covers no more than the picture.
    static int reach(int extent, float radius) {
        return static_cast<int>(
            std::min(static_cast<double>(extent) * radius, static_cast<double>(extent)));
    }

    void exactReaches(std::size_t first, std::size_t last, double rowDistance, int* columns,
                      int* rows) const {
        for (std::size_t x = first; x < last; ++x) {
            const auto radius =
                static_cast<float>(std::sqrt(m_columns[x] + rowDistance) * kStrength);
            columns[x] = reach(m_width, radius);
            rows[x] = reach(m_height, radius);
        }
    }

    /// Four reaches in single precision, which leaves no doubt about a whole number that the
    /// product is not close to. Returns false when there is doubt.
    bool roughReaches(std::size_t x, double rowDistance, int* columns, int* rows) const {
        constexpr float kLargest = 256.0F;
        constexpr float kDoubt = 1.0F / 512;  // many times the error of a product up to the largest
        const cv::v_float32x4 distance =
            cv::v_cvt_f32(cv::v_load(&m_columns[x]), cv::v_load(&m_columns[x + 2])) +
            cv::v_setall_f32(static_cast<float>(rowDistance));
        const cv::v_float32x4 radius =
            cv::v_sqrt(distance) * cv::v_setall_f32(static_cast<float>(kStrength));
        const cv::v_float32x4 wide = radius * cv::v_setall_f32(static_cast<float>(m_width));
        const cv::v_float32x4 tall = radius * cv::v_setall_f32(static_cast<float>(m_height));
        const cv::v_int32x4 wholeWide = cv::v_trunc(wide);
        const cv::v_int32x4 wholeTall = cv::v_trunc(tall);
        const cv::v_float32x4 restWide = wide - cv::v_cvt_f32(wholeWide);
        const cv::v_float32x4 restTall = tall - cv::v_cvt_f32(wholeTall);
        cv::v_store(columns, wholeWide);
        cv::v_store(rows, wholeTall);
        return cv::v_check_all((cv::v_min(restWide, restTall) > cv::v_setall_f32(kDoubt)) &
                               (cv::v_max(restWide, restTall) < cv::v_setall_f32(1.0F - kDoubt)) &
                               (cv::v_max(wide, tall) < cv::v_setall_f32(kLargest)));
    }

    int m_width;
    int m_height;
    std::vector<double> m_columns;
    std::vector<double> m_rows;
};

/// Dims a picture in place: a row is only overwritten when the sums over all rows that its boxes
/// reach are taken.
class DepthDimmer {
public:
    DepthDimmer(cv::Mat& picture, const FilterRegion& region)
        : m_picture(picture), m_focus(region, picture.size()), m_reach(m_focus.largestReach()) {}

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
        const auto width = static_cast<std::size_t>(m_picture.cols);
        std::vector<int> columns(width);
        std::vector<int> rows(width);
        const int kept = std::max(2, std::min(2 * m_reach + 2, m_picture.rows));
        SummedRows sums(m_picture.size(), std::max(band.first - m_reach - 1, 0), kept);
        for (int y = band.first; y < band.last; ++y) {
            const int lastNeeded = std::min(y + m_reach, m_picture.rows - 1);
            while (sums.nextRow() <= lastNeeded) {
                sums.add(bands.row(band, sums.nextRow()));
            }
            m_focus.rowReaches(y, columns.data(), rows.data());
            dimRow(sums, y, columns.data(), rows.data());
            if (abortRequested()) {
                m_picture.rowRange(y + 1, band.last).setTo(cv::Scalar::all(0));
                return;
            }
        }
    }

    void dimRow(const SummedRows& sums, int y, const int* columns, const int* rows) {
        const int width = m_picture.cols;
        int x = 0;
        while (x < width) {
            const int reach = columns[x];
            int end = x + 1;
            while (end < width && columns[end] == reach && rows[end] == rows[x]) {
                ++end;
            }
            // Boxes that the sides of the picture cut off differ in size from their neighbours.
            const int firstWhole = std::clamp(reach + 1, x, end);
            const int lastWhole = std::clamp(width - reach, firstWhole, end);
            const int y0 = std::max(y - rows[x] - 1, 0);
            const int y1 = std::min(y + rows[x], m_picture.rows - 1);
            for (; x < firstWhole; ++x) {
                dimRun(sums, y, {x, x + 1}, reach, {y0, y1});
            }
            dimRun(sums, y, {x, lastWhole}, reach, {y0, y1});
            for (x = lastWhole; x < end; ++x) {
                dimRun(sums, y, {x, x + 1}, reach, {y0, y1});
            }
        }
    }

    /// Dims the pixels of a run, whose boxes all have the size of the first one's.
    void dimRun(const SummedRows& sums, int y, cv::Range run, int reach, cv::Range boxRows) {
        const int x0 = std::max(run.start - reach - 1, 0);
        const int x1 = std::min(run.start + reach, m_picture.cols - 1);
        const std::int64_t area = static_cast<std::int64_t>(x1 - x0) * boxRows.size();
        uchar* pixel = m_picture.ptr(y) + 3 * static_cast<std::ptrdiff_t>(run.start);
        // A box without a pixel has no mean: the pixel stays as it is in the photo.
        if (area > SummedRows::kLargestBox) {
            for (int i = 0; i < run.size(); ++i, pixel += 3) {
                wideMean(sums, {x0 + i, boxRows.start}, {x1 + i, boxRows.end}, pixel);
            }
        } else if (area > 0) {
            const auto left = static_cast<std::ptrdiff_t>(x0) * SummedRows::kChannels;
            const auto right = static_cast<std::ptrdiff_t>(x1) * SummedRows::kChannels;
            const std::uint32_t* upper = sums.row(boxRows.start);
            const std::uint32_t* lower = sums.row(boxRows.end);
            boxMeans({upper + left, upper + right, lower + left, lower + right},
                     1.0 / static_cast<double>(area), pixel, 3 * run.size());
        }
    }

    /// The sums at the corners of a box.
    struct Corners {
        const std::uint32_t* upperLeft;
        const std::uint32_t* upperRight;
        const std::uint32_t* lowerLeft;
        const std::uint32_t* lowerRight;
    };

    static void boxMeans(const Corners& corners, double share, uchar* values, int count) {
        const cv::v_float64x2 factor = cv::v_setall_f64(share);
        const auto storeFour = [&](int i) {
            const cv::v_int32x4 sums = cv::v_reinterpret_as_s32(
                cv::v_load(corners.upperLeft + i) - cv::v_load(corners.upperRight + i) -
                cv::v_load(corners.lowerLeft + i) + cv::v_load(corners.lowerRight + i));
            const cv::v_int32x4 low = cv::v_trunc(cv::v_cvt_f64(sums) * factor);
            const cv::v_int32x4 high = cv::v_trunc(cv::v_cvt_f64_high(sums) * factor);
            const cv::v_int16x8 words = cv::v_pack(cv::v_combine_low(low, high), low);
            const std::uint32_t bytes = cv::v_reinterpret_as_u32(cv::v_pack_u(words, words)).get0();
            std::memcpy(values + i, &bytes, sizeof(bytes));
        };
        int i = 0;
        for (; i + 4 <= count; i += 4) {
            storeFour(i);
        }
        if (i < count && count >= 4) {
            storeFour(count - 4);  // some values a second time
            return;
        }
        for (; i < count; ++i) {
            const std::uint32_t sum = corners.upperLeft[i] - corners.upperRight[i] -
                                      corners.lowerLeft[i] + corners.lowerRight[i];
            values[i] = static_cast<uchar>(std::min(sum * share, 255.0));
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
    Focus m_focus;
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
