#include "text/Coverage.h"

#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

namespace vellora {
namespace {

constexpr int kBandRows = 32;
/// How much finer than a pixel curves are followed.
constexpr double kFineness = 4.0;
/// Steps shorter than this share of a pixel are joined to longer ones.
constexpr double kShortestStep = 0.125;

QRect touchedArea(const QPainterPath& path, const QTransform& toPixels, const QRect& visible) {
    const QRectF bounds = toPixels.mapRect(path.controlPointRect());
    return (bounds & QRectF(visible)).toAlignedRect() & visible;
}

}  // namespace

OutlineCoverage::OutlineCoverage(const QPainterPath& path, const QTransform& toPixels,
                                 const QRect& visible) {
    setArea(touchedArea(path, toPixels, visible));
    if (area().isEmpty()) {
        return;
    }
    m_bands.resize(static_cast<std::size_t>((area().height() + kBandRows - 1) / kBandRows));
    m_drawnBand = m_bands.size();
    const QTransform fine = toPixels * QTransform::fromTranslate(-area().left(), -area().top()) *
                            QTransform::fromScale(kFineness, kFineness);
    for (const QPolygonF& contour : path.toSubpathPolygons(fine)) {
        addContour(contour);
    }
}

void OutlineCoverage::addContour(const QPolygonF& contour) {
    if (contour.isEmpty()) {
        return;
    }
    const QPointF start = contour.front() / kFineness;
    QPointF from = start;
    for (const QPointF& point : contour) {
        const QPointF to = point / kFineness;
        if ((to - from).manhattanLength() >= kShortestStep) {
            addEdge(from, to);
            from = to;
        }
    }
    addEdge(from, start);
}

/// Cuts an edge at the sides of the area. What lies left of it still turns the winding of all that
/// is seen beside it; what lies right of it, above or below is not seen.
void OutlineCoverage::addEdge(QPointF from, QPointF to) {
    const float winding = from.y() < to.y() ? 1.0F : -1.0F;
    if (winding < 0) {
        std::swap(from, to);
    }
    const double top = std::max(from.y(), 0.0);
    const double bottom = std::min(to.y(), static_cast<double>(area().height()));
    if (!(top < bottom)) {
        return;
    }
    const double right = area().width();
    const double slope = (to.x() - from.x()) / (to.y() - from.y());
    const auto xAt = [&](double y) { return from.x() + (y - from.y()) * slope; };
    const auto yAt = [&](double x) {
        return slope != 0.0 ? std::clamp(from.y() + (x - from.x()) / slope, top, bottom) : top;
    };
    const auto [first, second] = std::minmax({yAt(0.0), yAt(right)});
    const std::array<double, 4> cuts{top, first, second, bottom};
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        if (!(cuts[i] < cuts[i + 1])) {
            continue;
        }
        if (xAt((cuts[i] + cuts[i + 1]) / 2) < right) {
            addInside(std::clamp(xAt(cuts[i]), 0.0, right), cuts[i],
                      std::clamp(xAt(cuts[i + 1]), 0.0, right), cuts[i + 1], winding);
        }
    }
}

void OutlineCoverage::addInside(double x0, double y0, double x1, double y1, float winding) {
    const double slope = (x1 - x0) / (y1 - y0);
    for (double y = y0; y < y1;) {
        const int band = static_cast<int>(y) / kBandRows;
        const double bandTop = band * kBandRows;
        const double end = std::min(y1, bandTop + kBandRows);
        m_bands[static_cast<std::size_t>(band)].push_back(
            {static_cast<float>(x0 + (y - y0) * slope), static_cast<float>(y - bandTop),
             static_cast<float>(x0 + (end - y0) * slope), static_cast<float>(end - bandTop),
             winding});
        y = end;
    }
}

