#include "metafile/ClipChain.h"

#include <array>
#include <utility>

#include "metafile/Limits.h"

namespace vellora::metafile {
namespace {

QRectF everything() {
    return {-2 * kMaxCoordinate, -2 * kMaxCoordinate, 4 * kMaxCoordinate, 4 * kMaxCoordinate};
}

/// All that lies outside a path.
QPainterPath complement(const QPainterPath& path) {
    QPainterPath outside;
    outside.addRect(everything());
    outside.addPath(path);
    outside.setFillRule(Qt::OddEvenFill);
    return outside;
}

ClipPart rectanglePart(const QRectF& rect) {
    return {rectanglePath(rect), rect};
}

QRectF boundsOf(const ClipParts& parts) {
    QRectF bounds = everything();
    for (const ClipPart& part : parts)
        bounds &= part.path.controlPointRect();
    return bounds;
}

}  // namespace

std::optional<QRectF> asRectangle(const QPainterPath& path) {
    const int count = path.elementCount();
    if (count != 4 && count != 5)
        return {};
    std::array<QPointF, 4> corner;
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (i == 4 ? QPointF(element) != corner[0] : (i > 0 && !element.isLineTo()))
            return {};
        if (i < 4)
            corner[static_cast<std::size_t>(i)] = element;
    }
    const bool startsAcross = corner[0].y() == corner[1].y();
    const auto alike = [&](std::size_t a, std::size_t b, bool inRow) {
        return inRow ? corner[a].y() == corner[b].y() : corner[a].x() == corner[b].x();
    };
    if (!alike(0, 1, startsAcross) || !alike(1, 2, !startsAcross) || !alike(2, 3, startsAcross) ||
        !alike(3, 0, !startsAcross))
        return {};
    return QRectF(corner[0], corner[2]).normalized();
}

QPainterPath rectanglePath(const QRectF& rect) {
    QPainterPath path;
    path.addRect(rect);
    return path;
}

void ClipChain::combine(const QRectF& rect, ClipMode mode) {
    combine(rectanglePart(rect), mode);
}

void ClipChain::combine(const ClipPart& part, ClipMode mode) {
    ClipParts parts;
    if (m_parts != nullptr && mode != ClipMode::Copy)
        parts = *m_parts;
    switch (mode) {
        case ClipMode::And:
        case ClipMode::Copy:
            intersect(parts, part);
            break;
        case ClipMode::Or:
            if (parts.empty())
                return;
            unite(parts, part, Qt::WindingFill);
            break;
        case ClipMode::Xor:
            if (parts.empty())
                intersect(parts, {complement(part.path), {}});
            else
                unite(parts, part, Qt::OddEvenFill);
            break;
        case ClipMode::Diff:
            intersect(parts, {complement(part.path), {}});
            break;
    }
    m_parts = std::make_shared<const ClipParts>(std::move(parts));
}

void ClipChain::append(const ClipChain& other) {
    if (isOpen()) {
        m_parts = other.m_parts;
    } else if (!other.isOpen()) {
        for (const ClipPart& part : *other.m_parts)
            combine(part, ClipMode::And);
    }
}

void ClipChain::translate(QPointF by) {
    if (isOpen())
        return;
    ClipParts parts = *m_parts;
    for (ClipPart& part : parts) {
        part.path.translate(by);
        if (part.rect)
            part.rect->translate(by);
    }
    m_parts = std::make_shared<const ClipParts>(std::move(parts));
}

void ClipChain::intersect(ClipParts& parts, const ClipPart& part) const {
    if (part.rect && !parts.empty() && parts.back().rect) {
        parts.back() = rectanglePart(*parts.back().rect & *part.rect);
    } else if (parts.size() < kMaxClipDepth) {
        parts.push_back(part);
    } else {
        parts.back() =
            rectanglePart(parts.back().path.controlPointRect() & part.path.controlPointRect());
    }
}

void ClipChain::unite(ClipParts& parts, const ClipPart& part, Qt::FillRule rule) const {
    QPainterPath joined = parts.size() == 1 ? parts.front().path : rectanglePath(boundsOf(parts));
    joined.addPath(part.path);
    joined.setFillRule(rule);
    parts.assign(1, {joined, {}});
}

}  // namespace vellora::metafile
