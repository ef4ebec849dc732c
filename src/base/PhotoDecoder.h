#pragma once

#include <QString>
#include <cstdint>

#include <vellora/base/ImagePtr.h>

namespace vellora {

/// The largest picture that is decoded, in pixels; a larger one "cannot be decoded".
inline constexpr std::int64_t kMaxDecodedPixels = 200'000'000;

/// A decoded photo: 8 bits per channel, blue-green-red, not turned by its orientation tag.
struct DecodedPhoto {
    ImagePtr image;  ///< Null when the photo cannot be decoded.
    /// The file ends early, holds damaged data or more than `kMostJpegScans`: what could be read is
    /// there, the rest is grey or coarse.
    bool damaged = false;
};

/// Decodes a JPEG file. Grey is spread over three channels, CMYK is converted. Of a progressive
/// file the first `kMostJpegScans` are read.
DecodedPhoto decodeJpeg(const QString& path);

/// Decodes any other format that Qt reads. 16 bits are reduced to 8, alpha is dropped, of an
/// animation the first picture is taken.
DecodedPhoto decodeWithQt(const QString& path);

/// Lets Qt's image readers decode pictures up to `kMaxDecodedPixels`. Their limit is one for the
/// whole process; it is raised once and never lowered.
void raiseReaderLimit();

}  // namespace vellora
