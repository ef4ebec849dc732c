#pragma once

/// @file
/// How a text, or a layer of its effect, is painted.

#include <QString>
#include <cstdint>

#include <vellora/base/Export.h>
#include <vellora/base/Types.h>

namespace vellora {

/// Kinds of text brush. Any other number in a record paints as solid.
enum TextBrushType : std::int32_t { kSolidBrush = 0, kGradientBrush = 1, kTextureBrush = 2 };

/// The settings of a text brush: a plain record, copied whole. A zero-filled record is solid black.
/// Colours are opaque.
struct TextBrushSettings {
    std::int32_t type = kSolidBrush;
    COLORREF colour = 0;   ///< Of a solid brush.
    COLORREF colour1 = 0;  ///< Where a gradient starts.
    COLORREF colour2 = 0;  ///< Where it ends.
    /// Direction of the gradient in degrees, clockwise from the x axis.
    std::int32_t angle = 0;
    /// 0 for a smooth gradient, else the place, in percent of its length, where colour 1 turns
    /// into colour 2. Values of 90 and more are reduced modulo 90 when a brush is made.
    std::int32_t position_percent = 0;
    char16_t texture_name[260] = {};  ///< File name, without folder, of a texture.

    [[nodiscard]] VELLORA_EXPORT QString GetTextureName() const;
    /// Cuts a name that does not fit, and drops characters that no project file can hold.
    VELLORA_EXPORT void SetTextureName(const QString& name);

    static TextBrushSettings Solid(COLORREF colour) {
        TextBrushSettings settings;
        settings.colour = colour;
        return settings;
    }

    friend bool operator==(const TextBrushSettings&, const TextBrushSettings&) = default;
};

}  // namespace vellora
