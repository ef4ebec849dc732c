#pragma once

#include <memory>

#include <vellora/model/DVDImageSprite.h>

#include "ui/behaviour/Cascade.h"

namespace vellora {

class EditSession;

/// The sprite held for pasting.
///
/// What is pasted is the sprite as it is at that time; once its photo has been left, as it was
/// then. A sprite that was deleted is not pasted.
class SpriteClipboard {
public:
    void copy(const CDVDImageSprite& sprite);
    [[nodiscard]] bool isEmpty() const { return m_snapshot == nullptr; }
    /// The sprite is about to be deleted.
    void forget(const CDVDImageSprite* sprite);
    /// Keeps the sprite as it is now, for its photo is about to be left.
    void refresh(const EditSession& session);

    /// Adds a copy to the photo, a step away from the sprite or from the last copy.
    /// @return The copy, or null when there is nothing to paste or no photo.
    CDVDImageSprite* paste(EditSession& session);

private:
    const CDVDImageSprite* m_origin = nullptr;  ///< Only compared until the session holds it.
    std::unique_ptr<CDVDImageSprite> m_snapshot;
    Cascade m_places;
};

}  // namespace vellora
