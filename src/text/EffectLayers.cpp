#include "text/EffectLayers.h"

#include "text/PathTools.h"
#include "text/TextBrush.h"

namespace vellora {
namespace {

constexpr std::int32_t kSoftShadowSize = 2;
constexpr std::int32_t kSoftShadowBlur = 5;
constexpr std::int32_t kSharpShadowSize = 1;

/// Gives a painter a layer's brush; a texture leaves it as it was.
void takeBrush(CTextBrush& painter, const TextBrushSettings& settings) {
    if (settings.type == kGradientBrush) {
        painter.SetGradient(settings.colour1, settings.colour2, settings.angle,
                            settings.position_percent);
    } else if (settings.type != kTextureBrush) {
        painter.SetSolid(settings.colour);
    }
}

}  // namespace

void drawEffectLayers(TextCanvas& canvas, const QString& textureFolder, const QPainterPath& outline,
                      const QRectF& bounds, const TextEffectRecord& effect) {
    const bool border = effect.border != 0;
    const QPainterPath lines = flattened(outline, canvas.scale());
    CTextBrush decoration;
    CTextBrush face;
    CTextBrush shadow;
    decoration.Prepare(textureFolder, lines, bounds, 0, 0);
    face.Prepare(textureFolder, lines, bounds, 0, 0);
    shadow.Prepare(textureFolder, lines, bounds, effect.shadow_offset, effect.shadow_angle);
    if (effect.shadow != 0) {
        takeBrush(shadow, effect.shadow_brush);
        if (effect.shadow_order == 0) {
            shadow.DrawGlow(canvas, kSoftShadowSize, kSoftShadowBlur, true);
        }
    }
    if (border) {
        decoration.SetBorder(effect.border_brush, effect.border_size);
    }
    if (effect.emboss != 0) {
        takeBrush(decoration, effect.emboss_brush);
        decoration.DrawEmboss(canvas, effect.emboss_size, effect.emboss_angle, border);
    }
    if (effect.halo != 0) {
        takeBrush(decoration, effect.halo_brush);
        decoration.DrawGlow(canvas, effect.halo_size, effect.halo_blur, border);
    }
    if (effect.shadow != 0 && effect.shadow_order != 0) {
        shadow.DrawGlow(canvas, kSharpShadowSize, 0, true);
    }
    if (effect.face.type == kTextureBrush) {
        face.SetTexture(effect.face.GetTextureName());
    } else {
        takeBrush(face, effect.face);
    }
    face.FillFace(canvas);
}

}  // namespace vellora
