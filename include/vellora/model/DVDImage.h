#pragma once

/// @file
/// The edit record of one photo.

#include <QString>
#include <cstdint>
#include <memory>

#include <vellora/base/PhotoListNode.h>
#include <vellora/model/SpriteHolder.h>

class QImage;
class QPainter;

namespace vellora {

class CDVDAlbumImage;
class CPhotoProcessor;

/// Ties together the host's record of a photo, its processed picture, its own sprites and the
/// album, and composes the finished picture.
///
/// Sprites are kept in the design space of 600 x 450 units and scaled to the canvas when drawn.
class VELLORA_EXPORT CDVDImage : public CSpriteHolder {
public:
    CDVDImage();
    /// Deletes the processor and all sprites; marks the bound photo changed.
    ~CDVDImage() override;

    [[nodiscard]] const CRuntimeClass* GetRuntimeClass() const override;

    /// Binds the record to a photo and an album; neither is owned, both may be null.
    void BindNode(_PHOTO_LIST_NODE* node, CDVDAlbumImage* album);
    [[nodiscard]] _PHOTO_LIST_NODE* GetNode() const { return m_node; }
    /// The bound album; null once it is gone.
    [[nodiscard]] CDVDAlbumImage* GetAlbum() const {
        return m_albumLife.expired() ? nullptr : m_album;
    }
    [[nodiscard]] CPhotoProcessor* GetProcessor() const { return m_processor.get(); }

    /// The size in pixels of the surface that is composed; nothing is redrawn.
    void SetCanvasSize(int width, int height);
    [[nodiscard]] int GetCanvasWidth() const { return m_canvasWidth; }
    [[nodiscard]] int GetCanvasHeight() const { return m_canvasHeight; }
    /// The colour around the photo. It also becomes the module-wide current background colour.
    void SetBackgroundColor(COLORREF colour);
    [[nodiscard]] COLORREF GetBackgroundColor() const { return m_background; }
    /// Copies the photo's rotation into the record.
    void SyncAngleFromNode();
    [[nodiscard]] std::int32_t GetAngle() const { return m_angle; }

    /// Draws only the part of the canvas that starts at an origin: the photo is placed at (0, 0)
    /// and the sprites are shifted by the origin, in canvas pixels.
    void SetRegion(int x, int y);
    void ClearRegion() { m_regionFlag = false; }

    /// A text held with the record.
    void SetName(const QString& name) { m_name = name; }
    [[nodiscard]] const QString& GetName() const { return m_name; }

    /// Marks record and bound photo changed.
    void MarkChanged() override;

    /// Draws the processed photo onto the canvas. `fitMode` 0 fits inside, any other value fills.
    void PlacePhoto(QPainter& painter, int fitMode);
    /// Composes the whole picture: background, photo, album sprites, own sprites.
    void Draw(QPainter& painter, int fitMode);
    /// Draws album sprites, then own sprites, over what is there; nothing when the photo
    /// suppresses them.
    void DrawSprites(QPainter& painter);
    /// Composes the picture on a new 24-bit surface; null for an empty size.
    [[nodiscard]] QImage Compose(int width, int height, int fitMode);
    /// Composes the picture at canvas size and writes it as a JPEG file. Failures are not
    /// reported; the file is then not there, or is what it was.
    /// @param quality  0 to 100.
    /// @return 1.
    int SaveAsJpeg(const QString& path, int quality, int fitMode);

protected:
    void OnSpriteListChanged() override;

private:
    void DrawSprite(QPainter& painter, CDVDImageSprite& sprite);

    std::unique_ptr<CPhotoProcessor> m_processor;
    QString m_name;
    std::int32_t m_angle = -90;
    _PHOTO_LIST_NODE* m_node = nullptr;
    CDVDAlbumImage* m_album = nullptr;
    std::weak_ptr<const void> m_albumLife;
    COLORREF m_background = 0;
    bool m_regionFlag = false;
    int m_canvasWidth = 768;
    int m_canvasHeight = 576;
    int m_regionX = 0;
    int m_regionY = 0;
};

}  // namespace vellora
