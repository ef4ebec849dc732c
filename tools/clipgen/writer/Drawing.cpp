#include "writer/Drawing.h"

#include <QLineF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellora::clipgen {
namespace {

/// Bands for each that a clip asks for: so many that pictures for print show a gradient.
constexpr int kFiner = 2;

}  // namespace

QColor mixed(const std::vector<QColor>& colors, double at) {
    const double place = std::clamp(at, 0.0, 1.0) * static_cast<double>(colors.size() - 1);
    const auto index = std::min(static_cast<std::size_t>(place), colors.size() - 1);
    const QColor& a = colors[index];
    const QColor& b = colors[std::min(index + 1, colors.size() - 1)];
    const double part = place - static_cast<double>(index);
    const auto between = [part](int from, int to) {
        return static_cast<int>(std::lround(from + part * (to - from)));
    };
    return QColor(between(a.red(), b.red()), between(a.green(), b.green()),
                  between(a.blue(), b.blue()));
}

void Drawing::bands(const QPainterPath& path, QPointF from, QPointF to,
                    const std::vector<QColor>& colors, int coarse) {
    const int count = coarse * kFiner;
    const QLineF axis(from, to);
    const double reach = 4 * std::max(m_size.width(), m_size.height());
    QTransform alongAxis;
    alongAxis.translate(from.x(), from.y());
    alongAxis.rotateRadians(std::atan2(axis.dy(), axis.dx()));
    fill(path, mixed(colors, 0.5 / count));
    for (int band = 1; band < count; ++band) {
        QPainterPath rest;
        rest.addRect(axis.length() * band / count, -reach, 2 * reach, 2 * reach);
        const QPainterPath covered = path.intersected(alongAxis.map(rest));
        if (!covered.isEmpty())
            fill(covered, mixed(colors, (band + 0.5) / count));
    }
}

void Drawing::rings(const QPainterPath& path, QPointF centre, const std::vector<QColor>& colors,
                    int coarse) {
    const int count = coarse * kFiner;
    for (int ring = 0; ring < count; ++ring) {
        const double part = 1 - static_cast<double>(ring) / count;
        QTransform smaller;
        smaller.translate(centre.x(), centre.y());
        smaller.scale(part, part);
        smaller.translate(-centre.x(), -centre.y());
        fill(smaller.map(path), mixed(colors, (ring + 0.5) / count));
    }
}

}  // namespace vellora::clipgen
