#pragma once

#include <QByteArrayView>
#include <QString>

namespace vellora {

/// So many scans of a JPEG picture are read. Each is a walk through the whole picture, and a small
/// file can ask for thousands; encoders write about ten.
inline constexpr int kMostJpegScans = 100;

/// Whether this is a JPEG picture with more scans. Decoders other than ours would read them all.
bool hasExcessiveScans(QByteArrayView data);

/// The same for a file, of which no more is read than a picture may have; false where it cannot be
/// read.
bool fileHasExcessiveScans(const QString& path);

}  // namespace vellora
