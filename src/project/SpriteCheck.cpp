#include "project/SpriteCheck.h"

#include <QFileInfo>
#include <QImageReader>

#include <vellora/model/DVDImageProps.h>
#include <vellora/text/EffectCatalogue.h>

#include "base/PictureReader.h"

namespace vellora {
namespace {

bool equals(const QString& text, const char* other) {
    return text.compare(QLatin1StringView(other), Qt::CaseInsensitive) == 0;
}

void checkNumbers(const XmlNode& node, std::initializer_list<const char*> names,
                  Findings& findings) {
    for (const char* name : names) {
        checkNumber(node, name, findings);
    }
}

void checkClip(const XmlNode& node, Findings& findings) {
    checkNumbers(node, {"x0", "y0", "cx", "cy"}, findings);
    checkChildNames(node, {}, findings);
    const QString file = node.Text();
    QString reason;
    if (file.isEmpty()) {
        findings.add(node, QStringLiteral("names no art clip"));
    } else if (!QFileInfo(file).isFile()) {
        findings.add(node, QStringLiteral("art clip %1 is missing").arg(file));
    } else if (CDVDImageProps::NaturalSize(file, &reason).isEmpty()) {
        findings.add(node, QStringLiteral("art clip %1 cannot be drawn: %2").arg(file, reason));
    }
}

void checkPicture(const XmlNode& file, const QString& path, Findings& findings) {
    QImageReader reader(path);
    const PictureKind kind = preparePicture(reader);
    if (kind == PictureKind::TooLarge) {
        findings.add(file, QStringLiteral("texture %1 is too large").arg(path));
    } else if (kind == PictureKind::NoPicture || reader.size().isEmpty()) {
        findings.add(file, QStringLiteral("texture %1 is no picture").arg(path));
    }
}

void checkTexture(const XmlNode& layer, const QString& baseFolder, Findings& findings) {
    const XmlNode file = layer.Child("file");
    const QString name = file.Attribute("name");
    if (name.isEmpty()) {
        findings.add(layer, QStringLiteral("names no texture"));
        return;
    }
    const QString path = TextureFolder(baseFolder) + u'/' + name;
    if (name.contains(u'/') || name.contains(u'\\') || name == u"..") {
        findings.add(file,
                     QStringLiteral("texture %1 lies outside the folder of textures").arg(name));
    } else if (!QFileInfo(path).isFile()) {
        findings.add(file, QStringLiteral("texture %1 is missing").arg(path));
    } else {
        checkPicture(file, path, findings);
    }
}

void checkBrush(const XmlNode& layer, const QString& baseFolder, Findings& findings) {
    const QString style = layer.Attribute("style");
    const XmlNode colour = layer.Child("color");
    checkChildNames(layer, {"color", "file"}, findings);
    if (equals(style, "texture")) {
        checkTexture(layer, baseFolder, findings);
    } else if (equals(style, "solid")) {
        checkHexNumber(colour ? colour : layer, "color1", findings);
    } else if (equals(style, "gradient")) {
        checkHexNumber(colour ? colour : layer, "color1", findings);
        checkHexNumber(colour ? colour : layer, "color2", findings);
        checkNumber(colour ? colour : layer, "angle", findings);
    } else {
        findings.add(layer, QStringLiteral("unknown brush style \"%1\"").arg(style.left(40)));
    }
}

struct Layer {
    const char* name;
    std::initializer_list<const char*> numbers;
};

void checkEffect(const XmlNode& effect, const QString& baseFolder, Findings& findings) {
    static constexpr Layer kLayers[] = {
        {"shadow", {"offset", "angle"}},
        {"border", {"size"}},
        {"halo", {"size", "blur"}},
        {"emboss", {"size", "angle"}},
    };
    if (effect.Attribute("font_name").isEmpty()) {
        findings.add(effect, QStringLiteral("font_name is missing"));
    }
    checkNumber(effect, "font_size", findings);
    checkChildNames(effect, {"face", "shadow", "border", "halo", "emboss"}, findings);
    if (const XmlNode face = effect.Child("face")) {
        checkBrush(face, baseFolder, findings);
    } else {
        findings.add(effect, QStringLiteral("face is missing"));
    }
    for (const Layer& layer : kLayers) {
        if (!equals(effect.Attribute(layer.name), "true")) {
            continue;
        }
        const XmlNode node = effect.Child(layer.name);
        if (!node) {
            findings.add(effect, QStringLiteral("%1 is on but missing").arg(layer.name));
            continue;
        }
        checkNumbers(node, layer.numbers, findings);
        checkBrush(node, baseFolder, findings);
    }
}

void checkText(const XmlNode& node, const QString& baseFolder, Findings& findings) {
    checkNumbers(
        node,
        {"x0", "y0", "size", "bold", "italic", "underline", "align", "shadow", "so_x", "so_y"},
        findings);
    checkHexNumber(node, "color", findings);
    checkHexNumber(node, "s_color", findings);
    if (node.Attribute("font").isEmpty()) {
        findings.add(node, QStringLiteral("font is missing"));
    }
    checkChildNames(node, {"text_effect"}, findings);
    if (const XmlNode effect = node.Child("text_effect")) {
        checkEffect(effect, baseFolder, findings);
    } else {
        findings.add(node, QStringLiteral("text_effect is missing"));
    }
}

}  // namespace

void checkSprite(const XmlNode& node, const QString& baseFolder, Findings& findings) {
    const QString type = node.Attribute("type");
    const bool isText = equals(type, "text");
    if (!isText && !equals(type, "props")) {
        findings.add(node, QStringLiteral("unknown sprite type \"%1\"").arg(type.left(40)));
        return;
    }
    const char* name = isText ? "text" : "props";
    checkChildNames(node, {name}, findings);
    const XmlNode content = node.Child(name);
    if (!content) {
        findings.add(node, QStringLiteral("has no element %1").arg(name));
    } else if (isText) {
        checkText(content, baseFolder, findings);
    } else {
        checkClip(content, findings);
    }
}

}  // namespace vellora
