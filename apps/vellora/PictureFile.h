#pragma once

#include <QImage>
#include <QString>
#include <optional>

namespace vellora::cli {

/// How a picture is encoded.
struct PictureFormat {
    QByteArray name = "png";              ///< As `QImageWriter` takes it.
    std::optional<int> quality = {};      ///< Of JPEG, 0 to 100.
    std::optional<int> compression = {};  ///< Of PNG, 0 to 100.
};

/// Writes a picture under a name that nobody looks at yet, or to a device.
/// @return Whether all of it has reached the file; what a full disk has left is removed.
bool writePicture(const QImage& picture, const QString& file, const PictureFormat& format = {});

/// Writes a PNG picture that appears under its name only when it is complete. What stood there
/// before stays until then. A device or pipe is written to as it is.
bool replacePicture(const QImage& picture, const QString& file);

}  // namespace vellora::cli
