#include "model/ClipPicture.h"

#include <QFileInfo>

#include "base/FileCache.h"
#include "metafile/MetafilePicture.h"
#include "model/ClipDecoders.h"

namespace vellora {
namespace {

constexpr qsizetype kCacheBytes = qsizetype{256} << 20;

bool hasSuffix(const QFileInfo& file, const char* suffix) {
    return file.suffix().compare(QLatin1String(suffix), Qt::CaseInsensitive) == 0;
}

std::shared_ptr<const ClipPicture> decode(const QString& path, QString& reason) {
    const QFileInfo file(path);
    if (hasSuffix(file, "svg") || hasSuffix(file, "svgz")) {
        return decodeSvgClip(path, reason);
    }
    if (MetafilePicture::isMetafile(path)) {
        return decodeMetafileClip(path, reason);
    }
    return decodeRasterClip(path, reason);
}

}  // namespace

std::shared_ptr<const ClipPicture> loadClip(const QString& path, QString* reason) {
    static FileCache<ClipPicture> cache(kCacheBytes);
    QString why;
    const std::shared_ptr<const ClipPicture> clip = cache.get(
        path, [&why](const QString& file) { return decode(file, why); },
        [](const ClipPicture& loaded) { return loaded.bytes(); });
    if (clip == nullptr && reason != nullptr) {
        if (why.isEmpty()) {
            why = QFileInfo::exists(path) ? QStringLiteral("not a file")
                                          : QStringLiteral("no such file");
        }
        *reason = why;
    }
    return clip;
}

}  // namespace vellora
