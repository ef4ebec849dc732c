#include "scenes/Light.h"

#include "scenes/SceneMath.h"

namespace vellora::scenes {
namespace {

// Three reductions and enlargements with smooth interpolation come close to a Gaussian.
QImage softened(const QImage& image, double radius) {
    QImage result = image;
    for (const double share : {1.0, 0.7, 0.45}) {
        const double factor = std::max(1.0, radius * share);
        const QSize small(std::max(2, static_cast<int>(image.width() / factor)),
                          std::max(2, static_cast<int>(image.height() / factor)));
        result = result.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return result.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

void addBloom(QImage& image, double threshold, double radius, double strength) {
    QImage bright(image.size(), QImage::Format_RGB32);
    shadeAll(bright, [&](double x, double y) {
        const Vec3 c = fromDisplay(image.pixel(static_cast<int>(x), static_cast<int>(y)));
        const double peak = std::max({c.r, c.g, c.b});
        return c * smoothstep(threshold, 1.0, peak);
    });
    bright = softened(bright, radius);
    shadeAll(image, [&](double x, double y) {
        const auto column = static_cast<int>(x);
        const auto row = static_cast<int>(y);
        const Vec3 base = fromDisplay(image.pixel(column, row));
        return base + fromDisplay(bright.pixel(column, row)) * strength;
    });
}

void defocus(QImage& image, double radius) {
    image = softened(image, radius);
}

}  // namespace vellora::scenes
