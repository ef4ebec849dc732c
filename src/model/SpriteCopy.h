#pragma once

#include <memory>

namespace vellora {

class CDVDImageSprite;

/// A new sprite of the same kind, made by that kind's copy constructor; null for an unknown kind.
std::unique_ptr<CDVDImageSprite> copySprite(const CDVDImageSprite& sprite);

}  // namespace vellora
