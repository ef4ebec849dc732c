#include "ui/behaviour/SpriteHit.h"

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"

namespace vellora {
namespace {

SpriteHit topmostAt(const CDVDImageSpriteArray& sprites, QPoint point) {
    for (int index = sprites.GetSize() - 1; index >= 0; --index) {
        CDVDImageSprite* sprite = sprites.GetAt(index);
        const bool withHandles = sprite->GetKind() == kPropsSprite;
        if (const int code = sprite->HitTest({}, point, withHandles); code != kHitNothing) {
            return {sprite, code};
        }
    }
    return {};
}

CDVDImageText* topmostTextAt(const CDVDImageSpriteArray& sprites, QPoint point) {
    for (int index = sprites.GetSize() - 1; index >= 0; --index) {
        CDVDImageSprite* sprite = sprites.GetAt(index);
        if (sprite->GetKind() == kTextSprite && sprite->ContainsPoint(point)) {
            return static_cast<CDVDImageText*>(sprite);
        }
    }
    return nullptr;
}

}  // namespace

SpriteHit spriteAt(const EditSession& session, QPoint point) {
    if (!session.isOpen()) {
        return {};
    }
    const SpriteHit inAlbum = topmostAt(session.album()->GetSprites(), point);
    return inAlbum.sprite != nullptr ? inAlbum : topmostAt(session.record()->GetSprites(), point);
}

CDVDImageText* textAt(const EditSession& session, QPoint point) {
    if (!session.isOpen()) {
        return nullptr;
    }
    CDVDImageText* own = topmostTextAt(session.record()->GetSprites(), point);
    return own != nullptr ? own : topmostTextAt(session.album()->GetSprites(), point);
}

}  // namespace vellora
