#include <QImage>
#include <QPainter>

#include <opencv2/core/core_c.h>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/text/TextMacro.h>

#include "base/ImageView.h"
#include "base/JpegEncoder.h"
#include "base/LargePages.h"
#include "base/ModuleState.h"
#include "base/StageFit.h"
#include "text/PhotoFacts.h"

namespace vellora {

const _PHOTO_LIST_NODE* photoOf(const CDVDImage& record) {
    return record.GetNode();
}

namespace {

QColor opaque(COLORREF colour) {
    return {redOf(colour), greenOf(colour), blueOf(colour)};
}

/// A composed picture knows nothing of the slideshow: slide number and count stay at their start.
void expandMacros(const CDVDImage& record, CDVDImageText& text) {
    CTextMacro macro;
    macro.Bind(&record);
    QString expanded;
    macro.Expand(text.GetText(), expanded);
    text.SetDisplayText(expanded);
}

bool suppressesSprites(const _PHOTO_LIST_NODE* node) {
    return node != nullptr && node->suppress_sprites != 0;
}

/// Whether the photo is placed on the canvas as it is and leaves nothing of it free.
bool isWholeCanvas(const CPhotoProcessor& photo, Size canvas, int fitMode) {
    return photo.GetWorking() != nullptr && !photo.IsScaled() && photo.GetWidth() == canvas.width &&
           photo.GetHeight() == canvas.height &&
           placedRect(canvas, canvas, fitMode) == Rect{0, 0, canvas.width, canvas.height};
}

}  // namespace

CDVDImage::CDVDImage() : m_processor(std::make_unique<CPhotoProcessor>()) {}

CDVDImage::~CDVDImage() {
    m_processor.reset();
    ClearSprites(true);
}

const CRuntimeClass* CDVDImage::GetRuntimeClass() const {
    static constexpr CRuntimeClass kClass{"CDVDImage"};
    return &kClass;
}

void CDVDImage::BindNode(_PHOTO_LIST_NODE* node, CDVDAlbumImage* album) {
    m_node = node;
    m_album = album;
    m_albumLife = album != nullptr ? album->GetLife() : std::weak_ptr<const void>();
    m_processor->SetNode(node);
}

void CDVDImage::SetCanvasSize(int width, int height) {
    m_canvasWidth = width;
    m_canvasHeight = height;
}

void CDVDImage::SetBackgroundColor(COLORREF colour) {
    m_background = colour & 0x00FFFFFFU;
    setCurrentBackground(m_background);
}

void CDVDImage::SyncAngleFromNode() {
    if (m_node != nullptr) {
        m_angle = m_node->rotation;
    }
}

void CDVDImage::SetRegion(int x, int y) {
    m_regionFlag = true;
    m_regionX = x;
    m_regionY = y;
}

void CDVDImage::MarkChanged() {
    CSpriteHolder::MarkChanged();
    OnSpriteListChanged();
}

void CDVDImage::OnSpriteListChanged() {
    if (m_node != nullptr) {
        m_node->changed = 1;
    }
}

void CDVDImage::PlacePhoto(QPainter& painter, int fitMode) {
    Rect rect = placedRect({m_processor->GetWidth(), m_processor->GetHeight()},
                           {m_canvasWidth, m_canvasHeight}, fitMode);
    if (m_regionFlag) {
        rect = rect.translated(-rect.left, -rect.top);
    }
    m_processor->DrawTo(painter, rect);
}

void CDVDImage::Draw(QPainter& painter, int fitMode) {
    painter.fillRect(QRect(0, 0, m_canvasWidth, m_canvasHeight), opaque(m_background));
    PlacePhoto(painter, fitMode);
    DrawSprites(painter);
}

void CDVDImage::DrawSprites(QPainter& painter) {
    if (suppressesSprites(m_node)) {
        return;
    }
    if (CDVDAlbumImage* album = GetAlbum(); album != nullptr) {
        for (CDVDImageSprite* sprite : album->GetSprites()) {
            DrawSprite(painter, *sprite);
        }
    }
    for (CDVDImageSprite* sprite : GetSprites()) {
        DrawSprite(painter, *sprite);
    }
}

void CDVDImage::DrawSprite(QPainter& painter, CDVDImageSprite& sprite) {
    sprite.SetCanvasSize(m_canvasWidth, m_canvasHeight);
    QPoint offset;
    if (m_regionFlag) {
        const float scaleX = static_cast<float>(m_canvasWidth) / kStageWidth;
        const float scaleY = static_cast<float>(m_canvasHeight) / kStageHeight;
        offset = {-static_cast<int>(static_cast<double>(m_regionX) / scaleX),
                  -static_cast<int>(static_cast<double>(m_regionY) / scaleY)};
    }
    if (auto* text = dynamic_cast<CDVDImageText*>(&sprite)) {
        expandMacros(*this, *text);
    }
    sprite.Draw(painter, offset, kDrawPlain);
}

QImage CDVDImage::Compose(int width, int height, int fitMode) {
    if (width <= 0 || height <= 0) {
        return {};
    }
    QImage surface(width, height, QImage::Format_BGR888);
    if (!surface.isNull()) {
        preferLargePages(surface.bits(), static_cast<std::size_t>(surface.sizeInBytes()));
        QPainter painter(&surface);
        Draw(painter, fitMode);
    }
    return surface;
}

int CDVDImage::SaveAsJpeg(const QString& path, int quality, int fitMode) {
    const CDVDAlbumImage* album = GetAlbum();
    const bool hasSprites =
        !GetSprites().IsEmpty() || (album != nullptr && !album->GetSprites().IsEmpty());
    if ((!hasSprites || suppressesSprites(m_node)) &&
        isWholeCanvas(*m_processor, {m_canvasWidth, m_canvasHeight}, fitMode)) {
        writeJpeg(path, cv::cvarrToMat(m_processor->GetWorking()), quality);
        return 1;
    }
    QImage surface = Compose(m_canvasWidth, m_canvasHeight, fitMode);
    if (!surface.isNull()) {
        writeJpeg(path, matView(surface), quality);
    }
    return 1;
}

}  // namespace vellora
