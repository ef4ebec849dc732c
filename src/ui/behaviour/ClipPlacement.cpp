#include "ui/behaviour/ClipPlacement.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include <vellora/base/Types.h>

namespace vellora {
namespace {

bool hasExtension(const QString& file, const QStringList& extensions) {
    return extensions.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive);
}

}  // namespace

bool isClipFile(const QString& file) {
    static const QStringList kExtensions{
        QStringLiteral("bmp"), QStringLiteral("jpg"),  QStringLiteral("pcx"),
        QStringLiteral("tif"), QStringLiteral("png"),  QStringLiteral("emf"),
        QStringLiteral("wmf"), QStringLiteral("jpeg"), QStringLiteral("tiff")};
    return hasExtension(file, kExtensions);
}

bool isVectorClip(const QString& file) {
    static const QStringList kExtensions{QStringLiteral("emf"), QStringLiteral("wmf"),
                                         QStringLiteral("svg")};
    return hasExtension(file, kExtensions);
}

QStringList clipFilesOf(const QMimeData& dragged) {
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const QString file = url.toLocalFile();
        if (!file.isEmpty() && (isClipFile(file) || isVectorClip(file))) {
            files.append(file);
        }
    }
    return files;
}

SpritePlace placeOfClip(QSizeF natural, bool isVector, QPoint centre) {
    constexpr double kWidest = kStageWidth / 3.0;
    constexpr double kHighest = kStageHeight / 3.0;
    const double fitting = std::min(kWidest / natural.width(), kHighest / natural.height());
    const double scale = isVector ? fitting : std::min(fitting, 1.0);
    const QSize size(static_cast<int>(std::max(1L, std::lround(natural.width() * scale))),
                     static_cast<int>(std::max(1L, std::lround(natural.height() * scale))));
    return {centre - QPoint(size.width() / 2, size.height() / 2), size};
}

}  // namespace vellora
