#pragma once

#include <QBrush>
#include <QString>

namespace vellora {

/// The path of a texture, empty unless the name is that of a file right in the folder.
QString texturePath(const QString& textureFolder, const QString& name);

/// A brush that repeats the picture of a file from the origin; `Qt::NoBrush` when it cannot be
/// read.
///
/// @param detail  Device pixels per unit of the drawing: a reduced drawing gets a reduced picture,
///                so that it shows the mean of what it covers.
QBrush textureBrush(const QString& path, double detail);

}  // namespace vellora
