#include <QPainter>

#include "scenes/Light.h"
#include "scenes/SceneMath.h"
#include "scenes/Scenes.h"

// A city by the water in the blue hour: towers with lit windows, the moon, and their long
// reflections. Lengths are in picture heights.

namespace vellora::scenes {
namespace {

constexpr double kQuay = 0.665;

Vec3 skyColour(double x, double y) {
    const double v = y / kQuay;
    Vec3 sky = mix(Vec3{0.025, 0.045, 0.125}, Vec3{0.10, 0.17, 0.36}, smoothstep(0.0, 0.8, v));
    sky = mix(sky, Vec3{0.72, 0.42, 0.36}, 0.9 * smoothstep(0.55, 1.05, v));
    const double shape = fbm(1.6 * x + 2.0, 4.2 * y, 6, 17);
    const Vec3 cloud = mix(Vec3{0.10, 0.13, 0.25}, Vec3{0.52, 0.32, 0.36}, smoothstep(0.2, 1.0, v));
    sky = mix(sky, cloud, 0.6 * smoothstep(0.02, 0.7, shape));
    const double far = std::hypot(x - 0.36, y - 0.17);
    const double disc = smoothstep(0.0375, 0.0355, far);
    const double seas = 0.92 + 0.22 * fbm(40 * x, 40 * y, 4, 19);
    sky = sky + Vec3{0.30, 0.30, 0.30} * std::exp(-9 * far);
    return mix(sky, Vec3{0.98, 0.95, 0.86} * seas, disc);
}

struct Building {
    double left;
    double width;
    double tall;
    double haze;
    std::uint32_t seed;
};

Vec3 windowLight(Dice& dice) {
    const double kind = dice.next();
    const double level = dice.between(0.45, 1.15);
    if (kind < 0.70) {
        return Vec3{1.0, 0.74, 0.40} * level;
    }
    return (kind < 0.9 ? Vec3{0.95, 0.90, 0.78} : Vec3{0.55, 0.75, 1.0}) * level;
}

void paintWindows(QPainter& painter, const Building& b, double scale) {
    Dice dice(b.seed + 7000);
    const double pitch = 0.0095 + 0.004 * hash01(3, 1, b.seed);
    const double storey = 0.0115 + 0.004 * hash01(3, 2, b.seed);
    const int columns = std::max(2, static_cast<int>((b.width - 0.006) / pitch));
    const int storeys = static_cast<int>((b.tall - 0.012) / storey);
    const double lit = 0.22 + 0.45 * hash01(3, 3, b.seed);
    const double margin = (b.width - columns * pitch) / 2;
    for (int row = 0; row < storeys; ++row) {
        const bool wholeStorey = dice.next() < 0.06;
        for (int column = 0; column < columns; ++column) {
            const bool on = dice.next() < lit || wholeStorey;
            const Vec3 light = windowLight(dice) * (1 - 0.45 * b.haze);
            const QRectF pane(b.left + margin + (column + 0.18) * pitch,
                              kQuay - b.tall + 0.008 + row * storey, 0.62 * pitch, 0.55 * storey);
            const Vec3 dark = Vec3{0.07, 0.09, 0.15} * (1 + b.haze);
            painter.fillRect(QRectF(pane.topLeft() * scale, pane.size() * scale),
                             QColor(toDisplay(on ? light : dark)));
        }
    }
}

void paintBuilding(QPainter& painter, const Building& b, double scale) {
    const Vec3 near =
        mix(Vec3{0.035, 0.042, 0.075}, Vec3{0.09, 0.075, 0.085}, hash01(1, 1, b.seed));
    const Vec3 facade = mix(near, Vec3{0.30, 0.25, 0.33}, b.haze);
    const auto block = [&](double left, double width, double tall) {
        QLinearGradient shade(left * scale, 0, (left + width) * scale, 0);
        shade.setColorAt(0, QColor(toDisplay(facade * 1.35)));
        shade.setColorAt(1, QColor(toDisplay(facade * 0.8)));
        painter.fillRect(QRectF(left * scale, (kQuay - tall) * scale, width * scale, tall * scale),
                         shade);
    };
    block(b.left, b.width, b.tall);
    if (hash01(1, 2, b.seed) < 0.5) {
        block(b.left + 0.2 * b.width, 0.6 * b.width, b.tall + 0.022);
    }
    if (b.tall > 0.33) {
        const double x = b.left + b.width / 2;
        block(x - 0.0012, 0.0024, b.tall + 0.085);
        painter.setBrush(QColor(255, 70, 60));
        painter.drawEllipse(QPointF(x, kQuay - b.tall - 0.085) * scale, 0.0028 * scale,
                            0.0028 * scale);
    }
    paintWindows(painter, b, scale);
}

void paintSkyline(QPainter& painter, double aspect, double scale) {
    const double layers[][3] = {{0.85, 0.30, 0.60}, {0.95, 0.28, 0.33}, {0.60, 0.16, 0.06}};
    std::uint32_t seed = 500;
    for (const auto& layer : layers) {
        Dice dice(seed);
        for (double x = -0.03; x < aspect;) {
            const double width = dice.between(0.045, 0.105);
            const double centre = bell(x - 0.62 * aspect, 0.24 * aspect);
            const double tall = layer[1] * dice.between(0.45, 1.0) * (0.45 + layer[0] * centre);
            paintBuilding(painter, {x, width, 0.03 + tall, layer[2], seed++}, scale);
            x += width + dice.between(-0.012, 0.016);
        }
        seed += 100;
    }
}

void paintQuayLamps(QPainter& painter, double aspect, double scale) {
    painter.fillRect(QRectF(0, (kQuay - 0.006) * scale, aspect * scale, 0.012 * scale),
                     QColor(24, 20, 24));
    for (double x = 0.02; x < aspect; x += 0.047) {
        const QPointF at = QPointF(x, kQuay - 0.011) * scale;
        QRadialGradient glow(at, 0.019 * scale);
        glow.setColorAt(0, QColor(255, 214, 140, 255));
        glow.setColorAt(0.16, QColor(255, 190, 100, 150));
        glow.setColorAt(1, QColor(255, 160, 60, 0));
        painter.setBrush(glow);
        painter.drawEllipse(at, 0.019 * scale, 0.019 * scale);
    }
}

// Each row of water mixes what stands above it over a height that grows toward the viewer.
void mirrorInWater(QImage& image) {
    const int width = image.width();
    const double height = image.height();
    const int quay = static_cast<int>((kQuay + 0.006) * height);
    constexpr int kTaps = 14;
    for (int row = quay; row < image.height(); ++row) {
        const double near = (row + 0.5 - quay) / (height - quay);
        const double away = 1.0 / (0.06 + near);
        for (int column = 0; column < width; ++column) {
            const double x = column / height;
            const double ripple = fbm(7.0 * (x - 0.75) * away, 22 * away, 4, 33);
            Vec3 sum;
            for (int k = 0; k < kTaps; ++k) {
                const double spread = (hash01(k, 5, 91) - 0.5) * (0.03 + 0.30 * near);
                const double up = 1.15 * (row - quay) + (spread + 0.05 * ripple) * height;
                const int fromY =
                    std::clamp(quay - 2 - static_cast<int>(std::abs(up)), 0, quay - 1);
                const double side = (ripple * 0.009 + 0.006 * (hash01(k, 6, 91) - 0.5)) * height;
                const int fromX =
                    std::clamp(static_cast<int>(column + side * (0.3 + near)), 0, width - 1);
                sum = sum + fromDisplay(image.pixel(fromX, fromY));
            }
            const double shine = 0.95 + 0.75 * ripple;
            const Vec3 water = sum * (std::max(0.2, shine) * 1.12 / kTaps);
            image.setPixel(column, row,
                           toDisplay(mix(water, Vec3{0.02, 0.04, 0.09}, 0.12 + 0.38 * near)));
        }
    }
}

}  // namespace

QImage paintCity(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    const double height = size.height();
    shadeAll(image, [&](double x, double y) {
        return skyColour(x / height, std::min(kQuay, y / height));
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double aspect = size.width() / height;
    paintSkyline(painter, aspect, height);
    paintQuayLamps(painter, aspect, height);
    painter.end();
    mirrorInWater(image);
    addBloom(image, 0.45, 0.022 * height, 1.5);
    addGrain(image, 0.022, 4);
    return image;
}

}  // namespace vellora::scenes
