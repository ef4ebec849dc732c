#pragma once

#include <QImage>
#include <QSize>
#include <span>

namespace vellora::scenes {

/// A picture that looks like a photograph and is computed from formulas alone: the same size gives
/// the same bytes on every run.
struct Scene {
    const char* name;
    QSize defaultSize;
    /// Paints the scene at any size; the format is RGB32.
    QImage (*paint)(QSize size);
};

/// All scenes: "landscape", "portrait", "night".
[[nodiscard]] std::span<const Scene> all();

QImage paintLandscape(QSize size);
QImage paintPortrait(QSize size);
QImage paintCity(QSize size);

}  // namespace vellora::scenes
