#include "ui/canvas/SpriteCache.h"

#include <QFileInfo>
#include <QPainter>
#include <cmath>

#include <vellora/base/Rect.h>
#include <vellora/base/Types.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/text/EffectCatalogue.h>

#include "text/TextureCache.h"
#include "ui/behaviour/Bounded.h"

namespace vellora {
namespace {

/// Pictures of sprites beyond this many bytes are not kept but drawn each time.
constexpr qsizetype kBudget = 192 << 20;

/// How far a sprite's drawing reaches beyond its rectangle.
double reachOf(const CDVDImageSprite& sprite) {
    return sprite.GetKind() == kTextSprite ? 1.2 : 1.0;
}

QString textureOf(const CDVDImageText& text) {
    const TextBrushSettings& face = text.GetStyle().effect.face;
    const QString name = face.GetTextureName();
    if (face.type != kTextureBrush || name.isEmpty()) {
        return {};
    }
    return texturePath(TextureFolder(text.GetName()), name);
}

}  // namespace

SpriteCache::SpriteCache() = default;
SpriteCache::~SpriteCache() = default;

bool SpriteCache::Look::sameAs(const Look& other) const {
    return size == other.size && content == other.content && file == other.file &&
           fileSize == other.fileSize && fileTime == other.fileTime &&
           (style == nullptr) == (other.style == nullptr) &&
           (style == nullptr || *style == *other.style);
}

SpriteCache::Look SpriteCache::lookOf(const CDVDImageSprite& sprite) {
    Look look;
    look.size = sprite.GetSize();
    if (sprite.GetKind() == kTextSprite) {
        const auto& text = static_cast<const CDVDImageText&>(sprite);
        look.content = text.GetDisplayText().isEmpty() ? text.GetText() : text.GetDisplayText();
        look.style = std::make_shared<TextStyle>(text.GetStyle());
        look.file = textureOf(text);
    } else {
        look.content = look.file = static_cast<const CDVDImageProps&>(sprite).GetFile();
    }
    if (!look.file.isEmpty()) {
        const QFileInfo file(look.file);
        look.fileSize = file.size();
        look.fileTime = file.lastModified();
    }
    return look;
}

void SpriteCache::beginPicture(QSize surface) {
    if (surface != m_surface) {
        m_entries.clear();
        m_surface = surface;
    }
    ++m_use;
    m_bytes = 0;
}

void SpriteCache::endPicture() {
    std::erase_if(m_entries, [this](const auto& item) { return item.second.lastUse != m_use; });
}

QSize SpriteCache::pictureSize(const CDVDImageSprite& sprite) const {
    const QSize size = sprite.GetSize();
    const double reach = reachOf(sprite);
    const double width = size.width() * reach * m_surface.width() / kStageWidth;
    const double height = size.height() * reach * m_surface.height() / kStageHeight;
    const double limit = 4.0 * m_surface.width() * m_surface.height();
    // Written so that it also holds for sizes that are no sizes at all.
    if (!(width > 0.0 && height > 0.0 && width * height <= limit)) {
        return {};
    }
    return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))};
}

QImage SpriteCache::pictureOf(CDVDImageSprite& sprite, QSize size) const {
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (!picture.isNull()) {
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        sprite.Draw(painter, boundedDifference({}, sprite.GetPosition()), kDrawPlain);
    }
    return picture;
}

void SpriteCache::draw(QPainter& painter, CDVDImageSprite& sprite) {
    sprite.SetCanvasSize(m_surface.width(), m_surface.height());
    const QSize size = pictureSize(sprite);
    const qsizetype bytes = qsizetype{4} * size.width() * size.height();
    if (size.isEmpty() || m_bytes + bytes > kBudget) {
        sprite.Draw(painter, {}, kDrawPlain);
        return;
    }
    m_bytes += bytes;
    const QPointF corner(
        std::round(static_cast<double>(sprite.GetPosition().x()) * m_surface.width() / kStageWidth),
        std::round(static_cast<double>(sprite.GetPosition().y()) * m_surface.height() /
                   kStageHeight));
    if (!QRectF(corner, size).intersects(QRectF(QPointF(), m_surface))) {
        return;
    }
    Look look = lookOf(sprite);
    Entry& entry = m_entries[&sprite];
    if (entry.picture.isNull() || !entry.look.sameAs(look)) {
        entry.picture = pictureOf(sprite, size);
        entry.look = std::move(look);
    }
    entry.lastUse = m_use;
    painter.drawImage(corner, entry.picture);
}

}  // namespace vellora
