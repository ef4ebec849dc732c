#pragma once

/// @file
/// Colours, smooth steps and gradient noise for the scenes.

#include <QImage>
#include <QRgb>
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vellora::scenes {

struct Vec3 {
    double r = 0;
    double g = 0;
    double b = 0;
};

constexpr Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.r - b.r, a.g - b.g, a.b - b.b};
}
constexpr Vec3 operator*(Vec3 a, Vec3 b) {
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}
constexpr Vec3 operator*(Vec3 a, double k) {
    return {a.r * k, a.g * k, a.b * k};
}
constexpr double dot(Vec3 a, Vec3 b) {
    return a.r * b.r + a.g * b.g + a.b * b.b;
}
inline Vec3 normalized(Vec3 a) {
    return a * (1.0 / std::sqrt(dot(a, a)));
}

constexpr double mix(double a, double b, double t) {
    return a + (b - a) * t;
}
constexpr Vec3 mix(Vec3 a, Vec3 b, double t) {
    return a + (b - a) * t;
}

constexpr double smoothstep(double from, double to, double x) {
    const double t = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

/// A bell of height 1 at 0 and width `sigma`.
inline double bell(double x, double sigma) {
    return std::exp(-x * x / (2 * sigma * sigma));
}

constexpr std::uint32_t hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x8DA6B343U ^ y * 0xD8163841U ^ seed * 0xCB1AB31FU;
    h = (h ^ (h >> 16U)) * 0x7FEB352DU;
    h = (h ^ (h >> 15U)) * 0x846CA68BU;
    return h ^ (h >> 16U);
}

/// Uniform in 0..1.
constexpr double hash01(int x, int y, std::uint32_t seed) {
    return hash(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed) / 4294967296.0;
}

/// A sequence of uniform numbers.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : m_seed(seed) {}
    double next() { return hash(m_count++, 77, m_seed) / 4294967296.0; }
    double between(double low, double high) { return mix(low, high, next()); }

private:
    std::uint32_t m_seed;
    std::uint32_t m_count = 0;
};

/// Gradient noise of unit wavelength, about -0.7 to 0.7.
inline double noise(double x, double y, std::uint32_t seed = 0) {
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const auto ix = static_cast<int>(fx);
    const auto iy = static_cast<int>(fy);
    x -= fx;
    y -= fy;
    const auto corner = [&](int cx, int cy) {
        const std::uint32_t h =
            hash(static_cast<std::uint32_t>(ix + cx), static_cast<std::uint32_t>(iy + cy), seed);
        const double gx = static_cast<double>(h & 0xFFFFU) / 32768.0 - 1;
        const double gy = static_cast<double>(h >> 16U) / 32768.0 - 1;
        return gx * (x - cx) + gy * (y - cy);
    };
    const double sx = x * x * x * (x * (x * 6 - 15) + 10);
    const double sy = y * y * y * (y * (y * 6 - 15) + 10);
    return mix(mix(corner(0, 0), corner(1, 0), sx), mix(corner(0, 1), corner(1, 1), sx), sy);
}

/// A sum of noises of halving wavelength, about -1 to 1.
inline double fbm(double x, double y, int octaves, std::uint32_t seed = 0) {
    double sum = 0;
    double weight = 1;
    for (int k = 0; k < octaves; ++k) {
        sum += weight * noise(x, y, seed + static_cast<std::uint32_t>(k));
        weight *= 0.5;
        const double turned = 1.6 * x - 1.2 * y;
        y = 1.2 * x + 1.6 * y;
        x = turned;
    }
    return sum;
}

/// A colour of light to a display value; bright light saturates gently.
inline QRgb toDisplay(Vec3 c) {
    const auto channel = [](double v) {
        v = std::max(0.0, v);
        const double soft = v < 0.7 ? v : 0.7 + 0.3 * (1 - std::exp(-(v - 0.7) / 0.3));
        return static_cast<int>(std::lround(255 * std::min(1.0, soft)));
    };
    return qRgb(channel(c.r), channel(c.g), channel(c.b));
}

inline Vec3 fromDisplay(QRgb c) {
    return Vec3{double(qRed(c)), double(qGreen(c)), double(qBlue(c))} * (1.0 / 255);
}

/// Sets every pixel of `image` to `colour(x, y)` at the pixel's centre, in pixels.
template <class Colour>
void shadeAll(QImage& image, Colour colour) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            row[x] = toDisplay(colour(x + 0.5, y + 0.5));
        }
    }
}

/// Adds the fine grain of a sensor, more in the shadows.
inline void addGrain(QImage& image, double strength, std::uint32_t seed) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double bump = strength * (hash01(x, y, seed) + hash01(x, y, seed + 1) - 1);
            row[x] = toDisplay(fromDisplay(row[x]) + Vec3{bump, bump, bump});
        }
    }
}

}  // namespace vellora::scenes
