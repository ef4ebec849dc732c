#include "text/TextureCache.h"

#include <QDir>
#include <QImageReader>
#include <vector>

#include "base/FileCache.h"
#include "base/JpegScans.h"
#include "base/PictureReader.h"

namespace vellora {
namespace {

/// A larger picture is kept at this size.
constexpr int kMaxSide = 4096;
constexpr qsizetype kCacheBytes = qsizetype{96} << 20;

struct Texture {
    QSize size;                  ///< Of the picture in its file.
    std::vector<QImage> levels;  ///< Each half as large as the one before.
};

std::shared_ptr<const Texture> readTexture(const QString& path) {
    QImageReader reader(path);
    if (preparePicture(reader) != PictureKind::Readable || fileHasExcessiveScans(path)) {
        return nullptr;
    }
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return nullptr;
    }
    if (size.width() > kMaxSide || size.height() > kMaxSide) {
        const QSize kept = size.scaled(kMaxSide, kMaxSide, Qt::KeepAspectRatio);
        reader.setScaledSize(kept.expandedTo({1, 1}));
    }
    QImage picture = reader.read();
    if (picture.isNull()) {
        return nullptr;
    }
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    auto texture = std::make_shared<Texture>();
    texture->size = size;
    texture->levels.push_back(picture);
    while (picture.width() > 1 && picture.height() > 1) {
        picture = picture.scaled(picture.width() / 2, picture.height() / 2, Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation);
        texture->levels.push_back(picture);
    }
    return texture;
}

qsizetype bytesOf(const Texture& texture) {
    qsizetype bytes = 0;
    for (const QImage& level : texture.levels) {
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
    const QSizeF whole = texture->size;
    const std::vector<QImage>& levels = texture->levels;
    detail *= whole.width() / levels.front().width();
    std::size_t level = 0;
    while (detail <= 0.5 && level + 1 < levels.size()) {
        detail *= 2;
        ++level;
    }
    const QImage& picture = levels[level];
    QBrush brush(picture);
    brush.setTransform(
        QTransform::fromScale(whole.width() / picture.width(), whole.height() / picture.height()));
    return brush;
}

}  // namespace vellora
