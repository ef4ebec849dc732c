#pragma once

#include <QBrush>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QTransform>
#include <cstdint>
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

struct StrokeItem {
    /// In the pen's own space, where its tip is round.
    QPainterPath path;
    QPen pen;
    /// Index of the transform from the pen's space to device units; 0 when they are the same.
    std::uint32_t penSpace = 0;
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
    /// @param penSpace  from the pen's space to device units, where it is no plain scaling
    void stroke(const QPainterPath& path, const QPen& pen, const ClipPartsPtr& clip,
                const QTransform* penSpace = nullptr);
    void image(const QImage& image, const QRectF& source, const QTransform& toDevice,
               double opacity, const ClipPartsPtr& clip);

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
        std::variant<FillItem, StrokeItem, ImageItem> what;
        QRectF bounds;
        std::uint32_t clip = 0;
    };

    void add(std::variant<FillItem, StrokeItem, ImageItem> what, const QRectF& bounds,
             const ClipPartsPtr& clip, double work);
    bool goOnFromLast(const QPainterPath& path, const QPen& pen, const ClipPartsPtr& clip);
    std::uint32_t clipIndex(const ClipPartsPtr& clip);
    std::uint32_t penSpaceIndex(const QTransform* penSpace);

    WorkBudget& m_budget;
    std::vector<Item> m_items;
    /// Index 0 stands for "no clip" and "device units".
    std::vector<ClipPartsPtr> m_clips{nullptr};
    std::vector<QRectF> m_clipBounds{QRectF()};
    std::vector<QTransform> m_penSpaces{QTransform()};
    QRectF m_bounds;
    std::int64_t m_bytes = 0;
};

}  // namespace vellora::metafile
