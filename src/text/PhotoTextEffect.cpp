#include <QPainter>
#include <algorithm>
#include <cmath>

#include <vellora/text/PhotoTextEffect.h>

#include "text/TextBrush.h"
#include "text/TextLayout.h"

namespace vellora {
namespace {

/// 120 points at 96 dots per inch.
constexpr int kLayoutPixels = 160;

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

double sizeOf(std::int32_t flag, std::int32_t size) {
    return flag != 0 ? std::abs(static_cast<double>(size)) : 0.0;
}

/// How far from a glyph its layers can show, in units of the layout.
double reachOf(const TextEffectRecord& effect) {
    constexpr double kPens = 4.0;
    return kPens + sizeOf(effect.shadow, effect.shadow_offset) +
           sizeOf(effect.border, effect.border_size) + sizeOf(effect.halo, effect.halo_size) +
           std::min(sizeOf(effect.halo, effect.halo_blur), 1024.0) +
           sizeOf(effect.emboss, effect.emboss_size);
}

void drawLayers(TextCanvas& canvas, const QString& textureFolder, const QPainterPath& outline,
                const QRectF& bounds, const TextEffectRecord& effect) {
    const bool border = effect.border != 0;
    CTextBrush decoration;
    CTextBrush face;
    CTextBrush shadow;
    decoration.Prepare(textureFolder, outline, bounds, 0, 0);
    face.Prepare(textureFolder, outline, bounds, 0, 0);
    shadow.Prepare(textureFolder, outline, bounds, effect.shadow_offset, effect.shadow_angle);
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

/// Draws through a picture of what is visible, for a painter that turns or mirrors.
void drawTurned(QPainter& painter, const auto& draw) {
    const QTransform device = painter.deviceTransform();
    const double scale = std::sqrt(std::abs(device.determinant()));
    const QRectF whole(0, 0, painter.device()->width(), painter.device()->height());
    const QRectF visible = painter.combinedTransform().inverted().mapRect(whole);
    const QSizeF pixels = visible.size() * scale;
    constexpr double kMaxSide = 16384.0;
    if (!(pixels.width() <= kMaxSide && pixels.height() <= kMaxSide) || pixels.isEmpty()) {
        return;
    }
    QImage picture(pixels.toSize(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        return;
    }
    picture.fill(Qt::transparent);
    QPainter inner(&picture);
    inner.scale(scale, scale);
    inner.translate(-visible.topLeft());
    draw(inner);
    inner.end();
    painter.drawImage(QRectF(visible.topLeft(), QSizeF(picture.size()) / scale), picture);
}

}  // namespace

QFont CPhotoTextEffect::LayoutFont(const QString& family, bool bold, bool italic, bool underline) {
    QFont font;
    font.setFamilies({family});
    font.setPixelSize(kLayoutPixels);
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(true);
    return font;
}

QSizeF CPhotoTextEffect::Measure(const QFont& font, const QString& text) {
    return TextLayout(font, text).size();
}

void CPhotoTextEffect::Draw(QPainter& painter, const QString& textureFolder, const QFont& font,
                            QPointF origin, const QString& text, const TextEffectRecord& effect,
                            std::int32_t align) {
    if (!painter.isActive() || !painter.deviceTransform().isInvertible()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!TextCanvas::fits(painter)) {
        drawTurned(painter, [&](QPainter& inner) {
            Draw(inner, textureFolder, font, origin, text, effect, align);
        });
        painter.restore();
        return;
    }
    TextCanvas canvas(painter);
    const TextLayout layout(font, text, align);
    const QRectF bounds(origin, layout.size());
    if (!canvas.visible().isEmpty() && !bounds.isEmpty()) {
        const double reach = reachOf(effect);
        const QRectF near = canvas.visible().adjusted(-reach, -reach, reach, reach);
        const QPainterPath outline = layout.outline(near.translated(-origin)).translated(origin);
        drawLayers(canvas, textureFolder, outline, bounds, effect);
        canvas.paint();
    }
    painter.restore();
}

}  // namespace vellora
