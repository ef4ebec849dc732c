#include <algorithm>

#include <vellora/model/DVDImageSpriteArray.h>

namespace vellora {

CDVDImageSprite* CDVDImageSpriteArray::GetAt(int index) const {
    return m_sprites.at(static_cast<std::size_t>(index));
}

void CDVDImageSpriteArray::Add(CDVDImageSprite* sprite) {
    m_sprites.push_back(sprite);
}

int CDVDImageSpriteArray::IndexOf(const CDVDImageSprite* sprite) const {
    if (sprite == nullptr) {
        return -1;
    }
    const auto found = std::ranges::find(m_sprites, sprite);
    return found == m_sprites.end() ? -1 : static_cast<int>(found - m_sprites.begin());
}

int CDVDImageSpriteArray::MoveTo(CDVDImageSprite* sprite, int target) {
    const int index = IndexOf(sprite);
    if (index < 0) {
        return 0;
    }
    const auto from = m_sprites.begin() + index;
    const auto to = m_sprites.begin() + std::clamp(target, 0, GetSize() - 1);
    if (from < to) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
    return 1;
}

int CDVDImageSpriteArray::BringForward(CDVDImageSprite* sprite) {
    return MoveTo(sprite, IndexOf(sprite) + 1);
}

int CDVDImageSpriteArray::SendBackward(CDVDImageSprite* sprite) {
    return MoveTo(sprite, IndexOf(sprite) - 1);
}

int CDVDImageSpriteArray::SendToBack(CDVDImageSprite* sprite) {
    return MoveTo(sprite, 0);
}

int CDVDImageSpriteArray::BringToFront(CDVDImageSprite* sprite) {
    return MoveTo(sprite, GetSize() - 1);
}

int CDVDImageSpriteArray::Remove(CDVDImageSprite* sprite) {
    const int index = IndexOf(sprite);
    if (index < 0) {
        return 0;
    }
    m_sprites.erase(m_sprites.begin() + index);
    return 1;
}

bool CDVDImageSpriteArray::IsBottom(const CDVDImageSprite* sprite) const {
    return !m_sprites.empty() && m_sprites.front() == sprite;
}

bool CDVDImageSpriteArray::IsTop(const CDVDImageSprite* sprite) const {
    return !m_sprites.empty() && m_sprites.back() == sprite;
}

}  // namespace vellora
