#pragma once

#include <cstdint>

class QImageReader;

namespace vellora {

/// The largest picture that is decoded, in pixels; a larger one "cannot be decoded".
inline constexpr std::int64_t kMaxDecodedPixels = 200'000'000;
/// A file beyond the plain pixels of the largest picture is none: some decoders load all of it. Qt
/// makes pixels of up to four channels of 16 bits, a JPEG file has up to four of 8 bits.
inline constexpr std::int64_t kMaxPictureBytes = kMaxDecodedPixels * 8;
inline constexpr std::int64_t kMaxJpegBytes = kMaxDecodedPixels * 4;

inline constexpr bool isDecodable(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width * height <= kMaxDecodedPixels;
}

/// What a stranger's file turned out to be.
enum class PictureKind {
    Readable,   ///< A picture; some formats tell their size only when they are read.
    NoPicture,  ///< Nothing that is read: also a drawing, which may refer to other files.
    TooLarge,   ///< A picture of more than `kMaxDecodedPixels`.
};

/// Prepares a reader for a stranger's file, before anything else is asked of it: it goes by the
/// content, not by the name, and may allocate what a picture of `kMaxDecodedPixels` takes. That
/// limit of Qt's is one for the whole process; it is raised once and never lowered.
PictureKind preparePicture(QImageReader& reader);

}  // namespace vellora
