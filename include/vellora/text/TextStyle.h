#pragma once

/// @file
/// The properties of a text sprite that users set.

#include <QString>
#include <cstdint>

#include <vellora/base/Export.h>
#include <vellora/base/Types.h>
#include <vellora/text/TextEffect.h>

namespace vellora {

/// How the lines of a text of several lines stand to each other. Other numbers mean leading.
enum TextAlign : std::int32_t { kAlignLeading = 0, kAlignCentre = 1, kAlignTrailing = 2 };

/// The text style block: a simple style and the effect that does the drawing. A plain record,
/// copied whole. Flags are 0 or 1.
struct TextStyle {
    char16_t font[260] = u"Arial";  ///< Font family.
    COLORREF colour = 0x00FFFFFF;
    std::int32_t size = 24;  ///< Points.
    std::int32_t shadow = 1;
    COLORREF shadow_colour = 0;
    std::int32_t shadow_x = 2;  ///< Where the shadow lies from the text, in design units.
    std::int32_t shadow_y = 2;
    std::int32_t align = kAlignLeading;
    std::int32_t bold = 0;
    std::int32_t italic = 0;
    std::int32_t underline = 0;
    TextEffectRecord effect = PlainEffect();

    [[nodiscard]] VELLORA_EXPORT QString GetFont() const;
    /// Cuts a name that does not fit, and drops characters that no project file can hold.
    VELLORA_EXPORT void SetFont(const QString& name);

    /// The effect of a new text: "Arial", 24 points, solid white, no layers.
    [[nodiscard]] VELLORA_EXPORT static TextEffectRecord PlainEffect();
    /// An effect that shows the simple style: its font, a face of its colour, and its shadow at
    /// `shadow_x` right and down. The shadow's colour and `shadow_y` are not carried over.
    [[nodiscard]] VELLORA_EXPORT TextEffectRecord MakeEffect() const;

    /// Takes over an effect that the user has chosen, with its font.
    VELLORA_EXPORT void TakeEffect(const TextEffectRecord& chosen);

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

}  // namespace vellora
