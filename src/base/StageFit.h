#pragma once

#include <vellora/base/Rect.h>
#include <vellora/base/Types.h>

namespace vellora {

struct Size {
    int width = 0;
    int height = 0;

    friend constexpr bool operator==(const Size&, const Size&) = default;
};

/// How a photo that does not lie strictly inside the canvas is placed: fit inside for 0, fill for
/// any other value. (An enumeration would not do: the host hands over any number.)
inline constexpr int kFitInside = 0;
inline constexpr int kFitFill = 1;

/// The rectangle in which a photo appears on a canvas whose top-left corner is (0, 0).
///
/// A photo strictly smaller than the canvas in both directions is centred at its own size; the
/// rectangle is then one larger than the photo where the difference is odd. Otherwise the photo
/// is scaled, keeping its aspect ratio. Empty for an empty photo or canvas.
Rect placedRect(Size photo, Size canvas, int fitMode);

/// The size that a photo takes on a canvas by the fit-inside rule. A photo strictly smaller than
/// the canvas keeps its own size exactly.
Size fittedSize(Size photo, Size canvas);

/// The factor by which a photo is reduced for the preview, held in single precision: 1 for a photo
/// strictly smaller than the stage and for a sliver that would vanish.
float previewFactor(Size photo);

/// The size of the reduced photo.
Size previewSize(Size photo);

/// The canvas on which a picture of this size is what the stage shows of the photo. Empty for an
/// empty picture.
Size outputCanvas(Size picture);

}  // namespace vellora
