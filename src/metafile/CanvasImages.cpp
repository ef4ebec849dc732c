#include <algorithm>
#include <cmath>

#include "metafile/Canvas.h"

namespace vellora::metafile {
namespace {

constexpr int kGradientCells = 64;

/// A copy whose pixels of one colour are open.
QImage withoutColor(const QImage& image, QRgb open) {
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::replace_if(
            row, row + result.width(), [open](QRgb pixel) { return (pixel & 0x00FFFFFFU) == open; },
            QRgb{0});
    }
    return result.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The colours of a triangle whose corners a, b and c lie at (1, 1), (n + 1, 1) and (1, n + 1);
/// one pixel more on every side keeps the edges clean.
QImage triangleColors(const QColor& a, const QColor& b, const QColor& c) {
    constexpr int side = kGradientCells + 2;
    QImage image(side, side, QImage::Format_RGB32);
    const auto mixed = [](int from, int right, int down, double u, double v) {
        return std::clamp(
            static_cast<int>(std::lround(from + u * (right - from) + v * (down - from))), 0, 255);
    };
    for (int y = 0; y < side; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        const double v = (y - 0.5) / kGradientCells;
        for (int x = 0; x < side; ++x) {
            const double u = (x - 0.5) / kGradientCells;
            row[x] = qRgb(mixed(a.red(), b.red(), c.red(), u, v),
                          mixed(a.green(), b.green(), c.green(), u, v),
                          mixed(a.blue(), b.blue(), c.blue(), u, v));
        }
    }
    return image;
}

}  // namespace

RasterEffect rasterEffect(std::uint32_t rop) {
    switch ((rop >> 16) & 0xFF) {
        case 0x00:
            return RasterEffect::Black;
        case 0xFF:
            return RasterEffect::White;
        case 0xF0:  // pattern
        case 0x5A:  // pattern xor destination
        case 0xFB:  // pattern or inverted source or destination
            return RasterEffect::Pattern;
        case 0xAA:  // destination
        case 0x55:  // inverted destination
            return RasterEffect::Nothing;
        case 0x88:  // source and destination
            return RasterEffect::KeepWhite;
        case 0xEE:  // source or destination
        case 0x66:  // source xor destination
            return RasterEffect::KeepBlack;
        case 0x33:
            return RasterEffect::Inverted;
        default:
            return RasterEffect::Copy;
    }
}

void Canvas::patternFill(const QRectF& box, std::uint32_t rop) {
    const QPainterPath path = mapped(rectanglePath(box.normalized()));
    switch (rasterEffect(rop)) {
        case RasterEffect::Black:
            m_list.fill(path, Qt::black, activeClip());
            break;
        case RasterEffect::White:
            m_list.fill(path, Qt::white, activeClip());
            break;
        case RasterEffect::Pattern:
            fill(path, m_state.brush);
            break;
        default:
            break;
    }
}

void Canvas::image(const ImagePlacement& placement) {
    QImage image = placement.image;
    switch (rasterEffect(placement.rop)) {
        case RasterEffect::KeepWhite:
            image = withoutColor(image, 0x00FFFFFFU);
            break;
        case RasterEffect::KeepBlack:
            image = withoutColor(image, 0);
            break;
        case RasterEffect::Inverted:
            image.invertPixels();
            break;
        case RasterEffect::Copy:
            break;
        default: {
            const QPointF opposite = placement.topRight + placement.bottomLeft - placement.topLeft;
            patternFill({placement.topLeft, opposite}, placement.rop);
            return;
        }
    }
    const QRectF& source = placement.source;
    const QRectF shown = source.normalized() & QRectF(image.rect());
    if (shown.isEmpty() || source.width() == 0 || source.height() == 0)
        return;
    const QPointF corner = mapped(placement.topLeft);
    const QPointF across = (mapped(placement.topRight) - corner) / source.width();
    const QPointF down = (mapped(placement.bottomLeft) - corner) / source.height();
    const QTransform linear(across.x(), across.y(), down.x(), down.y(), corner.x(), corner.y());
    m_list.image(image, shown, QTransform::fromTranslate(-source.x(), -source.y()) * linear,
                 placement.opacity, activeClip());
}

void Canvas::gradientRectangle(const GradientVertex& a, const GradientVertex& b, bool downwards) {
    const QPointF along =
        downwards ? QPointF(a.point.x(), b.point.y()) : QPointF(b.point.x(), a.point.y());
    QLinearGradient gradient(mapped(a.point), mapped(along));
    gradient.setColorAt(0, a.color);
    gradient.setColorAt(1, b.color);
    const QRectF box = QRectF(a.point, b.point).normalized();
    m_list.fill(mapped(rectanglePath(box)), gradient, activeClip());
}

void Canvas::gradientTriangle(const GradientVertex& a, const GradientVertex& b,
                              const GradientVertex& c) {
    if (!m_budget.spend(kGradientCells))
        return;
    const QPointF corner = mapped(a.point);
    const QPointF across = (mapped(b.point) - corner) / kGradientCells;
    const QPointF down = (mapped(c.point) - corner) / kGradientCells;
    QBrush colors(triangleColors(a.color, b.color, c.color));
    colors.setTransform(QTransform::fromTranslate(-1, -1) * QTransform(across.x(), across.y(),
                                                                       down.x(), down.y(),
                                                                       corner.x(), corner.y()));
    m_list.fill(ringPath({QPolygonF{a.point, b.point, c.point}}, true), colors, activeClip());
}

}  // namespace vellora::metafile
