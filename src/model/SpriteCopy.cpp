#include "model/SpriteCopy.h"

#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

namespace vellora {

std::unique_ptr<CDVDImageSprite> copySprite(const CDVDImageSprite& sprite) {
    if (const auto* props = dynamic_cast<const CDVDImageProps*>(&sprite)) {
        return std::make_unique<CDVDImageProps>(*props);
    }
    if (const auto* text = dynamic_cast<const CDVDImageText*>(&sprite)) {
        return std::make_unique<CDVDImageText>(*text);
    }
    return nullptr;
}

}  // namespace vellora
