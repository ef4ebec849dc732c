#pragma once

#include "ui/behaviour/SpriteClipboard.h"

namespace vellora {

class CDVDImageText;

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

/// The selected sprite, and the commands of the sprite menu that concern it.
class SpriteSelection {
public:
    /// @param session  Not owned; outlives this.
    explicit SpriteSelection(EditSession& session) : m_session(session) {}

    /// The selected sprite; null when there is none or it has gone.
    [[nodiscard]] CDVDImageSprite* sprite() const;
    /// The selected sprite where it is a text, else null.
    [[nodiscard]] CDVDImageText* text() const;
    /// What assistive technology calls the selected sprite; empty for none.
    [[nodiscard]] QString name() const;

    void set(CDVDImageSprite* sprite) { m_sprite = sprite; }
    /// Selects the sprite that lies next above (1) or below (-1) the selected one, and from the
    /// last goes on with the first. Without a selection it begins with the topmost going down and
    /// with the lowest going up.
    void step(int direction);

    /// Whether the menu offers a command.
    [[nodiscard]] bool offers(int command) const;
    /// Carries out a command; a pasted sprite is then selected.
    void run(int command);

    /// The photo is about to be left: what was copied stays as it is now.
    void keepCopied() { m_clipboard.refresh(m_session); }
    /// A sprite was deleted: it is not pasted any more.
    void forget(const CDVDImageSprite* sprite) { m_clipboard.forget(sprite); }

private:
    EditSession& m_session;
    CDVDImageSprite* m_sprite = nullptr;  ///< Only compared until the session holds it.
    SpriteClipboard m_clipboard;
};

}  // namespace vellora
