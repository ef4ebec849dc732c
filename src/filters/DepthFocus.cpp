#include "filters/DepthFocus.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vellora {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kStrength = 0.02;

/// Of the columns or rows from the focus. A spread of 0 puts all but the focus infinitely far.
std::vector<double> squaredDistances(int extent, float centre, float spread) {
    std::vector<double> distances(static_cast<std::size_t>(extent));
    for (std::size_t i = 0; i < distances.size(); ++i) {
        const double distance = (static_cast<double>(i) / extent - centre) / spread;
        distances[i] = std::isnan(distance) ? 0.0 : distance * distance;
    }
    return distances;
}

double farthest(const std::vector<double>& columns, const std::vector<double>& rows) {
    return *std::max_element(columns.begin(), columns.end()) +
           *std::max_element(rows.begin(), rows.end());
}

/// A reach beyond the whole picture covers no more than the picture.
int reachAt(int extent, double squaredDistance) {
    const auto radius = static_cast<float>(std::sqrt(squaredDistance) * kStrength);
    return static_cast<int>(
        std::min(static_cast<double>(extent) * radius, static_cast<double>(extent)));
}

/// The largest squared distance with no more than a reach, of those below one that has more.
double lastDistanceOf(int reach, int extent, double below) {
    // The bits of positive numbers, seen as whole numbers, stand in the same order.
    std::uint64_t within = 0;
    auto beyond = std::bit_cast<std::uint64_t>(below);
    while (beyond - within > 1) {
        const std::uint64_t middle = within + (beyond - within) / 2;
        (reachAt(extent, std::bit_cast<double>(middle)) <= reach ? within : beyond) = middle;
    }
    return std::bit_cast<double>(within);
}

}  // namespace

DepthFocus::DepthFocus(const FilterRegion& region, cv::Size picture) {
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
    const double distance = farthest(m_columns, m_rows);
    m_across = Reaches(picture.width, distance);
    m_down = Reaches(picture.height, distance);
}

DepthFocus::Reaches::Reaches(int extent, double farthest) : m_last{-1.0} {
    const int largest = reachAt(extent, farthest);
    for (int reach = 0; reach < largest; ++reach) {
        m_last.push_back(lastDistanceOf(reach, extent, farthest));
    }
    m_last.push_back(kInfinite);
}

}  // namespace vellora
