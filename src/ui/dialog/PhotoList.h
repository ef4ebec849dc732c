#pragma once

#include <vellora/base/PhotoListNode.h>

namespace vellora {

class CDVDImage;
class CImageObj;

/// A photo of the list that can be edited.
struct ListedPhoto {
    _PHOTO_LIST_NODE* photo = nullptr;
    CDVDImage* image = nullptr;

    [[nodiscard]] bool isUsable() const { return photo != nullptr && image != nullptr; }
};

/// The photo at an index; not usable when there is none, or its element lacks a record.
ListedPhoto photoAt(CImageObj& document, int index);

int photoCount(CImageObj& document);

/// Where an edit record stands in the list now, or -1. The host may have moved it.
int indexOfRecord(CImageObj& document, const CDVDImage* record);

}  // namespace vellora
