#include "ui/behaviour/SpriteSelection.h"

#include <QFileInfo>
#include <algorithm>
#include <optional>
#include <vector>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"

namespace vellora {
namespace {

/// Where a command moves a sprite in its list; none for any other command.
std::optional<SpriteOrder> orderOf(int command) {
    switch (command) {
        case kSpriteForward:
            return SpriteOrder::Forward;
        case kSpriteBackward:
            return SpriteOrder::Backward;
        case kSpriteToFront:
            return SpriteOrder::Front;
        case kSpriteToBack:
            return SpriteOrder::Back;
        default:
            return std::nullopt;
    }
}

/// All sprites of the stage, from the lowest up.
std::vector<CDVDImageSprite*> stackOf(const EditSession& session) {
    std::vector<CDVDImageSprite*> stack;
    if (session.isOpen()) {
        for (const CDVDImageSpriteArray* list :
             {&session.album()->GetSprites(), &session.record()->GetSprites()}) {
            stack.insert(stack.end(), list->begin(), list->end());
        }
    }
    return stack;
}

}  // namespace

CDVDImageSprite* SpriteSelection::sprite() const {
    return m_session.holds(m_sprite) ? m_sprite : nullptr;
}

CDVDImageText* SpriteSelection::text() const {
    CDVDImageSprite* selected = sprite();
    return selected != nullptr && selected->GetKind() == kTextSprite
               ? static_cast<CDVDImageText*>(selected)
               : nullptr;
}

QString SpriteSelection::name() const {
    if (const CDVDImageText* selected = text(); selected != nullptr) {
        return selected->GetText();
    }
    const CDVDImageSprite* clip = sprite();
    return clip != nullptr
               ? QFileInfo(static_cast<const CDVDImageProps&>(*clip).GetFile()).fileName()
               : QString();
}

void SpriteSelection::step(int direction) {
    const std::vector<CDVDImageSprite*> stack = stackOf(m_session);
    if (stack.empty()) {
        return;
    }
    const auto count = static_cast<std::ptrdiff_t>(stack.size());
    const auto found = std::ranges::find(stack, sprite());
    std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
    if (found != stack.end()) {
        next = (found - stack.begin() + direction + count) % count;
    }
    m_sprite = stack[static_cast<std::size_t>(next)];
}

bool SpriteSelection::offers(int command) const {
    if (command == kSpritePaste) {
        return true;
    }
    const CDVDImageSpriteArray* list = m_session.listOf(m_sprite);
    if (list == nullptr) {
        return false;
    }
    if (command == kSpriteForward || command == kSpriteToFront) {
        return !list->IsTop(m_sprite);
    }
    if (command == kSpriteBackward || command == kSpriteToBack) {
        return !list->IsBottom(m_sprite);
    }
    return true;
}

void SpriteSelection::run(int command) {
    CDVDImageSprite* selected = sprite();
    if (command == kSpritePaste) {
        if (CDVDImageSprite* pasted = m_clipboard.paste(m_session); pasted != nullptr) {
            m_sprite = pasted;
        }
    } else if (command == kSpriteToAll) {
        m_session.applyToAll(selected);
    } else if (selected == nullptr) {
        return;
    } else if (command == kSpriteCopy) {
        m_clipboard.copy(*selected);
    } else if (command == kSpriteDelete) {
        m_sprite = nullptr;
        m_clipboard.forget(selected);
        m_session.deleteSprite(selected);
    } else if (const auto order = orderOf(command)) {
        m_session.reorderSprite(selected, *order);
    }
}

}  // namespace vellora
