#include "ui/pages/FilterThumbnails.h"

#include <QPainter>

#include <opencv2/core/core_c.h>

#include <vellora/filters/PhotoProcessor.h>

#include "base/ImageView.h"

namespace vellora {
namespace {

QPixmap thumbnail(const IplImage& photo, COpencvFilterInterface& filter, int side) {
    QImage square(side, side, QImage::Format_RGB32);
    square.fill(Qt::white);
    IplImage* image = cvCloneImage(&photo);
    filter.Apply(&image);
    const ImagePtr filtered(image);  // the filter may have put another image in its place
    if (filtered != nullptr) {
        QPainter painter(&square);
        drawPicture(painter, (side - photo.width) / 2, (side - photo.height) / 2,
                    cv::cvarrToMat(filtered.get()));
    }
    return QPixmap::fromImage(square);
}

}  // namespace

std::vector<QPixmap> makeThumbnails(
    const CPhotoProcessor& photo,
    const std::vector<std::unique_ptr<COpencvFilterInterface>>& filters, double ratio) {
    const int side = qRound(kThumbnailSide * ratio);
    const ImagePtr fitted = photo.FitCopy(side, side);
    std::vector<QPixmap> thumbnails;
    if (fitted == nullptr) {
        return thumbnails;
    }
    for (const auto& filter : filters) {
        thumbnails.push_back(thumbnail(*fitted, *filter, side));
        thumbnails.back().setDevicePixelRatio(ratio);
    }
    return thumbnails;
}

}  // namespace vellora
