#include "metafile/DisplayList.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vellora::metafile {
namespace {

constexpr std::int64_t kItemBytes = 256;
constexpr std::int64_t kElementBytes = 24;

double workOf(const QPainterPath& path) {
    return kItemWork + path.elementCount();
}

double reachOf(const QPen& pen) {
    const double half = std::max(pen.widthF(), 1.0e-6) / 2;
    if (pen.joinStyle() == Qt::SvgMiterJoin)
        return half * std::max(pen.miterLimit(), 1.5);
    return half * 1.5;
}

QRectF grown(const QRectF& rect, double by) {
    return rect.adjusted(-by, -by, by, by);
}

/// Whether the rectangles share a point; unlike areas, lines have no width of their own.
bool touch(const QRectF& a, const QRectF& b) {
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
           b.top() <= a.bottom();
}

QRectF around(const QRectF& a, const QRectF& b) {
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

}  // namespace

void DisplayList::fill(const QPainterPath& path, const QBrush& brush, const ClipPartsPtr& clip) {
    add(FillItem{path, brush}, path.controlPointRect(), clip, workOf(path));
}

void DisplayList::stroke(const QPainterPath& path, const QPen& pen, const ClipPartsPtr& clip,
                         const QTransform* penSpace) {
    if (penSpace == nullptr && goOnFromLast(path, pen, clip))
        return;
    const QRectF inPenSpace = grown(path.controlPointRect(), reachOf(pen));
    const QRectF bounds = penSpace == nullptr ? inPenSpace : penSpace->mapRect(inPenSpace);
    add(StrokeItem{path, pen, penSpaceIndex(penSpace)}, bounds, clip, 2 * workOf(path));
}

void DisplayList::image(const QImage& image, const QRectF& source, const QTransform& toDevice,
                        double opacity, const ClipPartsPtr& clip) {
    const double work =
        kItemWork + static_cast<double>(image.width()) * image.height() / (64.0 * 1024);
    add(ImageItem{image, source, toDevice, opacity}, toDevice.mapRect(source), clip, work);
}

void DisplayList::add(std::variant<FillItem, StrokeItem, ImageItem> what, const QRectF& bounds,
                      const ClipPartsPtr& clip, double work) {
    const std::uint32_t index = clipIndex(clip);
    QRectF shown = bounds;
    if (index != 0) {
        if (!touch(bounds, m_clipBounds[index]))
            return;
        shown = bounds & m_clipBounds[index];
    }
    if (!m_budget.spend(work))
        return;
    m_bounds = m_items.empty() ? shown : around(m_bounds, shown);
    m_bytes += kItemBytes + static_cast<std::int64_t>(work) * kElementBytes;
    m_items.push_back({std::move(what), shown, index});
}

/// Files draw long lines piece by piece; joined they look as they should at their corners and
/// cost one item.
bool DisplayList::goOnFromLast(const QPainterPath& path, const QPen& pen,
                               const ClipPartsPtr& clip) {
    if (m_items.empty() || m_clips[m_items.back().clip] != clip)
        return false;
    auto* const last = std::get_if<StrokeItem>(&m_items.back().what);
    if (last == nullptr || last->penSpace != 0 || path.elementCount() != 2 ||
        last->path.currentPosition() != QPointF(path.elementAt(0)) || last->pen != pen)
        return false;
    if (m_budget.spend(2)) {
        last->path.lineTo(path.elementAt(1));
        QRectF& bounds = m_items.back().bounds;
        bounds = around(bounds, grown(path.controlPointRect(), reachOf(pen)));
        if (clip != nullptr)
            bounds &= m_clipBounds[m_items.back().clip];
        m_bounds = around(m_bounds, bounds);
        m_bytes += kElementBytes;
    }
    return true;
}

std::uint32_t DisplayList::clipIndex(const ClipPartsPtr& clip) {
    if (clip == nullptr || clip->empty())
        return 0;
    if (m_clips.back() != clip) {
        QRectF bounds = clip->front().path.controlPointRect();
        double work = kItemWork;
        for (const ClipPart& part : *clip) {
            bounds &= part.path.controlPointRect();
            work += 4 * workOf(part.path);
        }
        m_budget.spend(work);
        m_clips.push_back(clip);
        m_clipBounds.push_back(bounds);
    }
    return static_cast<std::uint32_t>(m_clips.size() - 1);
}

std::uint32_t DisplayList::penSpaceIndex(const QTransform* penSpace) {
    if (penSpace == nullptr)
        return 0;
    if (m_penSpaces.size() == 1 || m_penSpaces.back() != *penSpace)
        m_penSpaces.push_back(*penSpace);
    return static_cast<std::uint32_t>(m_penSpaces.size() - 1);
}

double DisplayList::areaWork(const QRectF& frame) const {
    if (frame.isEmpty())
        return 0;
    const double whole = frame.width() * frame.height();
    double work = 0;
    for (const Item& item : m_items) {
        const QRectF shown = item.bounds & frame;
        work += kFrameFillWork * (shown.width() * shown.height() / whole);
    }
    return work;
}

}  // namespace vellora::metafile
