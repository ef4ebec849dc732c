#pragma once

#include <QImage>
#include <QSize>

#include <vellora/host/NodeHandle.h>

namespace vellora::hostkit {

/// The finished picture of a photo that has no edits but flips and a turn, reduced to fit a box.
///
/// A JPEG file is decoded at reduced size: in half the time of `finishedPicture`, without the
/// module's lock and without the memory of the full picture. The pixels are not exactly those of
/// `GetOutImg`, so this is for thumbnails. Any thread.
/// @return Null for a photo with further edits, of another format, or that cannot be decoded.
QImage reducedPicture(const _HNODE& node, QSize box);

}  // namespace vellora::hostkit
