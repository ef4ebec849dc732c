#include "text/TextureCache.h"

#include <QDir>
#include <QImageReader>
#include <vector>

#include "base/FileCache.h"

namespace vellora {
namespace {

constexpr int kMaxTextureSide = 4096;
constexpr qsizetype kCacheBytes = qsizetype{96} << 20;

/// A picture and its reductions, each half as large as the one before.
using Texture = std::vector<QImage>;

std::shared_ptr<const Texture> readTexture(const QString& path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    // A drawing may name further files, and those could lie anywhere.
    if (reader.format().startsWith("svg") || !size.isValid() || size.width() > kMaxTextureSide ||
        size.height() > kMaxTextureSide) {
        return nullptr;
    }
    QImage picture = reader.read();
    if (picture.isNull()) {
        return nullptr;
    }
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    auto texture = std::make_shared<Texture>();
    texture->push_back(picture);
    while (picture.width() > 1 && picture.height() > 1) {
        picture = picture.scaled(picture.width() / 2, picture.height() / 2, Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation);
        texture->push_back(picture);
    }
    return texture;
}

qsizetype bytesOf(const Texture& texture) {
    qsizetype bytes = 0;
    for (const QImage& level : texture) {
        bytes += level.sizeInBytes();
    }
    return bytes;
}

}  // namespace

QString texturePath(const QString& textureFolder, const QString& name) {
    const bool isPlainName = !name.isEmpty() && name != u"." && name != u".." &&
                             !name.contains(u'/') && !name.contains(u'\\') && !name.contains(u':');
    return isPlainName && !textureFolder.isEmpty() ? QDir(textureFolder).filePath(name) : QString();
}

QBrush textureBrush(const QString& path, double detail) {
    static FileCache<Texture> cache(kCacheBytes);
    if (path.isEmpty()) {
        return {};
    }
    const auto texture = cache.get(path, readTexture, bytesOf);
    if (texture == nullptr) {
        return {};
    }
    std::size_t level = 0;
    while (detail <= 0.5 && level + 1 < texture->size()) {
        detail *= 2;
        ++level;
    }
    const QSizeF whole = texture->front().size();
    const QImage& picture = (*texture)[level];
    QBrush brush(picture);
    brush.setTransform(
        QTransform::fromScale(whole.width() / picture.width(), whole.height() / picture.height()));
    return brush;
}

}  // namespace vellora
