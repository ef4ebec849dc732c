#include "ui/canvas/CanvasLayers.h"

#include <QPainter>
#include <cmath>

#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "ui/EditSession.h"

namespace vellora {
namespace {

QSize surfaceSize(double ratio) {
    return {static_cast<int>(std::ceil(kStageWidth * ratio)),
            static_cast<int>(std::ceil(kStageHeight * ratio))};
}

QColor opaque(COLORREF colour) {
    return {redOf(colour), greenOf(colour), blueOf(colour)};
}

}  // namespace

void CanvasLayers::invalidatePhoto() {
    m_photo = {};
    m_composed = {};
}

const QImage& CanvasLayers::composed(double ratio) {
    if (ratio != m_ratio) {
        invalidatePhoto();
        m_ratio = ratio;
    }
    if (m_composed.isNull()) {
        m_composed = photo(ratio);
        if (CDVDImage* record = m_session.record(); record != nullptr) {
            QPainter painter(&m_composed);
            record->SetCanvasSize(m_composed.width(), m_composed.height());
            record->DrawSprites(painter);
        }
    }
    return m_composed;
}

const QImage& CanvasLayers::photo(double ratio) {
    if (m_photo.isNull()) {
        m_photo = QImage(surfaceSize(ratio), QImage::Format_RGB32);
        drawPhoto(m_photo);
    }
    return m_photo;
}

void CanvasLayers::drawPhoto(QImage& surface) const {
    CDVDImage* record = m_session.record();
    surface.fill(record != nullptr ? opaque(record->GetBackgroundColor()) : QColor(Qt::black));
    const Rect placed = m_session.placedPhoto();
    if (placed.isEmpty()) {
        return;
    }
    QPainter painter(&surface);
    if (surface.width() == kStageWidth) {
        record->SetCanvasSize(kStageWidth, kStageHeight);
        record->PlacePhoto(painter, 0);
        return;
    }
    QImage picture(placed.width(), placed.height(), QImage::Format_BGR888);
    QPainter picturePainter(&picture);
    record->GetProcessor()->DrawTo(picturePainter, {0, 0, placed.width(), placed.height()});
    picturePainter.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(m_ratio, m_ratio);
    painter.drawImage(QRect(placed.left, placed.top, placed.width(), placed.height()), picture);
}

}  // namespace vellora
