#include "base/ImageView.h"

#include <QPainter>
#include <QTransform>

#include <opencv2/core/core_c.h>

#include "base/LargePages.h"

namespace vellora {
namespace {

/// The image that the painter draws on when rows can be copied into it as they are: no scaling,
/// no clip, full opacity, same pixel format.
QImage* plainTarget(const QPainter& painter) {
    QPaintDevice* device = painter.device();
    if (device == nullptr || device->devType() != QInternal::Image || painter.hasClipping() ||
        painter.opacity() < 1.0 || painter.deviceTransform().type() > QTransform::TxTranslate) {
        return nullptr;
    }
    auto* image = static_cast<QImage*>(device);
    return image->format() == QImage::Format_BGR888 ? image : nullptr;
}

}  // namespace

void IplImageDeleter::operator()(IplImage* image) const noexcept {
    cvReleaseImage(&image);
}

ImagePtr makeImage(int width, int height) {
    if (width <= 0 || height <= 0) {
        return nullptr;
    }
    try {
        ImagePtr image(cvCreateImage(cvSize(width, height), IPL_DEPTH_8U, 3));
        preferLargePages(image->imageData, static_cast<std::size_t>(image->imageSize));
        return image;
    } catch (const cv::Exception&) {
        return nullptr;
    }
}

ImagePtr copyImage(const cv::Mat& source) {
    ImagePtr image = makeImage(source.cols, source.rows);
    if (image != nullptr) {
        source.copyTo(cv::cvarrToMat(image.get()));
    }
    return image;
}

QImage imageView(const cv::Mat& bgr) {
    return {bgr.data, bgr.cols, bgr.rows, static_cast<qsizetype>(bgr.step), QImage::Format_BGR888};
}

cv::Mat matView(QImage& bgr) {
    return {bgr.height(), bgr.width(), CV_8UC3, bgr.bits(),
            static_cast<std::size_t>(bgr.bytesPerLine())};
}

void drawPicture(QPainter& painter, int x, int y, const cv::Mat& bgr) {
    QImage* target = plainTarget(painter);
    if (target == nullptr) {
        painter.drawImage(QPoint(x, y), imageView(bgr));
        return;
    }
    const QPoint corner = painter.deviceTransform().map(QPoint(x, y));
    const QRect covered = QRect(corner, QSize(bgr.cols, bgr.rows)).intersected(target->rect());
    if (!covered.isEmpty()) {
        const cv::Rect part(covered.x() - corner.x(), covered.y() - corner.y(), covered.width(),
                            covered.height());
        cv::Mat pixels = matView(*target);
        bgr(part).copyTo(
            pixels(cv::Rect(covered.x(), covered.y(), covered.width(), covered.height())));
    }
}

}  // namespace vellora
