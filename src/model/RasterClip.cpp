#include <QImageReader>
#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "base/JpegScans.h"
#include "base/PictureReader.h"
#include "model/ClipDecoders.h"
#include "model/ClipPicture.h"

namespace vellora {
namespace {

cv::Mat viewOf(const QImage& image) {
    return {image.height(), image.width(), CV_8UC4, const_cast<uchar*>(image.constBits()),
            static_cast<std::size_t>(image.bytesPerLine())};
}

/// The picture reduced by area interpolation; with premultiplied alpha the mean is exact.
QImage reduced(const QImage& picture, QSize size) {
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    if (!result.isNull()) {
        cv::Mat target(result.height(), result.width(), CV_8UC4, result.bits(),
                       static_cast<std::size_t>(result.bytesPerLine()));
        cv::resize(viewOf(picture), target, target.size(), 0, 0, cv::INTER_AREA);
    }
    return result;
}

class RasterClip final : public ClipPicture {
public:
    explicit RasterClip(QImage picture) : m_picture(std::move(picture)) {}

    [[nodiscard]] QSizeF naturalSize() const override { return m_picture.size(); }

    void draw(QPainter& painter, const QRectF& target) const override {
        const QRectF onDevice = painter.deviceTransform().mapRect(target);
        const QSize pixels(static_cast<int>(std::ceil(
                               std::min(onDevice.width(), static_cast<double>(m_picture.width())))),
                           static_cast<int>(std::ceil(std::min(
                               onDevice.height(), static_cast<double>(m_picture.height())))));
        if (pixels.isEmpty()) {
            return;
        }
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        if (pixels == m_picture.size()) {
            painter.drawImage(target, m_picture);
        } else {
            painter.drawImage(target, reduced(m_picture, pixels));
        }
        painter.restore();
    }

    [[nodiscard]] qsizetype bytes() const override { return m_picture.sizeInBytes(); }

private:
    QImage m_picture;
};

}  // namespace

std::shared_ptr<const ClipPicture> decodeRasterClip(const QString& path, QString& reason) {
    QImageReader reader(path);
    reader.setAutoTransform(true);
    switch (preparePicture(reader)) {
        case PictureKind::NoPicture:
            reason = QStringLiteral("not a picture that can be read");
            return nullptr;
        case PictureKind::TooLarge:
            reason = QStringLiteral("the picture is too large");
            return nullptr;
        case PictureKind::Readable:
            break;
    }
    if (fileHasExcessiveScans(path)) {
        reason = QStringLiteral("the picture has too many scans");
        return nullptr;
    }
    QImage picture = reader.read();
    if (picture.isNull()) {
        reason = reader.errorString();
        return nullptr;
    }
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    return std::make_shared<RasterClip>(std::move(picture));
}

}  // namespace vellora
