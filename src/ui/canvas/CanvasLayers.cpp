#include "ui/canvas/CanvasLayers.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>
#include <cmath>
#include <optional>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

#include "ui/EditSession.h"
#include "ui/WaitCursor.h"

namespace vellora {
namespace {

/// A live filter that took longer last time is announced by the wait cursor.
constexpr qint64 kNoticeable = 200;

QSize surfaceSize(double ratio) {
    return {static_cast<int>(std::lround(kStageWidth * ratio)),
            static_cast<int>(std::lround(kStageHeight * ratio))};
}

QColor opaque(COLORREF colour) {
    return {redOf(colour), greenOf(colour), blueOf(colour)};
}

}  // namespace

void CanvasLayers::invalidatePhoto() {
    m_photo = {};
    m_composed = {};
}

void CanvasLayers::hideSprite(const CDVDImageSprite* sprite) {
    if (sprite != m_hidden) {
        m_hidden = sprite;
        m_composed = {};
    }
}

const QImage& CanvasLayers::composed(double ratio) {
    if (ratio != m_ratio) {
        invalidatePhoto();
        m_ratio = ratio;
    }
    if (m_composed.isNull()) {
        m_composed = photo();
        if (m_session.isOpen()) {
            drawSprites(m_composed);
        }
    }
    return m_composed;
}

const QImage& CanvasLayers::photo() {
    if (m_photo.isNull()) {
        m_photo = QImage(surfaceSize(m_ratio), QImage::Format_RGB32);
        drawPhoto(m_photo);
    }
    return m_photo;
}

void CanvasLayers::drawPhoto(QImage& surface) {
    const CDVDImage* record = m_session.record();
    surface.fill(record != nullptr ? opaque(record->GetBackgroundColor()) : QColor(Qt::black));
    if (record == nullptr) {
        return;
    }
    if (!m_session.hasPicture()) {
        drawMessage(surface);
        return;
    }
    const COpencvFilterInterface* filter = record->GetProcessor()->GetCurrentFilter();
    const std::u16string name = filter != nullptr ? filter->GetName() : u"";
    std::optional<WaitCursor> wait;
    if (const auto known = m_filterTimes.find(name);
        known != m_filterTimes.end() && known->second > kNoticeable) {
        wait.emplace();
    }
    QElapsedTimer timer;
    timer.start();
    drawPicture(surface);
    m_filterTimes[name] = timer.elapsed();
}

void CanvasLayers::drawPicture(QImage& surface) {
    CDVDImage& record = *m_session.record();
    record.SetCanvasSize(kStageWidth, kStageHeight);
    QPainter painter(&surface);
    if (surface.width() == kStageWidth) {
        record.PlacePhoto(painter, 0);
        return;
    }
    const Rect placed = m_session.placedPhoto();
    QImage picture(placed.width(), placed.height(), QImage::Format_BGR888);
    QPainter picturePainter(&picture);
    record.GetProcessor()->DrawTo(picturePainter, {0, 0, placed.width(), placed.height()});
    picturePainter.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(m_ratio, m_ratio);
    painter.drawImage(QRect(placed.left, placed.top, placed.width(), placed.height()), picture);
}

void CanvasLayers::drawMessage(QImage& surface) const {
    const _PHOTO_LIST_NODE* node = m_session.node();
    const QString path = node != nullptr ? hostText(node->path) : QString();
    const QString reason =
        QFileInfo::exists(path)
            ? LanguageWord(QStringLiteral("The file is not a picture that can be read."))
            : LanguageWord(QStringLiteral("The file is missing."));
    QPainter painter(&surface);
    painter.scale(m_ratio, m_ratio);
    const bool isDark = qGray(surface.pixel(0, 0)) < 128;
    const QColor ink = isDark ? QColor(225, 225, 225) : QColor(50, 50, 50);
    const QRectF area = QRectF(0, 0, kStageWidth, kStageHeight).adjusted(40, 0, -40, 0);
    QFont font = painter.font();
    font.setPixelSize(22);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(area.left(), 170, area.width(), 32), Qt::AlignCenter,
                     LanguageWord(QStringLiteral("This photo cannot be shown.")));
    font.setPixelSize(14);
    painter.setFont(font);
    painter.drawText(QRectF(area.left(), 206, area.width(), 22), Qt::AlignCenter, reason);
    const QString shownPath =
        painter.fontMetrics().elidedText(path, Qt::ElideMiddle, static_cast<int>(area.width()));
    painter.drawText(QRectF(area.left(), 232, area.width(), 22), Qt::AlignCenter, shownPath);
}

void CanvasLayers::drawSprites(QImage& surface) {
    QPainter painter(&surface);
    m_sprites.beginPicture(surface.size());
    for (const CDVDImageSpriteArray* list :
         {&m_session.album()->GetSprites(), &m_session.record()->GetSprites()}) {
        for (CDVDImageSprite* sprite : *list) {
            if (sprite != m_hidden) {
                m_sprites.draw(painter, *sprite);
            }
        }
    }
    m_sprites.endPicture();
}

}  // namespace vellora
