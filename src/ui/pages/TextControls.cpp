#include "ui/pages/TextControls.h"

namespace vellora {
namespace {

constexpr std::int32_t kDiagonal = 45;

void setShadow(TextStyle& style, bool on) {
    style.shadow = on ? 1 : 0;
    style.effect.shadow = style.shadow;
    if (on && style.effect.shadow_offset == 0) {
        style.effect.shadow_offset = style.shadow_x;
        style.effect.shadow_angle = kDiagonal;
        style.effect.shadow_brush = TextBrushSettings::Solid(0);
    }
}

/// The effect in the font and size of another one.
TextEffectRecord inFontOf(const TextStyle& style, TextEffectRecord effect) {
    effect.SetFontName(style.GetFont());
    effect.font_size = style.size;
    return effect;
}

}  // namespace

TextControls controlsOf(const TextStyle& style) {
    const TextEffectRecord& effect = style.effect;
    return {style.GetFont(),       style.size,        effect.bold != 0, effect.italic != 0,
            effect.underline != 0, effect.shadow != 0};
}

void applyControls(TextStyle& style, const TextControls& before, const TextControls& after) {
    TextEffectRecord& effect = style.effect;
    if (after.font != before.font) {
        style.SetFont(after.font);
        effect.SetFontName(after.font);
    }
    if (after.size != before.size) {
        style.size = after.size;
        effect.font_size = after.size;
    }
    if (after.bold != before.bold) {
        style.bold = effect.bold = after.bold ? 1 : 0;
    }
    if (after.italic != before.italic) {
        style.italic = effect.italic = after.italic ? 1 : 0;
    }
    if (after.underline != before.underline) {
        style.underline = effect.underline = after.underline ? 1 : 0;
    }
    if (after.shadow != before.shadow) {
        setShadow(style, after.shadow);
    }
}

void applyEffect(TextStyle& style, const TextEffectRecord& effect) {
    style.effect = inFontOf(style, effect);
    style.bold = effect.bold;
    style.italic = effect.italic;
    style.underline = effect.underline;
    style.shadow = effect.shadow;
    applyFace(style, effect.face);
}

void applyFace(TextStyle& style, const TextBrushSettings& face) {
    style.effect.face = face;
    if (face.type != kGradientBrush && face.type != kTextureBrush) {
        style.colour = face.colour;
    }
}

bool hasEffect(const TextStyle& style, const TextEffectRecord& effect) {
    return style.effect == inFontOf(style, effect);
}

}  // namespace vellora
