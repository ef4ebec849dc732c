#include "ui/dialog/PhotoList.h"

#include <vellora/host/ImageObj.h>

namespace vellora {

ListedPhoto photoAt(CImageObj& document, int index) {
    const CPtrList& list = *document.GetProjectPtrList();
    const POSITION position = list.FindIndex(index);
    const _HNODE_DATA* data = position != nullptr ? list.GetAt(position) : nullptr;
    return data != nullptr ? ListedPhoto{data->photo, data->image} : ListedPhoto{};
}

int photoCount(CImageObj& document) {
    return document.GetProjectPtrList()->GetCount();
}

int indexOfRecord(CImageObj& document, const CDVDImage* record) {
    const CPtrList& list = *document.GetProjectPtrList();
    POSITION position = list.GetHeadPosition();
    for (int index = 0; position != nullptr; ++index) {
        const _HNODE_DATA* data = list.GetNext(position);
        if (data != nullptr && data->image == record) {
            return index;
        }
    }
    return -1;
}

}  // namespace vellora
