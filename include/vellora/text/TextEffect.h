#pragma once

/// @file
/// The style of a text: its font, its face and up to four layers of decoration.

#include <QString>
#include <cstdint>

#include <vellora/text/TextBrushSettings.h>

namespace vellora {

/// A text effect: a plain record, copied whole. Flags are 0 or 1. Sizes and distances are in units
/// of a text laid out at 120 points, and may hold any number; drawing bounds them.
///
/// Directions are 0 (right), 45 (right and down), 90 (down) and so on to 315. For any other angle a
/// shadow falls right and down and an extrusion stays in place.
struct TextEffectRecord {
    char16_t font_name[260] = {};
    std::int32_t font_size = 0;  ///< Points.
    std::int32_t bold = 0;
    std::int32_t italic = 0;
    std::int32_t underline = 0;
    TextBrushSettings face;  ///< Paints the letters.

    std::int32_t shadow = 0;
    TextBrushSettings shadow_brush;  ///< Solid or gradient.
    std::int32_t shadow_offset = 0;
    std::int32_t shadow_angle = 0;
    std::int32_t shadow_order = 0;  ///< 0: soft, beneath halo and emboss; 1: sharp, over them.

    std::int32_t border = 0;
    TextBrushSettings border_brush;  ///< Solid or gradient.
    std::int32_t border_size = 0;    ///< Width of the line.

    std::int32_t halo = 0;
    TextBrushSettings halo_brush;  ///< Solid or gradient.
    std::int32_t halo_size = 0;    ///< How far it reaches.
    std::int32_t halo_blur = 0;    ///< 0 for a sharp one.

    std::int32_t emboss = 0;
    TextBrushSettings emboss_brush;  ///< Solid or gradient.
    std::int32_t emboss_size = 0;    ///< Depth of the extrusion.
    std::int32_t emboss_angle = 0;

    [[nodiscard]] VELLORA_EXPORT QString GetFontName() const;
    /// Cuts a name that does not fit, and drops characters that no project file can hold.
    VELLORA_EXPORT void SetFontName(const QString& name);

    friend bool operator==(const TextEffectRecord&, const TextEffectRecord&) = default;
};

}  // namespace vellora
