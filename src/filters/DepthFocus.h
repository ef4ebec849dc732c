#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include <opencv2/core.hpp>

#include "filters/FilterRegion.h"

namespace vellora {

/// Tells how far the box around each pixel of "Depth Dim" reaches: the farther from the focus, the
/// farther.
class DepthFocus {
public:
    /// Neighbouring pixels of a row whose boxes have the same size: they reach so many columns to
    /// either side and so many rows up and down.
    struct Run {
        cv::Range columns;
        int across;
        int down;
    };

    DepthFocus(const FilterRegion& region, cv::Size picture);

    /// The number of rows that the largest box reaches up and down.
    [[nodiscard]] int largestDown() const { return m_down.largest(); }

    /// Calls `use(run)` for the runs of a row from left to right.
    template <class Use>
    void forEachRun(int y, Use use) const {
        const double rowDistance = m_rows[static_cast<std::size_t>(y)];
        const double* columns = m_columns.data();
        const int width = static_cast<int>(m_columns.size());
        Run run{{0, 0}, 0, 0};
        while (run.columns.end < width) {
            int x = run.columns.end;
            const double distance = columns[x] + rowDistance;
            run.across = m_across.at(distance, run.across);
            run.down = m_down.at(distance, run.down);
            const double above = std::max(m_across.lower(run.across), m_down.lower(run.down));
            const double upTo = std::min(m_across.upper(run.across), m_down.upper(run.down));
            do {
                ++x;
            } while (x < width && above < columns[x] + rowDistance &&
                     columns[x] + rowDistance <= upTo);
            run.columns = {run.columns.end, x};
            use(run);
        }
    }

private:
    /// The reach along one side of the picture, by the squared distance from the focus. It never
    /// falls as the distance grows, so the last distance of each reach tells them all.
    class Reaches {
    public:
        Reaches() = default;
        Reaches(int extent, double farthest);
        [[nodiscard]] int largest() const { return static_cast<int>(m_last.size()) - 2; }
        /// The reach at a distance, which is mostly the guess or the next one to it.
        [[nodiscard]] int at(double distance, int guess) const {
            const int step = distance > upper(guess) ? 1 : distance <= lower(guess) ? -1 : 0;
            guess += step;
            if (step == 0 || (lower(guess) < distance && distance <= upper(guess))) {
                return guess;
            }
            return static_cast<int>(std::ranges::lower_bound(m_last, distance) - m_last.begin()) -
                   1;
        }
        /// A reach goes for distances above its lower bound, up to its upper one.
        [[nodiscard]] double lower(int reach) const {
            return m_last[static_cast<std::size_t>(reach)];
        }
        [[nodiscard]] double upper(int reach) const {
            return m_last[static_cast<std::size_t>(reach) + 1];
        }

    private:
        std::vector<double> m_last;  // of the reaches from -1
    };

    std::vector<double> m_columns;  // squared distances from the focus
    std::vector<double> m_rows;
    Reaches m_across;
    Reaches m_down;
};

}  // namespace vellora
