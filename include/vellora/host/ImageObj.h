#pragma once

/// @file
/// The document class.

#include <QString>
#include <QStringList>
#include <memory>

#include <vellora/base/Export.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/base/Types.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/host/PtrList.h>

class QImage;
class QObject;

namespace vellora {

class CDVDAlbumImage;

/// The photos of one slideshow in their order, and their album.
///
/// Rules that hold for every operation:
/// - A status is `S_OK` or `E_FAIL`; nothing is thrown to the host.
/// - The list owns nothing: taking an element out of it frees nothing unless the operation says
///   so. A node lives until its last reference is released.
/// - A position names an element of the list; whichever operation returned it, every operation
///   takes it. Inserting before a null position puts the element first, behind it last.
/// - List operations take no lock: they belong to one thread, the host's user-interface thread.
/// - The host creates the `QGuiApplication` before it draws anything.
class VELLORA_EXPORT CImageObj {
public:
    CImageObj();
    /// Empties the list and deletes the album; nodes stay alive until they are released.
    virtual ~CImageObj();
    CImageObj(const CImageObj&) = delete;
    CImageObj& operator=(const CImageObj&) = delete;

    /// Makes a node for a photo and appends it.
    /// @param out  Receives the handle with one reference, which is the caller's.
    /// @return `E_FAIL` for a null `out`; nothing is then made.
    STATUS AddPhotoListNode(_PHOTO_LIST_NODE* photo, _HNODE** out);
    /// Makes a node for a photo and inserts it before or behind a position.
    /// @param outPos  Receives the new position; may be null.
    STATUS InsertPhotListNode(POSITION pos, _PHOTO_LIST_NODE* photo, int before, POSITION* outPos,
                              _HNODE** out);
    /// Appends an existing node and binds it to this album. The reference count stays.
    STATUS AddNode(_HNODE* node);
    /// Inserts an existing node before or behind a position, without binding it.
    STATUS InsertNode(POSITION pos, _HNODE* node, int before, POSITION* outPos);

    /// The position of the index-th element, null when there is none. Always `S_OK`.
    STATUS GetPositionByIndex(int index, POSITION* out);
    /// The index-th element's data record (an `_HNODE_DATA*`), typed as the handle type.
    STATUS GetNodeData(int index, _HNODE** out);

    /// Takes the index-th element out of the list; frees nothing.
    STATUS RemoveAt(int index);
    /// Takes the last element out and deletes its edit record and data record. The handle stays
    /// allocated and must not be used any more. `E_FAIL` for an empty list.
    STATUS RemoveTail();
    /// Takes the index-th element out and deletes its edit record and data record. The handle
    /// stays allocated and must not be used any more.
    STATUS RemoveZelphPhotoNodeByIndex(int index);
    /// Empties the list; frees nothing.
    STATUS RemoveAllNodes();

    /// Sets the changed flag of every photo.
    void SetChangedToAllNode();
    /// The list as the host walks it; owned by this object.
    CPtrList* GetProjectPtrList();
    /// The module-wide transition names, which only the host fills and reads.
    static QStringList& GetTransitionNameArray();

    /// @param empty  Receives 1 when the album holds no sprite, else 0.
    STATUS IsAlbumEmpty(int& empty);
    /// Deletes all album sprites.
    STATUS RemoveAllAlbumSprites();
    /// Appends a copy of each album sprite to a node's own sprites and clears the album flag of
    /// the album's sprites.
    STATUS ApplyAlbumToNode(_HNODE* node);
    /// The album; owned by this object.
    [[nodiscard]] CDVDAlbumImage* GetAlbum() const { return m_album.get(); }

