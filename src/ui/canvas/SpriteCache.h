#pragma once

#include <QDateTime>
#include <QImage>
#include <QSize>
#include <QString>
#include <memory>
#include <unordered_map>

class QPainter;

namespace vellora {

struct TextStyle;
class CDVDImageSprite;

/// Draws sprites from pictures of them that are kept as long as a sprite keeps its looks, so that
/// moving one sprite does not draw all of them anew.
class SpriteCache {
public:
    SpriteCache();
    ~SpriteCache();

    /// Starts a picture whose sprites are drawn at a surface of the given size in pixels.
    void beginPicture(QSize surface);
    void draw(QPainter& painter, CDVDImageSprite& sprite);
    /// Drops what the picture did not use.
    void endPicture();

private:
    /// All that a sprite's picture depends on.
    struct Look {
        QSize size;
        QString content;  ///< The file of a clip, the shown text of a text.
        QString file;     ///< The file that is read to draw the sprite; empty for none.
        qint64 fileSize = 0;
        QDateTime fileTime;
        std::shared_ptr<const TextStyle> style;

        [[nodiscard]] bool sameAs(const Look& other) const;
    };

    struct Entry {
        Look look;
        QImage picture;
        unsigned lastUse = 0;
    };

    static Look lookOf(const CDVDImageSprite& sprite);
    [[nodiscard]] QSize pictureSize(const CDVDImageSprite& sprite) const;
    [[nodiscard]] QImage pictureOf(CDVDImageSprite& sprite, QSize size) const;

    std::unordered_map<const CDVDImageSprite*, Entry> m_entries;
    QSize m_surface;
    unsigned m_use = 0;
    qsizetype m_bytes = 0;  ///< Of the pictures that this picture has used so far.
};

}  // namespace vellora
