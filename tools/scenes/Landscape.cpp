#include "scenes/SceneMath.h"
#include "scenes/Scenes.h"
#include "scenes/Trees.h"

// A mountain lake after sunset: hazy ridges one behind the other, their mirror in the water, and
// conifers on the near bank. Lengths are in picture heights.

namespace vellora::scenes {
namespace {

constexpr double kShore = 0.63;
constexpr double kSunX = 0.96;
constexpr double kSunY = 0.475;

struct Ridge {
    double crest;  // height of the mean crest above the shore
    double relief;
    double frequency;
    double haze;  // share of light that the air adds
    std::uint32_t seed;
};

constexpr Ridge kRidges[] = {
    {0.215, 0.190, 1.5, 0.80, 11},
    {0.155, 0.130, 2.1, 0.62, 23},
    {0.105, 0.095, 2.9, 0.42, 37},
    {0.060, 0.060, 3.7, 0.22, 41},
};

Vec3 skyColour(double x, double y) {
    const double v = y / kShore;
    Vec3 sky = mix(Vec3{0.12, 0.17, 0.38}, Vec3{0.47, 0.37, 0.56}, smoothstep(0.0, 0.55, v));
    sky = mix(sky, Vec3{1.00, 0.66, 0.42}, smoothstep(0.35, 0.95, v));
    const double far = std::hypot(x - kSunX, 1.25 * (y - kSunY));
    sky = sky + Vec3{0.55, 0.36, 0.16} * std::exp(-4.2 * far) +
          Vec3{0.9, 0.75, 0.5} * bell(far, 0.028);
    const double stretch = 1.0 / (0.16 + 0.95 * (1 - v));
    const double shape =
        fbm(0.85 * x * stretch + 4.0, 4.6 * stretch, 7, 70) + 0.35 * fbm(2.1 * x, 7.5 * y, 5, 81);
    const double below = fbm(0.85 * x * stretch + 4.0, 4.6 * stretch + 0.09, 5, 70);
    const double lit = smoothstep(-0.18, 0.30, shape - below + 0.12 - 0.35 * (far - 0.6));
    const Vec3 cloud = mix(Vec3{0.33, 0.27, 0.44}, Vec3{1.02, 0.62, 0.47}, lit);
    return mix(sky, cloud, 0.78 * smoothstep(0.02, 0.62, shape) * smoothstep(1.02, 0.7, v));
}

double crestOf(const Ridge& ridge, double x) {
    double sum = 0;
    double weight = 1;
    double f = ridge.frequency;
    for (int k = 0; k < 9; ++k) {
        const auto seed = ridge.seed + static_cast<std::uint32_t>(k);
        sum += weight * (0.55 - std::abs(1.5 * noise(f * x, 0.37, seed)));
        weight *= 0.47;
        f *= 2.03;
    }
    return ridge.crest + ridge.relief * (sum - 0.45);
}

// Tops of a far conifer forest, as a height to add to the crest.
double treeTops(double x, std::uint32_t seed) {
    double highest = 0;
    for (const double spacing : {0.0042, 0.0061}) {
        const int cell = static_cast<int>(std::floor(x / spacing));
        for (int k = cell - 1; k <= cell + 1; ++k) {
            const double at = (k + hash01(k, 3, seed)) * spacing;
            const double tall = 0.010 + 0.016 * hash01(k, 4, seed);
            highest = std::max(highest, tall - 2.6 * std::abs(x - at));
        }
    }
    return highest;
}

void drawRidge(QImage& image, const Ridge& ridge, bool wooded) {
    const double height = image.height();
    for (int column = 0; column < image.width(); ++column) {
        const double x = (column + 0.5) / height;
        const double crest = crestOf(ridge, x) + (wooded ? treeTops(x, ridge.seed) : 0.0);
        const double glow = std::exp(-2.2 * std::abs(x - kSunX));
        const Vec3 haze = mix(Vec3{0.50, 0.41, 0.56}, Vec3{1.0, 0.66, 0.45}, glow);
        const int top = std::max(0, static_cast<int>(std::lround((kShore - crest) * height)));
        const int bottom = static_cast<int>(kShore * height);
        for (int row = top; row < bottom; ++row) {
            const double y = (row + 0.5) / height;
            const double down = (y - (kShore - crest)) / 0.16;
            const double slope = noise(17 * x + 9 * y, 11 * y - 5 * x, ridge.seed + 90) +
                                 0.6 * fbm(43 * x + 20 * y, 31 * y, 4, ridge.seed + 95);
            const Vec3 rock = mix(Vec3{0.075, 0.085, 0.135}, Vec3{0.27, 0.19, 0.20},
                                  std::clamp(0.35 + 0.8 * slope, 0.0, 1.0));
            const double mist = std::min(1.0, ridge.haze + 0.42 * smoothstep(0.1, 1.5, down));
            image.setPixel(column, row, toDisplay(mix(rock, haze, mist)));
        }
    }
}

void mirrorInLake(QImage& image) {
    const int width = image.width();
    const double height = image.height();
    const int shore = static_cast<int>(kShore * height);
    for (int row = shore; row < image.height(); ++row) {
        const double near = (row + 0.5 - shore) / (height - shore);  // 0 at the far shore
        const double away = 1.0 / (0.03 + near);
        for (int column = 0; column < width; ++column) {
            const double x = column / height;
            const double ripple = fbm(2.2 * (x - 0.75) * away, 9 * away, 5, 21);
            const double sway = ripple * (0.006 + 0.035 * near) * height;
            const int fromX = std::clamp(static_cast<int>(column + 0.4 * sway), 0, width - 1);
            const double mirrored = 2.0 * shore - row * 1.0 + sway;
            const int fromY = std::clamp(static_cast<int>(mirrored), 0, shore - 1);
            const Vec3 seen = fromDisplay(image.pixel(fromX, fromY));
            const double depth = std::clamp(0.10 + 0.42 * near + 0.25 * ripple, 0.0, 0.8);
            const double path = bell(x - kSunX, 0.035 + 0.06 * near);
            const double glint = path * smoothstep(0.16, 0.5, ripple) * 0.55;
            const Vec3 water = mix(seen, Vec3{0.09, 0.13, 0.24}, depth);
            image.setPixel(column, row, toDisplay(water + Vec3{1.0, 0.72, 0.45} * glint));
        }
    }
}

double bankTop(double x) {
    return 0.945 - 0.11 * smoothstep(0.62, 0.0, x) - 0.055 * smoothstep(1.15, 1.5, x) +
           0.012 * fbm(5 * x, 0.5, 4, 61);
}

void drawBank(QImage& image) {
    const double height = image.height();
    for (int column = 0; column < image.width(); ++column) {
        const double x = (column + 0.5) / height;
        const double top = bankTop(x);
        const int first = std::max(0, static_cast<int>(top * height));
        for (int row = first; row < image.height(); ++row) {
            const double y = (row + 0.5) / height;
            const double tuft = 0.5 + 0.7 * fbm(30 * x, 60 * y, 4, 62);
            const Vec3 grass = mix(Vec3{0.035, 0.045, 0.05}, Vec3{0.17, 0.15, 0.09}, tuft);
            image.setPixel(column, row, toDisplay(grass * (1.15 - 0.6 * (y - top) / 0.15)));
        }
    }
}

void paintGrass(QPainter& painter, QSize size) {
    const double height = size.height();
    Dice dice(8);
    for (int k = 0; k < 2600; ++k) {
        const double x = dice.next() * size.width() / height;
        const double y = bankTop(x) + 0.06 * dice.next() * dice.next() + 0.006;
        const double tall = dice.between(0.008, 0.030);
        const double lean = dice.between(-0.5, 0.6) * tall;
        const Vec3 blade = mix(Vec3{0.05, 0.06, 0.06}, Vec3{0.33, 0.24, 0.13}, dice.next());
        painter.setPen(QPen(QColor(toDisplay(blade)), 0.0013 * height));
        painter.drawLine(QPointF(x, y) * height, QPointF(x + lean, y - tall) * height);
    }
}

}  // namespace

QImage paintLandscape(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    const double height = size.height();
    shadeAll(image, [&](double x, double y) {
        return skyColour(x / height, std::min(kShore, y / height));
    });
    for (const Ridge& ridge : kRidges) {
        drawRidge(image, ridge, ridge.haze < 0.3);
    }
    mirrorInLake(image);
    drawBank(image);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double trees[][3] = {{0.16, 0.90, 0.42},
                               {0.055, 0.89, 0.58},
                               {0.25, 0.915, 0.27},
                               {1.43, 0.93, 0.34},
                               {1.33, 0.935, 0.21}};
    std::uint32_t seed = 100;
    for (const auto& tree : trees) {
        paintConifer(painter, QPointF(tree[0], tree[1]) * height, tree[2] * height,
                     {0.075, 0.085, 0.085}, seed++);
    }
    paintGrass(painter, size);
    painter.end();
    addGrain(image, 0.018, 4);
    return image;
}

}  // namespace vellora::scenes
