#include "texturegen/Textures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "texturegen/PeriodicNoise.h"

namespace vellora::textures {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

struct Colour {
    double red, green, blue;
};

QRgb toRgb(const Colour& colour, double light = 1.0) {
    const auto byte = [light](double value) {
        return static_cast<int>(std::clamp(value * light, 0.0, 255.0) + 0.5);
    };
    return qRgb(byte(colour.red), byte(colour.green), byte(colour.blue));
}

Colour mix(const Colour& a, const Colour& b, double t) {
    t = std::clamp(t, 0.0, 1.0);
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t,
            a.blue + (b.blue - a.blue) * t};
}

double step(double low, double high, double value) {
    const double t = std::clamp((value - low) / (high - low), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

double wave(double turns) {
    return 0.5 + 0.5 * std::sin(kTurn * turns);
}

/// Distance to the nearest of so many scattered points a side, in cells.
double toNearestPoint(double x, double y, int cells, std::uint32_t seed) {
    const double u = x * cells;
    const double v = y * cells;
    double nearest = 8.0;
    for (int j = static_cast<int>(v) - 1; j <= static_cast<int>(v) + 1; ++j) {
        for (int i = static_cast<int>(u) - 1; i <= static_cast<int>(u) + 1; ++i) {
            const int a = wrapped(i, cells);
            const int b = wrapped(j, cells);
            nearest = std::min(
                nearest, std::hypot(i + hashed(a, b, seed) - u, j + hashed(a, b, seed + 1) - v));
        }
    }
    return nearest;
}

QRgb brushedSteel(double x, double y) {
    const double streaks = fractal(x, y, 2, 32, 3, 11);
    return toRgb(mix({150, 158, 168}, {244, 247, 250}, 1.6 * streaks - 0.3));
}

QRgb gold(double x, double y) {
    const double sheen = wave(y + x + 0.25 * fractal(x, y, 4, 4, 4, 23));
    const double grain = fractal(x, y, 16, 16, 2, 29);
    return toRgb(mix({176, 116, 20}, {255, 233, 140}, sheen), 0.88 + 0.24 * grain);
}

QRgb wood(double x, double y) {
    const double bend = fractal(x, y, 2, 3, 3, 37);
    const double rings = wave(6 * y + 2.2 * bend);
    const double fibre = fractal(x, y, 3, 64, 2, 41);
    return toRgb(mix({122, 70, 30}, {214, 150, 86}, rings), 0.84 + 0.3 * fibre);
}

QRgb marble(double x, double y) {
    const double flow = fractal(x, y, 3, 3, 5, 53);
    const double vein = std::abs(std::sin(kTurn * (x + y + 1.6 * flow)));
    return toRgb(mix({120, 130, 146}, {246, 246, 242}, step(0.0, 0.55, vein)));
}

QRgb linen(double x, double y) {
    const double across = wave(16 * x);
    const double down = wave(16 * y);
    const bool over = (static_cast<int>(16 * x + 0.75) + static_cast<int>(16 * y + 0.75)) % 2 == 0;
    const double thread = over ? across : down;
    return toRgb({236, 222, 192}, 0.7 + 0.28 * thread + 0.1 * fractal(x, y, 24, 24, 2, 61));
}

QRgb denim(double x, double y) {
    const double twill = wave(16 * (x + y));
    const double wear = fractal(x, y, 4, 4, 4, 71);
    return toRgb(mix({44, 78, 138}, {140, 176, 222}, 0.55 * twill + 0.6 * wear - 0.1));
}

QRgb candy(double x, double y) {
    const double stripe = wave(2 * (x + y));
    const double edge = step(0.42, 0.58, stripe);
    const double roundness = 0.82 + 0.18 * std::abs(std::cos(kTurn * 2 * (x + y) - kTurn / 4));
    return toRgb(mix({255, 250, 246}, {222, 30, 52}, edge), roundness);
}

QRgb dots(double x, double y) {
    const double u = 3 * x;
    const double v = 6 * y;
    const double shift = static_cast<int>(v) % 2 == 0 ? 0.0 : 0.5;
    const double a = u + shift - std::floor(u + shift) - 0.5;
    const double b = v - std::floor(v) - 0.5;
    const double far = std::hypot(a * 2, b);
    return toRgb(mix({255, 214, 64}, {226, 60, 128}, step(0.30, 0.36, far)));
}

QRgb water(double x, double y) {
    const double bend = 0.18 * fractal(x, y, 4, 4, 3, 83);
    const double far = toNearestPoint(x + bend, y + bend, 5, 89);
    const double light = step(0.45, 0.85, far);
    const Colour deep = mix({14, 96, 168}, {38, 168, 214}, fractal(x, y, 3, 3, 3, 97));
    return toRgb(mix(deep, {226, 250, 255}, light));
}

QRgb fire(double x, double y) {
    const double heat = fractal(x, y, 4, 3, 5, 101) * 1.5 - 0.25;
    const Colour low = mix({170, 16, 4}, {246, 96, 10}, 2 * heat);
    return toRgb(mix(low, {255, 240, 130}, 2 * heat - 0.9));
}

QRgb sky(double x, double y) {
    const double cloud = step(0.42, 0.72, fractal(x, y, 3, 4, 5, 113));
    return toRgb(mix({74, 152, 226}, {252, 254, 255}, cloud));
}

QRgb meadow(double x, double y) {
    const double blade = fractal(x + 0.1 * wave(y), y, 32, 4, 3, 127);
    const double patch = fractal(x, y, 3, 3, 3, 131);
    return toRgb(mix({42, 120, 34}, {186, 226, 84}, 1.2 * blade + 0.5 * patch - 0.35));
}

QRgb stars(double x, double y) {
    const double far = toNearestPoint(x, y, 6, 139);
    const double glow = std::exp(-far * far * 40);
    const Colour night = mix({28, 26, 92}, {110, 52, 160}, fractal(x, y, 2, 2, 4, 149));
    return toRgb(mix(night, {255, 252, 220}, 1.4 * glow));
}

QRgb brick(double x, double y) {
    constexpr int kRows = 8;
    constexpr int kPerRow = 4;
    const double v = y * kRows;
    const int row = static_cast<int>(v);
    const double u = x * kPerRow + (row % 2 == 0 ? 0.0 : 0.5);
    const int column = wrapped(static_cast<int>(std::floor(u)), kPerRow);
    const double toSide = std::min(u - std::floor(u), std::ceil(u) - u) * 2;
    const double toEdge = std::min({toSide, v - row, row + 1 - v});
    const Colour clay = mix({168, 62, 42}, {216, 116, 82}, hashed(column, row, 151));
    const double rough = 0.88 + 0.24 * fractal(x, y, 24, 24, 2, 157);
    return toRgb(mix({232, 222, 208}, clay, step(0.06, 0.14, toEdge)), rough);
}

constexpr Texture kTextures[] = {
    {"brick.png", brick},   {"candy.png", candy}, {"denim.png", denim}, {"dots.png", dots},
    {"fire.png", fire},     {"gold.png", gold},   {"linen.png", linen}, {"marble.png", marble},
    {"meadow.png", meadow}, {"sky.png", sky},     {"stars.png", stars}, {"steel.png", brushedSteel},
    {"water.png", water},   {"wood.png", wood},
};

}  // namespace

std::span<const Texture> allTextures() {
    return kTextures;
}

}  // namespace vellora::textures
