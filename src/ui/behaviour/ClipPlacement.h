#pragma once

#include <QPoint>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include "ui/behaviour/SpriteDrag.h"

class QMimeData;

namespace vellora {

/// Whether a file's extension, in any letter case, is one that can be added as an art clip.
bool isClipFile(const QString& file);

/// The files of a drag that can become art clips.
QStringList clipFilesOf(const QMimeData& dragged);

/// Whether the file's own size means nothing but proportions.
bool isVectorClip(const QString& file);

/// Where a new clip lies: in its own proportions, a third of the stage in each direction at most.
/// A picture made of pixels is not enlarged.
///
/// @param natural  The size that the file gives itself.
/// @param centre   Where its middle comes to lie, in stage units.
SpritePlace placeOfClip(QSizeF natural, bool isVector, QPoint centre);

}  // namespace vellora
