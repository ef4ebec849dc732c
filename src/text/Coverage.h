#pragma once

#include <QPainterPath>
#include <QRect>
#include <QTransform>
#include <span>
#include <vector>

namespace vellora {

/// How far a shape covers the pixels of an area, row by row.
class Coverage {
public:
    /// A run of pixels, and how far each is covered, 0 to 255; all others of the row are not.
    struct Run {
        int x = 0;
        std::span<const quint8> values;
    };

    Coverage() = default;
    virtual ~Coverage() = default;
    Coverage(const Coverage&) = delete;
    Coverage& operator=(const Coverage&) = delete;

    /// The pixels that may be covered.
    [[nodiscard]] const QRect& area() const { return m_area; }

    /// The coverage of the area's row `y`, valid until the next call. Rows are asked for downwards.
    virtual Run row(int y) = 0;

protected:
    void setArea(const QRect& area) { m_area = area; }

private:
    QRect m_area;
};

/// The exact coverage of outlines filled by the winding rule. Time and memory grow with the length
/// of the outlines inside the area and with the area; what lies outside costs next to nothing.
class OutlineCoverage final : public Coverage {
public:
    /// @param path      Where contours overlap they must turn the same way round.
    /// @param toPixels  Scales without mirroring, and moves.
    /// @param visible   The pixels wanted.
    OutlineCoverage(const QPainterPath& path, const QTransform& toPixels, const QRect& visible);

    Run row(int y) override;

private:
    /// Relative to the top-left corner of a band of the area; it leads downwards.
    struct Edge {
        float x0, y0, x1, y1;
        float winding;
    };
    /// How coverage changes from pixel to pixel along one row, and which pixels are touched.
    struct Changes {
        float* values;
        int from;
        int to;
    };

    void addContour(const QPolygonF& contour);
    void addEdge(QPointF from, QPointF to);
    void addInside(double x0, double y0, double x1, double y1, float winding);
    void drawBand(std::size_t band);
    void drawEdge(const Edge& edge);
    static void drawInRow(Changes& row, float x0, float x1, float share);

    std::vector<std::vector<Edge>> m_bands;
    std::size_t m_drawnBand;
    std::vector<float> m_values;  // of the rows of one band
    std::vector<Changes> m_rows;
    std::vector<quint8> m_result;
};

}  // namespace vellora
