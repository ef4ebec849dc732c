#include <algorithm>
#include <cstdint>
#include <limits>

#include <vellora/model/DVDImageSprite.h>
#include <vellora/model/SpriteOwner.h>

namespace vellora {
namespace {

constexpr int kHandleReach = 3;

/// The sum, kept inside the range of an `int`: a stranger's file may hold any number.
int boundedSum(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t kLow = std::numeric_limits<int>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(a + b, kLow, kHigh));
}

int middle(int low, int high) {
    return static_cast<int>(low + (static_cast<std::int64_t>(high) - low) / 2);
}

Rect unionOf(const Rect& a, const Rect& b) {
    if (a.isEmpty()) {
        return b.isEmpty() ? Rect{} : b;
    }
    if (b.isEmpty()) {
        return a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

bool isOnHandle(QPoint handle, QPoint point) {
    const std::int64_t dx = static_cast<std::int64_t>(point.x()) - handle.x();
    const std::int64_t dy = static_cast<std::int64_t>(point.y()) - handle.y();
    return dx >= -kHandleReach && dx < kHandleReach && dy >= -kHandleReach && dy < kHandleReach;
}

}  // namespace

CDVDImageSprite::CDVDImageSprite(CSpriteOwner* owner, std::int32_t kind)
    : m_owner(owner), m_kind(kind) {}

CDVDImageSprite::CDVDImageSprite(const CDVDImageSprite& other)
    : m_owner(other.m_owner),
      m_kind(other.m_kind),
      m_x(other.m_x),
      m_y(other.m_y),
      m_cx(other.m_cx),
      m_cy(other.m_cy),
      m_albumFlag(other.m_albumFlag) {}

CDVDImageSprite::~CDVDImageSprite() = default;

bool CDVDImageSprite::IsEqual(const CDVDImageSprite& other) const {
    return m_x == other.m_x && m_y == other.m_y && m_kind == other.m_kind &&
           m_albumFlag == other.m_albumFlag;
}

bool CDVDImageSprite::IsNotEqual(const CDVDImageSprite& other) const {
    return !IsEqual(other);
}

int CDVDImageSprite::GetHandleCount() const {
    return 8;
}

QPoint CDVDImageSprite::GetHandlePoint(QPoint offset, int index) const {
    const Rect rect = GetRect(offset);
    const int middleX = middle(rect.left, rect.right);
    const int middleY = middle(rect.top, rect.bottom);
    switch (index) {
        case 2:
            return {middleX, rect.top};
        case 3:
            return {rect.right, rect.top};
        case 4:
            return {rect.right, middleY};
        case 5:
            return {rect.right, rect.bottom};
        case 6:
            return {middleX, rect.bottom};
        case 7:
            return {rect.left, rect.bottom};
        case 8:
            return {rect.left, middleY};
        default:
            return {rect.left, rect.top};
    }
}

bool CDVDImageSprite::IntersectsRect(QPoint offset, const Rect& rect) const {
    const Rect own = GetRect(offset).normalized();
    const Rect other = rect.normalized();
    return std::max(own.left, other.left) < std::min(own.right, other.right) &&
           std::max(own.top, other.top) < std::min(own.bottom, other.bottom);
}

bool CDVDImageSprite::IsInsideRect(QPoint offset, const Rect& rect) const {
    const Rect given = rect.normalized();
    return unionOf(GetRect(offset).normalized(), given) == given;
}

SpriteCursor CDVDImageSprite::GetHandleCursor(int hit) const {
    switch (hit) {
        case kHitBody:
            return SpriteCursor::Move;
        case 2:
        case 6:
            return SpriteCursor::SizeNS;
        case 3:
        case 7:
            return SpriteCursor::SizeNESW;
        case 4:
        case 8:
            return SpriteCursor::SizeWE;
        default:
            return SpriteCursor::SizeNWSE;
    }
}

int CDVDImageSprite::HitTest(QPoint offset, QPoint point, bool withHandles) const {
    if (withHandles) {
        for (int index = 1; index <= GetHandleCount(); ++index) {
            if (isOnHandle(GetHandlePoint(offset, index), point)) {
                return index;
            }
        }
    }
    return GetRect(offset).contains(point.x(), point.y()) ? kHitBody : kHitNothing;
}

QSize CDVDImageSprite::GetSize() const {
    return {m_cx, m_cy};
}

int CDVDImageSprite::Load(const CXMLParse& /*reader*/, const QString& /*nodePath*/) {
    return 0;
}

int CDVDImageSprite::Save(int /*depth*/) const {
    return 0;
}

void CDVDImageSprite::SetPosition(int x, int y) {
    if (x != m_x || y != m_y) {
        MarkOwnerChanged();
        m_x = x;
        m_y = y;
    }
}

void CDVDImageSprite::SetSize(int cx, int cy) {
    if (cx != m_cx || cy != m_cy) {
        MarkOwnerChanged();
        m_cx = cx;
        m_cy = cy;
    }
}

void CDVDImageSprite::SetAlbumFlag(bool flag) {
    if (flag != m_albumFlag) {
        MarkOwnerChanged();
        m_albumFlag = flag;
    }
}

void CDVDImageSprite::SetCanvasSize(int width, int height) {
    m_canvasWidth = width;
    m_canvasHeight = height;
}

Rect CDVDImageSprite::GetRect(QPoint offset) const {
    const QSize size = GetSize();
    const int left = boundedSum(m_x, offset.x());
    const int top = boundedSum(m_y, offset.y());
    return {left, top, boundedSum(left, size.width()), boundedSum(top, size.height())};
}

bool CDVDImageSprite::ContainsPoint(QPoint point) const {
    return GetContainmentRect().contains(point.x(), point.y());
}

Rect CDVDImageSprite::GetContainmentRect() const {
    return GetRect();
}

void CDVDImageSprite::MarkOwnerChanged() {
    if (m_owner != nullptr) {
        m_owner->MarkChanged();
    }
}

void CDVDImageSprite::StoreSize(int cx, int cy) {
    m_cx = cx;
    m_cy = cy;
}

}  // namespace vellora
