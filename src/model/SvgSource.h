#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>

class QString;

namespace vellora {

/// What an SVG file from a stranger may hold. Real clips stay far below every figure.
inline constexpr std::int64_t kMaxSvgBytes = 32LL << 20;  ///< Also of one that was compressed.
inline constexpr std::size_t kMaxSvgElements = 100'000;
inline constexpr int kMaxSvgDepth = 256;
/// Elements inside each other where those that are referred to count as well.
inline constexpr int kMaxSvgNesting = 512;
/// Elements where those that are referred to count each time.
inline constexpr double kMaxSvgExpansion = 1.0e6;
/// Parts of style sheets times elements that they are compared with, each with those around it.
inline constexpr double kMaxSvgStyling = 1.0e8;

/// An SVG text that is fit for the renderer: it refers to no file and is bounded in all that the
/// renderer does before it draws.
struct SvgSource {
    QByteArray text;
    std::size_t elements = 0;
    std::int64_t imagePixels = 0;  ///< Of the pictures in it.
};

/// Reads an SVG file, compressed or not; nothing for one that is not fit, `reason` then says why.
std::optional<SvgSource> readSvg(const QString& path, QString& reason);

/// The same for what a file holds.
std::optional<SvgSource> readSvg(QByteArray bytes, QString& reason);

}  // namespace vellora
