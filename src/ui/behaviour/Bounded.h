#pragma once

#include <QPoint>
#include <algorithm>
#include <cstdint>
#include <limits>

namespace vellora {

/// A coordinate kept inside the range of an `int`: a stranger's file may hold any number.
inline int bounded(std::int64_t coordinate) {
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

inline QPoint boundedSum(QPoint a, QPoint b) {
    return {bounded(std::int64_t{a.x()} + b.x()), bounded(std::int64_t{a.y()} + b.y())};
}

inline QPoint boundedDifference(QPoint a, QPoint b) {
    return {bounded(std::int64_t{a.x()} - b.x()), bounded(std::int64_t{a.y()} - b.y())};
}

}  // namespace vellora
