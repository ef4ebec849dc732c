#include "ui/dialog/BrushSettings.h"

namespace vellora {
namespace {

constexpr COLORREF kFirstColour = 0xFFFFFF;
constexpr COLORREF kSecondColour = 240;
constexpr std::int32_t kAngle = 90;

}  // namespace

TextBrushSettings openingBrush(const TextBrushSettings* caller, const QStringList& textures) {
    TextBrushSettings settings;
    settings.colour1 = kFirstColour;
    settings.colour2 = kSecondColour;
    settings.angle = kAngle;
    settings.SetTextureName(textures.value(0));
    if (caller == nullptr) {
        return settings;
    }
    settings.position_percent = caller->position_percent;
    switch (caller->type) {
        case kGradientBrush:
            settings.type = kGradientBrush;
            settings.colour1 = caller->colour1;
            settings.colour2 = caller->colour2;
            break;
        case kTextureBrush:
            settings.type = kTextureBrush;
            if (textures.contains(caller->GetTextureName())) {
                settings.SetTextureName(caller->GetTextureName());
            }
            break;
        default:
            settings.colour = caller->colour;
    }
    return settings;
}

}  // namespace vellora
