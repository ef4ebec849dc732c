#include "metafile/DisplayList.h"

#include <QPainterPathStroker>
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
    flushStroke();
    add(FillItem{path, brush}, path.controlPointRect(), clip, workOf(path));
}

void DisplayList::stroke(const QPainterPath& path, const QPen& pen, const ClipPartsPtr& clip,
                         const QTransform& penSpace) {
    // Files draw long lines piece by piece; joined they look as they should at their corners.
    if (m_openStroke && path.elementCount() == 2 && m_openStroke->clip == clip &&
        m_openStroke->path.currentPosition() == QPointF(path.elementAt(0)) &&
        m_openStroke->pen == pen && m_openStroke->penSpace == penSpace) {
        m_openStroke->path.lineTo(path.elementAt(1));
        return;
    }
    flushStroke();
    m_openStroke = OpenStroke{path, pen, clip, penSpace};
}

void DisplayList::flushStroke() {
    if (!m_openStroke)
        return;
    const OpenStroke open = std::move(*m_openStroke);
    m_openStroke.reset();
    if (!m_budget.spend(kStrokeWork * open.path.elementCount()))
        return;
    const QTransform& space = open.penSpace;
    const double scale = std::sqrt(std::abs(space.determinant()));
    QPainterPathStroker stroker(open.pen);
    stroker.setCurveThreshold(m_tolerance / std::max(scale, 1.0e-9));
    QPainterPath outline = space.map(stroker.createStroke(open.path));
    outline.setFillRule(Qt::WindingFill);
    add(FillItem{outline, open.pen.brush()}, outline.controlPointRect(), open.clip,
        workOf(outline));
}

void DisplayList::image(const QImage& image, const QRectF& source, const QTransform& toDevice,
                        double opacity, const ClipPartsPtr& clip) {
    flushStroke();
    const double work =
        kItemWork + static_cast<double>(image.width()) * image.height() / (64.0 * 1024);
    add(ImageItem{image, source, toDevice, opacity}, toDevice.mapRect(source), clip, work);
}

void DisplayList::add(std::variant<FillItem, ImageItem> what, const QRectF& bounds,
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
