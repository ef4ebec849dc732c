#pragma once

#include <QMenu>
#include <functional>
#include <optional>

namespace vellora {

class CDVDImageSprite;
class EditSession;
enum class SpriteOrder;

/// Command ids of the sprite menu.
enum SpriteCommand : int {
    kSpriteCopy = 32837,
    kSpritePaste = 32838,
    kSpriteDelete = 32839,
    kSpriteForward = 32840,
    kSpriteBackward = 32841,
    kSpriteToFront = 32842,
    kSpriteToBack = 32843,
    kSpriteToAll = 33927,
};

/// Where a command moves a sprite in its list; none for any other command.
std::optional<SpriteOrder> spriteOrderOf(int id);

/// Whether the menu offers a command for the selected sprite, null for none.
bool isSpriteCommandEnabled(const EditSession& session, const CDVDImageSprite* selected, int id);

/// Fills a menu with the commands, in the user's language.
void fillSpriteMenu(QMenu& menu, const std::function<bool(int)>& isEnabled,
                    const std::function<void(int)>& run);

}  // namespace vellora
