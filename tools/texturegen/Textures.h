#pragma once

#include <QRgb>
#include <span>

namespace vellora::textures {

struct Texture {
    const char* name;
    /// The colour at a place; 0 to 1 span the tile.
    QRgb (*colourAt)(double x, double y);
};

std::span<const Texture> allTextures();

}  // namespace vellora::textures
