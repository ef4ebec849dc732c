#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include <vellora/model/ClipInfo.h>

#include "metafile/MetafilePicture.h"
#include "model/ClipPicture.h"

namespace vellora {
namespace {

constexpr int kLongestSide = 16'384;

QString formatName(MetafilePicture::Format format) {
    switch (format) {
        case MetafilePicture::Format::Wmf:
            return QStringLiteral("WMF");
        case MetafilePicture::Format::PlaceableWmf:
            return QStringLiteral("WMF placeable");
        default:
            return QStringLiteral("EMF");
    }
}

bool readMetafileInfo(const QString& path, ClipInfo& info, QString* reason) {
    const auto picture = MetafilePicture::fromFile(path, reason);
    if (picture == nullptr) {
        return false;
    }
    info = {formatName(picture->format()), picture->naturalSize(), {}, picture->recordTotal()};
    for (const MetafilePicture::RecordCount& record : picture->recordCounts()) {
        info.records.push_back({record.name, record.count});
    }
    return true;
}

QString otherFormatName(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("svg") || suffix == QLatin1String("svgz")) {
        return QStringLiteral("SVG");
    }
    return QString::fromLatin1(QImageReader::imageFormat(path)).toUpper();
}

}  // namespace

bool ReadClipInfo(const QString& path, ClipInfo* info, QString* reason) {
    if (info == nullptr) {
        return false;
    }
    if (MetafilePicture::isMetafile(path)) {
        return readMetafileInfo(path, *info, reason);
    }
    const auto clip = loadClip(path, reason);
    if (clip == nullptr) {
        return false;
    }
    *info = {otherFormatName(path), clip->naturalSize(), {}, 0};
    return true;
}

QImage RenderClip(const QString& path, int longestSide, QString* reason) {
    if (longestSide < 1 || longestSide > kLongestSide) {
        if (reason != nullptr) {
            *reason = QStringLiteral("no picture has this size");
        }
        return {};
    }
    const auto clip = loadClip(path, reason);
    if (clip == nullptr) {
        return {};
    }
    const QSizeF natural = clip->naturalSize();
    const double scale = longestSide / std::max(natural.width(), natural.height());
    const QSize size(std::max(1, static_cast<int>(std::lround(natural.width() * scale))),
                     std::max(1, static_cast<int>(std::lround(natural.height() * scale))));
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        if (reason != nullptr) {
            *reason = QStringLiteral("there is not enough memory");
        }
        return {};
    }
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    clip->draw(painter, QRectF(picture.rect()));
    return picture;
}

}  // namespace vellora
