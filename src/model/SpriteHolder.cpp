#include <memory>

#include <vellora/model/DVDImageSprite.h>
#include <vellora/model/SpriteHolder.h>

#include "model/SpriteCopy.h"

namespace vellora {
namespace {

/// A sprite that was handed on to another record before it left this one keeps its new owner.
void disown(CDVDImageSprite& sprite, const CSpriteOwner* owner) {
    if (sprite.GetOwner() == owner) {
        sprite.SetOwner(nullptr);
    }
}

}  // namespace

CSpriteHolder::~CSpriteHolder() {
    DestroySprites();
}

int CSpriteHolder::AddSprite(CDVDImageSprite* sprite, bool copy) {
    if (sprite == nullptr) {
        return 0;
    }
    std::unique_ptr<CDVDImageSprite> copied;
    if (copy) {
        copied = copySprite(*sprite);
        if (copied == nullptr) {
            return 0;
        }
        sprite = copied.get();
    } else if (sprite->GetOwner() == this && m_sprites.IndexOf(sprite) >= 0) {
        return 1;
    }
    m_sprites.Add(sprite);
    copied.release();
    sprite->SetOwner(this);
    OnSpriteListChanged();
    return 1;
}

int CSpriteHolder::RemoveSprite(CDVDImageSprite* sprite, bool deleteIt) {
    if (m_sprites.Remove(sprite) == 0) {
        return 0;
    }
    if (deleteIt) {
        delete sprite;
    } else {
        disown(*sprite, this);
    }
    OnSpriteListChanged();
    return 1;
}

int CSpriteHolder::ClearSprites(bool deleteThem) {
    if (deleteThem) {
        DestroySprites();
    } else {
        for (CDVDImageSprite* sprite : m_sprites) {
            disown(*sprite, this);
        }
        m_sprites.RemoveAll();
    }
    OnSpriteListChanged();
    return 1;
}

void CSpriteHolder::DestroySprites() {
    for (CDVDImageSprite* sprite : m_sprites) {
        delete sprite;
    }
    m_sprites.RemoveAll();
}

}  // namespace vellora
