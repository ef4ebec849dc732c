#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <utility>

#include <vellora/host/PhotoFile.h>

#include "base/JpegScans.h"
#include "base/PictureReader.h"
#include "base/StageFit.h"

namespace vellora {
namespace {

/// Why a file cannot be a photo whatever it holds; empty when nothing speaks against it.
QString obstacle(const QFileInfo& file) {
    if (!file.exists()) {
        return QCoreApplication::translate("vellora", "no such file");
    }
    if (file.isDir()) {
        return QCoreApplication::translate("vellora", "is a folder");
    }
    if (!file.isFile()) {
        return QCoreApplication::translate("vellora", "is not a regular file");
    }
    if (!file.isReadable()) {
        return QCoreApplication::translate("vellora", "may not be read");
    }
    if (file.size() == 0) {
        return QCoreApplication::translate("vellora", "is empty");
    }
    return {};
}

/// Some formats tell their size only when they are decoded.
QSize sizeOf(QImageReader& reader) {
    const QSize size = reader.size();
    return size.isValid() ? size : reader.read().size();
}

/// The orientation tag follows from mirroring, flipping and a quarter turn to the right, done in
/// this order; it is what the host record's fields say, too.
void setOrientation(PhotoInfo& info, QImageIOHandler::Transformations tag) {
    const bool mirror = (tag & QImageIOHandler::TransformationMirror) != 0;
    const bool flip = (tag & QImageIOHandler::TransformationFlip) != 0;
    const bool turn = (tag & QImageIOHandler::TransformationRotate90) != 0;
    static constexpr int kTags[2][2][2] = {{{1, 6}, {4, 5}}, {{2, 7}, {3, 8}}};
    info.orientation = kTags[mirror][flip][turn];
    // Both mirrored is half a turn.
    const bool half = mirror && flip;
    info.flip_x = mirror && !half ? 1 : 0;
    info.flip_y = flip && !half ? 1 : 0;
    info.rotation = (turn ? 90 : 0) + (half ? 180 : 0);
}

void setSizes(PhotoInfo& info) {
    const auto turned = [&info](Size size) {
        if (info.rotation % 180 != 0) {
            std::swap(size.width, size.height);
        }
        return size;
    };
    const Size stored{info.width, info.height};
    const Size preview = turned(previewSize(stored));
    const Size stage = fittedSize(preview, {kStageWidth, kStageHeight});
    const Size canvas = outputCanvas(turned(stored));
    info.previewWidth = preview.width;
    info.previewHeight = preview.height;
    info.stageWidth = stage.width;
    info.stageHeight = stage.height;
    info.canvasWidth = canvas.width;
    info.canvasHeight = canvas.height;
}

}  // namespace

bool ReadPhotoInfo(const QString& path, PhotoInfo* info, QString* reason) {
    const auto refuse = [reason](const QString& why) {
        if (reason != nullptr) {
            *reason = why;
        }
        return false;
    };
    if (const QString why = obstacle(QFileInfo(path)); !why.isEmpty()) {
        return refuse(why);
    }
    QImageReader reader(path);
    reader.setAutoTransform(false);
    const PictureKind kind = preparePicture(reader);
    const QSize size = kind == PictureKind::NoPicture ? QSize() : sizeOf(reader);
    if (size.isEmpty()) {
        return refuse(QCoreApplication::translate("vellora", "is not a picture that can be read"));
    }
    if (!isDecodable(size.width(), size.height())) {
        return refuse(QCoreApplication::translate(
                          "vellora", "has %1 x %2 pixels, more than the %3 million that are read")
                          .arg(size.width())
                          .arg(size.height())
                          .arg(kMaxDecodedPixels / 1'000'000));
    }
    *info = {};
    info->width = size.width();
    info->height = size.height();
    setOrientation(*info, reader.transformation());
    setSizes(*info);
    return true;
}

bool HasExcessiveScans(const QString& path) {
    return fileHasExcessiveScans(path);
}

}  // namespace vellora
