#include <QPainter>
#include <algorithm>
#include <cmath>

#include <vellora/text/PhotoTextEffect.h>

#include "text/EffectLayers.h"
#include "text/TextLayout.h"

namespace vellora {
namespace {

/// 120 points at 96 dots per inch.
constexpr int kLayoutPixels = 160;

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
        drawEffectLayers(canvas, textureFolder, outline, bounds, effect);
        canvas.paint();
    }
    painter.restore();
}

}  // namespace vellora
