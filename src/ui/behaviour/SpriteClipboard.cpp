#include "ui/behaviour/SpriteClipboard.h"

#include "model/SpriteCopy.h"
#include "ui/EditSession.h"

namespace vellora {

void SpriteClipboard::copy(const CDVDImageSprite& sprite) {
    m_origin = &sprite;
    m_snapshot = copySprite(sprite);
    m_places = Cascade(sprite.GetPosition());
    m_places.next();
}

void SpriteClipboard::forget(const CDVDImageSprite* sprite) {
    if (sprite == m_origin) {
        m_origin = nullptr;
        m_snapshot.reset();
    }
}

void SpriteClipboard::refresh(const EditSession& session) {
    if (session.holds(m_origin)) {
        m_snapshot = copySprite(*m_origin);
    }
}

CDVDImageSprite* SpriteClipboard::paste(EditSession& session) {
    if (isEmpty() || !session.isOpen()) {
        return nullptr;
    }
    refresh(session);
    std::unique_ptr<CDVDImageSprite> pasted = copySprite(*m_snapshot);
    if (pasted == nullptr) {
        return nullptr;
    }
    // The copy is the photo's own, whatever it was copied from.
    pasted->SetOwner(nullptr);
    pasted->SetAlbumFlag(false);
    const QPoint place = m_places.next();
    pasted->SetPosition(place.x(), place.y());
    return session.addSprite(std::move(pasted));
}

}  // namespace vellora
