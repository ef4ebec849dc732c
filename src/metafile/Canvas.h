#pragma once

#include <QPainterPath>
#include <QPolygonF>
#include <cstdint>
#include <optional>
#include <vector>

#include "metafile/DisplayList.h"
#include "metafile/DrawState.h"
#include "metafile/GlyphSource.h"
#include "metafile/ImageSource.h"
#include "metafile/TextRun.h"

namespace vellora::metafile {

enum class ArcKind : std::uint8_t { Arc, ArcTo, Chord, Pie };

/// One corner of a GRADIENTFILL record.
struct GradientVertex {
    QPointF point;
    QColor color;
};

/// The drawing state that both record decoders feed. Points and sizes are in the file's logical
/// units; what is drawn goes to the display list in device units.
class Canvas {
public:
    /// @param pixel  device units that a line of width 0, a hatch and a pattern take as a pixel
    Canvas(DisplayList& list, WorkBudget& budget, double pixel);

    DrawState& state() { return m_state; }
    const DrawState& state() const { return m_state; }
    void save();
    /// Below 0 relative to now, above 0 the number of the save; a save that is not there changes
    /// nothing.
    void restore(std::int32_t which);
    void select(const GraphicsObject& object);
    void setWorld(const QTransform& world);

    void moveTo(QPointF to);
    void lineTo(QPointF to);
    void polyline(const QPolygonF& points);
    void polylineTo(const QPolygonF& points);
    /// One point to start at and three for each curve.
    void bezier(const QPolygonF& points);
    /// Three points for each curve.
    void bezierTo(const QPolygonF& points);
    /// Points with the types of POLYDRAW: 2 line, 4 curve, 6 move, 1 added closes the figure.
    void polyDraw(const QPolygonF& points, const std::vector<std::uint8_t>& types);
    void polygons(const std::vector<QPolygonF>& rings);
    void polylines(const std::vector<QPolygonF>& lines);

    void rectangle(const QRectF& box);
    void roundRectangle(const QRectF& box, QSizeF corner);
    void ellipse(const QRectF& box);
    void arc(ArcKind kind, const QRectF& box, QPointF start, QPointF end);
    /// A line to the start of the arc, then the arc; degrees counter-clockwise.
    void angleArc(QPointF centre, double radius, double start, double sweep);
    void pixel(QPointF at, ColorRef color);

    void beginPath();
    void endPath();
    void abortPath();
    void closeFigure();
    void widenPath();
    void paintPath(bool fill, bool stroke);
    void clipToPath(ClipMode mode);

    void clipTo(const QRectF& box, ClipMode mode);
    /// @param region  in device units
    void clipTo(const QPainterPath& region, ClipMode mode);
    void offsetClip(QPointF by);
    void keepClip();

    /// @param region  in logical units, as for all that follows
    void fillRegion(const QPainterPath& region, const BrushObject& brush);
    void frameRegion(const QPainterPath& region, const BrushObject& brush, QSizeF width);
    /// The selected brush over a rectangle, as far as the raster operation draws one.
    void patternFill(const QRectF& box, std::uint32_t rop);
    void image(const ImagePlacement& placement);
    void gradientRectangle(const GradientVertex& a, const GradientVertex& b, bool downwards);
    void gradientTriangle(const GradientVertex& a, const GradientVertex& b,
                          const GradientVertex& c);
    void text(const TextRun& run);

    QTransform toDevice() const { return m_state.world * m_state.page.toDevice(); }
    /// Logical region of rectangles to device units.
    QPainterPath mapped(const QPainterPath& path) const;

private:
    QPointF mapped(QPointF point) const { return bounded(toDevice().map(point)); }
    static QPointF bounded(QPointF point);
    QPainterPath ringPath(const std::vector<QPolygonF>& rings, bool closed) const;
    QRectF insideFrame(const QRectF& box) const;
    QPainterPath arcPath(ArcKind kind, const QRectF& box, double start, double sweep) const;
    void continueLine(QPainterPath line);
    void shape(const QPainterPath& device, bool fill, bool stroke);
    void fill(const QPainterPath& device, const BrushObject& brush);
    void hatch(const QPainterPath& device, const BrushObject& brush);
    void stroke(const QPainterPath& device);
    QPen penFor(double width) const;
    QList<qreal> dashesFor(double width) const;
    std::optional<QBrush> solidOrPattern(const BrushObject& brush) const;

    std::optional<QColor> inked(ColorRef color) const;
    QColor colorOf(ColorRef color) const;
    ClipPartsPtr activeClip();

    QTransform textToDevice(QPointF at) const;
    void textBack(const TextRun& run, const QTransform& place, const QRectF& cell);

    DisplayList& m_list;
    WorkBudget& m_budget;
    double m_pixel;
    DrawState m_state;
    std::vector<DrawState> m_saves;
    std::optional<QPainterPath> m_openPath;
    QPainterPath m_path;
    bool m_figureOpen = false;
    GlyphSource m_glyphs;

    ClipPartsPtr m_lastingParts;
    ClipPartsPtr m_ownParts;
    ClipPartsPtr m_joinedParts;
};

}  // namespace vellora::metafile
