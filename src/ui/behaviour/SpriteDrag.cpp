#include "ui/behaviour/SpriteDrag.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

/// No sprite is dragged to be larger than this; far beyond anything that can be seen.
constexpr double kLargest = 1 << 20;

}  // namespace

void SpriteDrag::begin(const SpriteHit& hit, QPoint point) {
    m_hit = hit;
    m_start = {hit.sprite->GetPosition(), hit.sprite->GetSize()};
    m_grabOffset = boundedDifference(point, m_start.position);
    m_ratio = m_start.size.isEmpty()
                  ? 1.0
                  : static_cast<double>(m_start.size.width()) / m_start.size.height();
}

bool SpriteDrag::isResizing() const {
    return isActive() && m_hit.sprite->GetKind() == kPropsSprite && m_hit.code >= 1;
}

SpritePlace SpriteDrag::resizedTo(QPoint point) const {
    const int handle = m_hit.code;
    const bool atLeft = handle == 1 || handle == 7 || handle == 8;
    const bool atTop = handle >= 1 && handle <= 3;
    const double dx = static_cast<double>(point.x()) - m_start.position.x();
    const double dy = static_cast<double>(point.y()) - m_start.position.y();
    const double byX = atLeft ? m_start.size.width() - dx : dx;
    const double byY = (atTop ? m_start.size.height() - dy : dy) * m_ratio;
    const bool upright = handle == 2 || handle == 6;
    const bool level = handle == 4 || handle == 8;
    // A corner follows whichever direction asks for the larger sprite.
    const double wanted = level ? byX : upright ? byY : std::max(byX, byY);
    const double smallest = std::min(kSmallest * std::max(1.0, m_ratio), kLargest);
    const double width = std::clamp(wanted, smallest, kLargest);
    const QSize size(static_cast<int>(std::lround(width)),
                     static_cast<int>(std::lround(std::clamp(width / m_ratio, 1.0, kLargest))));
    // As with the crop frame, the middle handles keep a corner too: those at the left and top the
    // bottom-right one, those at the right and bottom the top-left one.
    const bool keepsRight = atLeft || handle == 2;
    const bool keepsBottom = atTop || handle == 8;
    const QPoint shift(
        keepsRight ? bounded(std::int64_t{m_start.size.width()} - size.width()) : 0,
        keepsBottom ? bounded(std::int64_t{m_start.size.height()} - size.height()) : 0);
    return {boundedSum(m_start.position, shift), size};
}

}  // namespace vellora
