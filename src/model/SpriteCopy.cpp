#include "model/SpriteCopy.h"

#include <vellora/model/DVDImageProps.h>

namespace vellora {

std::unique_ptr<CDVDImageSprite> copySprite(const CDVDImageSprite& sprite) {
    if (const auto* props = dynamic_cast<const CDVDImageProps*>(&sprite)) {
        return std::make_unique<CDVDImageProps>(*props);
    }
    return nullptr;
}

}  // namespace vellora
