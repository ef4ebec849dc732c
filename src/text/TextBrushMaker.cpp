#include "text/TextBrushMaker.h"

#include <QLinearGradient>
#include <cmath>
#include <numbers>

#include "text/TextureCache.h"

namespace vellora {
namespace {

constexpr int kPositionModulus = 90;
constexpr double kTransition = 0.05;

QColor opaque(COLORREF colour) {
    return {redOf(colour), greenOf(colour), blueOf(colour)};
}

/// The line through the middle of the rectangle whose ends lie level with its outermost corners.
QLinearGradient gradientOver(const QRectF& rect, int degrees) {
    const double angle = (degrees % 360) * std::numbers::pi / 180.0;
    const QPointF direction(std::cos(angle), std::sin(angle));
    const double length =
        std::abs(rect.width() * direction.x()) + std::abs(rect.height() * direction.y());
    const QPointF half = direction * (length / 2);
    QLinearGradient gradient(rect.center() - half, rect.center() + half);
    gradient.setSpread(QGradient::RepeatSpread);
    return gradient;
}

QBrush gradientBrush(const QRectF& rect, TextBrushSettings& settings) {
    if (rect.isEmpty()) {
        return {};
    }
    const QColor first = opaque(settings.colour1);
    const QColor second = opaque(settings.colour2);
    QLinearGradient gradient = gradientOver(rect, settings.angle);
    gradient.setColorAt(0.0, first);
    if (settings.position_percent != 0) {
        settings.position_percent %= kPositionModulus;
        const double turn = settings.position_percent / 100.0;
        gradient.setColorAt(std::max(turn, 0.0), first);
        gradient.setColorAt(std::max(turn + kTransition, 0.0), second);
    }
    gradient.setColorAt(1.0, second);
    return gradient;
}

}  // namespace

QBrush MakeTextBrush(const QRectF& rect, TextBrushSettings& settings, const QString& textureFolder,
                     double detail) {
    switch (settings.type) {
        case kTextureBrush:
            return textureBrush(texturePath(textureFolder, settings.GetTextureName()), detail);
        case kGradientBrush:
            return gradientBrush(rect, settings);
        default:
            return opaque(settings.colour);
    }
}

}  // namespace vellora
