#pragma once

#include <QPoint>
#include <QSizeF>
#include <QString>

#include "ui/behaviour/SpriteDrag.h"

namespace vellora {

/// Whether a file's extension is one that can be added as an art clip.
bool isClipFile(const QString& file);

/// Whether the file's own size means nothing but proportions.
bool isVectorClip(const QString& file);

/// Where a new clip lies: in its own proportions, a third of the stage in each direction at most.
/// A picture made of pixels is not enlarged.
///
/// @param natural  The size that the file gives itself.
/// @param centre   Where its middle comes to lie, in stage units.
SpritePlace placeOfClip(QSizeF natural, bool isVector, QPoint centre);

}  // namespace vellora
