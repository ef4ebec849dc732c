#include <QDir>
#include <QFile>
#include <QPainter>
#include <algorithm>

#include <vellora/text/EffectCatalogue.h>
#include <vellora/text/PhotoTextEffect.h>

#include "base/FileCache.h"
#include "text/EffectXml.h"
#include "text/TextureCache.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

using Catalogue = std::vector<TextEffectEntry>;

/// More than any list shows; a file may claim millions.
constexpr std::int32_t kMaxStyles = 4096;
constexpr qsizetype kCacheBytes = qsizetype{16} << 20;

std::shared_ptr<const Catalogue> readCatalogue(const QString& path) {
    auto entries = std::make_shared<Catalogue>();
    CXMLParse file;
    std::int32_t count = 0;
    if (file.Open(path) == 0) {
        return entries;
    }
    const std::vector<XmlNode> lists = file.SelectAll(QStringLiteral("//TEXT_EFFECT"));
    if (!lists.empty()) {
        lists.front().GetIntAttribute("count", count);
    }
    count = std::min(count, kMaxStyles);
    for (std::int32_t id = 0; id < count; ++id) {
        entries->push_back({QStringLiteral("Style %1").arg(id + 1), {}});
    }
    for (const auto& [id, node] : numberedChildren(lists, "data", count)) {
        readTextEffect(node, (*entries)[static_cast<std::size_t>(id)].effect);
    }
    return entries;
}

qsizetype bytesOf(const Catalogue& entries) {
    return static_cast<qsizetype>(entries.size() * sizeof(TextEffectEntry)) + 1;
}

QString folderBelow(const QString& baseFolder, const QString& name) {
    return QDir(baseFolder.isEmpty() ? QStringLiteral(".") : baseFolder).filePath(name);
}

}  // namespace

std::vector<TextEffectEntry> LoadEffectCatalogue(const QString& baseFolder) {
    static FileCache<Catalogue> cache(kCacheBytes);
    const QString path = folderBelow(baseFolder, QStringLiteral("texteffect/effect_list.xml"));
    const auto entries = cache.get(path, readCatalogue, bytesOf);
    return entries != nullptr ? *entries : Catalogue();
}

QString TextureFolder(const QString& baseFolder) {
    return folderBelow(baseFolder, QStringLiteral("texteffect/texture"));
}

QStringList ListTextures(const QString& baseFolder) {
    const QString folder = TextureFolder(baseFolder);
    QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    names.removeIf([&](const QString& name) { return texturePath(folder, name).isEmpty(); });
    return names;
}

QImage PreviewTextEffect(const QString& baseFolder, const TextEffectRecord& effect, QSize size,
                         const QString& sample, const QColor& background) {
    if (size.isEmpty()) {
        return {};
    }
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        return picture;
    }
    picture.fill(background);
    const QFont font = CPhotoTextEffect::LayoutFont(effect.GetFontName(), effect.bold != 0,
                                                    effect.italic != 0, effect.underline != 0);
    const QSizeF text = CPhotoTextEffect::Measure(font, sample);
    if (text.isEmpty()) {
        return picture;
    }
    constexpr double kShare = 0.88;
    const double scale =
        kShare * std::min(size.width() / text.width(), size.height() / text.height());
    QPainter painter(&picture);
    painter.translate((size.width() - text.width() * scale) / 2,
                      (size.height() - text.height() * scale) / 2);
    painter.scale(scale, scale);
    CPhotoTextEffect::Draw(painter, TextureFolder(baseFolder), font, {0.0, 0.0}, sample, effect);
    return picture;
}

}  // namespace vellora
