#pragma once

#include <QByteArray>

#include "writer/Drawing.h"

namespace vellora::clipgen {

/// A Windows metafile with a placeable header. Curves become short lines.
QByteArray writeWmf(const Drawing& drawing);

/// An enhanced metafile. Curves stay curves.
QByteArray writeEmf(const Drawing& drawing);

QByteArray writeSvg(const Drawing& drawing);

}  // namespace vellora::clipgen
