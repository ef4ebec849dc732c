#pragma once

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QString>
#include <functional>
#include <memory>

#include <vellora/base/Rect.h>
#include <vellora/model/DVDImageSpriteArray.h>

namespace vellora {

struct _PHOTO_LIST_NODE;
struct TextStyle;
class CDVDAlbumImage;
class CDVDImage;
class CDVDImageSprite;
class CDVDImageText;

/// What an edit concerns.
enum class PhotoEdit {
    Details,  ///< Title, description and the other texts and numbers of the host record.
    Picture,  ///< Flips, rotation, crops and filters.
    Sprites,  ///< What lies on the photo, or on all photos.
};

/// Where a sprite goes in its list.
enum class SpriteOrder { Forward, Backward, Front, Back };

/// The photo that is being edited, and the one place through which every edit of it passes.
///
/// Each edit runs inside `perform`, so whatever has to happen around an edit is added there. The
/// records are not owned. Every operation is harmless while no photo is open, and for a sprite
/// that has gone in the meantime: the host may change its album at any time.
class EditSession : public QObject {
    Q_OBJECT

public:
    explicit EditSession(QObject* parent = nullptr);
    ~EditSession() override;

    /// Opens a photo, or closes the present one with null.
    void setPhoto(CDVDImage* record, CDVDAlbumImage* album);
    /// Closes the present photo without a last edit, because its records may be gone.
    void forgetPhoto();
    [[nodiscard]] CDVDImage* record() const { return m_recordLife.expired() ? nullptr : m_record; }
    [[nodiscard]] CDVDAlbumImage* album() const { return m_album; }
    /// The host record of the open photo, or null.
    [[nodiscard]] _PHOTO_LIST_NODE* node() const;
    /// Whether there are both a record and an album.
    [[nodiscard]] bool isOpen() const { return record() != nullptr && m_album != nullptr; }
    /// Whether the photo has a picture.
    [[nodiscard]] bool hasPicture() const;
    /// Where the photo lies on the stage; empty without a picture.
    [[nodiscard]] Rect placedPhoto() const;

    /// Carries out an edit and announces it. Does nothing while no photo is open.
    void perform(PhotoEdit kind, const std::function<void()>& change);

    /// Whether the sprite is still on the photo or in the album; null is not.
    [[nodiscard]] bool holds(const CDVDImageSprite* sprite) const;
    /// The list that a sprite is in: the photo's own, else the album's, else null.
    [[nodiscard]] CDVDImageSpriteArray* listOf(const CDVDImageSprite* sprite) const;

    /// Puts a sprite on top of the photo's own.
    /// @return The sprite, or null when there is no photo to put it on.
    CDVDImageSprite* addSprite(std::unique_ptr<CDVDImageSprite> sprite);
    /// Takes a sprite off the photo, or out of the album, and deletes it.
    void removeSprite(CDVDImageSprite* sprite);
    /// The same as a command of the user, after which every photo counts as changed.
    void deleteSprite(CDVDImageSprite* sprite);
    void moveSprite(CDVDImageSprite* sprite, QPoint position);
    void placeSprite(CDVDImageSprite* sprite, QPoint position, QSize size);
    void reorderSprite(CDVDImageSprite* sprite, SpriteOrder order);
    /// Moves a sprite, or with null all of the photo's own, into the album.
    void applyToAll(CDVDImageSprite* sprite);
    void setText(CDVDImageText* sprite, const QString& text);
    void setTextStyle(CDVDImageText* sprite, const TextStyle& style);

    void flipX();
    void flipY();
    void rotateLeft();
    void rotateRight();
    /// Commits the current filter, and cuts the picture where the frame is not empty.
    ///
    /// @param frame  On the stage; empty for no crop.
    /// @return False when that failed; the photo counts as changed all the same.
    bool commitPicture(const Rect& frame);
    /// Drops all crops and filters.
    void restoreOriginal();

Q_SIGNALS:
    /// The open photo is about to be left; it can still be edited.
    void photoAboutToChange();
    /// Another photo was opened, or the present one closed.
    void photoChanged();
    /// The open photo was edited.
    void edited(PhotoEdit kind);
    /// The album was changed, so every photo counts as changed.
    void albumChanged();

private:
    CDVDImage* m_record = nullptr;
    std::weak_ptr<const void> m_recordLife;  ///< Ends when the host deletes the photo's node.
    CDVDAlbumImage* m_album = nullptr;
};

}  // namespace vellora
