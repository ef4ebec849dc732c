#pragma once

/// @file
/// The common base of everything that is placed on a photo.

#include <QPoint>
#include <QSize>
#include <cstdint>

#include <vellora/base/Export.h>
#include <vellora/base/Rect.h>
#include <vellora/base/Types.h>

class QPainter;
class QString;

namespace vellora {

class CSpriteOwner;
class CXMLParse;

enum SpriteKind : std::int32_t { kTextSprite = 1, kPropsSprite = 2 };

/// What a point meets: a resize handle 1 to 8, the body, or nothing.
inline constexpr int kHitBody = -1;
inline constexpr int kHitNothing = 0;

/// The shape of the mouse cursor over a sprite.
enum class SpriteCursor { SizeNWSE, SizeNS, SizeNESW, SizeWE, Move };

/// How a sprite is drawn: without marks, or with the marks of a selected sprite.
enum DrawMode : int { kDrawPlain = 0, kDrawSelected = 1, kDrawSelectedToo = 2 };

/// An object placed over a photo.
///
/// Its geometry is kept in the design space of 600 x 450 units, whatever the size of the surface
/// it is drawn on.
class VELLORA_EXPORT CDVDImageSprite {
public:
    virtual ~CDVDImageSprite();

    /// Whether place, kind and album flag are equal; the size does not count.
    [[nodiscard]] virtual bool IsEqual(const CDVDImageSprite& other) const;
    [[nodiscard]] virtual bool IsNotEqual(const CDVDImageSprite& other) const;
    [[nodiscard]] virtual int GetHandleCount() const;
    /// The centre of handle 1 to 8, clockwise from the top-left corner; any other index gives the
    /// top-left corner.
    [[nodiscard]] virtual QPoint GetHandlePoint(QPoint offset, int index) const;
    [[nodiscard]] virtual bool IntersectsRect(QPoint offset, const Rect& rect) const;
    [[nodiscard]] virtual bool IsInsideRect(QPoint offset, const Rect& rect) const;
    [[nodiscard]] virtual SpriteCursor GetHandleCursor(int hit) const;
    /// Handle 1 to 8 when handles are asked for, else `kHitBody` or `kHitNothing`. A handle is a
    /// square that reaches from 3 units before its point to 3 units behind it, exclusive.
    [[nodiscard]] virtual int HitTest(QPoint offset, QPoint point, bool withHandles) const;
    /// Width and height in design units.
    [[nodiscard]] virtual QSize GetSize() const;
    /// Draws the sprite.
    ///
    /// @param painter  Its coordinates are canvas pixels; it is left as it was.
    /// @param offset   Added to the position, in design units.
    /// @param mode     A `DrawMode`.
    /// @return 1, or 0 when there was nothing to draw.
    virtual int Draw(QPainter& painter, QPoint offset, int mode) = 0;
    /// Reads the sprite's own fields from its element in a project file.
    /// @param nodePath  XPath of the element, from the reader's context.
    /// @return 1, or 0 without such an element; the sprite is then as it was.
    virtual int Load(const CXMLParse& reader, const QString& nodePath);
    /// Writes the sprite's element at a nesting depth of the project file being written.
    /// @return 1, or 0 for a sprite that has no form in files.
    virtual int Save(int depth) const;

    [[nodiscard]] std::int32_t GetKind() const { return m_kind; }
    [[nodiscard]] QPoint GetPosition() const { return {m_x, m_y}; }
    [[nodiscard]] bool GetAlbumFlag() const { return m_albumFlag; }
    [[nodiscard]] CSpriteOwner* GetOwner() const { return m_owner; }

    /// Each stores a differing value and marks the owner changed.
    void SetPosition(int x, int y);
    void SetSize(int cx, int cy);
    void SetAlbumFlag(bool flag);
    /// Size in pixels of the surface that is drawn on next.
    void SetCanvasSize(int width, int height);
    /// The record to mark changed; not owned, may be null. Records set it when they take a sprite.
    void SetOwner(CSpriteOwner* owner) { m_owner = owner; }

    /// Position and size moved by an offset, in design units.
    [[nodiscard]] Rect GetRect(QPoint offset = {}) const;
    /// Whether a point in design units lies on the sprite.
    [[nodiscard]] bool ContainsPoint(QPoint point) const;

protected:
    CDVDImageSprite(CSpriteOwner* owner, std::int32_t kind);
    /// Copies everything but the canvas size, which starts again at 600 x 450.
    CDVDImageSprite(const CDVDImageSprite& other);
    CDVDImageSprite& operator=(const CDVDImageSprite&) = delete;

    /// The rectangle that `ContainsPoint` tests.
    [[nodiscard]] virtual Rect GetContainmentRect() const;
    void MarkOwnerChanged();
    /// Changes the size without marking anything, as measuring does.
    void StoreSize(int cx, int cy);
    [[nodiscard]] int GetCanvasWidth() const { return m_canvasWidth; }
    [[nodiscard]] int GetCanvasHeight() const { return m_canvasHeight; }

private:
    int m_canvasWidth = kStageWidth;
    int m_canvasHeight = kStageHeight;
    CSpriteOwner* m_owner;
    std::int32_t m_kind;
    int m_x = 0;
    int m_y = 0;
    int m_cx = 100;
    int m_cy = 40;
    bool m_albumFlag = false;
};

}  // namespace vellora
