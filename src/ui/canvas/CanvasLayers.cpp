#include "ui/canvas/CanvasLayers.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>
#include <cmath>
#include <cstdlib>
#include <optional>

#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

#include "base/ImageView.h"
#include "host/Guard.h"
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
    m_detailed.reset();
    m_isDetailKnown = false;
    invalidateFilter();
}

void CanvasLayers::invalidateFilter() {
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
        // Nothing may be thrown through the event loop; what was drawn until then is shown.
        guarded([this] {
            m_composed = photo();
            if (m_session.isOpen()) {
                drawSprites(m_composed);
            }
            return S_OK;
        });
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
    const Rect placed = m_session.placedPhoto();
    if (placed.isEmpty()) {
        return;  // a sliver that has less than a row on the stage
    }
    const COpencvFilterInterface* filter = record->GetProcessor()->GetCurrentFilter();
    const std::u16string name = filter != nullptr ? filter->GetName() : u"";
    std::optional<WaitCursor> wait;
    const bool makesDetail = m_ratio > 1.0 && !m_isDetailKnown;
    if (makesDetail || isExpectedToTakeLong(filter)) {
        wait.emplace();
    }
    QElapsedTimer timer;
    timer.start();
    const QImage picture = filtered(name);
    m_filterTimes[name] = timer.elapsed();

    const QRectF target(placed.left * m_ratio, placed.top * m_ratio, placed.width() * m_ratio,
                        placed.height() * m_ratio);
    const QRect place = target.toAlignedRect();
    QPainter painter(&surface);
    // A picture that is a unit short of its place is drawn as it is, as in the output.
    if (std::abs(target.width() - picture.width()) < 2.0 * m_ratio &&
        std::abs(target.height() - picture.height()) < 2.0 * m_ratio) {
        painter.drawImage(place.topLeft(), picture);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, picture);
    }
}

bool CanvasLayers::isExpectedToTakeLong(const COpencvFilterInterface* filter) const {
    if (filter == nullptr) {
        return false;
    }
    const auto known = m_filterTimes.find(filter->GetName());
    return known != m_filterTimes.end() ? known->second > kNoticeable : filter->is_art_effect != 0;
}

QImage CanvasLayers::filtered(const std::u16string& filterName) {
    CDVDImage& record = *m_session.record();
    record.SetCanvasSize(kStageWidth, kStageHeight);
    CPhotoProcessor& processor = *record.GetProcessor();
    if (ImagePtr detailed = m_slowFilters.contains(filterName) ? nullptr : detailedCopy()) {
        QElapsedTimer timer;
        timer.start();
        processor.ApplyPreview(detailed);
        if (timer.elapsed() > kNoticeable) {
            m_slowFilters.insert(filterName);
        }
        return imageView(cv::cvarrToMat(detailed.get())).copy();
    }
    const Rect placed = m_session.placedPhoto();
    const bool isPlaced = std::abs(placed.width() - processor.GetWidth()) < 2 &&
                          std::abs(placed.height() - processor.GetHeight()) < 2;
    const QSize size = isPlaced ? QSize(processor.GetWidth(), processor.GetHeight())
                                : QSize(placed.width(), placed.height());
    QImage picture(size, QImage::Format_BGR888);
    QPainter painter(&picture);
    processor.DrawTo(painter, {0, 0, size.width(), size.height()});
    return picture;
}

ImagePtr CanvasLayers::detailedCopy() {
    if (m_ratio > 1.0 && !m_isDetailKnown) {
        m_detailed = m_session.record()->GetProcessor()->MakeDetailed(m_ratio);
        m_isDetailKnown = true;
    }
    return m_detailed != nullptr ? copyImage(cv::cvarrToMat(m_detailed.get())) : nullptr;
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
