#pragma once

/// @file
/// Keeping sprites: what a photo's edit record and the album do alike.

#include <memory>

#include <vellora/base/Export.h>
#include <vellora/model/DVDImageSpriteArray.h>
#include <vellora/model/SpriteOwner.h>

namespace vellora {

/// A record with an array of sprites that it owns.
class VELLORA_EXPORT CSpriteHolder : public CSpriteOwner {
public:
    ~CSpriteHolder() override;

    [[nodiscard]] CDVDImageSpriteArray& GetSprites() { return m_sprites; }
    [[nodiscard]] const CDVDImageSpriteArray& GetSprites() const { return m_sprites; }

    /// Appends a sprite on top of the others.
    ///
    /// @param sprite  Without `copy` the record takes ownership; one that it already holds stays
    ///                where it is.
    /// @param copy    Append a copy of its kind instead; the caller keeps the sprite.
    /// @return 1, or 0 for null or a sprite of unknown kind, which is then still the caller's.
    int AddSprite(CDVDImageSprite* sprite, bool copy);
    /// Takes a sprite out of the array, and deletes it when asked to.
    /// @return 1 when the sprite was there, else 0.
    int RemoveSprite(CDVDImageSprite* sprite, bool deleteIt);
    /// Empties the array, and deletes the sprites when asked to.
    /// @return 1.
    int ClearSprites(bool deleteThem);

    /// Ends with the record, for those who keep a pointer to it.
    [[nodiscard]] std::weak_ptr<const void> GetLife() const { return m_life; }

protected:
    CSpriteHolder() = default;

    /// Called after each change of the list.
    virtual void OnSpriteListChanged() = 0;
    /// Deletes all sprites without telling anybody.
    void DestroySprites();

private:
    CDVDImageSpriteArray m_sprites;
    std::shared_ptr<const void> m_life = std::make_shared<char>();
};

}  // namespace vellora