void OutlineCoverage::drawBand(std::size_t band) {
    const auto width = static_cast<std::size_t>(area().width());
    // An edge at the right side notes changes for up to two pixels beyond.
    m_values.assign((width + 2) * kBandRows, 0.0F);
    m_result.resize(width);
    m_rows.clear();
    for (std::size_t row = 0; row < kBandRows; ++row) {
        m_rows.push_back({m_values.data() + row * (width + 2), area().width(), 0});
    }
    for (const Edge& edge : m_bands[band]) {
        drawEdge(edge);
    }
    m_drawnBand = band;
}

void OutlineCoverage::drawEdge(const Edge& edge) {
    const float height = edge.y1 - edge.y0;
    if (!(height > 0.0F)) {
        return;
    }
    const float slope = (edge.x1 - edge.x0) / height;
    const auto [least, most] = std::minmax(edge.x0, edge.x1);
    float x = edge.x0;
    for (int row = static_cast<int>(edge.y0); row < kBandRows; ++row) {
        const float top = std::max(static_cast<float>(row), edge.y0);
        const float bottom = std::min(static_cast<float>(row + 1), edge.y1);
        if (!(top < bottom)) {
            break;
        }
        const float next = std::clamp(edge.x0 + (bottom - edge.y0) * slope, least, most);
        drawInRow(m_rows[static_cast<std::size_t>(row)], x, next, (bottom - top) * edge.winding);
        x = next;
    }
}

/// `share` is how much of the row's height the edge passes, counted with its winding: that is how
/// much the coverage of all pixels right of it changes. The pixels that it crosses get their part.
void OutlineCoverage::drawInRow(Changes& row, float x0, float x1, float share) {
    if (x0 > x1) {
        std::swap(x0, x1);
    }
    const int first = static_cast<int>(x0);
    const int end = static_cast<int>(std::ceil(x1));
    row.from = std::min(row.from, first);
    row.to = std::max(row.to, std::max(end, first + 1));
    float* values = row.values + first;
    const float enters = x0 - static_cast<float>(first);
    if (end <= first + 1) {
        const float right = share * (enters + (x1 - static_cast<float>(first))) / 2;
        values[0] += share - right;
        values[1] += right;
        return;
    }
    const float perPixel = 1.0F / (x1 - x0);
    const float leaves = x1 - static_cast<float>(end - 1);
    const float inFirst = perPixel * (1.0F - enters) * (1.0F - enters) / 2;
    const float inLast = perPixel * leaves * leaves / 2;
    const int crossed = end - first;
    values[0] += share * inFirst;
    if (crossed == 2) {
        values[1] += share * (1.0F - inFirst - inLast);
    } else {
        const float second = perPixel * (1.5F - enters);
        values[1] += share * (second - inFirst);
        for (int i = 2; i < crossed - 1; ++i) {
            values[i] += share * perPixel;
        }
        const float beforeLast = second + static_cast<float>(crossed - 3) * perPixel;
        values[crossed - 1] += share * (1.0F - beforeLast - inLast);
    }
    values[crossed] += share * inLast;
}

Coverage::Run OutlineCoverage::row(int y) {
    const int below = y - area().top();
    const auto band = static_cast<std::size_t>(below / kBandRows);
    if (band != m_drawnBand) {
        drawBand(band);
    }
    const Changes& changes = m_rows[static_cast<std::size_t>(below % kBandRows)];
    const int end = std::min(changes.to + 1, area().width());
    if (changes.from >= end) {
        return {};
    }
    const auto toByte = [](float winding) {
        return static_cast<quint8>(std::min(std::abs(winding), 1.0F) * 255.0F + 0.5F);
    };
    float sum = 0.0F;
    for (int x = changes.from; x < end; ++x) {
        sum += changes.values[x];
        m_result[static_cast<std::size_t>(x)] = toByte(sum);
    }
    // A shape that reaches beyond the area covers all up to its side.
    const quint8 beyond = toByte(sum);
    if (beyond != 0) {
        std::fill(m_result.begin() + end, m_result.end(), beyond);
    }
    const auto from = static_cast<std::size_t>(changes.from);
    const auto count = static_cast<std::size_t>(beyond != 0 ? area().width() : end) - from;
    return {area().left() + changes.from, std::span(m_result).subspan(from, count)};
}

}  // namespace vellora
