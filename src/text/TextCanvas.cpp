#include "text/TextCanvas.h"

#include <QPaintDevice>
#include <algorithm>
#include <cstring>

#include "text/GlowCoverage.h"

namespace vellora {
namespace {

constexpr int kBandHeight = 32;

QRectF visibleOf(const QPainter& painter) {
    const QPaintDevice* device = painter.device();
    const QRectF whole(0, 0, device->width(), device->height());
    QRectF visible = painter.combinedTransform().inverted().mapRect(whole);
    if (painter.hasClipping()) {
        visible &= painter.clipBoundingRect();
    }
    return visible;
}

/// Multiplies the four bytes of a pixel by a share of 255.
quint32 scaled(quint32 colour, quint32 share) {
    constexpr quint32 kEven = 0x00FF00FFU;
    constexpr quint32 kHalf = 0x00800080U;
    quint32 even = (colour & kEven) * share;
    even = ((even + ((even >> 8U) & kEven) + kHalf) >> 8U) & kEven;
    quint32 odd = ((colour >> 8U) & kEven) * share;
    odd = (odd + ((odd >> 8U) & kEven) + kHalf) & ~kEven;
    return even | odd;
}

/// Draws premultiplied colours over those that are there, as far as they cover; `colourAt` gives
/// the colour of the run's pixel `i`.
template <class ColourAt>
void drawOver(quint32* target, std::span<const quint8> coverage, const ColourAt& colourAt) {
    constexpr auto kWhole = ~quint64{0};
    const std::size_t count = coverage.size();
    for (std::size_t i = 0; i < count;) {
        quint64 eight = 0;
        if (i + sizeof(eight) <= count) {
            std::memcpy(&eight, coverage.data() + i, sizeof(eight));
            if (eight == 0) {
                i += sizeof(eight);
                continue;
            }
        }
        const std::size_t end = std::min(i + sizeof(eight), count);
        for (; i < end; ++i) {
            const quint32 colour = colourAt(i);
            const quint32 source = eight == kWhole ? colour : scaled(colour, coverage[i]);
            const quint32 seen = 255U - (source >> 24U);
            target[i] = seen == 0 ? source : source + scaled(target[i], seen);
        }
    }
}

/// The colours of a brush on the pixels of an area.
QImage brushPicture(const QBrush& brush, const QTransform& toDevice, const QRect& area) {
    QImage picture(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        return picture;
    }
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(toDevice * QTransform::fromTranslate(-area.left(), -area.top()));
    painter.fillRect(painter.transform().inverted().mapRect(QRectF(picture.rect())), brush);
    return picture;
}

}  // namespace

TextCanvas::TextCanvas(QPainter& painter)
    : m_painter(painter), m_toDevice(painter.deviceTransform()), m_visible(visibleOf(painter)) {
    if (!m_visible.isEmpty()) {
        m_pixels = m_toDevice.mapRect(m_visible).toAlignedRect();
    }
}

bool TextCanvas::fits(const QPainter& painter) {
    const QTransform transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

double TextCanvas::scale() const {
    return std::max(m_toDevice.m11(), m_toDevice.m22());
}

double TextCanvas::smallerScale() const {
    return std::min(m_toDevice.m11(), m_toDevice.m22());
}

void TextCanvas::fill(const QPainterPath& path, const QBrush& brush) {
    add(std::make_unique<OutlineCoverage>(path, m_toDevice, m_pixels), brush);
}

void TextCanvas::glow(const QPainterPath& shape, const QRectF& bounds, double size, int blur,
                      const QBrush& brush) {
    add(std::make_unique<GlowCoverage>(shape, bounds, size, blur, m_toDevice, m_pixels), brush);
}

void TextCanvas::add(std::unique_ptr<Coverage> coverage, const QBrush& brush) {
    if (!coverage->area().isEmpty() && brush.style() != Qt::NoBrush) {
        m_layers.push_back({std::move(coverage), brush});
    }
}

void TextCanvas::paintLayer(const Layer& layer, const QRect& band, QImage& picture) const {
    const QRect rows = layer.coverage->area() & band;
    if (rows.isEmpty()) {
        return;
    }
    const bool isSolid = layer.brush.style() == Qt::SolidPattern;
    const QRgb colour = qPremultiply(layer.brush.color().rgba());
    const QImage colours = isSolid ? QImage() : brushPicture(layer.brush, m_toDevice, rows);
    if (!isSolid && colours.isNull()) {
        return;
    }
    for (int y = rows.top(); y <= rows.bottom(); ++y) {
        const Coverage::Run run = layer.coverage->row(y);
        auto* target =
            reinterpret_cast<quint32*>(picture.scanLine(y - band.top())) + run.x - band.left();
        if (isSolid) {
            drawOver(target, run.values, [&](std::size_t) { return colour; });
        } else {
            const auto* source =
                reinterpret_cast<const quint32*>(colours.constScanLine(y - rows.top())) + run.x -
                rows.left();
            drawOver(target, run.values, [&](std::size_t i) { return source[i]; });
        }
    }
}

void TextCanvas::paint() {
    QRect touched;
    for (const Layer& layer : m_layers) {
        touched |= layer.coverage->area();
    }
    if (touched.isEmpty()) {
        return;
    }
    const QTransform world = m_painter.worldTransform();
    m_painter.setWorldTransform(m_toDevice.inverted() * world);
    for (int top = touched.top(); top <= touched.bottom(); top += kBandHeight) {
        const int height = std::min(kBandHeight, touched.bottom() + 1 - top);
        const QRect band(touched.left(), top, touched.width(), height);
        QImage picture(band.size(), QImage::Format_ARGB32_Premultiplied);
        if (picture.isNull()) {
            break;
        }
        picture.fill(Qt::transparent);
        for (const Layer& layer : m_layers) {
            paintLayer(layer, band, picture);
        }
        m_painter.drawImage(band.topLeft(), picture);
    }
    m_painter.setWorldTransform(world);
    m_layers.clear();
}

}  // namespace vellora
