#pragma once

/// @file
/// Node handles and what a host does with them from any thread.

#include <cstdint>
#include <functional>

#include <vellora/base/Export.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/base/Types.h>

namespace vellora {

class CDVDImage;

/// Pairs a host record with the module's edit record.
struct _HNODE_DATA {
    _PHOTO_LIST_NODE* photo;  ///< The host's record; never freed by the module.
    CDVDImage* image;         ///< The edit record; owned.
};

/// A reference-counted node handle.
struct _HNODE {
    _HNODE_DATA* data;  ///< Owned.
    std::int32_t refs;  ///< 1 when the handle is made.
};

/// Takes another reference. Any thread; takes the node lock.
/// @return The same handle; null for null.
VELLORA_EXPORT _HNODE* DupHandle(_HNODE* node);

/// Drops a reference. The last one deletes edit record, data record and handle; the host record
/// must still be there then, because it is marked changed. Any thread; takes the node lock.
VELLORA_EXPORT void ReleaseNode(_HNODE* node);

/// Drops the decoded pictures of a node; the edits stay and the next rendering decodes the photo
/// again. Any thread; takes the image-buffer lock. The photo that is open in the edit dialog keeps
/// its pictures until the dialog leaves it.
VELLORA_EXPORT void ReleaseImgBuf(_HNODE* node);

/// Supplies the target of `GetOutImg`: stores an 8-bit, 3-channel image of the given size.
using ImageCallback = std::function<void(IplImage** out, int width, int height)>;

/// Renders the finished picture of a photo: crops, filters, flips, rotation, sprites.
///
/// Any thread; takes the image-buffer lock while it decodes and composes, not while the host's
/// callback runs. The decoded picture is kept for the next call until `ReleaseImgBuf`; a kept
/// picture is used again as it is, whatever width and height say.
///
/// @param width, height  When both are non-zero the photo is decoded at preview size, else at full
///                       size. They do not set the size of the result.
/// @param callback       Called once, on this thread, to supply the target. Not called when the
///                       photo cannot be decoded.
/// @return The image that the callback supplied, with the picture; null when the photo cannot be
///         decoded or the callback supplied none. The host owns it.
VELLORA_EXPORT IplImage* GetOutImg(_HNODE* node, int width, int height,
                                   const ImageCallback& callback);

}  // namespace vellora
