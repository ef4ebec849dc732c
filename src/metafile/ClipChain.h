#pragma once

#include <QPainterPath>
#include <memory>
#include <optional>
#include <vector>

namespace vellora::metafile {

/// One shape of a clip, in device units. A rectangle is kept as one, so that rectangles in
/// rectangles stay cheap.
struct ClipPart {
    QPainterPath path;
    std::optional<QRectF> rect;
};

/// What is drawn lies inside every part; no part at all leaves everything open.
using ClipParts = std::vector<ClipPart>;
using ClipPartsPtr = std::shared_ptr<const ClipParts>;

enum class ClipMode : std::uint8_t { And = 1, Or, Xor, Diff, Copy };

/// The clip of a drawing state: shapes that are intersected when they are painted, never before,
/// so that no boolean operation on paths is ever run on what a file holds.
class ClipChain {
public:
    void reset() { m_parts = nullptr; }
    void combine(const ClipPart& part, ClipMode mode);
    void combine(const QPainterPath& path, ClipMode mode) { combine({path, {}}, mode); }
    void combine(const QRectF& rect, ClipMode mode);
    void append(const ClipChain& other);
    void translate(QPointF by);

    bool isOpen() const { return m_parts == nullptr || m_parts->empty(); }
    /// Null when open. The parts behind the pointer never change.
    const ClipPartsPtr& parts() const { return m_parts; }

private:
    void intersect(ClipParts& parts, const ClipPart& part) const;
    void unite(ClipParts& parts, const ClipPart& part, Qt::FillRule rule) const;

    ClipPartsPtr m_parts;
};

/// The axis-aligned rectangle that a path is, if it is one.
std::optional<QRectF> asRectangle(const QPainterPath& path);

QPainterPath rectanglePath(const QRectF& rect);

}  // namespace vellora::metafile
