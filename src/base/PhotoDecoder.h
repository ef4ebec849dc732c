#pragma once

#include <QString>

#include <vellora/base/ImagePtr.h>

namespace vellora {

/// A decoded photo: 8 bits per channel, blue-green-red, not turned by its orientation tag.
struct DecodedPhoto {
    ImagePtr image;  ///< Null when the photo cannot be decoded.
    /// The file ends early, holds damaged data or more than `kMostJpegScans`: what could be read is
    /// there, the rest is grey or coarse.
    bool damaged = false;
};

/// Decodes a JPEG file. Grey is spread over three channels, CMYK is converted. Of a progressive
/// file the first `kMostJpegScans` are read. The whole file is held in memory, so one of more than
/// `kMaxJpegBytes` cannot be decoded.
DecodedPhoto decodeJpeg(const QString& path);

/// Decodes any other format that Qt reads. 16 bits are reduced to 8, alpha is dropped, of an
/// animation the first picture is taken. Drawings are not read.
DecodedPhoto decodeWithQt(const QString& path);

}  // namespace vellora
