#pragma once

#include <QBrush>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QTransform>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "metafile/ClipChain.h"
#include "metafile/Limits.h"

class QPainter;

namespace vellora::metafile {

struct FillItem {
    QPainterPath path;
    QBrush brush;
};

struct ImageItem {
    QImage image;
    /// The part of the image that is drawn, in its pixels.
    QRectF source;
    /// From the image's pixels to device units.
    QTransform toDevice;
    double opacity = 1;
};

/// What a metafile paints, in units of the device it was made for, ready to be painted at any
/// size. Painting it changes nothing, so threads may share one list.
class DisplayList {
public:
    explicit DisplayList(WorkBudget& budget) : m_budget(budget) {}

    void fill(const QPainterPath& path, const QBrush& brush, const ClipPartsPtr& clip);
    /// A line along a path, kept as its outline.
    /// @param path  in the pen's own space, where its tip is round
    /// @param penSpace  from that space to device units
    void stroke(const QPainterPath& path, const QPen& pen, const ClipPartsPtr& clip,
                const QTransform& penSpace = {});
    void image(const QImage& image, const QRectF& source, const QTransform& toDevice,
               double opacity, const ClipPartsPtr& clip);

    /// How far an outline may lie off its curve, in device units.
    void setTolerance(double tolerance) { m_tolerance = tolerance; }
    /// To be called when all is drawn.
    void finish() { flushStroke(); }

    bool isEmpty() const { return m_items.empty(); }
    std::size_t size() const { return m_items.size(); }
    /// The smallest rectangle around all that is painted.
    QRectF bounds() const { return m_bounds; }
    /// Rough memory that the list takes.
    std::int64_t bytes() const { return m_bytes; }
    /// Work of painting the areas that lie inside a frame; 0 for an empty frame.
    double areaWork(const QRectF& frame) const;

    /// Paints through a transform from device units to the painter's coordinates. What lies
    /// outside the frame is cut off.
    void replay(QPainter& painter, const QTransform& toTarget, const QRectF& frame) const;

private:
    struct Item {
        std::variant<FillItem, ImageItem> what;
        QRectF bounds;
        std::uint32_t clip = 0;
    };
    /// The line drawn last, which may go on.
    struct OpenStroke {
        QPainterPath path;
        QPen pen;
        ClipPartsPtr clip;
        QTransform penSpace;
    };

    void add(std::variant<FillItem, ImageItem> what, const QRectF& bounds, const ClipPartsPtr& clip,
             double work);
    void flushStroke();
    std::uint32_t clipIndex(const ClipPartsPtr& clip);

    WorkBudget& m_budget;
    double m_tolerance = 0.05;
    std::vector<Item> m_items;
    std::optional<OpenStroke> m_openStroke;
    /// Index 0 stands for "no clip".
    std::vector<ClipPartsPtr> m_clips{nullptr};
    std::vector<QRectF> m_clipBounds{QRectF()};
    QRectF m_bounds;
    std::int64_t m_bytes = 0;
};

}  // namespace vellora::metafile
