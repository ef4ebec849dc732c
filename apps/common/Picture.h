#pragma once

#include <QImage>

#include <vellora/host/NodeHandle.h>

namespace vellora::hostkit {

/// How much of the photo is decoded.
enum class Detail { Preview, Full };

/// The finished picture of a photo as `GetOutImg` gives it, without a further copy; null when the
/// photo cannot be decoded. Any thread.
QImage finishedPicture(_HNODE* node, Detail detail);

}  // namespace vellora::hostkit
