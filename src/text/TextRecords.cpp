#include <vellora/base/HostText.h>
#include <vellora/text/TextStyle.h>

#include "base/XmlText.h"

namespace vellora {

QString TextBrushSettings::GetTextureName() const {
    return hostText(texture_name);
}

void TextBrushSettings::SetTextureName(const QString& name) {
    setHostText(texture_name, xmlText(name));
}

QString TextEffectRecord::GetFontName() const {
    return hostText(font_name);
}

void TextEffectRecord::SetFontName(const QString& name) {
    setHostText(font_name, xmlText(name));
}

QString TextStyle::GetFont() const {
    return hostText(font);
}

void TextStyle::SetFont(const QString& name) {
    setHostText(font, xmlText(name));
}

TextEffectRecord TextStyle::PlainEffect() {
    TextEffectRecord effect;
    effect.SetFontName(QStringLiteral("Arial"));
    effect.font_size = 24;
    effect.face = TextBrushSettings::Solid(0x00FFFFFF);
    return effect;
}

TextEffectRecord TextStyle::MakeEffect() const {
    constexpr std::int32_t kShadowAngle = 45;
    TextEffectRecord result;
    result.SetFontName(GetFont());
    result.font_size = size;
    result.bold = bold;
    result.italic = italic;
    result.underline = underline;
    result.face = TextBrushSettings::Solid(colour);
    result.shadow = shadow;
    result.shadow_offset = shadow_x;
    result.shadow_angle = kShadowAngle;
    return result;
}

void TextStyle::TakeEffect(const TextEffectRecord& chosen) {
    effect = chosen;
    SetFont(chosen.GetFontName());
    size = chosen.font_size;
    bold = chosen.bold;
    italic = chosen.italic;
    underline = chosen.underline;
    shadow = chosen.shadow;
}

}  // namespace vellora
