#pragma once

/// @file
/// A rectangle given by its edges.

namespace vellora {

/// Edges in pixels or design units; the left and top edges belong to the rectangle, the right and
/// bottom edges do not.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] constexpr int width() const { return right - left; }
    [[nodiscard]] constexpr int height() const { return bottom - top; }
    [[nodiscard]] constexpr bool isEmpty() const { return right <= left || bottom <= top; }
    [[nodiscard]] constexpr bool contains(int x, int y) const {
        return x >= left && x < right && y >= top && y < bottom;
    }
    [[nodiscard]] constexpr Rect translated(int dx, int dy) const {
        return {left + dx, top + dy, right + dx, bottom + dy};
    }
    /// The same rectangle with reversed edges swapped.
    [[nodiscard]] constexpr Rect normalized() const {
        return {left < right ? left : right, top < bottom ? top : bottom,
                left < right ? right : left, top < bottom ? bottom : top};
    }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace vellora