    STATUS SetImageFilePath(const QString& path);
    [[nodiscard]] const QString& GetImageFilePath() const { return m_imageFilePath; }
    /// The folder that holds "texteffect" and "ArtClip"; "." until it is set.
    STATUS SetTextEffectBaseFolder(const QString& folder);
    [[nodiscard]] const QString& GetTextEffectBaseFolder() const { return m_baseFolder; }
    /// The language file of the whole module; empty for the built-in English texts.
    static void SetLanguageString(const QString& path);
    /// The background of the edit dialog's frame; not owned, may be null.
    void SetBkImage(QImage* image) { m_background = image; }
    [[nodiscard]] QImage* GetBkImage() const { return m_background; }

    /// Writes the finished picture of a photo as a JPEG file.
    ///
    /// Runs on the host's user-interface thread, takes no lock, and releases the photo's decoded
    /// pictures.
    ///
    /// @param width, height  Size of the picture; when either is 0 both are the processed photo's.
    /// @param quality   JPEG quality, 0 to 100.
    /// @param reserved  Without effect.
    /// @param mode      100: the picture is exactly the photo fitted into width x height, and that
    ///                  size is stored in the host record. Any other value: the picture is width x
    ///                  height and the photo is fitted inside (0) or fills it (any other).
    /// @param colour    Background colour.
    /// @return `E_FAIL` without such a node. A failed write is not reported: the file is then not
    ///         there, or is what it was.
    STATUS SaveNodeToFile(const QString& path, int index, int width, int height, int quality,
                          int reserved, int mode, DWORD colour);

    /// Writes the edits of all photos and the album's sprites to a project file.
    ///
    /// The photos' own data (path, order, rotation, flips) stays with the host. The old file is
    /// replaced when the new one is complete. While another program holds the file this is tried
    /// for about a second. One save at a time, on the host's user-interface thread.
    /// @return `E_FAIL` when the file cannot be written; the old one is then as it was.
    STATUS SaveToXMLFile(const QString& path);

    /// Reads a project file into the photos that the list holds, matched by position.
    ///
    /// Sprites, filters and crops are appended to what the photos and the album have; photos that
    /// got something are marked changed. Decoded pictures are not rebuilt: call this before the
    /// photos are shown, or release their pictures. What the file lacks or what is unknown is left
    /// out, and a file that is missing or no XML document changes nothing.
    /// @return `S_OK`, whatever the file holds.
    STATUS LoadFromXMLFile(const QString& path);

    /// The same, for hosts that want to know.
    /// @param reason  Receives why the file cannot be read, empty when it can; not null.
    /// @return `E_FAIL` when the file is missing or no XML document.
    STATUS LoadFromXMLFile(const QString& path, QString* reason);

    /// Opens the edit dialog on a photo and returns when the user has closed it.
    ///
    /// Every edit is made at once, in the host record and the edit record; there is no cancel. The
    /// image-buffer lock is held as long as the dialog is open, so other threads wait in
    /// `GetOutImg` and `ReleaseImgBuf`. Event handlers of the host that run on this thread
    /// meanwhile may call both, and may add and remove photos: `GetOutImg` gives the photo that is
    /// being edited as it is committed, and `ReleaseImgBuf` leaves its pictures alone. The host
    /// creates the `QApplication` before.
    ///
    /// @param index        Of the photo; the user may go on to others.
    /// @param hostWindow   Receives a `HostMessageEvent` after each flip and rotation, for each
    ///                     photo that is left by going to another, and on the command "Close". When
    ///                     it is a widget the dialog also stays above its window. May be null, and
    ///                     may be destroyed meanwhile, which closes the dialog.
    /// @param hostMessage  The message number that the events carry.
    /// @return `E_FAIL` when no photo with its records stands at the index.
    STATUS ShowProcessDialog(int index, QObject* hostWindow, unsigned hostMessage);

private:
    QString m_imageFilePath;
    QString m_baseFolder = QStringLiteral(".");
    std::unique_ptr<NodeList> m_nodes;
    QImage* m_background = nullptr;
    std::unique_ptr<CDVDAlbumImage> m_album;
};

}  // namespace vellora
