#pragma once

/// @file
/// The ordered list of sprites of a photo or an album.

#include <vector>

#include <vellora/base/Export.h>

namespace vellora {

class CDVDImageSprite;

/// Sprite pointers in drawing order: index 0 is drawn first. The array owns nothing; the record
/// that holds it does.
class VELLORA_EXPORT CDVDImageSpriteArray {
public:
    [[nodiscard]] int GetSize() const { return static_cast<int>(m_sprites.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_sprites.empty(); }
    /// @throws std::out_of_range for an index outside the array.
    [[nodiscard]] CDVDImageSprite* GetAt(int index) const;
    void Add(CDVDImageSprite* sprite);
    void RemoveAll() { m_sprites.clear(); }

    /// The sprite's index, or -1 for null or a sprite that is not there.
    [[nodiscard]] int IndexOf(const CDVDImageSprite* sprite) const;

    /// Each returns 0 when the sprite is not there, else 1, also when nothing had to move.
    int BringForward(CDVDImageSprite* sprite);
    int SendBackward(CDVDImageSprite* sprite);
    int SendToBack(CDVDImageSprite* sprite);
    int BringToFront(CDVDImageSprite* sprite);
    /// Removes the pointer; the sprite lives on.
    int Remove(CDVDImageSprite* sprite);

    [[nodiscard]] bool IsBottom(const CDVDImageSprite* sprite) const;
    [[nodiscard]] bool IsTop(const CDVDImageSprite* sprite) const;

    [[nodiscard]] auto begin() const { return m_sprites.begin(); }
    [[nodiscard]] auto end() const { return m_sprites.end(); }

private:
    int MoveTo(CDVDImageSprite* sprite, int target);

    std::vector<CDVDImageSprite*> m_sprites;
};

}  // namespace vellora
