#pragma once

#include <QImage>
#include <QPolygonF>
#include <QRectF>
#include <cstdint>

namespace vellora::metafile {

/// Where a bitmap record draws what.
struct ImagePlacement {
    QImage image;
    /// In pixels of the image from its top-left corner; a negative size mirrors.
    QRectF source;
    /// Logical points that the source's top-left, top-right and bottom-left corners go to.
    QPointF topLeft;
    QPointF topRight;
    QPointF bottomLeft;
    std::uint32_t rop = 0x00CC0020;
    double opacity = 1;

    void setTarget(const QRectF& target) {
        topLeft = target.topLeft();
        topRight = {target.x() + target.width(), target.y()};
        bottomLeft = {target.x(), target.y() + target.height()};
    }
};

/// What a ternary raster operation comes to for a picture over unpainted ground.
enum class RasterEffect : std::uint8_t {
    Copy,
    /// White pixels of the source leave what is there.
    KeepWhite,
    /// Black pixels of the source leave what is there.
    KeepBlack,
    Inverted,
    Black,
    White,
    Pattern,
    Nothing
};

RasterEffect rasterEffect(std::uint32_t rop);

}  // namespace vellora::metafile
