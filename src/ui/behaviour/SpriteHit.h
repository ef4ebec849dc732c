#pragma once

#include <QPoint>

#include <vellora/model/DVDImageSprite.h>

namespace vellora {

class CDVDImageText;
class EditSession;

/// What the mouse meets on the canvas.
struct SpriteHit {
    CDVDImageSprite* sprite = nullptr;
    int code = kHitNothing;  ///< As of `CDVDImageSprite::HitTest`.
};

/// The sprite under a point of the stage. Within a list the topmost wins, and a sprite of the
/// album wins over one of the photo. Texts have no handles to be hit, for they are only moved.
SpriteHit spriteAt(const EditSession& session, QPoint point);

/// The text sprite that contains a point, the photo's before the album's, topmost first; or null.
CDVDImageText* textAt(const EditSession& session, QPoint point);

}  // namespace vellora
