#include "text/EffectXml.h"

#include "xml/LORXMLNodeWrite.h"
#include "xml/XmlNode.h"

namespace vellora {
namespace {

void readFlag(const XmlNode& element, const char* name, std::int32_t& flag) {
    if (const char* text = element.RawAttribute(name); *text != '\0') {
        flag = qstricmp(text, "true") == 0 ? 1 : 0;
    }
}

void readBrush(const XmlNode& layer, TextBrushSettings& brush) {
    const char* style = layer.RawAttribute("style");
    const XmlNode color = layer.Child("color");
    if (qstricmp(style, "gradient") == 0) {
        brush.type = kGradientBrush;
        brush.position_percent = 0;  // written only when it is above
        color.GetColorAttribute("color1", brush.colour1);
        color.GetColorAttribute("color2", brush.colour2);
        color.GetIntAttribute("angle", brush.angle);
        color.GetIntAttribute("grad_pos_percent", brush.position_percent);
    } else if (qstricmp(style, "solid") == 0) {
        brush.type = kSolidBrush;
        color.GetColorAttribute("color1", brush.colour);
    } else if (qstricmp(style, "texture") == 0) {
        brush.type = kTextureBrush;
        if (QString name; layer.Child("file").GetAttribute("name", name) == kXmlFound) {
            brush.SetTextureName(name);
        }
    }
}

void readShadow(const XmlNode& layer, TextEffectRecord& effect) {
    layer.GetIntAttribute("offset", effect.shadow_offset);
    layer.GetIntAttribute("angle", effect.shadow_angle);
    if (const char* order = layer.RawAttribute("order"); *order != '\0') {
        const bool isOnTop = qstricmp(order, "onHalo") == 0 || qstricmp(order, "onEmboss") == 0;
        effect.shadow_order = isOnTop ? 1 : 0;
    }
    readBrush(layer, effect.shadow_brush);
}

void readLayers(const XmlNode& element, TextEffectRecord& effect) {
    readBrush(element.Child("face"), effect.face);
    if (effect.shadow != 0) {
        readShadow(element.Child("shadow"), effect);
    }
    if (effect.border != 0) {
        const XmlNode layer = element.Child("border");
        layer.GetIntAttribute("size", effect.border_size);
        readBrush(layer, effect.border_brush);
    }
    if (effect.halo != 0) {
        const XmlNode layer = element.Child("halo");
        layer.GetIntAttribute("size", effect.halo_size);
        layer.GetIntAttribute("blur", effect.halo_blur);
        readBrush(layer, effect.halo_brush);
    }
    if (effect.emboss != 0) {
        const XmlNode layer = element.Child("emboss");
        layer.GetIntAttribute("size", effect.emboss_size);
        layer.GetIntAttribute("angle", effect.emboss_angle);
        readBrush(layer, effect.emboss_brush);
    }
}

void writeBrushChild(int depth, const TextBrushSettings& brush) {
    if (brush.type == kTextureBrush) {
        CLORXMLNodeWrite file(depth, u"file", true);
        file.AddAttribute(u"name", brush.GetTextureName());
        file.Flush();
        return;
    }
    CLORXMLNodeWrite color(depth, u"color", true);
    if (brush.type == kSolidBrush) {
        color.AddRGBColorAttribute(u"color1", brush.colour);
    } else {
        color.AddRGBColorAttribute(u"color1", brush.colour1);
        color.AddRGBColorAttribute(u"color2", brush.colour2);
        color.AddAttribute(u"angle", brush.angle);
        if (brush.position_percent > 0) {
            color.AddAttribute(u"grad_pos_percent", brush.position_percent);
        }
    }
    color.Flush();
}

struct OwnAttribute {
    QStringView name;
    std::int32_t value;
};

/// A brush of an unknown kind has no form in files: the layer then has no brush.
void writeLayer(int depth, QStringView name, std::initializer_list<OwnAttribute> attributes,
                const TextBrushSettings& brush) {
    static constexpr QStringView kStyles[] = {u"solid", u"gradient", u"texture"};
    const bool isKnown = brush.type >= kSolidBrush && brush.type <= kTextureBrush;
    CLORXMLNodeWrite layer(depth, name);
    for (const OwnAttribute& attribute : attributes) {
        layer.AddAttribute(attribute.name, attribute.value);
    }
    if (isKnown) {
        layer.AddAttribute(u"style", kStyles[brush.type]);
    }
    layer.Flush();
    if (isKnown) {
        writeBrushChild(depth + 1, brush);
    }
}

}  // namespace

bool readTextEffect(const XmlNode& element, TextEffectRecord& effect) {
    QString fontName;
    TextEffectRecord result = effect;
    if (element.GetAttribute("font_name", fontName) != kXmlFound ||
        element.GetIntAttribute("font_size", result.font_size) != kXmlFound) {
        return false;
    }
    result.SetFontName(fontName);
    readFlag(element, "bold", result.bold);
    readFlag(element, "italic", result.italic);
    readFlag(element, "underline", result.underline);
    readFlag(element, "shadow", result.shadow);
    readFlag(element, "border", result.border);
    readFlag(element, "halo", result.halo);
    readFlag(element, "emboss", result.emboss);
    readLayers(element, result);
    effect = result;
    return true;
}

void writeTextEffect(int depth, const TextEffectRecord& effect) {
    const auto flag = [](std::int32_t value) { return value != 0 ? u"true" : u"false"; };
    CLORXMLNodeWrite element(depth, u"text_effect");
    element.AddAttribute(u"font_name", effect.GetFontName());
    element.AddAttribute(u"font_size", effect.font_size);
    element.AddAttribute(u"bold", flag(effect.bold));
    element.AddAttribute(u"italic", flag(effect.italic));
    element.AddAttribute(u"underline", flag(effect.underline));
    element.AddAttribute(u"shadow", flag(effect.shadow));
    element.AddAttribute(u"border", flag(effect.border));
    element.AddAttribute(u"halo", flag(effect.halo));
    element.AddAttribute(u"emboss", flag(effect.emboss));
    element.Flush();
    const int layerDepth = depth + 1;
    writeLayer(layerDepth, u"face", {}, effect.face);
    if (effect.shadow != 0) {
        writeLayer(layerDepth, u"shadow",
                   {{u"offset", effect.shadow_offset}, {u"angle", effect.shadow_angle}},
                   effect.shadow_brush);
    }
    if (effect.border != 0) {
        writeLayer(layerDepth, u"border", {{u"size", effect.border_size}}, effect.border_brush);
    }
    if (effect.halo != 0) {
        writeLayer(layerDepth, u"halo", {{u"size", effect.halo_size}, {u"blur", effect.halo_blur}},
                   effect.halo_brush);
    }
    if (effect.emboss != 0) {
        writeLayer(layerDepth, u"emboss",
                   {{u"size", effect.emboss_size}, {u"angle", effect.emboss_angle}},
                   effect.emboss_brush);
    }
}

}  // namespace vellora
